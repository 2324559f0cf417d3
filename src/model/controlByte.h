// controlByte.h - the bits of the control byte of a sync manager.
#pragma once

#include <cstdint>

/// How a sync manager hands data over.
enum class SyncManagerMode : std::uint8_t
{
    Buffered = 0, ///< three buffers, of which each side has one at a time
    Mailbox = 2, ///< one buffer, which one side fills and the other empties
};

/// Bits 0 and 1. Two of their four values have no meaning.
[[nodiscard]] constexpr bool hasMode(std::uint32_t controlByte, SyncManagerMode mode) noexcept
{
    return (controlByte & 0x03U) == static_cast<std::uint32_t>(mode);
}

/// Bits 2 and 3. Two of their four values have no meaning.
[[nodiscard]] constexpr bool isWrittenByController(std::uint32_t controlByte) noexcept
{
    return (controlByte & 0x0CU) == 0x04U;
}

/// As above.
[[nodiscard]] constexpr bool isReadByController(std::uint32_t controlByte) noexcept
{
    return (controlByte & 0x0CU) == 0;
}
