// linkChoices.h - links of PDO entries, of a device and of the modules of a file.
#pragma once

#include "choices/choices.h"
#include "choices/moduleLookUp.h"
#include "choices/problems.h"
#include "model/XMLParsing.h"

#include <vector>

namespace choices {

/// Links entries of the device, and of what modules brought into it. Entries are linked to what the window offers for
/// them, nothing else.
void makeLinks(const std::vector<LinkChoice>& choices, struct_EtherCatDevice& device, Problems& problems);

/// Links entries of modules as the file declares them. A module that is put into a place later brings the links along.
void makeModuleLinks(const std::vector<LinkChoice>& choices, const ModuleLookUp& modules, Problems& problems);

} // namespace choices
