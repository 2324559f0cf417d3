#include "diff/pairing.h"

namespace diff {

void markMoved(std::vector<Pair>& pairs)
{
    constexpr auto none = static_cast<std::size_t>(-1);
    std::vector<std::size_t> lastOfLength; // the pair that ends the best run of each length, from 1
    std::vector<std::size_t> previous(pairs.size(), none);
    const auto isBefore = [&](std::size_t pair, std::size_t place) { return *pairs[pair].after < place; };
    for (std::size_t index = 0; index < pairs.size(); ++index) {
        Pair& pair = pairs[index];
        if (!pair.before.has_value() || !pair.after.has_value())
            continue;
        pair.isMoved = true;
        const auto end = std::lower_bound(lastOfLength.begin(), lastOfLength.end(), *pair.after, isBefore);
        if (end != lastOfLength.begin())
            previous[index] = *(end - 1);
        if (end == lastOfLength.end())
            lastOfLength.push_back(index);
        else
            *end = index;
    }
    for (std::size_t index = lastOfLength.empty() ? none : lastOfLength.back(); index != none; index = previous[index])
        pairs[index].isMoved = false;
}

} // namespace diff
