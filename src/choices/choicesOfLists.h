// choicesOfLists.h - the choices on rows: links of PDO entries, and startup commands.
#pragma once

#include "choices/choices.h"
#include "choices/moduleLookUp.h"
#include "choices/problems.h"
#include "model/XMLParsing.h"

/// Links entries of the device, and of what modules brought into it. Entries are linked to what the window offers for
/// them, nothing else.
void makeLinks(const std::vector<LinkChoice>& choices, struct_EtherCatDevice& device, Problems& problems);

/// Links entries of modules as the file declares them. A module that is put into a place later brings the links along.
void makeModuleLinks(const std::vector<LinkChoice>& choices, const ModuleLookUp& modules, Problems& problems);

/// Changes, adds and removes startup commands. All rows are counted as the list stands before the first of these
/// changes, and no row is changed or removed twice.
void makeStartupChoices(const DeviceChoices& choices, struct_EtherCatDevice& device, Problems& problems);
