// nameRole.h - what the limits of a file ask of the names of its elements.
#pragma once

#include "text/exactName.h"

#include <QLatin1String>
#include <QString>

#include <string_view>

/// What an element counts as for the limits, by its local name.
struct NameRole
{
    bool mayHoldSections =
        false; ///< a name with "Device" in it, as the walk over a file asks for the parents of sections
    bool isDevice = false;
    bool isSlots = false;
    bool isSlot = false;
    bool isSlotGroupData = false;
    bool isName = false;
    bool isModules = false;
};

/// The role of a local name, a `QString` or a `std::string_view`.
template<typename Text> [[nodiscard]] NameRole nameRoleOf(const Text& name)
{
    NameRole role;
    role.mayHoldSections = hasInName(name, QLatin1String("Device"));
    role.isDevice = role.mayHoldSections && isNamed(name, QLatin1String("Device"));
    role.isSlots = isNamed(name, QLatin1String("Slots"));
    role.isSlot = isNamed(name, QLatin1String("Slot"));
    role.isSlotGroupData = isNamed(name, QLatin1String("SlotGroupData"));
    role.isName = isNamed(name, QLatin1String("Name"));
    role.isModules = isNamed(name, QLatin1String("Modules"));
    return role;
}
