// devicesOfBlocks.h - which devices of descriptions the devices of an export are.
#pragma once

#include "choices/deviceSelectors.h"
#include "model/deviceRecords.h"
#include "retrace/deviceRetrace.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace retrace {

/// How well a device of a description fits one of an export.
enum class DeviceMatch
{
    Same, ///< same identity
    OtherRevision, ///< same product, and no device has the revision of the export
    OtherProduct, ///< nothing but vendor and name are the same
    None, ///< the descriptions have nothing like it
};

/// The device of a description that a device of an export is.
struct MatchedDevice
{
    DeviceMatch match = DeviceMatch::None;
    choices::DevicePosition position; ///< has no meaning without a device
    bool isInOrder = true; ///< false if an export would write it before a device that is before it here, or not again
};

/// The devices of a run, in their order. An export writes the devices of the files in order, each once, so of devices
/// of one identity the first is taken that can become the one of the run.
[[nodiscard]] std::vector<MatchedDevice> matchedDevices(const std::vector<struct_FilenameDevice>& files,
                                                        const std::vector<ExportedBlock>& blocks);

/// A device with the identity of a block, so that nothing else of it differs for this.
[[nodiscard]] struct_EtherCatDevice withIdentityOf(const ExportedBlock& block, struct_EtherCatDevice device);

} // namespace retrace
