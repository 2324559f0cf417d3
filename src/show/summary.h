// summary.h - what a file holds, for people, in as many lines as they read.
#pragma once

#include "show/shownFile.h"

#include <cstddef>
#include <iosfwd>

namespace show {

/// Columns of a line where no terminal says how many it has.
inline constexpr std::size_t usualWidth = 80;

/// Writes the summary of a file after the line that names it: the list of its devices if several are shown, each
/// device, then the modules of the file if all devices are.
/// @param lineWidth  columns of a line
void writeSummary(std::ostream& out, const ShownFile& file, std::size_t lineWidth);

} // namespace show
