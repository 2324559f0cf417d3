// settingsRetrace.h - the settings of a device that were made by hand before an export, but for lists of things.
#pragma once

#include "choices/choices.h"
#include "ktl/reading/ktlDeviceBlocks.h"
#include "model/deviceRecords.h"

namespace retrace {

/// Finds whether a device takes a list of modules.
/// @param loaded  the device as its file has it, as below
void retraceModuleList(const struct_EtherCatDevice& loaded, const KtlDeviceBlock& block,
                       choices::DeviceChoices& choices);

/// Finds the type and the drive axes of a device that someone has clicked.
void retraceType(const struct_EtherCatDevice& loaded, const KtlDeviceBlock& block, choices::DeviceChoices& choices);

/// Finds the operation modes that were chosen one after the other: each has changed places with the first one.
void retraceModes(const struct_EtherCatDevice& device, const KtlDeviceBlock& block, choices::DeviceChoices& choices);

/// Finds the least sizes of sync managers.
void retraceSyncManagers(const struct_EtherCatDevice& device, const KtlDeviceBlock& block,
                         choices::DeviceChoices& choices);

} // namespace retrace
