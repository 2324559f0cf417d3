// template.h - a choices file that says how the loaded files are, for an engineer to edit.
#pragma once

#include "model/XMLParsing.h"

#include <iosfwd>
#include <vector>

namespace choices {

/// Writes the state of all devices as choices, with what can be chosen under the keys "about".
/// @param files  with every device selected once: rows are counted as they are after that
void writeTemplate(std::ostream& out, const std::vector<struct_FilenameDevice>& files);

} // namespace choices
