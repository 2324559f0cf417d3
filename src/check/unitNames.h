// unitNames.h - the devices and modules of a file as those who read findings know them.
#pragma once

#include "check/factNames.h"
#include "check/finding.h"

#include <vector>

namespace check {

/// The names of units, without their lines and columns.
[[nodiscard]] std::vector<UnitName> unitNamesOf(const std::vector<UnitFacts>& units);

} // namespace check
