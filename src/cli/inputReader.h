// inputReader.h - reads the files that the user names, several at a time.
#pragma once

#include "cli/inputFile.h"
#include "cli/messages.h"
#include "cli/retriedWork.h"
#include "esi/esiFile.h"
#include "model/deviceRecords.h"

#include <QString>
#include <QStringList>

#include <cstddef>
#include <optional>
#include <vector>

namespace cli {

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
    InputReader(QStringList paths, AcceptedInputs accepted, Dictionaries dictionaries, std::size_t cores);

    /// The next file; to be called once for each.
    [[nodiscard]] ReadInput take() { return m_work.take(); }

private:
    [[nodiscard]] ReadInput read(const QString& path) const;

    QStringList m_paths;
    AcceptedInputs m_accepted;
    Dictionaries m_dictionaries;
    RetriedWork<ReadInput> m_work;
};

} // namespace cli
