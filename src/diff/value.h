// value.h - values as differences show them.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace diff {

/// A value of a file, in the form in which it is shown and compared.
struct Value
{
    std::string text;
    bool isNumber = false; ///< a decimal number, which JSON has as one
    bool isThere = true; ///< false where the file has no such value
};

[[nodiscard]] inline bool operator==(const Value& left, const Value& right) noexcept
{
    return left.isThere == right.isThere && left.text == right.text;
}

[[nodiscard]] inline bool operator!=(const Value& left, const Value& right) noexcept
{
    return !(left == right);
}

/// No value.
[[nodiscard]] inline Value noValue()
{
    return {{}, false, false};
}

[[nodiscard]] Value decimal(std::int64_t number);

/// "0x1c12"; the digits that are there, at least two.
[[nodiscard]] Value hexadecimal(std::uint32_t number);

/// "yes" or "no".
[[nodiscard]] Value flag(bool isSet);

/// A text without the white space around it, which has no meaning.
[[nodiscard]] Value text(std::string_view utf8);

/// Whether a value says no more than a missing one does: an empty text, 0 or "no".
[[nodiscard]] bool saysNothing(const Value& value);

} // namespace diff
