// choicesCommand.h - `ktl choices`: a template of a choices file, with all that can be chosen.
#pragma once

#include "cli/commandLine.h"

namespace cli {

extern const SubCommandText choicesText;

/// Writes the choices that ESI files hold to standard output.
/// @param arguments  those after the name of the sub-command
[[nodiscard]] ExitCode runChoices(const QStringList& arguments, Console& console);

} // namespace cli
