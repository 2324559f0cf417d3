// presetPdos.h - the PDOs of modules that a KTL file presets in the places of a device.
#pragma once

#include "facts/unitFacts.h"
#include "ktl/reading/ktlDeviceBlocks.h"

#include <vector>

namespace facts {

/// The PDOs of modules that a file presets in the places of a device.
struct PresetPdos
{
    std::vector<PdoFacts> pdos; ///< outputs first, each in the order of places
    bool areAll = true; ///< false if there would be more entries or bits than a device can have
};

/// The PDOs of preset modules. A module with several PDOs of a direction has one here: the file does not tell where the
/// second begins. Entries move to the place where the file says so. The index of the PDO itself moves if startup
/// commands of the device name it as it is then, and not as the module declares it: the file has no mark for that.
/// @return  none for a device whose modules are its own PDOs, or that finds its modules on the bus
[[nodiscard]] PresetPdos presetPdosOf(const KtlDeviceBlock& block);

} // namespace facts
