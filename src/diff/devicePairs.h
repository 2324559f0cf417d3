// devicePairs.h - which devices of two files belong together.
#pragma once

#include "diff/pairing.h"
#include "facts/unitFacts.h"

#include <vector>

namespace diff {

/// Pairs devices: those of the same identity, then of what is left those of the same product whose revisions are
/// nearest, then those of the same name. The result does not depend on which list is the old one.
/// @return  in the order of the old devices, then what has been added
[[nodiscard]] std::vector<Pair> devicePairsOf(const std::vector<const facts::UnitFacts*>& before,
                                              const std::vector<const facts::UnitFacts*>& after);

} // namespace diff
