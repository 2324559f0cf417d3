// syncManagerRules.cpp - the areas of memory through which a device exchanges data.
#include "check/factNames.h"
#include "check/rules/report.h"
#include "check/rules/ruleFamilies.h"
#include "check/unitLabels.h"
#include "editing/exportChecks.h"
#include "model/controlByte.h"
#include "model/syncDirection.h"
#include "model/valueTexts.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <vector>

namespace check {

namespace {

constexpr std::int64_t maxFrameBytes = 1486; // process data of one datagram in an Ethernet frame
constexpr std::int64_t minMailboxBytes = 0x22;

QString number(std::int64_t value)
{
    return QString::number(value);
}

QString address(std::int64_t value)
{
    return hexNumber(static_cast<std::uint32_t>(value));
}

// ---- Numbers ----

void checkMissing(const UnitFacts& unit, Report& report)
{
    if (!unit.isDevice())
        return;
    for (const PdoFacts& pdo : unit.pdos)
        if (pdo.syncManager >= 0 && static_cast<std::size_t>(pdo.syncManager) >= unit.syncManagers.size())
            report.add(pdo.where,
                       QStringLiteral("%1 is on sync manager %2, the device has %3")
                           .arg(labelOf(pdo), number(pdo.syncManager), QString::number(unit.syncManagers.size())));
}

/// Names of the directions of sync managers that a PDO cannot be on.
QString wrongDirection(const PdoFacts& pdo, std::uint8_t direction)
{
    switch (direction) {
    case KTL_MBoxOut:
    case KTL_MBoxIn:
        return QStringLiteral("a mailbox");
    case KTL_Outputs:
        return pdo.isInput ? QStringLiteral("for outputs") : QString();
    case KTL_Inputs:
        return pdo.isInput ? QString() : QStringLiteral("for inputs");
    default:
        return {};
    }
}

void checkDirection(const UnitFacts& unit, Report& report)
{
    if (unit.isFromKtl) // there are no virtual ones in it, so the numbers of PDOs may be those of others
        return;
    for (const PdoFacts& pdo : unit.pdos) {
        if (!isOnSyncManager(pdo, unit))
            continue;
        const SyncManagerFacts& syncManager = unit.syncManagers[static_cast<std::size_t>(pdo.syncManager)];
        if (const QString wrong = wrongDirection(pdo, syncManager.direction); !wrong.isEmpty())
            report.add(pdo.where, QStringLiteral("%1, %2, is on sync manager %3, which is %4")
                                      .arg(labelOf(pdo), QLatin1String(pdo.isInput ? "a TxPdo" : "an RxPdo"),
                                           number(pdo.syncManager), wrong));
    }
}

void checkCount(const UnitFacts& unit, Report& report)
{
    if (unit.syncManagers.size() > maxSyncManagers)
        report.add(unit.syncManagers[maxSyncManagers].where,
                   QStringLiteral("the device has %1 sync managers, the controller handles %2")
                       .arg(unit.syncManagers.size())
                       .arg(maxSyncManagers));
}

void checkKind(const UnitFacts& unit, Report& report)
{
    for (const SyncManagerFacts& syncManager : unit.syncManagers)
        if (syncManager.direction == KTL_UnknownType && !isVirtual(syncManager))
            report.add(syncManager.where,
                       QStringLiteral("%1 is not a kind of sync manager; it goes out as a mailbox output")
                           .arg(shown(syncManager.name)));
}

// ---- Sizes ----

void checkMaxSize(const UnitFacts& unit, Report& report)
{
    const std::vector<std::int64_t> bytes = processDataBytes(unit);
    for (std::size_t index = 0; index < unit.syncManagers.size(); ++index) {
        const SyncManagerFacts& syncManager = unit.syncManagers[index];
        const std::int64_t most = syncManager.attributes.MaxSize;
        if (most > 0 && bytes[index] > most)
            report.add(syncManager.where, QStringLiteral("the PDOs of sync manager %1 take %2 bytes, its MaxSize is %3")
                                              .arg(QString::number(index), number(bytes[index]), number(most)));
    }
}

void checkFrame(const UnitFacts& unit, Report& report)
{
    const std::vector<std::int64_t> bytes = processDataBytes(unit);
    for (std::size_t index = 0; index < unit.syncManagers.size(); ++index)
        if (bytes[index] > maxFrameBytes)
            report.add(unit.syncManagers[index].where,
                       QStringLiteral("the PDOs of sync manager %1 take %2 bytes, a frame carries %3")
                           .arg(QString::number(index), number(bytes[index]), number(maxFrameBytes)));
}

void checkExportedLength(const UnitFacts& unit, Report& report)
{
    const std::vector<std::int64_t> bytes = processDataBytes(unit, CountedPdos::Exported);
    for (std::size_t index = 0; index < unit.syncManagers.size(); ++index) {
        const SyncManagerFacts& syncManager = unit.syncManagers[index];
        if (unit.isComplete && syncManager.exportedBytes >= 0 && syncManager.exportedBytes != bytes[index])
            report.add(syncManager.where, QStringLiteral("sync manager %1 goes out with %2, its PDOs take %3")
                                              .arg(QString::number(index), counted(syncManager.exportedBytes, "byte"),
                                                   number(bytes[index])));
    }
}

// ---- Mailbox ----

void checkMailboxSize(const UnitFacts& unit, Report& report)
{
    for (std::size_t index = 0; index < unit.syncManagers.size(); ++index) {
        const SyncManagerFacts& syncManager = unit.syncManagers[index];
        const std::int64_t bytes = syncManager.attributes.DefaultSize;
        if (unit.hasMailboxProtocol && isMailbox(syncManager) && !isVirtual(syncManager) && bytes < minMailboxBytes)
            report.add(syncManager.where,
                       QStringLiteral("the mailbox of sync manager %1 has %2, it needs at least %3")
                           .arg(QString::number(index), counted(bytes, "byte"), number(minMailboxBytes)));
    }
}

bool hasDirection(const UnitFacts& unit, std::uint8_t direction)
{
    return std::any_of(unit.syncManagers.begin(), unit.syncManagers.end(), [=](const SyncManagerFacts& syncManager) {
        return syncManager.direction == direction && !isVirtual(syncManager);
    });
}

void checkMailboxMissing(const UnitFacts& unit, Report& report)
{
    if (unit.isDevice() && unit.hasMailboxProtocol
        && !(hasDirection(unit, KTL_MBoxOut) && hasDirection(unit, KTL_MBoxIn)))
        report.add(unit.where,
                   QStringLiteral("a mailbox protocol is declared, but no sync managers for mailbox output and input"));
}

// ---- Control byte ----

struct ControlRule
{
    std::uint8_t direction;
    bool isWritten; ///< by the controller
    bool isMailbox;
    const char* name;
};

constexpr std::array controlRules{
    ControlRule{KTL_MBoxOut, true, true, "mailbox output"},
    ControlRule{KTL_MBoxIn, false, true, "mailbox input"},
    ControlRule{KTL_Outputs, true, false, "outputs"},
    ControlRule{KTL_Inputs, false, false, "inputs"},
};

/// What is wrong with a control byte; empty if nothing is.
QString controlProblem(std::uint32_t control, const ControlRule& rule)
{
    if (rule.isWritten && !isWrittenByController(control))
        return QStringLiteral("does not let the controller write");
    if (!rule.isWritten && !isReadByController(control))
        return QStringLiteral("does not let the controller read");
    if (rule.isMailbox && !hasMode(control, SyncManagerMode::Mailbox))
        return QStringLiteral("is not set to mailbox mode");
    // Process data may be in one buffer too.
    if (!hasMode(control, SyncManagerMode::Buffered) && !hasMode(control, SyncManagerMode::Mailbox))
        return QStringLiteral("is not set to buffer mode");
    return {};
}

void checkControl(const UnitFacts& unit, Report& report)
{
    for (std::size_t index = 0; index < unit.syncManagers.size(); ++index) {
        const SyncManagerFacts& syncManager = unit.syncManagers[index];
        const auto* const rule = std::find_if(controlRules.begin(), controlRules.end(), [&](const ControlRule& row) {
            return row.direction == syncManager.direction;
        });
        if (rule == controlRules.end() || isVirtual(syncManager))
            continue;
        const QString problem = controlProblem(syncManager.attributes.ControlByte, *rule);
        if (!problem.isEmpty())
            report.add(syncManager.where, QStringLiteral("the control byte %1 of sync manager %2 (%3) %4")
                                              .arg(address(syncManager.attributes.ControlByte), QString::number(index),
                                                   QLatin1String(rule->name), problem));
    }
}

constexpr std::array rules{
    Rule{"pdo-sync-manager",
         Severity::Error,
         "a PDO is on a sync manager that its device lacks",
         "The Sm of a PDO is not below the number of sync managers that its device declares.",
         "The workbench ends on such a device, and nothing of its file is exported.",
         "Set Sm to the number of the sync manager, counted from 0 in the order of the file, or leave it out.",
         R"(<TxPdo Sm="5"><Index>#x1a00</Index></TxPdo>)",
         {nullptr, nullptr, checkMissing}},
    Rule{"pdo-sync-manager-direction",
         Severity::Error,
         "a PDO on a mailbox or against its direction",
         "A PDO of an ESI file is on a sync manager MBoxOut or MBoxIn, an RxPdo on one for Inputs, or a TxPdo on one "
         "for "
         "Outputs.",
         "The device refuses the assignment, or its outputs are never written. An empty Sm attribute reads as 0, which "
         "is "
         "the mailbox.",
         "Set Sm to the number of the sync manager for Outputs (RxPdo) or Inputs (TxPdo), or leave it out.",
         R"(<RxPdo Sm="3"> where sync manager 3 is Inputs)",
         {nullptr, nullptr, checkDirection}},
    Rule{"sync-manager-count",
         Severity::Warning,
         "more than 4 sync managers",
         "A device has more than 4 sync managers.",
         "The controller handles 4. What is on the others is not exchanged.",
         "Take out the sync managers that are not needed, or ask whether the firmware of the controller takes more.",
         "<Sm>MBoxOut</Sm><Sm>MBoxIn</Sm><Sm>Outputs</Sm><Sm>Inputs</Sm><Sm>Inputs</Sm>",
         {nullptr, nullptr, checkCount}},
    Rule{"sync-manager-kind",
         Severity::Error,
         "a sync manager of an unknown kind",
         "The text of an Sm element is none of MBoxOut, MBoxIn, Outputs and Inputs.",
         "It counts as a mailbox output, also for the process data that is on it, which is not exchanged then.",
         "Write the name exactly: case counts, and so do blanks and line breaks.",
         R"(<Sm StartAddress="#x1100">outputs</Sm>)",
         {nullptr, nullptr, checkKind}},
    Rule{"sync-manager-max-size",
         Severity::Error,
         "PDOs longer than the MaxSize of their sync manager",
         "The entries of all PDOs on a sync manager take more bytes than its MaxSize, where one is given.",
         "The device refuses the length when it goes to SAFEOP.",
         "Assign fewer PDOs, or correct MaxSize.",
         R"(<Sm MaxSize="2" StartAddress="#x1100" ControlByte="#x20" Enable="1">Inputs</Sm>)",
         {nullptr, nullptr, checkMaxSize}},
    Rule{"sync-manager-frame",
         Severity::Error,
         "process data longer than a frame",
         "The entries of all PDOs on a sync manager take more than 1,486 bytes.",
         "One datagram in an Ethernet frame carries no more, so the process data cannot be exchanged.",
         "Assign fewer PDOs.",
         "372 entries of 32 bits each, assigned to one sync manager",
         {nullptr, nullptr, checkFrame}},
    Rule{"sync-manager-length",
         Severity::Warning,
         "an exported length that is not that of the PDOs",
         "The length with which a sync manager for process data goes out is not that of its PDOs in whole bytes. The "
         "export "
         "drops the bits that are left over in the sum, which has no carry; and PDOs of default modules count only "
         "after "
         "the device was clicked, or named in a choices file.",
         "A controller that takes the length from the file exchanges too few bytes.",
         "Name the device in a choices file, which counts the PDOs of its modules. Fill each PDO to whole bytes.",
         "an export of a drive with default modules, as it is loaded",
         {nullptr, nullptr, checkExportedLength}},
    Rule{"mailbox-size",
         Severity::Error,
         "a mailbox is too small",
         "A device with a mailbox protocol has a mailbox with a DefaultSize below 0x22 bytes.",
         "Slave stacks require at least 34 bytes. A device refuses a smaller mailbox and stays in INIT.",
         "Give DefaultSize as the device has it, 0x22 (34) at least.",
         R"(<Sm DefaultSize="16" StartAddress="#x1000" ControlByte="#x26" Enable="1">MBoxOut</Sm>)",
         {nullptr, nullptr, checkMailboxSize}},
    Rule{"mailbox-missing",
         Severity::Error,
         "a mailbox protocol without a mailbox",
         "A device declares CoE, EoE or another mailbox protocol, but does not have both an MBoxOut and an MBoxIn sync "
         "manager that are not virtual.",
         "Startup commands and the dictionary go through the mailbox. Without one none of them reaches the device.",
         "Declare the two sync managers, first MBoxOut, then MBoxIn.",
         "<Sm>Outputs</Sm><Mailbox><CoE/></Mailbox>",
         {nullptr, nullptr, checkMailboxMissing}},
    Rule{"sync-manager-control",
         Severity::Warning,
         "a control byte against the direction or kind",
         "Bits 2 and 3 of ControlByte do not say that the controller writes MBoxOut and Outputs and reads MBoxIn and "
         "Inputs; or bits 0 and 1 are not those of a mailbox (2), or for process data of a buffer (0 or 2).",
         "The sync manager works in the wrong direction or mode, and the device stays in PREOP or exchanges nothing.",
         "Usual values are 0x26 for MBoxOut, 0x22 for MBoxIn, 0x64 or 0x24 for Outputs and 0x20 for Inputs.",
         R"(<Sm StartAddress="#x1100" ControlByte="#x20" Enable="1">Outputs</Sm>)",
         {nullptr, nullptr, checkControl}},
};

} // namespace

RuleFamily syncManagerRules()
{
    return rules;
}

} // namespace check
