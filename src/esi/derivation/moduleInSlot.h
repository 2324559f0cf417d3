// moduleInSlot.h - what a module in a slot brings into its device, at load time and when the user changes the slots.
#pragma once

#include "model/deviceRecords.h"

/// Appends the PDOs, startup commands and dictionary of a module to the lists of the device in which modules are kept
/// apart. PDO and object indexes that depend on the slot, or on its group, are moved to the place.
/// @param device  must hold the slot's increments in the form that the check of the slots leaves
/// @param slot    slot of the device in which the module stands
/// @param module  as the file declares it; it stays as it is
/// @param place   number of the slot, or of the place, from 0; every copy carries it as its `Instances`
void bringIntoDevice(struct_EtherCatDevice& device, const struct_Slot& slot, const struct_module& module, int place);

/// Empties what modules brought into a device, and brings it in again from the modules that are in its slots now.
/// Device type and drive axes stay. A device without slots keeps its lists; one whose type takes no modules by hand (0,
/// 1 and 3) ends with empty ones, while its slots keep their modules.
void rebuildModuleLists(struct_EtherCatDevice& device);
