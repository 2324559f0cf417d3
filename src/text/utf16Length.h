// utf16Length.h - the length of a text in the units that the records of the window count in.
#pragma once

#include <cstddef>
#include <string_view>

/// Units of UTF-16 of a text: one for most characters, two for those beyond U+FFFF.
/// @param utf8  well-formed
[[nodiscard]] inline std::size_t utf16Length(std::string_view utf8)
{
    std::size_t length = 0;
    for (const char character : utf8) {
        const auto byte = static_cast<unsigned char>(character);
        const bool isRestOfCharacter = (byte & 0xC0U) == 0x80U;
        const bool beginsPair = byte >= 0xF0U; // the first of four bytes
        length += isRestOfCharacter ? 0 : 1;
        length += beginsPair ? 1 : 0;
    }
    return length;
}
