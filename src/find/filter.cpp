#include "find/filter.h"

#include "text/writtenNumber.h"

#include <QLatin1String>

#include <array>

namespace find {

namespace {

constexpr std::uint32_t maxNumber = std::numeric_limits<std::uint32_t>::max();

/// A sign in front of a number, and the range that it makes of the number.
struct Comparison
{
    QLatin1String sign;
    std::optional<NumberRange> (*rangeOf)(std::uint32_t number);
};

/// Longer signs before those that they begin with.
const std::array comparisons{
    Comparison{QLatin1String(">="), [](std::uint32_t number) { return std::make_optional(NumberRange{number}); }},
    Comparison{QLatin1String("<="),
               [](std::uint32_t number) {
                   return std::make_optional(NumberRange{0, number});
               }},
    Comparison{QLatin1String(">"),
               [](std::uint32_t number) {
                   return number < maxNumber ? std::make_optional(NumberRange{number + 1}) : std::nullopt;
               }},
    Comparison{QLatin1String("<"),
               [](std::uint32_t number) {
                   return number > 0 ? std::make_optional(NumberRange{0, number - 1}) : std::nullopt;
               }},
};

/// Digits alone: an empty text is no number.
std::optional<std::uint32_t> numberOf(const QString& text)
{
    const QString digits = text.trimmed();
    return digits.isEmpty() ? std::nullopt : numberIn(digits);
}

} // namespace

std::optional<NumberRange> rangeIn(const QString& text)
{
    for (const Comparison& comparison : comparisons)
        if (text.startsWith(comparison.sign)) {
            const std::optional<std::uint32_t> number = numberOf(text.mid(comparison.sign.size()));
            return number.has_value() ? comparison.rangeOf(*number) : std::nullopt;
        }
    const int dots = text.indexOf(QLatin1String(".."));
    const std::optional<std::uint32_t> first = numberOf(dots < 0 ? text : text.left(dots));
    const std::optional<std::uint32_t> last = dots < 0 ? first : numberOf(text.mid(dots + 2));
    if (!first.has_value() || !last.has_value() || *first > *last)
        return std::nullopt;
    return NumberRange{*first, *last};
}

bool Pattern::fits(const std::string& utf8) const
{
    const QVector<uint> text = QString::fromStdString(utf8).toCaseFolded().toUcs4();
    int place = 0; // in the pattern
    int star = -1; // place of the last "*" that was met
    int afterStar = 0; // place in the text up to which that one reaches
    for (int at = 0; at < text.size();) {
        if (place < m_pattern.size() && m_pattern[place] == '*') {
            star = place++;
            afterStar = at;
        } else if (place < m_pattern.size() && (m_pattern[place] == '?' || m_pattern[place] == text[at])) {
            ++place;
            ++at;
        } else if (star >= 0) {
            place = star + 1;
            at = ++afterStar;
        } else {
            return false;
        }
    }
    while (place < m_pattern.size() && m_pattern[place] == '*')
        ++place;
    return place == m_pattern.size();
}

bool Filter::fits(const Found& found) const
{
    if (found.kind == FoundKind::Module && (wanted == Wanted::Devices || revision.has_value()))
        return false;
    return vendor.value_or(found.vendor) == found.vendor && number.value_or(found.number) == found.number
           && (!revision.has_value() || revision->holds(found.revision))
           && (!name.has_value() || name->fits(found.name)) && (!type.has_value() || type->fits(found.type));
}

} // namespace find
