// exportedDevice.h - a device of an ESI file as an export carries it, for comparing it with a KTL file.
#pragma once

#include "diff/subject.h"
#include "facts/ktlFacts.h"
#include "model/deviceRecords.h"

#include <cstddef>
#include <vector>

namespace diff {

/// A device as an export of it carries it, with the names and places that it has in its ESI file.
struct ExportedDevice
{
    std::vector<unsigned char> bytes;
    facts::KtlFacts facts; ///< of the bytes
    Subject subject; ///< of the facts
};

/// Exports a device to memory.
/// @param file         of the device; not changed when this returns
/// @param index        of the device in the file
/// @param declared     the device as the ESI file has it; has to outlive the result, as its unit has to
/// @param moduleUnits  the modules of the file
/// @throws MissingSyncManager if the device lacks one that a PDO names; std::bad_alloc
[[nodiscard]] ExportedDevice exportedDeviceOf(struct_FilenameDevice& file, std::size_t index, const Subject& declared,
                                              const std::vector<const facts::UnitFacts*>& moduleUnits);

} // namespace diff
