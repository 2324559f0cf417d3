// busModules.h - couplers whose modules the controller finds on the bus.
#pragma once

#include "facts/unitFacts.h"
#include "ktl/reading/ktlDeviceBlocks.h"
#include "model/deviceRecords.h"

#include <string_view>

namespace show {

/// Says that a process image lacks the modules that the controller finds on the bus, or that it has those of the slots.
/// @param unit  the device, which is a coupler only if it has slots
/// @return      empty for a device of another class
[[nodiscard]] std::string_view busModulesNote(const struct_EtherCatDevice& device, const facts::UnitFacts& unit);

/// As above, of a device of a KTL file, whose image has no modules then.
[[nodiscard]] std::string_view busModulesNote(const KtlDeviceBlock& block);

} // namespace show
