// printableAscii.h - the bytes of nearly all texts: what needs care in others does not occur among them.
#pragma once

#include <algorithm>
#include <string_view>

/// Whether a byte of UTF-8 is a printable ASCII character. It is a character by itself then, takes one column, and does
/// nothing to a terminal.
[[nodiscard]] constexpr bool isPrintableAscii(char byte) noexcept
{
    return byte >= ' ' && byte <= '~';
}

/// Whether all bytes are such characters; true for the empty text.
[[nodiscard]] inline bool isPrintableAscii(std::string_view utf8) noexcept
{
    return std::all_of(utf8.begin(), utf8.end(), [](char byte) { return isPrintableAscii(byte); });
}
