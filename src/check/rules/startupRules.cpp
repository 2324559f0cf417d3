// startupRules.cpp - the startup commands of a device, as the controller sends them.
#include "check/rules/report.h"
#include "check/rules/ruleFamilies.h"
#include "check/unitLabels.h"
#include "editing/exportChecks.h"
#include "model/carriedValue.h"
#include "model/valueTexts.h"

#include <array>
#include <cstddef>

namespace check {

namespace {

// ---- The order of mapping and assignment ----

/// Reports the slips of one kind.
/// @tparam TextOf  words for a fault
template<StartupSlip Slip, QString (*TextOf)(const StartupFault&, const CommandFacts&)>
void checkOrder(const UnitFacts& unit, Report& report)
{
    for (const StartupFault& fault : unit.startupFaults)
        if (const CommandFacts& command = unit.commands[fault.command]; fault.slip == Slip)
            report.add(command.where, TextOf(fault, command));
}

QString assignedText(const StartupFault& /*fault*/, const CommandFacts& command)
{
    return QStringLiteral(
               "%1 maps PDO %2 while it is still assigned: sub-index 0 of its assign object was not set to 0")
        .arg(labelOf(command), hexNumber(command.index));
}

QString entryText(const StartupFault& /*fault*/, const CommandFacts& command)
{
    return QStringLiteral("%1 writes an entry before sub-index 0 of the object is 0").arg(labelOf(command));
}

QString countMissingText(const StartupFault& fault, const CommandFacts& command)
{
    if (fault.entries == 0)
        return QStringLiteral("%1 empties the list that commands before it have written").arg(labelOf(command));
    return QStringLiteral("after %1 no command sets sub-index 0 to the number of entries, %2")
        .arg(labelOf(command), QString::number(fault.entries));
}

QString countWrongText(const StartupFault& fault, const CommandFacts& command)
{
    return QStringLiteral("%1 sets the number of entries to %2, the commands before it write %3")
        .arg(labelOf(command), QString::number(command.data), QString::number(fault.entries));
}

// ---- Single commands ----

void checkData(const UnitFacts& unit, Report& report)
{
    for (const CommandFacts& command : unit.commands)
        if (!command.isDerived && !command.isCompleteAccess && !command.isZero
            && !isCarried(command.bytes, command.data))
            report.add(command.where, QStringLiteral("%1 has a value of %2 bytes, the format carries 4 and writes 0")
                                          .arg(labelOf(command), QString::number(command.bytes)));
}

void checkCompleteAccess(const UnitFacts& unit, Report& report)
{
    for (const CommandFacts& command : unit.commands)
        if (unit.isDevice() && (command.isCompleteAccess || command.declaresCompleteAccess)
            && !unit.supportsCompleteAccess)
            report.add(
                command.where,
                QStringLiteral("%1 is a complete access, which the device does not declare").arg(labelOf(command)));
}

void checkAccessLost(const UnitFacts& unit, Report& report)
{
    for (const CommandFacts& command : unit.commands)
        if (command.declaresCompleteAccess && !command.isCompleteAccess)
            report.add(command.where,
                       QStringLiteral("%1 is a complete access, and goes out as a plain write of sub-index %2")
                           .arg(labelOf(command), QString::number(command.subIndex)));
}

void checkMark(const UnitFacts& unit, Report& report)
{
    for (const CommandFacts& command : unit.commands)
        if (command.hasMark)
            report.add(command.where,
                       QStringLiteral(R"(the data of %1 has a "#x" mark, which goes out as a byte more: %2)")
                           .arg(labelOf(command), QString::number(command.bytes)));
}

void checkTransitions(const UnitFacts& unit, Report& report)
{
    for (const CommandFacts& command : unit.commands)
        if (command.transitions > 1)
            report.add(command.where, QStringLiteral("%1 has %2 transitions, the last one alone goes out")
                                          .arg(labelOf(command), QString::number(command.transitions)));
}

void checkProtocols(const UnitFacts& unit, Report& report)
{
    for (const UnreadCommands& unread : unit.unreadCommands)
        report.add(unread.where, QStringLiteral("%1 of %2 are not read: those of CoE go out alone")
                                     .arg(counted(static_cast<std::int64_t>(unread.count), "startup command"),
                                          shown(unread.protocol)));
}

void checkTransition(const UnitFacts& unit, Report& report)
{
    for (const CommandFacts& command : unit.commands)
        if (command.transition == UnknownType || command.transition > BI)
            report.add(command.where,
                       QStringLiteral("%1 has no transition that is known, so it is never sent").arg(labelOf(command)));
}

void checkCount(const UnitFacts& unit, Report& report)
{
    if (unit.isDevice() && unit.commands.size() > maxStartupCommands)
        report.add(unit.where, QStringLiteral("%1 startup commands, firmware up to 20240929 takes %2")
                                   .arg(unit.commands.size())
                                   .arg(maxStartupCommands));
}

constexpr std::array rules{
    Rule{
        "startup-mapping-assigned",
        Severity::Error,
        "a PDO is mapped while it is assigned",
        "A startup command writes the mapping object of a PDO (0x1600 to 0x17ff, 0x1a00 to 0x1bff), and none before it "
        "has set sub-index 0 of the assign object (0x1c10 and up) to 0 in which the PDO is listed.",
        "Devices refuse to change the mapping of a PDO that is in use, and stay in PREOP.",
        "Write 0 to sub-index 0 of the assign object first, and the assignment last.",
        "<InitCmd><Transition>PS</Transition><Index>#x1a00</Index><SubIndex>0</SubIndex><Data>00</Data></InitCmd>",
        {nullptr, nullptr, checkOrder<StartupSlip::MappedWhileAssigned, assignedText>}},
    Rule{
        "startup-entry-before-clear",
        Severity::Error,
        "an entry is written before its list is cleared",
        "A startup command writes a sub-index of a mapping or assign object, and none before it has set sub-index 0 of "
        "that object to 0.",
        "Devices refuse to write into a list that is in use.",
        "Write 0 to sub-index 0 first, then the entries, then their number to sub-index 0.",
        "<InitCmd><Transition>PS</Transition><Index>#x1c12</Index><SubIndex>1</SubIndex><Data>0016</Data></InitCmd>",
        {nullptr, nullptr, checkOrder<StartupSlip::EntryBeforeClear, entryText>}},
    Rule{"startup-count-missing",
         Severity::Error,
         "a list is written without its count",
         "Startup commands write entries of a mapping or assign object, and none after them sets sub-index 0 to their "
         "number; "
         "or a command empties a list that others before it have written.",
         "Sub-index 0 stays 0: the list is empty, and the PDO carries nothing.",
         "Write the number of entries to sub-index 0 at the end.",
         "0x1c12:0 = 0, 0x1c12:1 = 0x1600, and nothing after it",
         {nullptr, nullptr, checkOrder<StartupSlip::CountMissing, countMissingText>}},
    Rule{"startup-count-wrong",
         Severity::Error,
         "a list is written with a wrong count",
         "A startup command sets sub-index 0 of a mapping or assign object to a number other than the highest "
         "sub-index written since it was 0.",
         "Entries are missing from the process image, or old ones are in it.",
         "Write the number of the last entry to sub-index 0.",
         "0x1c12:0 = 0, 0x1c12:1 = 0x1600, 0x1c12:0 = 2",
         {nullptr, nullptr, checkOrder<StartupSlip::CountWrong, countWrongText>}},
    Rule{"startup-data-lost",
         Severity::Warning,
         "a value that the format does not carry",
         "The value of a declared startup command has more than four bytes, and is neither 0 nor a number of four "
         "bytes.",
         "The command goes out with its length and the value 0, and the device gets 0.",
         "Set the value in another way, or take the command out if 0 is right.",
         "<InitCmd><Transition>PS</Transition><Index>#x8000</Index><SubIndex>1</SubIndex><Data>0102030405</Data></"
         "InitCmd>",
         {nullptr, nullptr, checkData}},
    Rule{"startup-complete-access",
         Severity::Error,
         "a complete access that the device does not support",
         "A startup command is a complete access, and the CoE element of the device has no CompleteAccess.",
         "The device refuses the command and stays in the state in which it is.",
         "Write the object sub-index by sub-index, or declare CompleteAccess if the device has it.",
         "<CoE><InitCmd "
         R"(CompleteAccess="1"><Transition>PS</Transition><Index>#x1c12</Index><Data>01000016</Data></InitCmd></CoE>)",
         {nullptr, nullptr, checkCompleteAccess}},
    Rule{
        "startup-access-lost",
        Severity::Warning,
        "a complete access goes out as a plain write",
        "A declared startup command has CompleteAccess, which is not read: the format gets a write of its one "
        "sub-index.",
        "The device gets the bytes of a whole object as the value of sub-index 0, and refuses it or loses the rest.",
        "Write the object sub-index by sub-index.",
        R"(<InitCmd CompleteAccess="1"><Transition>PS</Transition><Index>#x1c12</Index><Data>01000016</Data></InitCmd>)",
        {nullptr, nullptr, checkAccessLost}},
    Rule{"startup-data-mark",
         Severity::Warning,
         "startup data with a mark",
         R"(The Data of a declared startup command begins with "#". It has to be hexadecimal digits alone.)",
         "The mark counts as a byte of the value, and a device refuses a value of the wrong length.",
         "Write the digits without a mark, the least significant byte first.",
         "<Data>#x0102</Data>",
         {nullptr, nullptr, checkMark}},
    Rule{"startup-transition-lost",
         Severity::Warning,
         "a startup command with several transitions",
         "A declared startup command has more than one Transition element. The last one is exported.",
         "The command is not sent on the other transitions.",
         "Repeat the command, once for each transition.",
         "<InitCmd><Transition>IP</Transition><Transition>PS</Transition><Index>#x8000</Index></InitCmd>",
         {nullptr, nullptr, checkTransitions}},
    Rule{"startup-protocol",
         Severity::Warning,
         "startup commands of another protocol than CoE",
         "A mailbox protocol other than CoE has InitCmd elements. They are not read.",
         "The controller does not send them.",
         "Set the values in another way, or take the commands out if they are not needed.",
         "<EoE><InitCmd><Type>2</Type></InitCmd></EoE>",
         {nullptr, nullptr, checkProtocols}},
    Rule{
        "startup-transition",
        Severity::Error,
        "a startup command without a transition",
        "The last Transition of a startup command is missing or none of IP, PS, SO, SP, OP, OS, PI, SI, OI, IB and BI.",
        "The controller sends a command on a transition. This one is never sent.",
        "Give the transition, mostly PS.",
        "<InitCmd><Transition>PREOP</Transition><Index>#x8000</Index></InitCmd>",
        {nullptr, nullptr, checkTransition}},
    Rule{"startup-count",
         Severity::Warning,
         "more than 254 startup commands",
         "A device has more than 254 startup commands, with those that are made from its PDOs and modules.",
         "Firmware up to 20240929 takes no more than 254.",
         "Update the firmware of the controller, or take out commands.",
         "<InitCmd> 255 times",
         {nullptr, nullptr, checkCount}},
};

} // namespace

RuleFamily startupRules()
{
    return rules;
}

} // namespace check
