// startupRecords.h - startup commands of a device and of its modules.
#pragma once

#include "model/nmtoken.h"

#include <cstdint>
#include <string>
#include <vector>

/// One startup command of the device.
struct struct_InitCmd
{
    NMTOKEN Transition = UnknownType; ///< state transition on which the command is sent
    std::uint16_t Index = 0; ///< object index
    std::uint8_t SubIndex = 0; ///< object sub-index
    std::uint8_t bIfCA = 0; ///< 1 for a complete access with its values in `m_CADataList`
    std::uint16_t DataBytes = 0; ///< number of data bytes
    std::uint32_t Data = 0; ///< the data as a number, 0 when longer than four bytes
    std::string Comment; ///< comment text
    std::string strData; ///< the data as text, in the form of `xmlGetStringuint`
    std::vector<unsigned int> m_CADataList; ///< values of a complete access
};
using str_InitCmd = struct_InitCmd;

/// Object index of a module's startup command, with the rules for moving it to a slot.
struct ModuleInitCmdIndex
{
    bool DependOnSlot = false; ///< the index moves with the slot
    bool DependOnSlotGroup = false; ///< the index moves with the slot group
    bool AdaptAutomatically = false; ///< not read from ESI
    std::uint16_t index = 0; ///< object index
};

/// One startup command that a module brings in.
struct struct_moduleInitCmd
{
    ModuleInitCmdIndex indexAttributes;
    NMTOKEN Transition = UnknownType; ///< state transition on which the command is sent
    std::uint16_t SubIndex = 0; ///< object sub-index; wider than the same field of `struct_InitCmd`
    std::uint16_t DataBytes = 0; ///< number of data bytes
    std::uint32_t Data = 0; ///< the data as a number, 0 when longer than four bytes
    std::string Comment; ///< comment text
    std::string strData; ///< the data as text, in the form of `xmlGetStringuint`
    int Instances = 0; ///< in a copy: that of the module in the slot, see `struct_slotmodule`
    std::uint8_t bIfCA = 0; ///< 1 for a complete access with its values in `m_CADataList`
    std::vector<unsigned int> m_CADataList; ///< values of a complete access
};
using str_moduleInitCmd = struct_moduleInitCmd;

// Compiled once, in recordLists.cpp.
extern template class std::vector<struct_InitCmd>;
extern template class std::vector<struct_moduleInitCmd>;
