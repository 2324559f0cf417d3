// esiChannels.h - sync managers, FMMUs and distributed clocks of a device of an ESI file.
#pragma once

#include "esi/xml/tree.h"
#include "facts/unitFacts.h"
#include "model/deviceRecords.h"

#include <vector>

namespace facts {

/// Adds the sync managers and FMMUs of a device.
/// @param syncManagers  their elements; none if there is no tree
/// @param fmmus         as above
void addChannels(UnitFacts& unit, const struct_EtherCatDevice& device, const std::vector<xml::Element>& syncManagers,
                 const std::vector<xml::Element>& fmmus);

/// Adds the operation modes of a device.
/// @param clockElements  the `Dc` elements; none if there is no tree
void addModes(UnitFacts& unit, const struct_EtherCatDevice& device, const std::vector<xml::Element>& clockElements);

} // namespace facts
