#include "choices/entryChoices.h"

#include "choices/entryTargets.h"

#include <cstddef>
#include <map>
#include <utility>
#include <vector>

namespace choices {

namespace {

/// What happens at one entry.
struct EntryChanges
{
    bool isRemoved = false;
    std::vector<const EntryChoice*> added; ///< behind the entry
};

using PdoChanges = std::map<std::size_t, EntryChanges>; ///< by the position of the entry
using DeviceChanges = std::map<std::size_t, PdoChanges>; ///< by the row of the PDO

DeviceChanges checkedChanges(const DeviceChoices& choices, struct_EtherCatDevice& device, Problems& problems)
{
    DeviceChanges changes;
    EntryTargets<struct_EtherCatDevice> targets(device);
    for (const EntryChoice& choice : choices.removedEntries) {
        const NamedEntry named{choice, choice.path};
        visitNamedEntry(
            targets, named, problems, [&](const auto& pdo, PdoDirection, std::size_t row, std::size_t position) {
                if (!targets.take(row, position))
                    problems.add(ProblemCode::Link, choice.path, QStringLiteral("this entry is removed twice"));
                checkTarget(pdo, entriesOf(pdo)[position], named, problems);
                changes[row][position].isRemoved = true;
            });
    }
    for (const EntryChoice& choice : choices.addedEntries) {
        const NamedEntry named{choice, choice.path, QLatin1String("behind")};
        visitNamedEntry(targets, named, problems,
                        [&](const auto& pdo, PdoDirection direction, std::size_t row, std::size_t position) {
                            checkTarget(pdo, entriesOf(pdo)[position], named, problems);
                            checkLink(choice.link, 0, direction, named, problems);
                            changes[row][position].added.push_back(&choice);
                        });
    }
    return changes;
}

/// The entries of one PDO after the changes.
template<typename Entry> std::vector<Entry> renewed(std::vector<Entry> entries, const PdoChanges& changes)
{
    std::vector<Entry> after;
    for (std::size_t position = 0; position < entries.size(); ++position) {
        const auto found = changes.find(position);
        if (found == changes.end() || !found->second.isRemoved)
            after.push_back(std::move(entries[position]));
        if (found == changes.end())
            continue;
        for (const EntryChoice* const added : found->second.added)
            after.emplace_back().Linkto = added->link;
    }
    return after;
}

} // namespace

void makeEntryChoices(const DeviceChoices& choices, struct_EtherCatDevice& device, Problems& problems)
{
    const std::size_t before = problems.count();
    const DeviceChanges changes = checkedChanges(choices, device, problems);
    if (problems.count() != before)
        return;
    for (const auto& [row, ofPdo] : changes) {
        const PdoChanges& changesOfPdo = ofPdo;
        visitPdoRow(device, static_cast<int>(row), [&](auto& pdo, PdoDirection) {
            entriesOf(pdo) = renewed(std::move(entriesOf(pdo)), changesOfPdo);
        });
    }
}

} // namespace choices
