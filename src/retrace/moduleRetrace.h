// moduleRetrace.h - which modules were put into the places of a device before an export.
#pragma once

#include "choices/choices.h"
#include "ktl/reading/ktlDeviceBlocks.h"
#include "model/deviceRecords.h"
#include "retrace/moduleNames.h"

#include <vector>

namespace retrace {

/// Choices of modules that may have made a device block, the likeliest first; the first of them chooses nothing if
/// nothing shows in the block.
///
/// Of a coupler with preset modules the block names the idents in the places. Of other types nothing but the PDOs and
/// commands of modules is there, without their places: the modules are those that bring these in, one after another.
/// @param device   as its type and settings leave it
/// @param modules  of its file
/// @throws MissingSyncManager if the device lacks one that a PDO names
[[nodiscard]] std::vector<std::vector<choices::ModuleChoice>> likelyModules(const struct_EtherCatDevice& device,
                                                                            const std::vector<NamedModule>& modules,
                                                                            const KtlDeviceBlock& block);

} // namespace retrace
