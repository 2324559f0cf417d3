// checkedFile.h - a file with its findings, ready to be told.
#pragma once

#include "check/finding.h"

#include <QString>

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace check {

/// What a file is.
enum class FileKind : std::uint8_t
{
    Unknown, ///< it could not be read
    Esi,
    Ktl,
};

/// A file that was checked.
struct CheckedFile
{
    std::string name; ///< in UTF-8 where it is that, with every byte that is there
    std::string shownName; ///< for people, on one line
    std::string uri; ///< absolute, or relative to the working folder; empty for standard input
    FileKind kind = FileKind::Unknown;
    Findings findings;
    std::size_t firstDevice = 1; ///< number of its first device, over all files of the call from 1
};

/// The device or module that a finding is about.
/// @return  null for the file
[[nodiscard]] const UnitName* unitOf(const CheckedFile& file, const Owner& owner);

/// The number of a device over all files, of a module in its file, from 1.
[[nodiscard]] std::size_t numberOf(const CheckedFile& file, const Owner& owner);

/// The name of a device or module, cut where it is longer than anybody reads: it comes with each finding.
[[nodiscard]] std::string_view beginningOfName(const UnitName& unit);

/// What a finding is about, as messages name it: `device 2 "MB-C100"`; empty for the file.
[[nodiscard]] QString labelOf(const CheckedFile& file, const Owner& owner);

/// A finding with its label: `device 2 "MB-C100": the product code is missing or 0`.
[[nodiscard]] QString labelledText(const CheckedFile& file, const Finding& finding);

/// Whether findings of a file have a byte offset for a place, and not a line.
[[nodiscard]] constexpr bool hasOffsets(FileKind kind) noexcept
{
    return kind == FileKind::Ktl;
}

/// How many findings of a file are left out.
[[nodiscard]] std::size_t omittedIn(const Findings& findings);

/// What is said of them: "12 more findings are left out: ...".
[[nodiscard]] QString omissionText(std::size_t omitted);

/// How many findings there are, with those that are left out.
struct FindingCounts
{
    std::size_t files = 0;
    std::size_t errors = 0;
    std::size_t warnings = 0;
    std::size_t notes = 0;

    void add(const Findings& findings);

    /// Whether there is one of that severity, or worse.
    [[nodiscard]] bool reach(Severity threshold) const;
};

} // namespace check
