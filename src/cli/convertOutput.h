// convertOutput.h - where `ktl convert` writes to: a KTL file with its dump, or standard output.
#pragma once

#include "cli/messages.h"
#include "cli/saveTargets.h"

#include <QStringList>

#include <cstdio>
#include <functional>

namespace cli {

/// Whether the output and its dump may be written, before anything is done; reports why not.
/// @param inputs  the files that are read; none of them is replaced
[[nodiscard]] bool mayWrite(const SaveRequest& request, const QStringList& inputs, Messages& messages);

/// Saves a run, with its progress at a terminal; reports a failure, and a wait for another run.
/// @param writeRun  as for `saveAtomically`
/// @return  whether it is saved
/// @throws  what `writeRun` throws
bool saveRun(const SaveRequest& request, const std::function<bool(std::FILE* out, int* errorCode)>& writeRun,
             Messages& messages);

/// Writes a run to standard output, all of it or, if `writeRun` fails, nothing; reports a failure.
/// @throws  what `writeRun` throws
void writeToStandardOutput(const std::function<bool(std::FILE* out, int* errorCode)>& writeRun, Messages& messages);

} // namespace cli
