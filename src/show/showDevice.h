// showDevice.h - a device as a KTL file carries it, decoded. Devices of ESI files are shown by this too, from the bytes
// that an export writes of them, so that both agree in all that the format has.
#pragma once

#include "show/showValue.h"
#include "show/shownDevice.h"

#include <cstdint>

namespace show {

/// Members of all that the format carries of a device.
/// @param device  has to outlive the result
[[nodiscard]] Object deviceMembers(const ShownDevice& device);

/// The bits that are set in a DC assign-activate word, spelled out.
[[nodiscard]] Value assignActivateBits(std::uint32_t assignActivate);

} // namespace show
