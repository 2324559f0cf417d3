// exportCounts.h - whether a reader finds all items that an export writes.
#pragma once

#include "model/XMLParsing.h"

/// The first module of a file whose block, in an export of a device, announces another number of startup commands than
/// it has: what stands behind these commands is lost for every reader. That cannot be seen in the export itself, where
/// the wrong place may well hold what reads as an item. So each block is written by itself. All other items of a device
/// as it was loaded are as long as they announce.
/// @param device  not changed
/// @param file    the file of the device; not changed when this returns
/// @return        null if there is none, also for a device whose class has no module blocks; valid until the modules of
///                the file change
/// @throws        std::bad_alloc
[[nodiscard]] const struct_module* firstMiscountedModule(struct_EtherCatDevice& device, struct_FilenameDevice& file);
