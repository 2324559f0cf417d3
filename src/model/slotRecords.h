// slotRecords.h - slots of a modular device.
#pragma once

#include "model/moduleRecords.h"
#include "model/nmtoken.h"

#include <cstdint>
#include <string>
#include <vector>

/// A module class that a slot accepts.
struct struct_ModuleClass
{
    std::string Class;
    std::string Name;
};
using str_ModuleClass = struct_ModuleClass;

/// Attributes of a module ident in a slot.
struct ModuleIdentAttributes
{
    std::uint32_t Default = 0; ///< 1 if this ident is the slot's default, else 0
};

/// A module ident that a slot accepts.
struct struct_ModuleIdent
{
    ModuleIdentAttributes Attributes;
    std::uint32_t ModuleIdent = 0;
};
using str_ModuleIdent = struct_ModuleIdent;

/// A module in a slot.
struct struct_slotmodule
{
    int Instances = 0; ///< from 0: number of the slot of a default module, place of one that a user put in
    struct_module module; ///< a full copy of the module as declared
};
using str_slotmodule = struct_slotmodule;

/// Attributes of a slot.
struct SlotAttributes
{
    std::uint32_t MinInstances = 0; ///< modules at least
    std::uint32_t MaxInstances = 0; ///< modules at most, never above 16
    std::uint32_t SlotIndexIncrement = 0; ///< object index step of the slot; starts as the device's value
    std::uint32_t SlotPdoIncrement = 0; ///< PDO index step of the slot; starts as the device's value
    std::int32_t m_SlotGroup = -1; ///< number of the slot group, -1 for none
    std::uint32_t m_SlotGroupIndexIncrement = 0; ///< object index step of the group; starts as the device's value
    std::uint32_t m_SlotGroupPdoIncrement = 0; ///< PDO index step of the group; starts as the device's value
};

/// One slot of a device.
struct struct_Slot
{
    SlotAttributes Attributes;
    std::string Name; ///< slot name, extended by the names of its slot group
    std::vector<struct_ModuleClass> ModuleClass;
    std::vector<struct_ModuleIdent> ModuleIdent; ///< the module idents that the slot accepts
    std::vector<struct_slotmodule> slotmodule; ///< the modules that are in the slot now
};
using str_Slot = struct_Slot;

/// Attributes of the `Slots` element of a device.
struct SlotsAttributes
{
    bool DownloadModuleIdentList = false;
    bool DownloadModuleAddressList = false;
    std::uint32_t SlotIndexIncrement = 0; ///< default object index step per slot
    std::uint32_t SlotPdoIncrement = 0; ///< default PDO index step per slot
    NMTOKEN m_DownloadModuleListTransition = UnknownType;
    std::string IdentifyModuleBy;
    std::uint32_t m_MaxSlotCount = 0;
    std::uint32_t m_MaxSlotGroupCount = 0;
    std::uint32_t m_SlotGroupIndexIncrement = 0; ///< default object index step per slot group
    std::uint32_t m_SlotGroupPdoIncrement = 0; ///< default PDO index step per slot group
};

/// Slots of a device.
struct DeviceSlots
{
    SlotsAttributes Attributes;
    std::vector<struct_Slot> vslot; ///< in document order
};

// Compiled once, in recordLists.cpp.
extern template class std::vector<struct_ModuleClass>;
extern template class std::vector<struct_ModuleIdent>;
extern template class std::vector<struct_slotmodule>;
extern template class std::vector<struct_Slot>;
