#include "diff/devicePairs.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <map>
#include <string_view>
#include <tuple>
#include <utility>

namespace diff {

namespace {

using facts::UnitFacts;
using Devices = std::vector<const UnitFacts*>;
using Product = std::pair<std::uint32_t, std::uint32_t>; ///< vendor id and product code

std::tuple<std::uint32_t, std::uint32_t, std::uint32_t> identityOf(const UnitFacts& device)
{
    return {device.vendor, device.product, device.revision};
}

std::string_view nameOf(const UnitFacts& device)
{
    return device.name;
}

/// Pairs devices step by step.
class DevicePairing
{
public:
    DevicePairing(const Devices& before, const Devices& after)
        : m_before(before)
        , m_after(after)
        , m_partners(before.size())
        , m_isTaken(after.size(), false)
    {}

    /// Pairs what is left by a key. Devices with an empty name stay as they are.
    template<typename KeyOf> void pairBy(KeyOf keyOf)
    {
        const std::vector<std::size_t> oldLeft = leftBefore();
        const std::vector<std::size_t> newLeft = leftAfter();
        using Key = decltype(keyOf(*m_before.front()));
        std::vector<Key> oldKeys;
        std::vector<Key> newKeys;
        oldKeys.reserve(oldLeft.size());
        newKeys.reserve(newLeft.size());
        for (const std::size_t index : oldLeft)
            oldKeys.push_back(keyOf(*m_before[index]));
        for (const std::size_t index : newLeft)
            newKeys.push_back(keyOf(*m_after[index]));
        for (const Pair& pair : pairsByKey(oldKeys, newKeys))
            if (pair.before.has_value() && pair.after.has_value() && oldKeys[*pair.before] != Key())
                join(oldLeft[*pair.before], newLeft[*pair.after]);
    }

    void pairByNearestRevision()
    {
        std::map<Product, std::pair<std::vector<std::size_t>, std::vector<std::size_t>>> products;
        for (const std::size_t index : leftBefore())
            products[productOf(*m_before[index])].first.push_back(index);
        for (const std::size_t index : leftAfter())
            products[productOf(*m_after[index])].second.push_back(index);
        for (auto& [product, devices] : products)
            pairNearest(devices.first, devices.second);
    }

    [[nodiscard]] std::vector<Pair> pairs() const
    {
        std::vector<Pair> pairs;
        for (std::size_t index = 0; index < m_before.size(); ++index)
            pairs.push_back({index, m_partners[index], false});
        for (const std::size_t index : leftAfter())
            pairs.push_back({std::nullopt, index, false});
        return pairs;
    }

private:
    static Product productOf(const UnitFacts& device) { return {device.vendor, device.product}; }

    [[nodiscard]] std::vector<std::size_t> leftBefore() const
    {
        std::vector<std::size_t> left;
        for (std::size_t index = 0; index < m_before.size(); ++index)
            if (!m_partners[index].has_value())
                left.push_back(index);
        return left;
    }

    [[nodiscard]] std::vector<std::size_t> leftAfter() const
    {
        std::vector<std::size_t> left;
        for (std::size_t index = 0; index < m_after.size(); ++index)
            if (!m_isTaken[index])
                left.push_back(index);
        return left;
    }

    void join(std::size_t before, std::size_t after)
    {
        m_partners[before] = after;
        m_isTaken[after] = true;
    }

    void pairNearest(std::vector<std::size_t>& before, std::vector<std::size_t>& after);

    const Devices& m_before;
    const Devices& m_after;
    std::vector<std::optional<std::size_t>> m_partners; ///< of the old devices
    std::vector<bool> m_isTaken; ///< of the new devices
};

/// Pairs the devices of one product, the nearest revisions first. More than people write are paired in the order of
/// their revisions, since their number squared is too many.
void DevicePairing::pairNearest(std::vector<std::size_t>& before, std::vector<std::size_t>& after)
{
    constexpr std::size_t mostPairs = 1'000'000;
    if (before.size() * after.size() > mostPairs) {
        const auto byRevision = [](const Devices& devices) {
            return
                [&](std::size_t left, std::size_t right) { return devices[left]->revision < devices[right]->revision; };
        };
        std::stable_sort(before.begin(), before.end(), byRevision(m_before));
        std::stable_sort(after.begin(), after.end(), byRevision(m_after));
        for (std::size_t index = 0; index < std::min(before.size(), after.size()); ++index)
            join(before[index], after[index]);
        return;
    }
    struct Candidate
    {
        std::uint32_t distance;
        std::size_t before;
        std::size_t after;
    };
    std::vector<Candidate> candidates;
    for (const std::size_t oldOne : before)
        for (const std::size_t newOne : after) {
            const std::uint32_t left = m_before[oldOne]->revision;
            const std::uint32_t right = m_after[newOne]->revision;
            candidates.push_back({std::max(left, right) - std::min(left, right), oldOne, newOne});
        }
    // Of equally near pairs those count first that are first in both files, whichever file is the old one.
    std::sort(candidates.begin(), candidates.end(), [](const Candidate& left, const Candidate& right) {
        const auto keyOf = [](const Candidate& one) {
            return std::tuple(one.distance, one.before + one.after, std::min(one.before, one.after));
        };
        return keyOf(left) != keyOf(right) ? keyOf(left) < keyOf(right) : left.before < right.before;
    });
    for (const Candidate& one : candidates)
        if (!m_partners[one.before].has_value() && !m_isTaken[one.after])
            join(one.before, one.after);
}

} // namespace

std::vector<Pair> devicePairsOf(const std::vector<const UnitFacts*>& before, const std::vector<const UnitFacts*>& after)
{
    DevicePairing pairing(before, after);
    if (!before.empty() && !after.empty()) {
        pairing.pairBy(identityOf);
        pairing.pairByNearestRevision();
        pairing.pairBy(nameOf);
    }
    return pairing.pairs();
}

} // namespace diff
