// choicesCommand.h - `ktl choices`: a template of a choices file, with all that can be chosen.
#pragma once

#include "cli/commandLine.h"

extern const SubCommandText choicesText;

/// Writes the choices that stand in ESI files to standard output.
/// @param arguments  those behind the name of the sub-command
[[nodiscard]] ExitCode runChoices(const QStringList& arguments, Console& console);
