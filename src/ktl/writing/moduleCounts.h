// moduleCounts.h - whether the module blocks of an export have as many startup records as they announce.
#pragma once

#include "model/XMLParsing.h"

/// The first module of a file whose block, in an export of a device, announces another number of startup records than
/// it has: no reader finds what follows them. The export itself does not show it, since the wrong place may well hold
/// what reads as an item. All other items of a device as it was loaded are as long as they announce.
/// @return  null if there is none, also for a device whose class has no module blocks; valid until the modules of the
///          file change
[[nodiscard]] const struct_module* firstMiscountedModule(const struct_EtherCatDevice& device,
                                                         const struct_FilenameDevice& file);
