// retracedModules.h - modules, the slots that take them, and files that declare them.
#pragma once

#include "retrace/retracedDevices.h"

#include <cstdint>
#include <utility>
#include <vector>

namespace retracedDevices {

/// A slot of that many places for modules of these idents, or for all if there are none.
inline struct_Slot slot(std::uint32_t places, const std::vector<std::uint32_t>& idents)
{
    struct_Slot slot;
    slot.Attributes.MaxInstances = places;
    for (const std::uint32_t ident : idents)
        slot.ModuleIdent.emplace_back().ModuleIdent = ident;
    return slot;
}

/// Brings in an output; its PDO index moves with the slot.
inline struct_module outputModule()
{
    struct_module output = module(1, "Output");
    output.RxPdo.vpdo = {pdoOfModule(0x1600, 0, {moduleEntry(0x7000, 1, "A")})};
    return output;
}

/// Brings in an input; its PDO index moves with the slot.
inline struct_module inputModule()
{
    struct_module input = module(2, "Input");
    input.TxPdo.vpdo = {pdoOfModule(0x1A00, 1, {moduleEntry(0x6000, 1, "B")})};
    return input;
}

/// Brings in nothing but a command; its index moves with the slot.
inline struct_module commandModule()
{
    struct_module commands = module(3, "Commands");
    commands.Mailbox.COE.vinitcmd = {command<struct_moduleInitCmd>(0x8000, 1, 5, "m")};
    commands.Mailbox.COE.vinitcmd[0].indexAttributes.DependOnSlot = true;
    return commands;
}

inline struct_FilenameDevice fileWith(std::vector<struct_module> modules,
                                      std::vector<struct_EtherCatDevice> devices = {})
{
    struct_FilenameDevice file;
    file.xmlfilepath = "test.xml";
    file.Vendor_Id = 1;
    file.vcommentmodule.emplace_back().vmodule = std::move(modules);
    file.device = std::move(devices);
    return file;
}

/// A device with places 0 and 1 in its first slot, which takes any module, and place 2 in its second one, which takes
/// inputs only. Indexes move by 16 from place to place.
inline struct_EtherCatDevice deviceWithSlots(std::uint16_t type)
{
    struct_EtherCatDevice device = deviceWithSyncManagers();
    device.m_iDeviceType = type;
    device.Slots.Attributes.SlotPdoIncrement = 16;
    device.Slots.Attributes.SlotIndexIncrement = 16;
    device.Slots.vslot = {slot(2, {}), slot(1, {2})};
    return device;
}

/// Puts a default module in, which bears the number of a slot.
inline void putDefault(struct_Slot& slot, int number, const struct_module& module)
{
    slot.slotmodule.push_back({number, module});
}

} // namespace retracedDevices
