// esiInput.h - ESI files as the user names them.
#pragma once

#include "cli/console.h"
#include "esi/esiFile.h"

#include <QStringList>

namespace cli {

/// Loads ESI files into the inputs of a console, in the given order. Every file that cannot be loaded is reported, so
/// that one run shows all that is wrong. Standard input can be given once.
/// @return  whether all were loaded
[[nodiscard]] bool loadEsiFiles(const QStringList& paths, Dictionaries dictionaries, Console& console);

} // namespace cli
