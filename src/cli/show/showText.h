// showText.h - values as text for people.
#pragma once

#include "cli/show/showValue.h"

#include <cstddef>
#include <iosfwd>

/// Writes the members of an object, one to a line, lists of plain objects as tables, and other lists element by
/// element, each line indented.
void writeText(std::ostream& out, const ShowObject& object, std::size_t indentation);
