// assignActivate.h - the bits of the assign-activate word of the distributed clocks that have a name.
#pragma once

#include <cstdint>

/// Bits of the word, by their numbers.
enum class AssignActivateBit : unsigned
{
    CyclicMode = 8,
    Sync0 = 9,
    Sync1 = 10
};

[[nodiscard]] constexpr bool isActive(std::uint32_t assignActivate, AssignActivateBit bit) noexcept
{
    return ((assignActivate >> static_cast<unsigned>(bit)) & 1U) != 0;
}
