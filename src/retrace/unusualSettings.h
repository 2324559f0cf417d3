// unusualSettings.h - what the window does to a device that is not selected any more, or never was.
#pragma once

#include "choices/choices.h"
#include "ktl/reading/ktlDeviceBlocks.h"
#include "model/deviceRecords.h"

#include <vector>

namespace retrace {

/// Settings that may have led to a block where those of a selected device do not: edits of a device that no one has
/// clicked, and a type that was set without making again what follows from it.
/// @param loaded  the device as its file has it
[[nodiscard]] std::vector<choices::DeviceChoices> unusualSettings(const struct_EtherCatDevice& loaded,
                                                                  const KtlDeviceBlock& block);

} // namespace retrace
