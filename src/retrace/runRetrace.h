// runRetrace.h - the choices that turn descriptions into an export.
#pragma once

#include "choices/choices.h"
#include "model/deviceRecords.h"
#include "retrace/deviceRetrace.h"
#include "retrace/devicesOfBlocks.h"

#include <vector>

namespace retrace {

/// What was done before an export.
struct RetracedRun
{
    choices::FileChoices choices;
    std::vector<choices::DevicePosition> chosen; ///< the devices that the choices name, in the order of the choices
    std::vector<MatchedDevice> devices; ///< of the blocks, in their order
};

/// Finds the choices that make devices of descriptions those of a run, or come as near as can be. Whether they do
/// shows in an export with these choices.
/// @param files  as they were loaded
/// @throws std::bad_alloc
[[nodiscard]] RetracedRun retracedRun(const std::vector<struct_FilenameDevice>& files,
                                      const std::vector<ExportedBlock>& blocks);

} // namespace retrace
