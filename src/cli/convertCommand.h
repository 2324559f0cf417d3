// convertCommand.h - `ktl convert`: ESI files in, one KTL file with its text dump out.
#pragma once

#include "cli/commandLine.h"

namespace cli {

extern const SubCommandText convertText;

/// Does what the export of the workbench does with freshly loaded files, all devices or some of them ticked.
/// @param arguments  those after the name of the sub-command
[[nodiscard]] ExitCode runConvert(const QStringList& arguments, Console& console);

} // namespace cli
