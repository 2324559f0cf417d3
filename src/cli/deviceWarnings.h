// deviceWarnings.h - what the command says before devices are exported.
#pragma once

#include "choices/deviceSelectors.h"
#include "cli/messages.h"
#include "model/XMLParsing.h"

#include <set>
#include <vector>

namespace cli {

/// Warns of what the controller cannot handle of devices, as the window does before an export, and of values that the
/// export does not carry; device by device, in the order of the files.
void warnOfDevices(const std::vector<struct_FilenameDevice>& files, const std::set<choices::DevicePosition>& devices,
                   Messages& messages);

/// Warns of the values alone that an export does not carry, of all devices.
void warnOfLostValues(const std::vector<struct_FilenameDevice>& files, Messages& messages);

} // namespace cli
