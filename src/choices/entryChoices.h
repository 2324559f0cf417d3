// entryChoices.h - entries of PDOs added and removed.
#pragma once

#include "choices/choices.h"
#include "choices/problems.h"
#include "model/deviceRecords.h"

namespace choices {

/// Removes entries of the device's PDOs, and of those that modules brought into it, and adds empty ones. All positions
/// count as the lists are before the first change. Nothing is changed if one of the choices does not fit.
void makeEntryChoices(const DeviceChoices& choices, struct_EtherCatDevice& device, Problems& problems);

} // namespace choices
