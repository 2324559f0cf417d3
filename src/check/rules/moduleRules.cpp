// moduleRules.cpp - modules, and where their indexes come to lie in a device.
#include "check/esiFacts.h"
#include "check/rules/report.h"
#include "check/rules/ruleFamilies.h"
#include "check/unitLabels.h"
#include "esi/xml/treeIteration.h"
#include "model/valueTexts.h"
#include "text/shownText.h"

#include <algorithm>
#include <array>
#include <map>
#include <string_view>
#include <tuple>
#include <unordered_set>
#include <utility>
#include <vector>

namespace check {

namespace {

// ---- Which slots take a module ----

void checkIdentTwice(const EsiFacts& facts, Report& report)
{
    const ModuleLookUp& modules = facts.moduleLookUp;
    for (const UnitFacts* const module : modules.modules())
        if (const UnitFacts* const first = modules.withIdent(module->moduleIdent); first != module)
            report.addAbout(module->owner, module->where,
                            QStringLiteral("module %1 of the file has the ident %2 as well")
                                .arg(first->owner.index + 1)
                                .arg(hexNumber(module->moduleIdent)));
}

void checkSlot(const EsiFacts& facts, Report& report)
{
    std::unordered_set<std::uint32_t> idents;
    std::unordered_set<std::string_view> classes;
    for (const SlotFacts& slot : facts.allSlots) {
        for (const struct_ModuleIdent& ident : slot.record->ModuleIdent)
            idents.insert(ident.ModuleIdent);
        for (const std::string_view moduleClass : classesOf(*slot.record))
            classes.insert(moduleClass);
    }
    const ModuleLookUp& modules = facts.moduleLookUp;
    if (facts.allSlots.empty())
        return; // a file of modules for devices elsewhere
    for (const UnitFacts* const module : modules.modules())
        if (idents.count(module->moduleIdent) == 0 && classes.count(modules.classOf(*module)) == 0)
            report.addAbout(module->owner, module->where,
                            QStringLiteral("no slot takes the module: none names its ident %1%2")
                                .arg(hexNumber(module->moduleIdent),
                                     modules.classOf(*module).empty()
                                         ? QString()
                                         : QStringLiteral(" or its class ") + shown(modules.classOf(*module))));
}

// ---- Indexes once places are counted in ----

void checkPdoCollision(const UnitFacts& unit, Report& report)
{
    if (!unit.isDevice())
        return;
    std::map<std::uint16_t, int> placesOf; // by the index of a PDO; -1 for those of the device
    for (const PdoFacts& pdo : unit.pdos) {
        if (pdo.isOverwritten)
            continue;
        const auto [first, isNew] = placesOf.try_emplace(pdo.index, pdo.place);
        if (!isNew && first->second != pdo.place)
            report.add(pdo.where, QStringLiteral("%1 of the module at place %2 is there already, from %3")
                                      .arg(labelOf(pdo), QString::number(pdo.place),
                                           first->second < 0 ? QStringLiteral("the device")
                                                             : QStringLiteral("place %1").arg(first->second)));
    }
}

void checkObjectCollision(const UnitFacts& unit, Report& report)
{
    constexpr std::uint16_t lastDummy = 0x1F; // objects that stand for a type and fill PDOs
    if (!unit.isDevice())
        return;
    std::map<std::pair<std::uint16_t, std::uint32_t>, int> placesOf; // by object and sub-index
    for (const PdoFacts& pdo : unit.pdos) {
        if (pdo.place < 0 || pdo.isInput)
            continue;
        for (const EntryFacts& entry : pdo.entries) {
            if (entry.index <= lastDummy)
                continue;
            const auto [first, isNew] = placesOf.try_emplace({entry.index, entry.subIndex}, pdo.place);
            if (!isNew && first->second != pdo.place)
                report.add(entry.where,
                           QStringLiteral("object %1 of the module at place %2 is mapped from place %3 as well")
                               .arg(objectText(entry.index, entry.subIndex), QString::number(pdo.place),
                                    QString::number(first->second)));
        }
    }
}

/// A sub-index and an index that moves with the slot.
using MovingIndex = std::pair<std::uint32_t, std::uint16_t>;

/// What moves, and how far from place to place.
struct MovingKind
{
    const char* what;
    const char* stepName;
    std::uint32_t ModuleRoom::*step;
};

constexpr MovingKind movingPdos{"PDOs", "SlotPdoIncrement", &ModuleRoom::pdoStep};
constexpr MovingKind movingObjects{"objects", "SlotIndexIncrement", &ModuleRoom::objectStep};

/// Whether indexes that move with the slot meet those of another place.
/// @param moving  each with its sub-index; gets sorted
/// @param step    from place to place
bool meet(std::vector<MovingIndex>& moving, std::uint32_t step, std::uint32_t places)
{
    if (places < 2 || moving.empty())
        return false;
    if (step == 0)
        return true;
    // Those that can meet have the same sub-index and are whole steps apart.
    const auto isBefore = [step](const auto& left, const auto& right) {
        return std::make_tuple(left.first, left.second % step, left.second)
               < std::make_tuple(right.first, right.second % step, right.second);
    };
    std::sort(moving.begin(), moving.end(), isBefore);
    moving.erase(std::unique(moving.begin(), moving.end()), moving.end());
    for (std::size_t index = 1; index < moving.size(); ++index) {
        const auto& [subBefore, before] = moving[index - 1];
        const auto& [sub, here] = moving[index];
        if (sub == subBefore && here % step == before % step && (here - before) / step < places)
            return true;
    }
    return false;
}

/// What of a module moves with the slot.
struct MovingIndexes
{
    std::vector<MovingIndex> pdos; ///< with sub-index 0
    std::vector<MovingIndex> objects;
};

MovingIndexes movingIndexesOf(const UnitFacts& module)
{
    MovingIndexes moving;
    for (const PdoFacts& pdo : module.pdos) {
        if (pdo.movesWithSlot)
            moving.pdos.emplace_back(0, pdo.index);
        for (const EntryFacts& entry : pdo.entries)
            if (entry.movesWithSlot && entry.index != 0)
                moving.objects.emplace_back(entry.subIndex, entry.index);
    }
    return moving;
}

/// Tells the first room in which the indexes of a module meet.
void tellMeeting(const UnitFacts& module, std::vector<MovingIndex>& moving, const std::vector<ModuleRoom>& rooms,
                 const MovingKind& kind, Report& report)
{
    const auto found = std::find_if(rooms.begin(), rooms.end(),
                                    [&](const ModuleRoom& room) { return meet(moving, room.*kind.step, room.places); });
    if (found != rooms.end())
        report.addAbout(
            module.owner, module.where,
            QStringLiteral("%1 of the module that move with the slot meet those of another place: %2 is %3, and "
                           "device %4 has %5 places for it")
                .arg(QLatin1String(kind.what), QLatin1String(kind.stepName), hexNumber((*found).*kind.step),
                     QString::number(found->device + 1), QString::number(found->places)));
}

void checkIncrement(const EsiFacts& facts, Report& report)
{
    const ModuleLookUp& modules = facts.moduleLookUp;
    const ModuleRooms rooms(facts.allSlots, modules);
    for (const UnitFacts* const module : modules.modules()) {
        const std::vector<ModuleRoom>& ofModule = rooms.of(*module, modules.classOf(*module));
        if (ofModule.empty())
            continue;
        MovingIndexes moving = movingIndexesOf(*module);
        tellMeeting(*module, moving.pdos, ofModule, movingPdos, report);
        tellMeeting(*module, moving.objects, ofModule, movingObjects, report);
    }
}

// ---- Other files ----

/// Name of a file without its folders, whichever system they are of.
QString baseName(std::string_view path)
{
    const QString text = QString::fromUtf8(path.data(), static_cast<int>(path.size())).trimmed();
    return text.section(QLatin1Char('/'), -1).section(QLatin1Char('\\'), -1);
}

/// The children of an element whose text is the name of another file.
void checkReferencesIn(const xml::Element& parent, std::string_view name, const EsiFacts& facts, Report& report)
{
    xml::forEachChildElement(parent, name, [&](const xml::Element& reference) {
        const QString file = baseName(reference.text());
        if (!file.isEmpty() && !facts.subject.givenFiles.contains(file, Qt::CaseInsensitive))
            report.add(reference.placeKey(),
                       QStringLiteral("the file %1 is referred to, and not given").arg(shownText(file)));
    });
}

void checkReferences(const EsiFacts& facts, Report& report)
{
    checkReferencesIn(facts.subject.tree.root(), "InfoReference", facts, report);
    for (const DeviceElements& device : facts.devices)
        for (const xml::Element& profile : device.sections[static_cast<std::size_t>(DeviceSection::Profile)])
            checkReferencesIn(profile, "DictionaryFile", facts, report);
    for (const xml::Element& module : facts.modules)
        xml::forEachChildElement(module, "Profile", [&](const xml::Element& profile) {
            checkReferencesIn(profile, "DictionaryFile", facts, report);
        });
}

constexpr std::array rules{
    Rule{"module-ident-twice",
         Severity::Warning,
         "two modules with the same ident",
         "A module has the ModuleIdent of one before it in the file.",
         "Slots refer to modules by their ident, and always get the first one.",
         "Give the modules different idents, or take one of them out.",
         R"(<Module><Type ModuleIdent="#x1">A</Type></Module><Module><Type ModuleIdent="#x1">B</Type></Module>)",
         {checkIdentTwice, nullptr, nullptr}},
    Rule{"module-without-slot",
         Severity::Note,
         "a module that no slot takes",
         "The file has slots, and none of them names the ident or the class of a module.",
         "The module cannot be put into any device of the file.",
         "Name it in a slot, or take it out.",
         R"(<Slot><ModuleIdent>#x1</ModuleIdent></Slot> ... <Module><Type ModuleIdent="#x99">Spare</Type></Module>)",
         {checkSlot, nullptr, nullptr}},
    Rule{"module-increment",
         Severity::Warning,
         "an increment too small for a module",
         "A device has two places or more for a module, and PDOs or objects of the module that move with the slot have "
         "the "
         "indexes, moved by SlotPdoIncrement or SlotIndexIncrement, that others of it have at another place.",
         "The PDOs or objects of the second such module coincide with those of the first.",
         "Make the increment larger than the range of indexes that a module takes.",
         R"(<Slots SlotPdoIncrement="1"> with a module that has the TxPdos 0x1a00 and 0x1a01)",
         {checkIncrement, nullptr, nullptr}},
    Rule{"module-pdo-collision",
         Severity::Error,
         "PDO indexes of modules collide",
         "With the modules that are in the slots, a PDO has the index of another one of the device or of another "
         "place. A "
         "PDO of the device that says OverwrittenByModule does not count.",
         "Startup commands for the one overwrite those for the other, and one of the modules exchanges nothing.",
         "Set DependOnSlot for the index and an increment that is large enough.",
         "<Index>#x1a00</Index> in a module that is the default of two slots",
         {nullptr, nullptr, checkPdoCollision}},
    Rule{"module-object-collision",
         Severity::Warning,
         "objects of modules collide",
         "With the modules that are in the slots, entries of RxPdos at two places are the same object and sub-index.",
         "Both places write the same value, and the last one counts.",
         "Set DependOnSlot for the index of the entry and an increment that is large enough.",
         "<Entry><Index>#x6000</Index></Entry> in a module that is the default of two slots",
         {nullptr, nullptr, checkObjectCollision}},
    Rule{"file-reference",
         Severity::Note,
         "a file that is referred to is not given",
         "An InfoReference or DictionaryFile element names a file, and no file of that name is checked in the same "
         "call.",
         "Modules or objects may be in that file, and the controller gets nothing of it.",
         "Give the file in the same call, or put its contents into this one.",
         "<DictionaryFile>objects.xml</DictionaryFile>",
         {checkReferences, nullptr, nullptr}},
};

} // namespace

RuleFamily moduleRules()
{
    return rules;
}

} // namespace check
