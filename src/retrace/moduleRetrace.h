// moduleRetrace.h - which modules were put into the places of a device before an export.
#pragma once

#include "choices/choices.h"
#include "ktl/reading/ktlDeviceBlocks.h"
#include "model/deviceRecords.h"
#include "retrace/moduleNames.h"

#include <cstddef>
#include <vector>

namespace retrace {

/// How many ways are followed in a search.
struct SearchWidth
{
    std::size_t kept = 0; ///< from place to place
    std::size_t results = 0;
};
inline constexpr SearchWidth narrowSearch{64, 32};
inline constexpr SearchWidth wideSearch{512, 200}; ///< for edits that hide much of what the modules brought in

/// Choices of modules that may have made a device block: none at all, then the likeliest ones.
///
/// Of a coupler with preset modules the block names the idents in the places. Of other types nothing but the PDOs and
/// commands of modules is there, without their places: the modules are those that bring these in, one after another.
/// @param device   as its type and settings leave it
/// @param modules  of its file
/// @throws MissingSyncManager if the device lacks one that a PDO names
[[nodiscard]] std::vector<std::vector<choices::ModuleChoice>> likelyModules(const struct_EtherCatDevice& device,
                                                                            const std::vector<NamedModule>& modules,
                                                                            const KtlDeviceBlock& block,
                                                                            const SearchWidth& width = narrowSearch);

} // namespace retrace
