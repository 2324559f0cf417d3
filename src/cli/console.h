// console.h - where a sub-command writes to.
#pragma once

#include "cli/messages.h"

#include <iosfwd>

/// The two sides of the terminal: results and messages never mix.
struct Console
{
    std::ostream& results; ///< standard output
    Messages& messages; ///< standard error
};
