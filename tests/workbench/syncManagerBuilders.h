// syncManagerBuilders.h - devices with sync managers, as the tests of their views need them.
#pragma once

#include "workbench/modelBuilders.h"

#include <cstdint>

/// A sync manager by its number, its kind (1 and 2 mailboxes, 3 outputs, 4 inputs) and its name.
inline struct_SM syncManager(int number, int type, const char* name, float length = 0)
{
    struct_SM made;
    made.SM = static_cast<std::uint8_t>(number);
    made.Smtype = static_cast<std::uint8_t>(type);
    made.Name = name;
    made.Length = length;
    return made;
}

/// A device with the usual four sync managers: outputs of 4.5, inputs of 2 bytes.
inline struct_EtherCatDevice usualDevice()
{
    struct_EtherCatDevice device = deviceNamed("Drive");
    device.vSM = {syncManager(0, 1, "MBoxOut", 128), syncManager(1, 2, "MBoxIn", 64), syncManager(2, 3, "Outputs"),
                  syncManager(3, 4, "Inputs")};
    std::uint16_t address = 0x1000;
    for (struct_SM& each : device.vSM) {
        each.Attributes.StartAddress = address;
        each.Attributes.ControlByte = 38;
        each.Attributes.MinSize = 34;
        each.Attributes.MaxSize = 256;
        each.Attributes.DefaultSize = 128;
        address = static_cast<std::uint16_t>(address + 0x400);
    }
    device.RxPdo.vpdo = {pdoOn(2)};
    device.RxPdo.vpdo[0].Size = 4.5F;
    device.TxPdo.vpdo = {pdoOn(3)};
    device.TxPdo.vpdo[0].Size = 2.0F;
    return device;
}
