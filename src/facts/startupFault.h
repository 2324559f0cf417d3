// startupFault.h - what is wrong with the order of startup commands.
#pragma once

#include <cstddef>
#include <cstdint>

namespace facts {

/// What is wrong with the order of commands.
enum class StartupSlip : std::uint8_t
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
    std::size_t command; ///< its place among those of the unit
    unsigned entries = 0; ///< written entries, for the two slips of the count
};

} // namespace facts
