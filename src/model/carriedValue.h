// carriedValue.h - which values of startup commands a KTL file carries.
#pragma once

#include <cstdint>

/// Whether the number in the record of a startup command is its value. The record has four bytes for it; a longer value
/// goes out as 0, with its own length. A number other than 0 is the value, whatever its length, which counts a mark
/// before the digits and zeros after them.
/// @param dataBytes  as the command announces them
[[nodiscard]] constexpr bool isCarried(std::uint32_t dataBytes, std::uint32_t data) noexcept
{
    return dataBytes <= sizeof data || data != 0;
}
