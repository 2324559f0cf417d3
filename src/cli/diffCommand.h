// diffCommand.h - `ktl diff`: what differs between two descriptions.
#pragma once

#include "cli/commandLine.h"
#include "cli/console.h"
#include "cli/exitCode.h"

#include <QStringList>

namespace cli {

extern const SubCommandText diffText;

/// Runs the sub-command.
/// @param arguments  after its name
[[nodiscard]] ExitCode runDiff(const QStringList& arguments, Console& console);

} // namespace cli
