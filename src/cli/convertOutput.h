// convertOutput.h - where `ktl convert` writes to: a KTL file with its dump, or standard output.
#pragma once

#include "cli/atomicSave.h"
#include "cli/console.h"
#include "cli/messages.h"
#include "cli/saveTargets.h"

#include <QStringList>

namespace cli {

/// Whether the output and its dump may be written, before anything is done; reports why not.
/// @param inputs  the files that are read; none of them is replaced
[[nodiscard]] bool mayWrite(const SaveRequest& request, const QStringList& inputs, Messages& messages);

/// Saves a run, with its progress at a terminal; reports a failure, and a wait for another run.
/// @param writeRun  as for `saveAtomically`
/// @return  whether it is saved
/// @throws  what `writeRun` throws
bool saveRun(const SaveRequest& request, const WriteRun& writeRun, Messages& messages);

/// Writes a run to the results, all of it or, if `writeRun` fails, nothing; reports a failure. That the results do not
/// reach standard output is noticed when they are flushed.
/// @throws  what `writeRun` throws
void writeToStandardOutput(const WriteRun& writeRun, Console& console);

} // namespace cli
