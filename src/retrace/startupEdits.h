// startupEdits.h - what can be done to startup commands by hand.
#pragma once

#include "ktl/format/ktlFormat.h"
#include "model/nmtoken.h"

namespace retrace {

/// Whether a command can be added by hand: it is sent from PREOP to SAFEOP, and is no complete access.
[[nodiscard]] inline bool canBeAdded(const struct_KTL_InitCmd& command) noexcept
{
    return command.Transition == PS && command.bIfCA == 0;
}

} // namespace retrace
