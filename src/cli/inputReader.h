// inputReader.h - reads the files that the user names, several at a time.
#pragma once

#include "cli/inputKind.h"
#include "cli/messages.h"
#include "cli/orderedWork.h"
#include "esi/esiFile.h"
#include "model/deviceRecords.h"

#include <QString>
#include <QStringList>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace cli {

/// What a sub-command takes.
enum class AcceptedInputs : std::uint8_t
{
    Esi,
    EsiAndKtl,
};

/// A file that was read.
struct ReadInput
{
    std::optional<EsiLoadResult> esi; ///< loaded
    std::optional<std::vector<unsigned char>> ktl;
    Messages messages; ///< what is wrong, if there is neither
    bool isOutOfMemory = false;
};

/// Reads files, and hands them over in the order of the arguments, whatever the number of cores.
class InputReader
{
public:
    /// @param paths  as the user gave them, "-" for standard input, once at most
    /// @param cores  files that are read at the same time; memory is taken for as many
    InputReader(const QStringList& paths, AcceptedInputs accepted, Dictionaries dictionaries, std::size_t cores);

    /// The next file; to be called once for each. One that finds no memory while others are read beside it is read once
    /// more by itself, so what fits into the memory does not depend on the number of cores.
    [[nodiscard]] ReadInput take();

private:
    [[nodiscard]] ReadInput read(std::size_t index) const;

    QStringList m_paths;
    AcceptedInputs m_accepted;
    Dictionaries m_dictionaries;
    OrderedWork<ReadInput> m_work;
    std::size_t m_taken = 0;
};

} // namespace cli
