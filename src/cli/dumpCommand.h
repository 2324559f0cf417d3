// dumpCommand.h - `ktl dump`: the text dump of a KTL file.
#pragma once

#include "cli/commandLine.h"

namespace cli {

extern const SubCommandText dumpText;

/// Writes the dump of one KTL file to standard output.
/// @param arguments  those after the name of the sub-command
[[nodiscard]] ExitCode runDump(const QStringList& arguments, Console& console);

} // namespace cli
