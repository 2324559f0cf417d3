// choicesApply.h - makes the choices of a file, as the clicks of an engineer in the window would.
#pragma once

#include "choices/choices.h"
#include "choices/deviceSelectors.h"
#include "choices/problems.h"
#include "model/XMLParsing.h"

#include <map>
#include <vector>

/// What making choices has shown.
struct MadeChoices
{
    std::map<DevicePosition, const DeviceChoices*> chosen; ///< devices and their choices; valid as long as those
    std::vector<DevicePosition> couplers; ///< with modules by hand, though they take a list of modules by themselves
};

/// Makes the choices in the loaded files, device after device in the order of the choices. A choice that does not fit
/// is told, and so are all the others that do not; the files are of no use then.
/// @param selectors  of these files
[[nodiscard]] MadeChoices makeChoices(const std::vector<DeviceChoices>& choices,
                                      std::vector<struct_FilenameDevice>& files, const DeviceSelectors& selectors,
                                      Problems& problems);
