// fractionText.h - numbers with a fraction as texts.
#pragma once

#include <array>
#include <charconv>
#include <string>

/// The shortest digits that give the number again: "1.4".
[[nodiscard]] inline std::string fractionText(float number)
{
    std::array<char, 32> digits{};
    const std::to_chars_result result = std::to_chars(digits.data(), digits.data() + digits.size(), number);
    return {digits.data(), result.ptr};
}
