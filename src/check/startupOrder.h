// startupOrder.h - what the startup commands of a device do to its mapping and assign objects, in the order of sending.
#pragma once

#include "check/unitFacts.h"

#include <vector>

namespace check {

/// What is wrong with the order of commands.
enum class StartupSlip
{
    MappedWhileAssigned, ///< a mapping object is written before the assignment of its PDO is cleared
    EntryBeforeClear, ///< an entry is written before sub-index 0 is 0
    CountMissing, ///< sub-index 0 stays 0 after entries
    CountWrong, ///< sub-index 0 is not the number of the last entry
};

/// One slip.
struct StartupFault
{
    StartupSlip slip;
    const CommandFacts* command; ///< of the unit
    unsigned entries = 0; ///< written entries, for the two slips of the count
};

/// The commands in the order in which the controller sends them: by their transition, and as they are in the file for
/// the same one. Commands without a known transition, and those of the way back, are left out.
[[nodiscard]] std::vector<const CommandFacts*> sendingOrder(const UnitFacts& unit);

/// The slips of a unit, in the order of sending.
[[nodiscard]] std::vector<StartupFault> startupFaultsOf(const UnitFacts& unit);

} // namespace check
