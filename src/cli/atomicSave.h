// atomicSave.h - saves a KTL file and its dump, both or neither.
#pragma once

#include "cli/patience.h"
#include "cli/saveTargets.h"

#include <cstdio>
#include <functional>
#include <optional>

namespace cli {

/// Writes the items of a run, with result and error code as `KTL_write_devices` has them.
using WriteRun = std::function<bool(std::FILE* out, int* errorCode)>;

// Both files are written into a hidden folder beside the target, and moved to their places once they are complete and
// on the disk. Until then, and whenever anything fails, the files that were there before stay as they are, in append
// mode too. Replaced files keep their permissions, and their owner and group where the user may give them.

/// Saves a KTL file and its dump, if any; one run at a time in a folder. A file that must stay is never
/// replaced, even if it has just appeared.
/// @param writeRun  as for `saveKtlFile`, but its errors are passed on
/// @param patience  for another run in the folder
/// @return  nothing if all is saved
/// @throws  what `writeRun` throws
[[nodiscard]] std::optional<SaveFailure> saveAtomically(const SaveRequest& request, const WriteRun& writeRun,
                                                        const Patience& patience);

} // namespace cli
