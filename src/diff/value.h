// value.h - values as differences show them.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

namespace diff {

/// What a value is.
enum class ValueKind : std::uint8_t
{
    Words, ///< of ours, numbers in hexadecimal among them
    Number, ///< a decimal number
    Text, ///< of the file
    None, ///< the file has no such value
};

/// A value of a file, in the form in which it is compared.
struct Value
{
    std::string text;
    ValueKind kind = ValueKind::Words;

    [[nodiscard]] bool isThere() const noexcept { return kind != ValueKind::None; }
};

[[nodiscard]] inline bool operator==(const Value& left, const Value& right) noexcept
{
    return left.isThere() == right.isThere() && left.text == right.text;
}

[[nodiscard]] inline bool operator!=(const Value& left, const Value& right) noexcept
{
    return !(left == right);
}

/// No value.
[[nodiscard]] inline Value noValue()
{
    return {{}, ValueKind::None};
}

[[nodiscard]] Value decimal(std::int64_t number);

/// "0x1c12"; the digits that are there, at least two.
[[nodiscard]] Value hexadecimal(std::uint32_t number);

/// "yes" or "no".
[[nodiscard]] Value flag(bool isSet);

/// Words of ours.
[[nodiscard]] inline Value words(std::string text)
{
    return {std::move(text), ValueKind::Words};
}

/// A text of a file, without the white space around it, which has no meaning.
[[nodiscard]] Value text(std::string_view utf8);

/// A value as people read it: a text in quotation marks, cut where it is long; "none" where there is none.
[[nodiscard]] std::string shown(const Value& value);

/// Whether a value says no more than a missing one does: an empty text, 0 or "no".
[[nodiscard]] bool saysNothing(const Value& value);

} // namespace diff
