// startupOrder.h - what the startup commands of a device do to its mapping and assign objects, in the order of sending.
#pragma once

#include "facts/unitFacts.h"

#include <vector>

namespace facts {

/// The slips of a unit, in the order of sending.
[[nodiscard]] std::vector<StartupFault> startupFaultsOf(const UnitFacts& unit);

} // namespace facts
