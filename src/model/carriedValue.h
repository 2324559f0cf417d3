// carriedValue.h - which values of startup commands a KTL file carries.
#pragma once

#include <cstdint>

/// Whether the number in the record of a startup command is its value. The record has four bytes for it; a longer value
/// goes out as 0, with its own length. A number that is not 0 is the value, whatever its length says: that counts a
/// mark in front of the digits, and zeros after the last byte that counts.
/// @param dataBytes  length of the value as the command announces it
[[nodiscard]] constexpr bool isCarried(std::uint32_t dataBytes, std::uint32_t data) noexcept
{
    return dataBytes <= sizeof data || data != 0;
}
