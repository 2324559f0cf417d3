#include "retrace/pdoRetrace.h"

#include "retrace/alignment.h"
#include "retrace/entryAlignment.h"
#include "retrace/exportedPdos.h"

#include <QString>

#include <algorithm>
#include <cstdint>
#include <vector>

namespace retrace {

namespace {

/// What it costs to make the PDOs of a description those of an export. A PDO goes when all its entries are removed.
struct PdoCosts
{
    const std::vector<DeclaredPdo>& declared;
    const std::vector<KtlPdo>& exported;
    EntryComparison entries = {};

    [[nodiscard]] Cost stay(std::size_t before, std::size_t after)
    {
        const DeclaredPdo& pdo = declared[before];
        const KtlPdo& wanted = exported[after];
        if (pdo.isInput != wanted.isInput || pdo.head.IndexAttributes != wanted.head.IndexAttributes)
            return 2 * impossible;
        return areSamePdo(pdo, wanted) ? std::min(impossible, entries.costOf(pdo, wanted)) : impossible;
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
    const std::uint16_t index = pdo.head.IndexAttributes; // no reference: the record is packed
    name.checkedIndex = index;
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
            if (!behind.has_value() || !canBeAdded(exported.entries[*step.after], declared.isInput))
                continue;
            choices.addedEntries.push_back(entryChoice(declared, *behind));
            choices.addedEntries.back().link = link;
        } else if (declared.entries[*behind].LinkToData != link && canBeLinked(link, declared.isInput)) {
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
