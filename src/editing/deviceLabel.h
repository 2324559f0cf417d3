// deviceLabel.h - a device as messages name it.
#pragma once

#include "model/deviceRecords.h"

#include <QString>

#include <cstddef>
#include <cstdint>

/// The vendor id of a device: its own if it comes from a KTL file, else that of its file.
[[nodiscard]] std::uint32_t vendorIdOf(const struct_FilenameDevice& file, const struct_EtherCatDevice& device);

/// Vendor id, product code and revision as a selector has them: `0x7e570002:0x5001:0x30001`.
[[nodiscard]] QString identityText(const struct_FilenameDevice& file, const struct_EtherCatDevice& device);

/// A device with all by which a user can tell it apart: `device 3 "EL-01" (0x7e570002:0x5001:0x30001)`. A long name is
/// cut.
/// @param number  from 1, over all files of the call: the one that `--device` takes
[[nodiscard]] QString deviceLabel(const struct_FilenameDevice& file, const struct_EtherCatDevice& device,
                                  std::size_t number);

/// The path of a loaded file, as the user gave it.
[[nodiscard]] QString inputPathOf(const struct_FilenameDevice& file);
