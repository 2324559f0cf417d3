// exportedRun.h - a run of a KTL file: the devices that were exported together.
#pragma once

#include "ktl/reading/ktlDeviceBlocks.h"
#include "ktl/reading/ktlItemWalk.h"
#include "retrace/deviceRetrace.h"

#include <cstddef>
#include <vector>

namespace retrace {

/// A run of a file.
struct ExportedRun
{
    std::size_t first = 0; ///< offset of its first byte in the file
    std::size_t end = 0; ///< after its last byte
    std::size_t firstDevice = 0; ///< place of its first device among all of the file
    std::vector<ExportedBlock> blocks;
};

/// The numbers of the runs of a file that hold a readable device, each once. Runs without a device count too.
[[nodiscard]] std::vector<std::size_t> runsWithDevices(const KtlWalk& walk);

/// A run of a file.
/// @param bytes   of the file
/// @param walk    of these
/// @param number  one of `runsWithDevices`
[[nodiscard]] ExportedRun exportedRunAt(const std::vector<unsigned char>& bytes, const KtlWalk& walk,
                                        std::size_t number);

/// The time of an export that a run shows: that of its first device that has one; any time if none has.
[[nodiscard]] QDateTime exportTimeOf(const ExportedRun& run);

/// Whether a run shows a time at all.
[[nodiscard]] bool showsTime(const ExportedRun& run);

/// Whether all devices of a run show the same time.
[[nodiscard]] bool hasOneTime(const ExportedRun& run);

} // namespace retrace
