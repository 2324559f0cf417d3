// showPdos.h - PDOs of the model.
#pragma once

#include "model/deviceRecords.h"
#include "show/showValue.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace show {

/// PDOs of a device.
/// @param firstChoiceRow  number of the first one in choices files; nothing if they cannot name them
[[nodiscard]] Value pdosOf(const std::vector<struct_PDOList>& pdos, const std::optional<std::int64_t>& firstChoiceRow);

/// PDOs of a module, or of those in the slots.
/// @param firstChoiceRow  as above
[[nodiscard]] Value pdosOf(const std::vector<modulePdo>& pdos, const std::optional<std::int64_t>& firstChoiceRow);

} // namespace show
