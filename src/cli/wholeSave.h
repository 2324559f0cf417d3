// wholeSave.h - saves a KTL file and its dump, both or neither.
#pragma once

#include "cli/patience.h"
#include "cli/saveTargets.h"

#include <cstdio>
#include <functional>
#include <optional>

/// Writes a KTL file, and its dump if it is to have one, into a hidden folder beside the target, and moves both to
/// their places when they are complete and on the disk. Until then, and whenever anything fails, the files that were
/// there before stay as they are, in append mode too. A file that has to stay is not replaced even if it appears at the
/// last moment. Replaced files keep their permissions, and their owner and group where the user may give them.
///
/// One run at a time writes into a folder. INT, TERM and HUP end the process at once, with nothing written, or when
/// both files are in their places.
/// @param writeRun  as for `saveKtlFile`, but its out-of-range errors are passed on
/// @param patience  for another run that writes into the same folder
/// @return  nothing if all is saved
/// @throws  what `writeRun` throws
[[nodiscard]] std::optional<SaveFailure> saveWhole(const SaveRequest& request,
                                                   const std::function<bool(std::FILE* out, int* errorCode)>& writeRun,
                                                   const Patience& patience);
