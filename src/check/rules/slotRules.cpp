// slotRules.cpp - slots of modular devices, and the modules that they name.
#include "check/esiFacts.h"
#include "check/rules/report.h"
#include "check/rules/ruleFamilies.h"
#include "check/unitLabels.h"
#include "esi/derivation/modulesByIdent.h"
#include "model/valueTexts.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace check {

namespace {

QString labelOf(const SlotFacts& slot)
{
    return QStringLiteral("slot %1 %2").arg(slot.number).arg(shown(slot.record->Name));
}

void checkModule(const EsiFacts& facts, Report& report)
{
    const ModuleLookUp& modules = facts.moduleLookUp;
    for (const SlotFacts& slot : facts.allSlots)
        for (const struct_ModuleIdent& ident : slot.record->ModuleIdent)
            if (ident.Attributes.Default == 0 && modules.withIdent(ident.ModuleIdent) == nullptr)
                report.addAbout(slot.device, slot.element.placeKey(),
                                QStringLiteral("%1 takes module %2, which the file does not have")
                                    .arg(labelOf(slot), hexNumber(ident.ModuleIdent)));
}

/// Why a default module is not in its slot from the start; empty if it is.
QString defaultProblem(const SlotFacts& slot, const struct_ModuleIdent& ident, const ModuleLookUp& modules)
{
    const UnitFacts* const module = modules.withIdent(ident.ModuleIdent);
    if (module == nullptr)
        return QStringLiteral("which the file does not have");
    if (!isDefaultOf(*slot.record, ident))
        return QStringLiteral("and has no place (MaxInstances is 0)");
    return {};
}

void checkDefault(const EsiFacts& facts, Report& report)
{
    const ModuleLookUp& modules = facts.moduleLookUp;
    for (const SlotFacts& slot : facts.allSlots)
        for (const struct_ModuleIdent& ident : slot.record->ModuleIdent) {
            if (ident.Attributes.Default == 0)
                continue;
            if (const QString problem = defaultProblem(slot, ident, modules); !problem.isEmpty())
                report.addAbout(slot.device, slot.element.placeKey(),
                                QStringLiteral("the default module of %1 is %2, %3")
                                    .arg(labelOf(slot), hexNumber(ident.ModuleIdent), problem));
        }
}

void checkInstances(const EsiFacts& facts, Report& report)
{
    for (const SlotFacts& slot : facts.allSlots) {
        const SlotAttributes& attributes = slot.record->Attributes;
        if (attributes.MinInstances > attributes.MaxInstances)
            report.addAbout(slot.device, slot.element.placeKey(),
                            QStringLiteral("%1 takes %2 modules at least, and %3 at most go out")
                                .arg(labelOf(slot))
                                .arg(attributes.MinInstances)
                                .arg(attributes.MaxInstances));
    }
}

/// A step of slots.
struct Increment
{
    std::string_view name;
    std::uint32_t SlotAttributes::*exported;
};

constexpr std::array increments{
    Increment{"SlotPdoIncrement", &SlotAttributes::SlotPdoIncrement},
    Increment{"SlotIndexIncrement", &SlotAttributes::SlotIndexIncrement},
};

/// A slot of a group moves by the group, so its own step does not count.
void checkIncrement(const SlotFacts& slot, const Increment& increment, Report& report)
{
    const std::uint32_t own = toUint(slot.element.attribute(increment.name));
    const std::uint32_t exported = slot.record->Attributes.*increment.exported;
    if (own != 0 && own != exported && slot.record->Attributes.m_SlotGroup < 0)
        report.addAbout(slot.device, slot.element.placeKey(),
                        QStringLiteral("%1 has %2 %3 and goes out with %4: the controller handles one for all slots")
                            .arg(labelOf(slot),
                                 QString::fromLatin1(increment.name.data(), static_cast<int>(increment.name.size())),
                                 hexNumber(own), hexNumber(exported)));
}

void checkIncrements(const EsiFacts& facts, Report& report)
{
    for (const SlotFacts& slot : facts.allSlots)
        for (const Increment& increment : increments)
            checkIncrement(slot, increment, report);
}

void checkIdentTwice(const EsiFacts& facts, Report& report)
{
    for (const SlotFacts& slot : facts.allSlots) {
        std::unordered_set<std::uint32_t> seen;
        for (const struct_ModuleIdent& ident : slot.record->ModuleIdent)
            if (!seen.insert(ident.ModuleIdent).second)
                report.addAbout(
                    slot.device, slot.element.placeKey(),
                    QStringLiteral("%1 names module %2 twice").arg(labelOf(slot), hexNumber(ident.ModuleIdent)));
    }
}

constexpr std::array rules{
    Rule{"slot-module-unknown",
         Severity::Warning,
         "a slot takes a module that the file lacks",
         "A ModuleIdent of a slot, which is not its default, is that of no module of the file.",
         "The module cannot be chosen, and nothing of it goes to the controller.",
         "Add the module to the file, or correct the ident.",
         "<Slot><ModuleIdent>#x99</ModuleIdent></Slot>",
         {checkModule, nullptr, nullptr}},
    Rule{"slot-default-module",
         Severity::Error,
         "a default module is missing or does not fit",
         "The ident of the default module of a slot is that of no module of the file, or the slot has no place for it "
         "(MaxInstances is 0).",
         "The device starts with a module that the controller does not know, and refuses the configuration.",
         "Add the module, give the slot a place, or make another module the default.",
         R"(<Slot MaxInstances="1"><ModuleIdent Default="1">#x99</ModuleIdent></Slot>)",
         {checkDefault, nullptr, nullptr}},
    Rule{"slot-instances",
         Severity::Error,
         "a slot with minimum above maximum",
         "MinInstances of a slot is above its MaxInstances, or above 16: the controller holds 16 modules in a slot, so "
         "a higher maximum counts as 16.",
         "No number of modules is right for the slot.",
         "Correct the two numbers.",
         R"(<Slot MinInstances="2" MaxInstances="1"/>)",
         {checkInstances, nullptr, nullptr}},
    Rule{"slot-increment",
         Severity::Warning,
         "slots with unequal increments",
         "A slot that is in no group declares another SlotPdoIncrement or SlotIndexIncrement than the one with which "
         "all slots "
         "go out: that of the Slots element or, without one, that of the first slot.",
         "The controller handles one increment for all slots of a device: the PDOs or objects of the modules in this "
         "slot "
         "get the wrong indexes.",
         "Use one increment for all slots, and declare it at the Slots element.",
         R"(<Slots SlotPdoIncrement="1"><Slot SlotPdoIncrement="2"/></Slots>)",
         {checkIncrements, nullptr, nullptr}},
    Rule{"slot-ident-twice",
         Severity::Note,
         "a slot names a module twice",
         "A slot has the same ModuleIdent twice.",
         "It changes nothing, but another ident may be meant.",
         "Take one of them out, or correct it.",
         "<Slot><ModuleIdent>#x1</ModuleIdent><ModuleIdent>#x1</ModuleIdent></Slot>",
         {checkIdentTwice, nullptr, nullptr}},
};

} // namespace

RuleFamily slotRules()
{
    return rules;
}

} // namespace check
