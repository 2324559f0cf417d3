// differenceWords.h - differences in words.
#pragma once

#include "diff/compareDevices.h"
#include "diff/difference.h"

#include <string>

namespace diff {

/// The devices of a comparison: identity and name, those of both where they differ.
[[nodiscard]] std::string headOf(const ComparedDevices& compared);

/// A difference without its place: `sync manager 2 "Outputs", start address: 0x1100 -> 0x1180`.
[[nodiscard]] std::string wordsOf(const Difference& difference);

} // namespace diff
