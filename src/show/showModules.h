// showModules.h - modules of an ESI file.
#pragma once

#include "model/deviceRecords.h"
#include "show/showDetail.h"
#include "show/showValue.h"

namespace show {

/// The modules of a file, in their groups.
/// @param file  has to outlive the result
[[nodiscard]] Value moduleGroups(const struct_FilenameDevice& file, Detail detail);

} // namespace show
