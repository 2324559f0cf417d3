#include "retrace/pdoRetrace.h"

#include "editing/linkTexts.h"
#include "retrace/alignment.h"
#include "retrace/exportedPdos.h"

#include <QString>

#include <algorithm>
#include <cstdint>
#include <vector>

namespace retrace {

namespace {

using Entries = std::vector<struct_KTL_EntryPDOContent>;

bool isEmpty(const struct_KTL_EntryPDOContent& entry)
{
    return areSameEntry(entry, {});
}

bool isOffered(std::int32_t link, bool isInput)
{
    return isLinkOffered(link, isInput ? PdoDirection::Inputs : PdoDirection::Outputs);
}

/// What it costs to make the entries of one PDO those of another one.
struct EntryCosts
{
    const Entries& declared;
    const Entries& exported;
    bool isInput;

    [[nodiscard]] Cost stay(std::size_t before, std::size_t after) const
    {
        if (!areSameEntry(declared[before], exported[after]))
            return 2 * impossible;
        if (declared[before].LinkToData == exported[after].LinkToData)
            return 0;
        return isOffered(exported[after].LinkToData, isInput) ? 1 : impossible;
    }
    [[nodiscard]] static Cost remove(std::size_t /*before*/) { return 2; }
    [[nodiscard]] Cost add(std::size_t after, bool isFirst) const
    {
        const bool canBe = !isFirst && isEmpty(exported[after]) && isOffered(exported[after].LinkToData, isInput);
        return canBe ? 2 : impossible;
    }
};

std::vector<Step> entrySteps(const DeclaredPdo& declared, const KtlPdo& exported)
{
    return Alignment(declared.entries.size(), exported.entries.size(),
                     EntryCosts{declared.entries, exported.entries, declared.isInput})
        .steps();
}

Cost costOfEntries(const DeclaredPdo& declared, const KtlPdo& exported)
{
    const EntryCosts costs{declared.entries, exported.entries, declared.isInput};
    Cost cost = 0;
    for (const Step& step : entrySteps(declared, exported)) {
        if (step.before.has_value() && step.after.has_value())
            cost += costs.stay(*step.before, *step.after);
        else
            cost += step.before.has_value() ? EntryCosts::remove(*step.before) : costs.add(*step.after, false);
    }
    return cost;
}

/// Whether entries are the same but for links.
bool areSameEntries(const Entries& left, const Entries& right)
{
    return std::equal(left.begin(), left.end(), right.begin(), right.end(), areSameEntry);
}

/// What it costs to make the PDOs of a description those of an export. A PDO goes when all its entries are removed.
struct PdoCosts
{
    const std::vector<DeclaredPdo>& declared;
    const std::vector<KtlPdo>& exported;
    std::size_t comparisons = 0; ///< of entries, made so far

    [[nodiscard]] Cost stay(std::size_t before, std::size_t after)
    {
        const DeclaredPdo& pdo = declared[before];
        if (!areSamePdo(pdo, exported[after]))
            return 2 * impossible;
        const Entries& entries = exported[after].entries;
        if (areSameEntries(pdo.entries, entries))
            return 0;
        constexpr std::size_t maxComparisons = 20'000'000; // of files that are made to take long
        comparisons += (pdo.entries.size() + 1) * (entries.size() + 1);
        return comparisons > maxComparisons ? 1 : 1 + costOfEntries(pdo, exported[after]);
    }
    [[nodiscard]] Cost remove(std::size_t before) const { return 2 * Cost{declared[before].entries.size()}; }
    [[nodiscard]] static Cost add(std::size_t /*after*/, bool /*isFirst*/) { return impossible; }
};

choices::EntryName nameOf(const DeclaredPdo& pdo, std::size_t position)
{
    const struct_KTL_EntryPDOContent& entry = pdo.entries[position];
    choices::EntryName name;
    name.pdoRow = pdo.row;
    name.entryPosition = static_cast<std::uint32_t>(position);
    name.checkedIndex = pdo.head.IndexAttributes;
    name.checkedObject = choices::ObjectAddress{entry.Index, entry.SubIndex};
    name.checkedName = QString::fromUtf8(pdo.names[position].data(), static_cast<int>(pdo.names[position].size()));
    return name;
}

choices::EntryChoice entryChoice(const DeclaredPdo& pdo, std::size_t position)
{
    choices::EntryChoice choice;
    static_cast<choices::EntryName&>(choice) = nameOf(pdo, position);
    return choice;
}

void removeAll(const DeclaredPdo& pdo, choices::DeviceChoices& choices)
{
    for (std::size_t position = 0; position < pdo.entries.size(); ++position)
        choices.removedEntries.push_back(entryChoice(pdo, position));
}

void retraceEntries(const DeclaredPdo& declared, const KtlPdo& exported, choices::DeviceChoices& choices)
{
    std::optional<std::size_t> behind;
    for (const Step& step : entrySteps(declared, exported)) {
        if (step.before.has_value())
            behind = step.before;
        if (!step.after.has_value()) {
            choices.removedEntries.push_back(entryChoice(declared, *behind));
            continue;
        }
        const std::int32_t link = exported.entries[*step.after].LinkToData;
        if (!step.before.has_value()) {
            if (!behind.has_value() || !isEmpty(exported.entries[*step.after]) || !isOffered(link, declared.isInput))
                continue; // no one can add it by hand
            choices.addedEntries.push_back(entryChoice(declared, *behind));
            choices.addedEntries.back().link = link;
        } else if (declared.entries[*behind].LinkToData != link && isOffered(link, declared.isInput)) {
            choices::LinkChoice& choice = choices.links.emplace_back();
            static_cast<choices::EntryName&>(choice) = nameOf(declared, *behind);
            choice.link = link;
        }
    }
}

} // namespace

void retracePdos(const struct_EtherCatDevice& device, const KtlDeviceBlock& block, choices::DeviceChoices& choices)
{
    const std::vector<DeclaredPdo> declared = exportedPdosOf(device);
    for (const Step& step : Alignment(declared.size(), block.pdos.size(), PdoCosts{declared, block.pdos}).steps()) {
        if (step.before.has_value() && step.after.has_value())
            retraceEntries(declared[*step.before], block.pdos[*step.after], choices);
        else if (step.before.has_value())
            removeAll(declared[*step.before], choices);
    }
}

} // namespace retrace
