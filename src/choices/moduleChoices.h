// moduleChoices.h - modules put into places of a device and taken out.
#pragma once

#include "choices/choices.h"
#include "choices/moduleLookUp.h"
#include "choices/problems.h"
#include "model/XMLParsing.h"

#include <vector>

namespace choices {

/// What choices of modules did to a device.
struct ModuleChanges
{
    bool havePutIn = false; ///< a module is where it was not
    bool haveMovedRows = false; ///< a module was put in or taken out, so the rows of the lists have moved
};

/// Puts modules into places of a device and takes them out, and makes again what follows from them.
/// @throws MissingSyncManager, a std::out_of_range, as `renewModuleData`
ModuleChanges makeModuleChoices(const DeviceChoices& choices, struct_EtherCatDevice& device,
                                const ModuleLookUp& modules, Problems& problems);

} // namespace choices
