// choicesApply.h - makes the choices of a file, as the clicks of an engineer in the window would.
#pragma once

#include "cli/choices/choices.h"
#include "cli/choices/problems.h"
#include "model/XMLParsing.h"

#include <QString>

#include <vector>

/// A warning that the window would show on the way.
struct ChoiceWarning
{
    QString file; ///< path of the ESI file
    QString text;
};

/// Makes the choices in the loaded files, device after device in the order of the choices. A choice that does not fit
/// is told, and so are all the others that do not; the files are of no use then.
/// @return  what the window would warn of
std::vector<ChoiceWarning> makeChoices(const std::vector<DeviceChoices>& choices,
                                       std::vector<struct_FilenameDevice>& files, Problems& problems);
