// showModel.h - devices of an ESI file as the model holds them after loading.
#pragma once

#include "model/deviceRecords.h"
#include "show/showDetail.h"
#include "show/showValue.h"

namespace show {

/// All that the model holds of a device.
/// @param device  has to outlive the result; see `isSameAfterSelection` for what it lends
[[nodiscard]] Object modelMembers(struct_EtherCatDevice& device, Detail detail);

} // namespace show
