// startupDictionaryRules.cpp - startup commands against the dictionary of the same device or module.
#include "check/dictionary/dictionaryOfUnit.h"
#include "check/dictionary/dictionaryWords.h"
#include "check/factNames.h"
#include "check/rules/report.h"
#include "check/rules/ruleFamilies.h"
#include "check/unitLabels.h"

#include <array>

namespace check {

namespace {

/// Calls `visit(command, found)` for each declared command, with what the dictionary says of its object.
template<typename Visitor> void forEachCommand(const UnitFacts& unit, Visitor visit)
{
    if (unit.dictionary == nullptr || unit.dictionary->content().objects.empty())
        return;
    for (const CommandFacts& command : unit.commands)
        if (!command.isDerived)
            visit(command, unit.dictionary->itemAt(command.index, command.subIndex));
}

/// Whether the file means the whole object. A declared command goes out for the sub-index alone all the same; that its
/// value is lost then is another rule's finding.
bool meansWholeObject(const CommandFacts& command)
{
    return command.isCompleteAccess || command.declaresCompleteAccess;
}

void checkObjects(const UnitFacts& unit, Report& report)
{
    forEachCommand(unit, [&](const CommandFacts& command, const LookedUpItem& found) {
        if (found.result == LookUp::NoObject && hasToKnow(unit, command.index))
            report.add(
                command.where,
                QStringLiteral("%1: the dictionary has no object %2").arg(labelOf(command), hexNumber(command.index)));
        if (found.result == LookUp::NoSubIndex && !meansWholeObject(command))
            report.add(command.where,
                       QStringLiteral("%1: object %2 of the dictionary has no sub-index %3")
                           .arg(labelOf(command), hexNumber(command.index), QString::number(command.subIndex)));
    });
}

/// Bits that a command can write; 0 if it is not known.
std::uint64_t bitsFor(const DictionaryFacts& dictionary, const CommandFacts& command, const LookedUpItem& found)
{
    constexpr std::uint64_t bitsOfCount = 16; // sub-index 0 is filled up to them
    if (!meansWholeObject(command))
        return found.result == LookUp::Found ? static_cast<std::uint64_t>(found.item.bits) : 0;
    const DictionaryObject* const object = dictionary.objectAt(command.index);
    const std::uint64_t bits = object == nullptr ? 0 : object->bits.value_or(0);
    return command.subIndex > 0 && bits > bitsOfCount ? bits - bitsOfCount : bits;
}

void checkLengths(const UnitFacts& unit, Report& report)
{
    forEachCommand(unit, [&](const CommandFacts& command, const LookedUpItem& found) {
        constexpr std::uint64_t bitsOfByte = 8;
        const std::uint64_t bits = bitsFor(*unit.dictionary, command, found);
        const std::uint64_t room = (bits + bitsOfByte - 1) / bitsOfByte;
        if (room > 0 && command.bytes > room)
            report.add(command.where, QStringLiteral("%1 writes %2, in the dictionary it has %3")
                                          .arg(labelOf(command), bytesText(command.bytes), bytesText(room)));
    });
}

void checkAccess(const UnitFacts& unit, Report& report)
{
    forEachCommand(unit, [&](const CommandFacts& command, const LookedUpItem& found) {
        if (found.result == LookUp::Found && found.item.access == Access::ReadOnly && !meansWholeObject(command))
            report.add(command.where,
                       QStringLiteral("%1 writes what the dictionary calls read-only").arg(labelOf(command)));
    });
}

constexpr std::array rules{
    Rule{"startup-object",
         Severity::Warning,
         "the object of a startup command is not in the dictionary",
         "A declared startup command writes an object or sub-index that the dictionary of the same device or module "
         "does not have. Objects that may be those of a module in a slot, or of the device that a module is put into, "
         "are no finding, nor is a sub-index with complete access.",
         "If the device does not have it either, it answers with an abort, and the controller stops the start of the "
         "bus.",
         "Correct index and sub-index of the command, or add the object to the dictionary.",
         "<InitCmd><Transition>PS</Transition><Index>#x2099</Index><SubIndex>0</SubIndex><Data>01</Data></InitCmd>",
         {nullptr, nullptr, checkObjects}},
    Rule{"startup-value-length",
         Severity::Warning,
         "a startup value is longer than its object",
         "The Data of a declared startup command has more bytes than the object or sub-item has in the dictionary; "
         "with complete access, than all from the sub-index on, which is 0 or 1.",
         "The device answers with an abort because the length does not match, and the controller stops the start of "
         "the bus.",
         "Shorten Data to the length of the object: two hexadecimal digits for each byte.",
         "<InitCmd><Transition>PS</Transition><Index>#x6060</Index><SubIndex>0</SubIndex><Data>0800</Data></InitCmd>",
         {nullptr, nullptr, checkLengths}},
    Rule{"startup-read-only",
         Severity::Warning,
         "a startup command writes a read-only object",
         "A declared startup command writes an object or sub-item whose Access in the dictionary is ro. Complete "
         "access, which passes over what is read-only, is no finding.",
         "The device answers with an abort, and the controller stops the start of the bus.",
         "Delete the command, or correct Access.",
         "<InitCmd><Transition>PS</Transition><Index>#x6041</Index><SubIndex>0</SubIndex><Data>0000</Data></InitCmd>",
         {nullptr, nullptr, checkAccess}},
};

} // namespace

RuleFamily startupDictionaryRules()
{
    return rules;
}

} // namespace check
