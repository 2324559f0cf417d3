// syncManagerChoices.h - minimum sizes of sync managers.
#pragma once

#include "choices/choices.h"
#include "choices/problems.h"
#include "model/deviceRecords.h"

namespace choices {

/// Sets the minimum sizes of sync managers, each at most once.
void makeSyncManagerChoices(const DeviceChoices& choices, struct_EtherCatDevice& device, Problems& problems);

} // namespace choices
