// wholeSave.h - saves a KTL file and its dump, both or neither.
#pragma once

#include "ktl/ktlFile.h"

#include <QString>

#include <cstdio>
#include <functional>
#include <optional>

/// Why nothing was saved.
struct WholeSaveFailure
{
    QString file; ///< the KTL file or its dump
    QString reason;
};

/// Writes a KTL file and its dump in a folder of their own beside the target, and moves both to their places when they
/// are complete. Until then, and whenever anything fails, the files that were there before stay as they are, in append
/// mode too. Existing files keep their permissions; a link is followed to the file that it names.
/// @param mode      `Append` puts what the file holds in front of the new run; without a file it begins a new one
/// @param writeRun  as for `saveKtlFile`, but its out-of-range errors are passed on
/// @return  nothing if both are saved
/// @throws  what `writeRun` throws
[[nodiscard]] std::optional<WholeSaveFailure>
saveWhole(const QString& path, KtlSaveMode mode, const std::function<bool(std::FILE* out, int* errorCode)>& writeRun);
