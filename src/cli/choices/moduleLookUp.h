// moduleLookUp.h - the module of a file that a choices file names.
#pragma once

#include "cli/choices/choices.h"
#include "model/XMLParsing.h"

#include <QString>

/// Whether a module is the named one: by its ident, or by its name or the name of its type.
[[nodiscard]] bool isNamed(const struct_module& module, const ModuleName& name);

/// Result of a look-up.
struct FoundModule
{
    struct_module* module = nullptr; ///< valid as long as the modules of the file
    QString problem; ///< why there is no module; empty if there is one
};

/// The only module of a file that is the named one.
[[nodiscard]] FoundModule moduleNamed(struct_FilenameDevice& file, const ModuleName& name);
