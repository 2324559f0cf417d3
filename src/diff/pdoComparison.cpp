#include "diff/pairing.h"
#include "diff/sections.h"
#include "diff/words.h"
#include "facts/processData.h"
#include "model/valueTexts.h"
#include "show/showWords.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace diff {

namespace {

using facts::EntryFacts;
using facts::PdoFacts;

std::string indexList(const std::vector<std::uint16_t>& indexes)
{
    std::string list;
    for (const std::uint16_t index : indexes)
        list += (list.empty() ? "" : " ") + numberText(index);
    return list;
}

constexpr std::array pdoFields{
    Field<PdoFacts>{"name", "name", Weight::Text, [](const PdoFacts& pdo) { return text(pdo.name); }, In::Esi},
    Field<PdoFacts>{"syncManager", "sync manager", Weight::Breaking,
                    [](const PdoFacts& pdo) { return pdo.syncManager < 0 ? noValue() : decimal(pdo.syncManager); }},
    Field<PdoFacts>{"syncUnit", "sync unit", Weight::Behaviour,
                    [](const PdoFacts& pdo) { return decimal(pdo.syncUnit); }},
    Field<PdoFacts>{"bitLength", "length in bits", Weight::Breaking,
                    [](const PdoFacts& pdo) { return decimal(facts::bitsOf(pdo)); }},
    Field<PdoFacts>{"fixed", "fixed", Weight::Behaviour, [](const PdoFacts& pdo) { return flag(pdo.isFixed); }},
    Field<PdoFacts>{"mandatory", "mandatory", Weight::Behaviour,
                    [](const PdoFacts& pdo) { return flag(pdo.isMandatory); }},
    Field<PdoFacts>{"excludes", "not together with", Weight::Behaviour,
                    [](const PdoFacts& pdo) { return words(indexList(pdo.excluded)); }, In::Esi},
    Field<PdoFacts>{"overwrittenByModule", "overwritten by modules", Weight::Behaviour,
                    [](const PdoFacts& pdo) { return flag(pdo.isOverwritten); }, In::Esi},
    Field<PdoFacts>{"dependOnSlot", "moves with the slot", Weight::Breaking,
                    [](const PdoFacts& pdo) { return flag(pdo.movesWithSlot); }, In::Esi},
    Field<PdoFacts>{"dependOnSlotGroup", "moves with the slot group", Weight::Breaking,
                    [](const PdoFacts& pdo) { return flag(pdo.movesWithGroup); }, In::Esi},
    Field<PdoFacts>{"oversamplingFactor", "oversampling factor", Weight::Behaviour,
                    [](const PdoFacts& pdo) { return decimal(pdo.declaredFactor); }, In::Esi},
    Field<PdoFacts>{"oversamplingMin", "samples at least", Weight::Behaviour,
                    [](const PdoFacts& pdo) { return decimal(pdo.oversamplingMin); }, In::Esi},
    Field<PdoFacts>{"oversamplingMax", "samples at most", Weight::Behaviour,
                    [](const PdoFacts& pdo) { return decimal(pdo.oversamplingMax); }, In::Esi},
};

constexpr std::array entryFields{
    Field<EntryFacts>{"bitLength", "length in bits", Weight::Breaking,
                      [](const EntryFacts& entry) { return decimal(entry.bits); }},
    Field<EntryFacts>{"dataType", "data type", Weight::Breaking,
                      [](const EntryFacts& entry) { return text(entry.dataType); }, In::Esi},
    Field<EntryFacts>{"dependOnSlot", "moves with the slot", Weight::Breaking,
                      [](const EntryFacts& entry) { return flag(entry.movesWithSlot); }},
    Field<EntryFacts>{"dependOnSlotGroup", "moves with the slot group", Weight::Breaking,
                      [](const EntryFacts& entry) { return flag(entry.movesWithGroup); }, In::Esi},
    Field<EntryFacts>{"fixed", "fixed", Weight::Behaviour, [](const EntryFacts& entry) { return flag(entry.isFixed); }},
    Field<EntryFacts>{"link", "link", Weight::Behaviour,
                      [](const EntryFacts& entry) { return words(show::linkWords(entry.link)); }},
    Field<EntryFacts>{"name", "name", Weight::Text, [](const EntryFacts& entry) { return text(entry.name); }, In::Esi},
};

/// The entries of a PDO that are objects. Gaps have no meaning but for the places of what follows, and for the length
/// of the PDO.
std::vector<const EntryFacts*> objectsIn(const PdoFacts& pdo)
{
    std::vector<const EntryFacts*> objects;
    for (const EntryFacts& entry : pdo.entries)
        if (entry.index != 0)
            objects.push_back(&entry);
    return objects;
}

std::vector<std::pair<std::uint16_t, std::uint32_t>> keysOf(const std::vector<const EntryFacts*>& entries)
{
    std::vector<std::pair<std::uint16_t, std::uint32_t>> keys;
    keys.reserve(entries.size());
    for (const EntryFacts* const entry : entries)
        keys.emplace_back(entry->index, entry->subIndex);
    return keys;
}

/// PDOs with what their differences have in common.
struct PdoPair
{
    const PdoFacts& before;
    const PdoFacts& after;
    Area area;
    const std::string& owner;

    /// Where a PDO is assigned on neither side, nothing in it can break anything.
    [[nodiscard]] Weight most() const
    {
        return before.syncManager < 0 && after.syncManager < 0 ? Weight::Behaviour : Weight::Breaking;
    }

    [[nodiscard]] std::string label() const { return owner + pdoWords(before.isInput, before.index, before.name); }

    [[nodiscard]] Spot spotOf(const EntryFacts* oldEntry, const EntryFacts* newEntry) const
    {
        const EntryFacts& one = oldEntry != nullptr ? *oldEntry : *newEntry;
        Spot spot{area, label() + ", entry " + named(objectWords(one.index, one.subIndex), one.name), {}, {}, most()};
        if (oldEntry != nullptr)
            spot.before = oldEntry->where;
        if (newEntry != nullptr)
            spot.after = newEntry->where;
        return spot;
    }
};

void compareEntries(const PdoPair& pdos, Comparison& out)
{
    const std::vector<const EntryFacts*> oldEntries = objectsIn(pdos.before);
    const std::vector<const EntryFacts*> newEntries = objectsIn(pdos.after);
    for (const Pair& pair : pairsInSequence(keysOf(oldEntries), keysOf(newEntries))) {
        const EntryFacts* const before = pair.before ? oldEntries[*pair.before] : nullptr;
        const EntryFacts* const after = pair.after ? newEntries[*pair.after] : nullptr;
        if (after == nullptr) {
            out.removed(pdos.spotOf(before, nullptr), Weight::Breaking);
        } else if (before == nullptr) {
            out.added(pdos.spotOf(nullptr, after), Weight::Breaking);
        } else {
            if (pair.isMoved)
                out.moved(pdos.spotOf(before, after), Weight::Breaking, "entry " + std::to_string(*pair.before + 1),
                          "entry " + std::to_string(*pair.after + 1));
            out.compare(entryFields, *before, *after, [&] { return pdos.spotOf(before, after); });
        }
    }
}

/// The PDOs that a unit has itself. Those of modules are compared with the modules.
std::vector<const PdoFacts*> ownPdosOf(const facts::UnitFacts& unit)
{
    std::vector<const PdoFacts*> pdos;
    for (const PdoFacts& pdo : unit.pdos)
        if (pdo.place < 0 || !unit.isDevice())
            pdos.push_back(&pdo);
    return pdos;
}

std::vector<std::pair<bool, std::uint16_t>> keysOf(const std::vector<const PdoFacts*>& pdos)
{
    std::vector<std::pair<bool, std::uint16_t>> keys;
    keys.reserve(pdos.size());
    for (const PdoFacts* const pdo : pdos)
        keys.emplace_back(pdo->isInput, pdo->index);
    return keys;
}

} // namespace

void comparePdos(const facts::UnitFacts& before, const facts::UnitFacts& after, Area area, const std::string& owner,
                 Comparison& out)
{
    const std::vector<const PdoFacts*> oldPdos = ownPdosOf(before);
    const std::vector<const PdoFacts*> newPdos = ownPdosOf(after);
    for (const Pair& pair : pairsByKey(keysOf(oldPdos), keysOf(newPdos))) {
        if (!pair.after.has_value()) {
            const PdoFacts& pdo = *oldPdos[*pair.before];
            out.removed({area, owner + pdoWords(pdo.isInput, pdo.index, pdo.name), pdo.where, {}}, Weight::Breaking);
        } else if (!pair.before.has_value()) {
            const PdoFacts& pdo = *newPdos[*pair.after];
            out.added({area, owner + pdoWords(pdo.isInput, pdo.index, pdo.name), {}, pdo.where},
                      pdo.syncManager < 0 ? Weight::Behaviour : Weight::Breaking);
        } else {
            const PdoPair pdos{*oldPdos[*pair.before], *newPdos[*pair.after], area, owner};
            out.compare(pdoFields, pdos.before, pdos.after, [&] {
                return Spot{area, pdos.label(), pdos.before.where, pdos.after.where, pdos.most()};
            });
            compareEntries(pdos, out);
        }
    }
}

} // namespace diff
