// showJson.h - values as JSON.
#pragma once

#include "cli/show/showValue.h"

#include <iosfwd>

/// Writes a value as JSON in UTF-8, without a line feed at the end. A value without a list of objects in it stands
/// on one line; what is deeper is indented. The same value gives the same bytes.
void writeJson(std::ostream& out, const ShowValue& value);
