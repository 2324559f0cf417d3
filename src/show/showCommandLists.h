// showCommandLists.h - startup commands of the model, as devices and modules declare them and loading adds them.
#pragma once

#include "model/deviceRecords.h"
#include "show/showValue.h"

#include <vector>

namespace show {

/// Startup commands of one list of a device.
[[nodiscard]] Value commandList(const std::vector<struct_InitCmd>& commands);

/// Startup commands of a module, or of those in the slots.
[[nodiscard]] Value commandList(const std::vector<struct_moduleInitCmd>& commands);

} // namespace show
