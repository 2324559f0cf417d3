// moduleCopies.h - where the PDOs that modules bring into a device come from.
#pragma once

#include "facts/unitFacts.h"
#include "model/deviceRecords.h"

#include <vector>

namespace facts {

/// Gives the copies of module PDOs in a device, and their entries, the places that they have in their modules.
/// @param unit     the device
/// @param device   its record
/// @param modules  of its file
void placeModuleCopies(UnitFacts& unit, const struct_EtherCatDevice& device,
                       const std::vector<const UnitFacts*>& modules);

} // namespace facts
