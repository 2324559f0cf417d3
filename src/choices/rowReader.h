// rowReader.h - reads the choices on rows of lists: sync managers, links, entries and startup commands.
#pragma once

#include "choices/choices.h"
#include "choices/jsonFields.h"
#include "choices/problems.h"

namespace choices {

/// Reads the lists of a device that name rows into its choices. What is not in the form is told.
/// @param fields  of the device
void readRows(JsonFields& fields, DeviceChoices& choices, Problems& problems);

} // namespace choices
