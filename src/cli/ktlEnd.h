// ktlEnd.h - words for how a KTL file ends.
#pragma once

#include "ktl/reading/ktlItemWalk.h"

#include <QString>

namespace cli {

/// What is wrong with the end of a KTL file, in words; empty if it ends as it should.
[[nodiscard]] QString problemAtEnd(const KtlWalk& walk);

} // namespace cli
