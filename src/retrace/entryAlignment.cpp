#include "retrace/entryAlignment.h"

#include "editing/linkTexts.h"

#include <algorithm>

namespace retrace {

namespace {

using Entries = std::vector<struct_KTL_EntryPDOContent>;

/// What it costs to make the entries of one PDO those of another one.
struct EntryCosts
{
    const Entries& declared;
    const Entries& exported;
    bool isInput;

    [[nodiscard]] Cost stay(std::size_t before, std::size_t after) const
    {
        if (!areSameEntry(declared[before], exported[after])) {
            const bool isSameObject = declared[before].Index == exported[after].Index
                                      && declared[before].SubIndex == exported[after].SubIndex;
            return isSameObject ? impossible : 2 * impossible; // another length is no reason to remove an entry
        }
        if (declared[before].LinkToData == exported[after].LinkToData)
            return 0;
        return canBeLinked(exported[after].LinkToData, isInput) ? 1 : impossible;
    }
    [[nodiscard]] static Cost remove(std::size_t /*before*/) { return 2; }
    [[nodiscard]] Cost add(std::size_t after, bool isFirst) const
    {
        return !isFirst && canBeAdded(exported[after], isInput) ? 2 : impossible;
    }
};

EntryCosts costsOf(const DeclaredPdo& declared, const KtlPdo& exported)
{
    return {declared.entries, exported.entries, declared.isInput};
}

} // namespace

bool canBeLinked(std::int32_t link, bool isInput)
{
    return isLinkOffered(link, isInput ? PdoDirection::Inputs : PdoDirection::Outputs);
}

bool canBeAdded(const struct_KTL_EntryPDOContent& entry, bool isInput)
{
    return areSameEntry(entry, {}) && canBeLinked(entry.LinkToData, isInput);
}

std::vector<Step> entrySteps(const DeclaredPdo& declared, const KtlPdo& exported)
{
    return Alignment(declared.entries.size(), exported.entries.size(), costsOf(declared, exported)).steps();
}

Cost EntryComparison::costOf(const DeclaredPdo& declared, const KtlPdo& exported)
{
    const Entries& entries = exported.entries;
    if (std::equal(declared.entries.begin(), declared.entries.end(), entries.begin(), entries.end(), areSameEntry))
        return 0;
    constexpr std::size_t maxCompared = 20'000'000;
    m_compared += (declared.entries.size() + 1) * (entries.size() + 1);
    if (m_compared > maxCompared)
        return 1;
    const EntryCosts costs = costsOf(declared, exported);
    Cost cost = 1;
    bool isFirst = true; // nothing has stood before what is added
    for (const Step& step : entrySteps(declared, exported)) {
        if (step.before.has_value() && step.after.has_value())
            cost += costs.stay(*step.before, *step.after);
        else
            cost += step.before.has_value() ? EntryCosts::remove(*step.before) : costs.add(*step.after, isFirst);
        isFirst = isFirst && !step.before.has_value();
    }
    return cost;
}

} // namespace retrace
