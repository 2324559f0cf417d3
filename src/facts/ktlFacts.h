// ktlFacts.h - what is known of a KTL file.
#pragma once

#include "facts/presetPdos.h"
#include "facts/unitFacts.h"
#include "ktl/reading/ktlDeviceBlocks.h"
#include "ktl/reading/ktlItemWalk.h"

#include <cstddef>
#include <deque>
#include <string_view>
#include <vector>

namespace facts {

/// A KTL file. It refers to the bytes that it is made of.
struct KtlFacts
{
    KtlWalk walk;
    std::vector<KtlBlockPlace> places; ///< of the device blocks
    std::deque<KtlDeviceBlock> blocks;
    std::vector<UnitFacts> units; ///< a device for each block
};

/// The name of the device of a block: the first line of its names.
/// @return  a part of the block; empty if it has no names
[[nodiscard]] std::string_view nameIn(const KtlDeviceBlock& block);

/// The facts of one device block, as much as is in the file.
/// @param block  of the place; has to outlive the facts
/// @param index  of the device in the file
/// @param walk   of the file
[[nodiscard]] UnitFacts ktlUnitOf(const KtlDeviceBlock& block, std::size_t index, const KtlWalk& walk,
                                  const KtlBlockPlace& place);

/// The facts of a KTL file.
/// @param bytes  of the file; have to outlive the facts
[[nodiscard]] KtlFacts ktlFactsOf(const std::vector<unsigned char>& bytes);

} // namespace facts
