// filter.h - what a user looks for.
#pragma once

#include "find/found.h"

#include <QString>
#include <QVector>

#include <cstdint>
#include <limits>
#include <optional>

namespace find {

/// Numbers from one to another, both included.
struct NumberRange
{
    std::uint32_t first = 0;
    std::uint32_t last = std::numeric_limits<std::uint32_t>::max();

    [[nodiscard]] bool holds(std::uint32_t number) const { return number >= first && number <= last; }
};

/// A range as a user writes it: `0x120000`, `>=0x120000`, `<=`, `>`, `<`, or `0x100000..0x1fffff`.
/// @return  nothing if it has another form, or holds no number
[[nodiscard]] std::optional<NumberRange> rangeIn(const QString& text);

/// A pattern, in which `*` means any run of characters and `?` any one character. Case does not count.
class Pattern
{
public:
    explicit Pattern(const QString& pattern)
        : m_pattern(pattern.toCaseFolded().toUcs4())
    {}

    /// Whether the whole text fits.
    [[nodiscard]] bool fits(const std::string& utf8) const;

private:
    QVector<uint> m_pattern;
};

/// What a device or module has to be; what is not set may be anything.
struct Filter
{
    std::optional<std::uint32_t> vendor;
    std::optional<std::uint32_t> number; ///< product code, or ident of a module
    std::optional<NumberRange> revision; ///< which modules do not have
    std::optional<Pattern> name;
    std::optional<Pattern> type;
    Wanted wanted = Wanted::Devices;

    [[nodiscard]] bool fits(const Found& found) const;
};

} // namespace find
