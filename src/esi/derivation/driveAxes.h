// driveAxes.h - how many axes the slots of a multi-axis drive make.
#pragma once

#include "model/deviceRecords.h"

#include <cstdint>

/// Number of drive axes: without slot groups the number of slots, low 16 bits; with slot groups the highest number of a
/// group that has a slot named with "Axis", plus 1, in 16 bits (group 65535 gives 0, and a later slot counts again). A
/// slot in a group without "Axis" in its name does not count.
[[nodiscard]] std::uint16_t driveAxesOf(const DeviceSlots& deviceSlots);

/// Number of drive axes that a device takes when its type is set by hand: that of its slots for a multi-axis drive, 1
/// for a single drive, 0 for all others.
[[nodiscard]] std::uint16_t axesOfType(const struct_EtherCatDevice& device);
