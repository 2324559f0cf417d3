// moduleEdits.h - modules put into places of a device and taken out again by hand. What follows from the modules is
// made anew by `renewModuleData`.
#pragma once

#include "model/deviceRecords.h"

#include <QString>

#include <cstdint>

/// Why modules of a device of that type cannot be put in or taken out by hand; empty if they can.
[[nodiscard]] QString moduleRefusal(std::uint16_t deviceType);

/// Puts a module into a place. A place that belongs to no slot changes nothing.
/// @return  why the module is refused, with nothing changed; empty if it is not
[[nodiscard]] QString insertModule(struct_EtherCatDevice& device, int place, const struct_module& module);

/// Takes the module out of a place. An empty place, or one that belongs to no slot, changes nothing.
void removeModule(struct_EtherCatDevice& device, int place);
