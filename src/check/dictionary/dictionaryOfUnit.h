// dictionaryOfUnit.h - which objects the dictionary of a device or module has to have.
#pragma once

#include "check/factNames.h"
#include "model/objectAreas.h"

#include <cstdint>

namespace check {

/// Objects from 0x2000 to 0xEFFF belong to modules where there are slots, the others to the device.
inline constexpr ObjectArea moduleObjects{0x2000, 0xEFFF};

/// Whether an object that the dictionary of a unit lacks can only be missing: not if it is one of a module in a slot of
/// the device, or of the device that the module is put into.
[[nodiscard]] inline bool hasToKnow(const UnitFacts& unit, std::uint16_t index) noexcept
{
    if (unit.isDevice())
        return !unit.hasSlots || !moduleObjects.holds(index);
    return moduleObjects.holds(index);
}

} // namespace check
