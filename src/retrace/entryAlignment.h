// entryAlignment.h - how the entries of a PDO were edited by hand.
#pragma once

#include "retrace/alignment.h"
#include "retrace/exportedPdos.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace retrace {

/// Whether an entry of that direction can be given a link by hand.
[[nodiscard]] bool canBeLinked(std::int32_t link, bool isInput);

/// Whether an entry can be added by hand: such a one is empty but for its link.
[[nodiscard]] bool canBeAdded(const struct_KTL_EntryPDOContent& entry, bool isInput);

/// The steps from the entries of a PDO to those of an export.
[[nodiscard]] std::vector<Step> entrySteps(const DeclaredPdo& declared, const KtlPdo& exported);

/// Tells what the steps between entries cost, for many PDOs.
class EntryComparison
{
public:
    /// 0 for entries that are the same but for their links, `impossible` and more where no one can make them by hand.
    /// Files that are made to take long get a guess in the end.
    [[nodiscard]] Cost costOf(const DeclaredPdo& declared, const KtlPdo& exported);

private:
    std::size_t m_compared = 0; ///< pairs of entries so far
};

} // namespace retrace
