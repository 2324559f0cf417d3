// ktlCommand.h - the command as a whole: its sub-commands and what it does without one.
#pragma once

#include "cli/console.h"
#include "cli/exitCode.h"

#include <QStringList>

namespace cli {

/// Runs a sub-command, or shows the help or the version.
/// @param arguments  without the name of the program
/// @return           the exit status
[[nodiscard]] ExitCode runCommand(const QStringList& arguments, Console& console);

} // namespace cli
