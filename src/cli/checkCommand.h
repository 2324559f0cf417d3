// checkCommand.h - `ktl check`: what would go wrong on the machine.
#pragma once

#include "cli/commandLine.h"

namespace cli {

extern const SubCommandText checkText;

/// Checks ESI and KTL files, and writes the findings to standard output: as lines, as JSON or as SARIF.
/// @param arguments  those after the name of the sub-command
[[nodiscard]] ExitCode runCheck(const QStringList& arguments, Console& console);

} // namespace cli
