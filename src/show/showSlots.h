// showSlots.h - slots of the model.
#pragma once

#include "model/deviceRecords.h"
#include "show/showDetail.h"
#include "show/showValue.h"

namespace show {

/// Slots of a device, with the modules in them.
[[nodiscard]] Object slotsMembers(const DeviceSlots& deviceSlots, Detail detail);

} // namespace show
