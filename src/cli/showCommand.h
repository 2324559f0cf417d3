// showCommand.h - `ktl show`: what ESI and KTL files hold.
#pragma once

#include "cli/commandLine.h"

namespace cli {

extern const SubCommandText showText;

/// Writes to standard output what files hold: as text, as JSON, or one table of it as CSV.
/// @param arguments  those after the name of the sub-command
[[nodiscard]] ExitCode runShow(const QStringList& arguments, Console& console);

} // namespace cli
