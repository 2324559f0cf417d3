// startupRetrace.h - the startup commands that were changed, removed and added by hand before an export.
#pragma once

#include "choices/choices.h"
#include "ktl/reading/ktlDeviceBlocks.h"
#include "model/deviceRecords.h"

namespace retrace {

/// Adds to the choices of a device what makes its startup commands those of a device block, as far as that can be.
/// @param device  as the other choices leave it
void retraceStartup(const struct_EtherCatDevice& device, const KtlDeviceBlock& block, choices::DeviceChoices& choices);

} // namespace retrace
