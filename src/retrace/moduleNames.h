// moduleNames.h - how choices name the modules of a file.
#pragma once

#include "choices/choices.h"
#include "model/deviceRecords.h"

#include <cstddef>
#include <vector>

namespace retrace {

/// A module and its name in choices.
struct NamedModule
{
    const struct_module* module = nullptr; ///< of the file
    choices::ModuleName name; ///< its ident, with its row where others share the ident
};

/// The modules of a file, in their order.
/// @param file  has to outlive the result and keep its modules
[[nodiscard]] std::vector<NamedModule> namedModulesOf(const struct_FilenameDevice& file);

} // namespace retrace
