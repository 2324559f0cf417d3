// findCommand.h - `ktl find`: which file describes a device.
#pragma once

#include "cli/commandLine.h"

namespace cli {

extern const SubCommandText findText;

/// Looks through files and folders, and writes the devices that fit to standard output.
/// @param arguments  those after the name of the sub-command
[[nodiscard]] ExitCode runFind(const QStringList& arguments, Console& console);

} // namespace cli
