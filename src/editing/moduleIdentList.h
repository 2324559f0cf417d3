// moduleIdentList.h - which modules a coupler has, as a startup command would tell it.
#pragma once

#include "model/slotRecords.h"

#include <string>

/// The list of configured module idents of a slot as text: the number of places, then the ident of each place, 0 for an
/// empty one, each number followed by a blank. Empty for a slot without modules.
[[nodiscard]] std::string moduleIdentList(const struct_Slot& slot);
