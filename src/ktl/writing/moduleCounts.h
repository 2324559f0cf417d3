// moduleCounts.h - whether the module blocks of an export have as many startup records as they announce.
#pragma once

#include "model/XMLParsing.h"

/// The first module whose block, in an export of a device, announces another number of startup records than
/// it has: no reader finds what follows. The export does not show it, since the wrong place may read as an item.
/// @return  null if there is none, or no blocks for the device's class; valid until the modules change
[[nodiscard]] const struct_module* firstMiscountedModule(const struct_EtherCatDevice& device,
                                                         const struct_FilenameDevice& file);
