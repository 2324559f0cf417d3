#include "retrace/bytesApart.h"

#include "ktl/reading/ktlItemWalk.h"

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <map>
#include <string_view>

namespace retrace {

namespace {

using Items = std::vector<std::string_view>;

/// The items of a device block by their types, sorted.
std::map<std::uint32_t, Items> itemsOf(const std::vector<unsigned char>& block)
{
    const std::string_view bytes(reinterpret_cast<const char*>(block.data()), block.size());
    std::map<std::uint32_t, Items> items;
    for (const KtlFileItem& item : walkItems(block).items)
        items[item.type].push_back(bytes.substr(item.offset, item.bytes.size()));
    for (auto& [type, ofType] : items)
        std::sort(ofType.begin(), ofType.end());
    return items;
}

/// The items that another list does not have.
Items without(const Items& items, const Items& others)
{
    Items left;
    std::set_difference(items.begin(), items.end(), others.begin(), others.end(), std::back_inserter(left));
    return left;
}

std::size_t apart(std::string_view left, std::string_view right)
{
    const std::size_t shorter = std::min(left.size(), right.size());
    std::size_t count = std::max(left.size(), right.size()) - shorter;
    for (std::size_t place = 0; place < shorter; ++place)
        count += left[place] != right[place] ? 1 : 0;
    return count;
}

std::size_t apart(const Items& left, const Items& right)
{
    const Items ofLeft = without(left, right);
    const Items ofRight = without(right, left);
    std::size_t count = 0;
    for (std::size_t place = 0; place < std::max(ofLeft.size(), ofRight.size()); ++place)
        count += apart(place < ofLeft.size() ? ofLeft[place] : std::string_view(),
                       place < ofRight.size() ? ofRight[place] : std::string_view());
    return count;
}

} // namespace

std::size_t bytesApart(const std::vector<unsigned char>& left, const std::vector<unsigned char>& right)
{
    std::map<std::uint32_t, Items> ofLeft = itemsOf(left);
    std::map<std::uint32_t, Items> ofRight = itemsOf(right);
    std::size_t count = 0;
    for (const auto& [type, items] : ofLeft)
        count += apart(items, ofRight[type]);
    for (const auto& [type, items] : ofRight)
        count += ofLeft.count(type) == 0 ? apart({}, items) : 0;
    return count;
}

} // namespace retrace
