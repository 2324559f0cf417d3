// console.h - what a sub-command works with: where it writes, and what it has read.
#pragma once

#include "cli/inputs.h"
#include "cli/messages.h"

#include <cstddef>
#include <iosfwd>
#include <optional>

namespace cli {

/// The two sides of the terminal, which never mix, and the files that the sub-command has loaded.
struct Console
{
    std::ostream& results; ///< standard output
    Messages& messages; ///< standard error
    Inputs& inputs;
    std::size_t cores; ///< files that are read at the same time; results do not depend on it
    std::optional<std::size_t> terminalWidth; ///< columns of the terminal that shows the results; nothing if none does
};

} // namespace cli
