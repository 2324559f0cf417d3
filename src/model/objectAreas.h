// objectAreas.h - the object indexes by which PDOs are mapped and assigned.
#pragma once

#include <cstdint>

/// Object indexes from `first` to `last`, both included.
struct ObjectArea
{
    std::uint16_t first;
    std::uint16_t last;

    [[nodiscard]] constexpr bool holds(std::uint16_t index) const noexcept { return index >= first && index <= last; }
};

inline constexpr ObjectArea outputMappings{0x1600, 0x17FF}; ///< an object per output PDO: what is mapped into it
inline constexpr ObjectArea inputMappings{0x1A00, 0x1BFF}; ///< as above, for input PDOs
inline constexpr ObjectArea assignObjects{0x1C10, 0x1C2F}; ///< an object per sync manager: the PDOs that are on it

/// Whether an object lists the PDOs of a sync manager.
[[nodiscard]] constexpr bool isAssignObject(std::uint16_t index) noexcept
{
    return assignObjects.holds(index);
}

/// Whether an object lists the entries of a PDO.
[[nodiscard]] constexpr bool isMappingObject(std::uint16_t index) noexcept
{
    return outputMappings.holds(index) || inputMappings.holds(index);
}

/// Index of the object that assigns PDOs to a sync manager. Numbers above 31 lead out of the area.
[[nodiscard]] constexpr std::uint16_t assignObjectOf(std::uint8_t syncManager) noexcept
{
    return static_cast<std::uint16_t>(assignObjects.first + syncManager);
}
