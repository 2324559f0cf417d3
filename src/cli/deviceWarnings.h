// deviceWarnings.h - what the command says before a device is exported.
#pragma once

#include "cli/messages.h"
#include "model/deviceRecords.h"

#include <cstddef>

/// Warns of what the controller cannot handle of a device, as the window does before an export, in English.
/// @param number  of the device from 1, over all files of the call
void warnOfDevice(const struct_FilenameDevice& file, const struct_EtherCatDevice& device, std::size_t number,
                  Messages& messages);
