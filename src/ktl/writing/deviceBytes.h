// deviceBytes.h - a device block in memory.
#pragma once

#include "model/deviceRecords.h"

#include <QDateTime>

#include <vector>

/// The bytes that an export writes for a device.
/// @param file  of the device; neither is changed when this returns
/// @throws MissingSyncManager if the device lacks one that a PDO names; std::bad_alloc
[[nodiscard]] std::vector<unsigned char> deviceBytesOf(struct_EtherCatDevice& device, struct_FilenameDevice& file,
                                                       const QDateTime& exportTime);
