// moduleLinkRetrace.h - the links of a file's modules that were set by hand before an export.
#pragma once

#include "choices/choices.h"
#include "ktl/reading/ktlDeviceBlocks.h"
#include "retrace/moduleNames.h"

#include <vector>

namespace retrace {

/// The links that make the modules of a file those of a device block, as far as that can be. A block has the entries of
/// the PDOs that are on a sync manager.
/// @param modules  of the file
[[nodiscard]] std::vector<choices::LinkChoice> moduleLinksOf(const std::vector<NamedModule>& modules,
                                                             const KtlDeviceBlock& block);

/// Sets links in the modules of a file.
/// @param links  of `moduleLinksOf`, for this file
void setModuleLinks(struct_FilenameDevice& file, const std::vector<choices::LinkChoice>& links);

} // namespace retrace
