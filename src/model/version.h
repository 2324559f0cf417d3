// version.h - the version of the program and of the KTL format that it writes.
#pragma once

#include <cstddef>
#include <cstdint>

/// Version text, as the text dump and the about box show it. The digits come from the build, which states them once.
inline constexpr char versionText[] = "V" KINETRA_VERSION;

/// Format version as the controller reads it: major version, then two hexadecimal digits each for minor version and
/// patch. The digits are those of the version text, so patch 28 is 0x28.
inline constexpr std::uint32_t formatVersion = 0x10028;

/// The number that belongs to a version text "Vmajor.minor.patch", each part taken digit by digit into hexadecimal.
[[nodiscard]] constexpr std::uint32_t versionNumber(const char* text) noexcept
{
    constexpr std::uint32_t bitsPerDigit = 4;
    constexpr std::uint32_t bitsPerPart = 8;
    std::uint32_t number = 0;
    std::uint32_t part = 0;
    for (std::size_t position = 1; text[position] != '\0'; ++position) {
        if (text[position] == '.') {
            number = (number | part) << bitsPerPart;
            part = 0;
        } else {
            part = (part << bitsPerDigit) | static_cast<std::uint32_t>(text[position] - '0');
        }
    }
    return number | part;
}

static_assert(versionNumber(versionText) == formatVersion, "the version text and the format version must agree");
