// exportedDevices.h - the devices of a loaded file as a reader finds them in an export of it.
#pragma once

#include "model/deviceRecords.h"
#include "show/shownDevices.h"

#include <QString>

#include <functional>

namespace show {

/// What is wrong with the export of a device.
struct ExportProblem
{
    enum class Kind
    {
        CutShort, ///< the export ends in the middle of the device
        LostItems, ///< no reader finds all that is written
    };
    Kind kind;
    QString text;
};

/// Takes a problem when it is found.
using ExportProblemSink = std::function<void(const ExportProblem&)>;

/// The devices of a file, each written to memory and read from there when it is asked for.
/// @param file  not changed when this or the result returns; has to outlive the result
/// @param report  takes the problems of a device the first time that it is asked for; has to be valid as long
/// @throws      std::bad_alloc from the result
[[nodiscard]] ShownDevices exportedDevices(struct_FilenameDevice& file, ExportProblemSink report);

} // namespace show
