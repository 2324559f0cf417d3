// startupChoices.h - startup commands changed, added and removed.
#pragma once

#include "choices/choices.h"
#include "choices/problems.h"
#include "model/XMLParsing.h"

namespace choices {

/// Changes, adds and removes startup commands. All rows are counted in the list as it is before the first of these
/// changes, and no row is changed or removed twice.
void makeStartupChoices(const DeviceChoices& choices, struct_EtherCatDevice& device, Problems& problems);

} // namespace choices
