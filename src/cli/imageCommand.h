// imageCommand.h - `ktl image`: at which byte and bit of the process image each signal is.
#pragma once

#include "cli/commandLine.h"

#include <QStringList>

namespace cli {

extern const SubCommandText imageText;

/// Runs `ktl image`.
/// @param arguments  what follows the name of the sub-command
[[nodiscard]] ExitCode runImage(const QStringList& arguments, Console& console);

} // namespace cli
