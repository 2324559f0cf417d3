// startupOrder.h - what the startup commands of a device do to its mapping and assign objects, in the order of sending.
#pragma once

#include "check/unitFacts.h"

#include <vector>

namespace check {

/// The commands in the order in which the controller sends them: by their transition, and as they are in the file for
/// the same one. Commands without a known transition, and those of the way back, are left out.
[[nodiscard]] std::vector<const CommandFacts*> sendingOrder(const UnitFacts& unit);

/// The slips of a unit, in the order of sending.
[[nodiscard]] std::vector<StartupFault> startupFaultsOf(const UnitFacts& unit);

} // namespace check
