// typeMatch.h - which data types of two dictionaries belong together.
#pragma once

#include "diff/pairing.h"
#include "diff/typeMeanings.h"
#include "facts/dictionary/dictionaryFacts.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace diff {

/// Pairs the data types of two dictionaries: by name, and what is left by the objects and sub-items that they are for,
/// since a data type that only has another name is the same one.
class TypeMatch
{
public:
    /// @param before   has to outlive this, as `after`
    /// @param objects  the objects that belong together, as `pairsByKey` gives them
    TypeMatch(const facts::DictionaryFacts& before, const facts::DictionaryFacts& after,
              const std::vector<Pair>& objects);

    /// In the order of the old data types, then what has been added.
    [[nodiscard]] std::vector<Pair> pairs() const;

    /// Whether some object on either side is of such a data type, or has it in its own.
    [[nodiscard]] bool isUsed(const Pair& types) const;

    /// Whether references are to data types that belong together, or that mean the same.
    [[nodiscard]] bool areSame(const facts::TypeName& before, const facts::TypeName& after);

    /// As above, but the data types need to mean the same: what is different in them counts.
    [[nodiscard]] bool meanTheSame(const facts::TypeName& before, const facts::TypeName& after);

    /// Whether the values of two data types are the same bits, which one of them does not take for a number.
    [[nodiscard]] bool areSameBits(const facts::TypeName& before, const facts::TypeName& after) const;

private:
    void pairByName();
    void pairByUse(const std::vector<Pair>& objects);
    void pairParts(const facts::DataType& before, const facts::DataType& after);
    void pairUnlessTaken(const facts::TypeName& before, const facts::TypeName& after);

    const facts::DictionaryFacts& m_before;
    const facts::DictionaryFacts& m_after;
    TypeMeanings m_meanings;
    std::vector<Pair> m_pairs; ///< those with both sides
    std::vector<std::optional<std::size_t>> m_afterOf; ///< by the place of the old data type
    std::vector<bool> m_isTaken; ///< by the place of the new data type
    std::vector<bool> m_isUsedBefore;
    std::vector<bool> m_isUsedAfter;
};

/// What the sub-items of a data type are told apart by: the sub-indexes. Those without one are in their order.
[[nodiscard]] std::vector<std::optional<std::uint32_t>> subIndexesOf(const facts::DictionaryFacts& facts,
                                                                     const facts::DataType& type);

} // namespace diff
