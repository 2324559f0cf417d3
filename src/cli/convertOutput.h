// convertOutput.h - where `ktl convert` writes to: a KTL file with its dump, or standard output.
#pragma once

#include "cli/messages.h"
#include "cli/saveTargets.h"

#include <QStringList>

#include <cstdio>
#include <functional>

/// Whether the output and its dump may be written, before anything is done; tells if not.
/// @param inputs  the files that are read; none of them is replaced
[[nodiscard]] bool mayWrite(const SaveRequest& request, const QStringList& inputs, Messages& messages);

/// Saves a run, with its progress at a terminal; tells of a failure, and when another run is waited for.
/// @param writeRun  as for `saveWhole`
/// @return  whether it is saved
/// @throws  what `writeRun` throws
bool saveRun(const SaveRequest& request, const std::function<bool(std::FILE* out, int* errorCode)>& writeRun,
             Messages& messages);

/// Writes a run to standard output, all of it or, if `writeRun` fails, nothing; tells of a failure.
/// @throws  what `writeRun` throws
void writeToStandardOutput(const std::function<bool(std::FILE* out, int* errorCode)>& writeRun, Messages& messages);
