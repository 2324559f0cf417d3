#include "diff/exportedDevice.h"

#include "diff/ktlSubject.h"
#include "diff/pairing.h"
#include "diff/words.h"
#include "facts/processData.h"
#include "ktl/writing/deviceBytes.h"

#include <QDate>
#include <QDateTime>
#include <QTime>

#include <algorithm>
#include <cstdint>
#include <utility>

namespace diff {

namespace {

using facts::CommandFacts;
using facts::PdoFacts;
using facts::UnitFacts;

/// Calls `take(exported, declared)` for parts of the same place in their lists.
template<typename Exported, typename Declared, typename Take>
void forEachOfBoth(std::vector<Exported>& exported, const std::vector<Declared>& declared, Take take)
{
    for (std::size_t index = 0; index < std::min(exported.size(), declared.size()); ++index)
        take(exported[index], declared[index]);
}

/// Gives sync managers, FMMUs and operation modes their names, and what else only the ESI file has.
void addChannels(UnitFacts& unit, Subject& subject, const UnitFacts& declared)
{
    std::vector<facts::SyncManagerFacts> realOnes;
    for (std::size_t number = 0; number < declared.syncManagers.size(); ++number)
        if (const facts::SyncManagerFacts& syncManager = declared.syncManagers[number]; !facts::isVirtual(syncManager))
            realOnes.push_back(syncManager);
        else
            subject.losses.push_back(
                {Area::SyncManager, "virtual sync manager " + std::to_string(number), syncManager.where});
    forEachOfBoth(unit.syncManagers, realOnes, [](facts::SyncManagerFacts& to, const facts::SyncManagerFacts& from) {
        to.where = from.where;
        to.name = from.name;
    });
    forEachOfBoth(unit.fmmus, declared.fmmus, [](facts::FmmuFacts& to, const facts::FmmuFacts& from) {
        to.where = from.where;
        to.name = from.name;
    });
    forEachOfBoth(unit.modes, declared.modes, [](facts::ModeFacts& to, const facts::ModeFacts& from) {
        const std::uint32_t exported = to.assignActivate;
        to = from;
        to.assignActivate = exported;
    });
}

void addEntryNames(PdoFacts& pdo, const PdoFacts& declared)
{
    forEachOfBoth(pdo.entries, declared.entries, [](facts::EntryFacts& to, const facts::EntryFacts& from) {
        to.where = from.where;
        to.name = from.name;
        to.dataType = from.dataType;
    });
}

void addPdoNames(PdoFacts& pdo, const PdoFacts& declared)
{
    pdo.where = declared.where;
    pdo.name = declared.name;
    pdo.excluded = declared.excluded;
    pdo.isOverwritten = declared.isOverwritten;
    pdo.movesWithSlot = declared.movesWithSlot;
    pdo.movesWithGroup = declared.movesWithGroup;
    pdo.oversamplingFactor = declared.oversamplingFactor;
    pdo.oversamplingMin = declared.oversamplingMin;
    pdo.oversamplingMax = declared.oversamplingMax;
    addEntryNames(pdo, declared);
}

std::vector<std::pair<bool, std::uint16_t>> keysOf(const std::vector<PdoFacts>& pdos)
{
    std::vector<std::pair<bool, std::uint16_t>> keys;
    keys.reserve(pdos.size());
    for (const PdoFacts& pdo : pdos)
        keys.emplace_back(pdo.isInput, pdo.index);
    return keys;
}

void addPdos(UnitFacts& unit, Subject& subject, const UnitFacts& declared)
{
    for (const Pair& pair : pairsByKey(keysOf(unit.pdos), keysOf(declared.pdos))) {
        if (pair.before.has_value() && pair.after.has_value()) {
            addPdoNames(unit.pdos[*pair.before], declared.pdos[*pair.after]);
        } else if (pair.after.has_value() && declared.pdos[*pair.after].isExported) {
            const PdoFacts& pdo = declared.pdos[*pair.after];
            subject.losses.push_back({Area::Pdo, pdoWords(pdo.isInput, pdo.index, pdo.name), pdo.where});
        }
    }
}

std::vector<std::pair<std::uint16_t, std::uint16_t>> keysOf(const std::vector<CommandFacts>& commands)
{
    std::vector<std::pair<std::uint16_t, std::uint16_t>> keys;
    keys.reserve(commands.size());
    for (const CommandFacts& command : commands)
        keys.emplace_back(command.index, command.subIndex);
    return keys;
}

/// @param without  place of a command that comes from no element
void addComments(std::vector<CommandFacts>& commands, const std::vector<CommandFacts>& declared, facts::Where without)
{
    for (CommandFacts& command : commands)
        command.where = without;
    for (const Pair& pair : pairsByKey(keysOf(commands), keysOf(declared)))
        if (pair.before.has_value() && pair.after.has_value()) {
            commands[*pair.before].where = declared[*pair.after].where;
            commands[*pair.before].comment = declared[*pair.after].comment;
        }
}

void addSlots(Subject& subject, const Subject& declared)
{
    SlotListTraits list = declared.slotList;
    list.isThere = subject.slotList.isThere;
    list.sendsIdents = subject.slotList.sendsIdents;
    list.sendsAddresses = subject.slotList.sendsAddresses;
    list.indexStep = subject.slotList.indexStep;
    list.pdoStep = subject.slotList.pdoStep;
    subject.slotList = std::move(list);
    forEachOfBoth(subject.slotTraits, declared.slotTraits, [](SlotTraits& to, const SlotTraits& from) {
        to.where = from.where;
        to.name = from.name;
        to.group = from.group;
        to.classes = from.classes;
        to.idents = from.idents;
    });
    for (PlacedModule& placed : subject.placed)
        placed.where = subject.slotList.where;
}

/// Gives a module block the place and names of its module. Its entries are those of all PDOs of a direction in one.
void addModuleNames(UnitFacts& module, const UnitFacts& declared)
{
    module.where = declared.where;
    module.name = declared.name;
    module.type = declared.type;
    for (PdoFacts& pdo : module.pdos) {
        pdo.where = declared.where;
        for (facts::EntryFacts& entry : pdo.entries)
            entry.where = declared.where;
    }
    for (CommandFacts& command : module.commands)
        command.where = declared.where;
}

} // namespace

ExportedDevice exportedDeviceOf(struct_FilenameDevice& file, std::size_t index, const Subject& declared,
                                const std::vector<const UnitFacts*>& moduleUnits)
{
    ExportedDevice device;
    const QDateTime anyTime(QDate(1970, 1, 1), QTime(0, 0)); // it is not compared
    device.bytes = deviceBytesOf(file.device[index], file, anyTime);
    device.facts = facts::ktlFactsOf(device.bytes);
    device.subject = ktlSubjectOf(device.facts, 0);
    Subject& subject = device.subject;
    UnitFacts& unit = device.facts.units.front();
    unit.where = declared.unit->where;
    unit.type = declared.unit->type;
    if (unit.name.empty()) // an export has names only where its file has modules
        unit.name = declared.unit->name;
    unit.dictionary = declared.unit->dictionary;
    subject.traits.checkProductCode = declared.traits.checkProductCode;
    addChannels(unit, subject, *declared.unit);
    addPdos(unit, subject, *declared.unit);
    addComments(unit.commands, declared.unit->commands, unit.where);
    addComments(unit.eoeCommands, declared.unit->eoeCommands, unit.where);
    addSlots(subject, declared);
    // The blocks of modules are in the order of the file.
    for (std::size_t module = 0; module < std::min(subject.modules.size(), moduleUnits.size()); ++module)
        addModuleNames(subject.modules[module], *moduleUnits[module]);
    for (PdoFacts& pdo : subject.presetPdos)
        pdo.where = unit.where;
    return device;
}

} // namespace diff
