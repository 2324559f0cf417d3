// byteBit.h - bit counts in the byte.bit form of `Size`, `size` and `Offs`.
#pragma once

#include <cstdint>

/// Byte.bit form of a length: whole bytes before the point, left-over bits as tenths.
/// @param bits  length in bits; 12 gives 1.4F, 19 gives 2.3F. A negative total (a sum that wrapped) divides toward 0.
/// @return      bytes.bits, never an error; sums of such values carry nothing over (1.4F + 1.4F is 2.8F, not 3.0F)
[[nodiscard]] constexpr float byteBitForm(std::int32_t bits) noexcept
{
    constexpr std::int32_t bitsPerByte = 8;
    constexpr double tenth = 0.1; // in double, rounded to float once at the end: views and files show that value
    const std::int32_t bytes = bits / bitsPerByte;
    return static_cast<float>(bytes + (bits % bitsPerByte) * tenth);
}

/// Running bit total of a PDO. It wraps as a signed 32-bit number, however long the declared entries are.
[[nodiscard]] constexpr std::int32_t addBits(std::int32_t total, std::int32_t bits) noexcept
{
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(total) + static_cast<std::uint32_t>(bits));
}

/// Whole bytes of a length in byte.bit form: the number before the point, rounded towards 0.
/// @return  0 for a length that no 64-bit number can hold
[[nodiscard]] constexpr std::int64_t wholeBytes(float length) noexcept
{
    constexpr float limit = 9.0e18F;
    return length > -limit && length < limit ? static_cast<std::int64_t>(length) : 0;
}
