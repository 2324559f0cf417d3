// moduleInSlot.h - what a module in a slot brings into its device, at load time and when the user changes the slots.
#pragma once

#include "model/deviceRecords.h"

/// Appends what a module brings (PDOs, commands, dictionary) to the module lists of a device. Indexes that depend on
/// the slot, or on its group, are moved to the place.
/// @param device  its slots went through `completeSlots`
/// @param slot    that of the module
/// @param place   number of the slot, or of the place, from 0; copies carry it as `Instances`
void bringIntoDevice(struct_EtherCatDevice& device, const struct_Slot& slot, const struct_module& module, int place);

/// Empties what modules brought into a device, and brings it in again from the modules that are in its slots now.
/// Device type and drive axes stay. A device without slots keeps its lists; one whose type takes no modules by hand (0,
/// 1 and 3) ends with empty ones, while its slots keep their modules.
void rebuildModuleLists(struct_EtherCatDevice& device);
