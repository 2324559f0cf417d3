// sideItems.h - a part of a description on both sides, and where it is.
#pragma once

#include "diff/comparison.h"
#include "diff/pairing.h"

#include <string>
#include <type_traits>
#include <utility>

namespace diff {

/// A part on both sides; null on a side that lacks it. One of them is not.
template<typename Item> struct SideItems
{
    const Item* before = nullptr;
    const Item* after = nullptr;

    [[nodiscard]] bool areBoth() const { return before != nullptr && after != nullptr; }

    /// The old one, or the new one if there is no old one: for the words of the part.
    [[nodiscard]] const Item& any() const { return before != nullptr ? *before : *after; }
};

/// The parts of a pair.
template<typename List> [[nodiscard]] auto itemsOf(const Pair& pair, const List& before, const List& after)
{
    using Item = std::decay_t<decltype(*before.begin())>;
    return SideItems<Item>{pair.before.has_value() ? &before[*pair.before] : nullptr,
                           pair.after.has_value() ? &after[*pair.after] : nullptr};
}

/// The spot of a part.
/// @param part  its words
template<typename Item> [[nodiscard]] Spot spotOf(Area area, std::string part, const SideItems<Item>& items)
{
    Spot spot;
    spot.area = area;
    spot.part = std::move(part);
    if (items.before != nullptr)
        spot.before = items.before->where;
    if (items.after != nullptr)
        spot.after = items.after->where;
    return spot;
}

/// Tells a part that is on one side only.
/// @param spotOf  `spotOf()` gives its spot
/// @return        false if it is on both
template<typename Item, typename SpotOf>
bool isOnOneSide(const SideItems<Item>& items, Weight ofAdded, Weight ofRemoved, Comparison& out, SpotOf spotOf)
{
    if (items.areBoth())
        return false;
    if (items.before != nullptr)
        out.removed(spotOf(), ofRemoved);
    else
        out.added(spotOf(), ofAdded);
    return true;
}

} // namespace diff
