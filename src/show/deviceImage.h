// deviceImage.h - the process image of a device of a shown file.
#pragma once

#include "facts/ktlFacts.h"
#include "facts/processImage.h"
#include "facts/unitFacts.h"
#include "show/shownFile.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace show {

/// A device with its process image, which refers to the rest.
struct DeviceImage
{
    facts::UnitFacts unit; ///< refers to the file, and of a KTL file to the device as the file made it last
    facts::PresetPdos preset; ///< of modules that a KTL file presets
    facts::ProcessImage image;
};

[[nodiscard]] DeviceImage deviceImageOf(const ShownFile& file, std::size_t index);

/// The first bit of each PDO of a device in its sync manager, in the order of `UnitFacts::pdos`; nothing for one that
/// has no place there.
[[nodiscard]] std::vector<std::optional<std::int64_t>> firstBitsOf(const DeviceImage& device);

} // namespace show
