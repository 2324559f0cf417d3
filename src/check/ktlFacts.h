// ktlFacts.h - what rules need to know of a KTL file.
#pragma once

#include "check/unitFacts.h"
#include "ktl/reading/ktlDeviceBlocks.h"
#include "ktl/reading/ktlItemWalk.h"

#include <deque>
#include <vector>

namespace check {

/// A KTL file. It refers to the bytes that it is made of.
struct KtlFacts
{
    KtlWalk walk;
    std::vector<KtlBlockPlace> places; ///< of the device blocks
    std::deque<KtlDeviceBlock> blocks;
    std::vector<UnitFacts> units; ///< a device for each block
};

/// The facts of a KTL file.
/// @param bytes  of the file; have to outlive the facts
[[nodiscard]] KtlFacts ktlFactsOf(const std::vector<unsigned char>& bytes);

} // namespace check
