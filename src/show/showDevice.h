// showDevice.h - a device as a KTL file carries it, decoded. Devices of ESI files are shown by this too, from the bytes
// that an export writes of them, so that both agree in all that the format has.
#pragma once

#include "ktl/reading/ktlDeviceBlocks.h"
#include "show/showValue.h"
#include "show/startupOrigins.h"

#include <cstdint>

namespace show {

/// A device block with the sources of its commands.
struct ShownDevice
{
    KtlDeviceBlock block;
    StartupSources sources; ///< see `sourceAt` for commands that have none
    bool isExported = true; ///< false for a device of an ESI file, which has no time of export
};

/// Members of all that the format carries of a device.
/// @param device  has to outlive the result
[[nodiscard]] Object deviceMembers(const ShownDevice& device);

/// The bits that are set in a DC assign-activate word, spelled out.
[[nodiscard]] Value assignActivateBits(std::uint32_t assignActivate);

} // namespace show
