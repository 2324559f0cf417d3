// apply.h - makes the choices of a file, as the clicks of an engineer in the window would.
#pragma once

#include "choices/choices.h"
#include "choices/deviceSelectors.h"
#include "choices/moduleLookUp.h"
#include "choices/problems.h"
#include "editing/deviceEdits.h"
#include "model/XMLParsing.h"

#include <QString>

#include <map>
#include <optional>
#include <set>
#include <vector>

namespace choices {

/// What making choices has shown.
struct MadeChoices
{
    std::map<DevicePosition, QString> chosen; ///< the devices that choices name, and where: "devices[0]"
    std::vector<DevicePosition> couplers; ///< with modules by hand, though they take a list of modules by themselves
    std::optional<std::set<DevicePosition>> exported; ///< the devices to write; all of them where nothing says which
};

/// Makes the choices of one device, by whatever name they call it.
/// @param file     of the device, for messages
/// @param modules  of the file
/// @param clicks   the selections so far
/// @return  whether modules are set by hand although the device takes a list of modules by itself
bool makeDeviceChoices(const DeviceChoices& choices, struct_FilenameDevice& file, struct_EtherCatDevice& device,
                       const ModuleLookUp& modules, DeviceClicks& clicks, Problems& problems);

/// Makes the choices in the loaded files, device by device in the order of the choices. Every choice that does not fit
/// is told; the files are of no use then.
/// @param selectors  of these files
[[nodiscard]] MadeChoices makeChoices(const FileChoices& choices, std::vector<struct_FilenameDevice>& files,
                                      const DeviceSelectors& selectors, Problems& problems);

} // namespace choices
