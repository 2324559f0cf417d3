// apply.h - makes the choices of a file, as the clicks of an engineer in the window would.
#pragma once

#include "choices/choices.h"
#include "choices/deviceSelectors.h"
#include "choices/problems.h"
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

/// Makes the choices in the loaded files, device by device in the order of the choices. Every choice that does not fit
/// is told; the files are of no use then.
/// @param selectors  of these files
[[nodiscard]] MadeChoices makeChoices(const FileChoices& choices, std::vector<struct_FilenameDevice>& files,
                                      const DeviceSelectors& selectors, Problems& problems);

} // namespace choices
