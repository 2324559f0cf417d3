// numberArgument.h - numbers that a user writes, on the command line or in a choices file.
#pragma once

#include <QString>

#include <cstdint>
#include <optional>

/// A number in decimal, or in one of the hexadecimal forms of ESI files and C: "#x1A", "0x1A". Unlike the readers of
/// ESI files, which take what does not convert for 0, this one takes the whole text or nothing.
[[nodiscard]] inline std::optional<std::uint32_t> numberIn(const QString& text)
{
    const bool isHexadecimal = text.startsWith(QLatin1String("0x"), Qt::CaseInsensitive)
                               || text.startsWith(QLatin1String("#x"), Qt::CaseInsensitive);
    const QString digits = isHexadecimal ? text.mid(2) : text;
    if (digits.isEmpty() || !digits.at(0).isLetterOrNumber()) // no sign, no blank
        return std::nullopt;
    constexpr int decimal = 10;
    constexpr int hexadecimal = 16;
    bool isNumber = false;
    const std::uint32_t number = digits.toUInt(&isNumber, isHexadecimal ? hexadecimal : decimal);
    return isNumber ? std::make_optional(number) : std::nullopt;
}
