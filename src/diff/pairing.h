// pairing.h - which parts of two descriptions belong together.
#pragma once

#include <algorithm>
#include <cstddef>
#include <map>
#include <optional>
#include <utility>
#include <vector>

namespace diff {

/// Two parts that belong together, by their places in the lists; nothing on a side that lacks the part.
struct Pair
{
    std::optional<std::size_t> before;
    std::optional<std::size_t> after;
    bool isMoved = false; ///< only where order has a meaning
};

/// Pairs parts by a key: the first of a key with the first, the second with the second.
/// @param before  keys of the old parts
/// @param after   keys of the new parts
/// @return        in the order of the old parts, then what has been added
template<typename Key>
[[nodiscard]] std::vector<Pair> pairsByKey(const std::vector<Key>& before, const std::vector<Key>& after)
{
    struct Places
    {
        std::vector<std::size_t> list;
        std::size_t taken = 0;
    };
    std::map<Key, Places> places;
    for (std::size_t index = 0; index < after.size(); ++index)
        places[after[index]].list.push_back(index);
    std::vector<bool> isTaken(after.size(), false);
    std::vector<Pair> pairs;
    pairs.reserve(std::max(before.size(), after.size()));
    for (std::size_t index = 0; index < before.size(); ++index) {
        Pair pair{index, std::nullopt, false};
        if (const auto found = places.find(before[index]); found != places.end())
            if (Places& list = found->second; list.taken < list.list.size()) {
                pair.after = list.list[list.taken++];
                isTaken[*pair.after] = true;
            }
        pairs.push_back(pair);
    }
    for (std::size_t index = 0; index < after.size(); ++index)
        if (!isTaken[index])
            pairs.push_back({std::nullopt, index, false});
    return pairs;
}

/// Marks as moved the pairs without which the others are in the same order on both sides: as few as possible.
/// @param pairs  in the order of the old parts
void markMoved(std::vector<Pair>& pairs);

/// Pairs parts by a key where order has a meaning. What is the same at the beginning and the end stays together, the
/// rest is paired as by `pairsByKey`, and pairs that have changed their order are marked.
///
/// The result does not depend on which list is the old one.
template<typename Key>
[[nodiscard]] std::vector<Pair> pairsInSequence(const std::vector<Key>& before, const std::vector<Key>& after)
{
    const std::size_t shorter = std::min(before.size(), after.size());
    std::size_t head = 0;
    while (head < shorter && before[head] == after[head])
        ++head;
    std::size_t tail = 0;
    while (tail < shorter - head && before[before.size() - 1 - tail] == after[after.size() - 1 - tail])
        ++tail;
    const auto middleOf = [&](const std::vector<Key>& keys) {
        return std::vector<Key>(keys.begin() + static_cast<std::ptrdiff_t>(head),
                                keys.end() - static_cast<std::ptrdiff_t>(tail));
    };
    const std::vector<Key> oldMiddle = middleOf(before);
    const std::vector<Key> newMiddle = middleOf(after);
    const bool isSwapped = newMiddle < oldMiddle; // of two equally good answers always the same one
    std::vector<Pair> middle = isSwapped ? pairsByKey(newMiddle, oldMiddle) : pairsByKey(oldMiddle, newMiddle);
    markMoved(middle);
    std::vector<Pair> pairs;
    for (std::size_t index = 0; index < head; ++index)
        pairs.push_back({index, index, false});
    for (Pair pair : middle) {
        if (isSwapped)
            std::swap(pair.before, pair.after);
        for (std::optional<std::size_t>* const side : {&pair.before, &pair.after})
            if (side->has_value())
                **side += head;
        pairs.push_back(pair);
    }
    for (std::size_t index = tail; index > 0; --index)
        pairs.push_back({before.size() - index, after.size() - index, false});
    return pairs;
}

} // namespace diff
