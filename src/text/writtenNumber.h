// writtenNumber.h - numbers that a user writes, on the command line or in a choices file.
#pragma once

#include <QLatin1Char>
#include <QString>

#include <algorithm>
#include <cstdint>
#include <optional>

/// A number of at most 32 bits that is written with the digits of its base and nothing else: no sign, no blank, no
/// second prefix and no digits of other scripts.
/// @param base  10 or 16
[[nodiscard]] inline std::optional<std::uint32_t> numberOfDigits(const QString& digits, int base)
{
    constexpr int hexadecimal = 16;
    const auto isDigit = [base](QChar character) {
        const auto isFrom = [character](char first, char last) {
            return character >= QLatin1Char(first) && character <= QLatin1Char(last);
        };
        return isFrom('0', '9') || (base == hexadecimal && (isFrom('a', 'f') || isFrom('A', 'F')));
    };
    if (!std::all_of(digits.begin(), digits.end(), isDigit)) // QString passes over blanks, signs and "0x" by itself
        return std::nullopt;
    bool isNumber = false;
    const std::uint32_t number = digits.toUInt(&isNumber, base);
    return isNumber ? std::make_optional(number) : std::nullopt;
}

/// A number in decimal, or in one of the hexadecimal forms of ESI files and C: "#x1A", "0x1A". Unlike the readers of
/// ESI files, which take what does not convert as 0, this one takes the whole text or nothing.
[[nodiscard]] inline std::optional<std::uint32_t> numberIn(const QString& text)
{
    constexpr int decimal = 10;
    constexpr int hexadecimal = 16;
    const bool isHexadecimal = text.startsWith(QLatin1String("0x"), Qt::CaseInsensitive)
                               || text.startsWith(QLatin1String("#x"), Qt::CaseInsensitive);
    return isHexadecimal ? numberOfDigits(text.mid(2), hexadecimal) : numberOfDigits(text, decimal);
}
