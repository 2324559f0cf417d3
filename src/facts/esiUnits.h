// esiUnits.h - the devices and modules of an ESI file.
#pragma once

#include "esi/fileElements.h"
#include "esi/xml/tree.h"
#include "facts/unitFacts.h"
#include "model/deviceRecords.h"

#include <cstddef>

namespace facts {

/// The facts of a device, but for its dictionary. They refer to the record and to the tree.
/// @param file      of the device
/// @param index     of the device in the file
/// @param elements  of the device
[[nodiscard]] UnitFacts deviceFactsOf(const struct_FilenameDevice& file, std::size_t index,
                                      const DeviceElements& elements);

/// As above, of a device whose elements nobody has: what only they tell is missing, such as places, excluded PDOs,
/// unread commands and whether there is a mailbox.
[[nodiscard]] UnitFacts deviceFactsOf(const struct_FilenameDevice& file, std::size_t index);

/// The facts of a module, but for its dictionary.
/// @param index    of the module in its file
/// @param element  of the module
[[nodiscard]] UnitFacts moduleFactsOf(const struct_module& module, std::size_t index, const xml::Element& element);

} // namespace facts
