// choicesTemplate.h - a choices file that says what stands in the loaded files, for an engineer to edit.
#pragma once

#include "model/XMLParsing.h"

#include <iosfwd>
#include <vector>

/// Writes the state of all devices as choices, with what can be chosen beside them under the keys "about".
/// @param files  with every device selected once: rows are counted as they are then
void writeChoicesTemplate(std::ostream& out, const std::vector<struct_FilenameDevice>& files);
