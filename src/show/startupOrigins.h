// startupOrigins.h - where each startup command comes from.
#pragma once

#include "ktl/reading/ktlDeviceBlocks.h"
#include "model/deviceRecords.h"
#include "show/startupSource.h"

#include <cstddef>
#include <vector>

namespace show {

/// Sources of a device as it was loaded from an ESI file. They are exact: the generated commands follow the declared
/// ones in their lists, and generating them again shows how many there are.
/// @param device  not changed when this returns; has to outlive the result
[[nodiscard]] StartupSources startupSourcesOf(struct_EtherCatDevice& device);

/// Sources of a device of a KTL file, which carries none. A CoE command of transition PS is taken for a generated one
/// if its object assigns PDOs and the device does so, or maps PDOs and the device configures them. So is an EoE command
/// of IP_PS, since no ESI text reads as that transition. All others are unknown.
[[nodiscard]] StartupSources startupSourcesOf(const KtlDeviceBlock& block);

/// The source of a command by its place in its list. One after the last source is unknown: an export that cannot be
/// read in full can seem to hold more commands than the device has.
[[nodiscard]] const StartupSource& sourceAt(const std::vector<StartupSource>& sources, std::size_t place);

} // namespace show
