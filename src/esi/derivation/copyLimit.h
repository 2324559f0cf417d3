// copyLimit.h - how much the passes may make of one file.
#pragma once

#include "model/deviceRecords.h"

#include <cstdint>

/// Bytes that the copies of one file may take: samples of oversampled PDOs, default modules in their slots, and the
/// startup commands for both. ESI files reach about 2 MB. Each copy is one that the rules ask for, but a file of a few
/// kilobytes could ask for more than any memory holds.
inline constexpr std::uint64_t maxCopiedBytes = 1ULL << 28U;

/// Whether a file keeps within `maxCopiedBytes`. To be asked before the passes run.
/// @param file  as it was read, before any pass
[[nodiscard]] bool isWithinCopyLimit(const struct_FilenameDevice& file);
