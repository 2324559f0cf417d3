// foundWriter.h - what `ktl find` has found, as lines, JSON or CSV.
#pragma once

#include "find/found.h"

#include <QString>

#include <cstdint>
#include <iosfwd>
#include <memory>
#include <vector>

namespace cli {

/// How it is written.
enum class FoundForm : std::uint8_t
{
    Lines,
    Files, ///< their names alone
    Json,
    Csv,
};

/// Writes what was found, file by file.
class FoundWriter
{
public:
    FoundWriter() = default;
    virtual ~FoundWriter() = default;
    FoundWriter(const FoundWriter&) = delete;
    FoundWriter& operator=(const FoundWriter&) = delete;
    FoundWriter(FoundWriter&&) = delete;
    FoundWriter& operator=(FoundWriter&&) = delete;

    virtual void begin() {}
    /// @param path   of the file, as the user would name it
    /// @param isKtl  whether places are offsets
    /// @param found  at least one
    virtual void write(const QString& path, bool isKtl, const std::vector<find::Found>& found) = 0;
    virtual void end() {}
};

/// Vendor, product code and revision as a selector has them; the ident of a module.
[[nodiscard]] QString identityOf(const find::Found& found);

/// @param out         has to outlive the writer
/// @param end         of a line, where there are lines
/// @param isTerminal  whether names of files are for people, and not for programs
[[nodiscard]] std::unique_ptr<FoundWriter> makeFoundWriter(FoundForm form, char end, bool isTerminal,
                                                           std::ostream& out);

} // namespace cli
