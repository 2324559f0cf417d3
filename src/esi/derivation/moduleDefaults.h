// moduleDefaults.h - the modules that are in the slots of a device from the start.
#pragma once

#include "esi/derivation/modulesByIdent.h"
#include "model/deviceRecords.h"

/// Copies a module over `to`; its class and type name only if they have a text.
void copyModule(const struct_module& from, struct_module& to);

/// Puts the default modules into the slots of a device, and what they bring along into the device.
/// @param modules  those of the device's file
void putInDefaultModules(struct_EtherCatDevice& device, const ModulesByIdent& modules);
