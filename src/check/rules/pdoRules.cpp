// pdoRules.cpp - PDOs and what they hold.
#include "check/factNames.h"
#include "check/rules/report.h"
#include "check/rules/ruleFamilies.h"
#include "check/unitLabels.h"
#include "editing/linkTexts.h"
#include "model/objectAreas.h"
#include "model/pdoLink.h"
#include "model/valueTexts.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <unordered_map>
#include <unordered_set>

namespace check {

namespace {

constexpr std::size_t maxEntries = 254; // sub-indexes of a mapping object

// ---- Indexes ----

void checkTwice(const UnitFacts& unit, Report& report)
{
    std::unordered_set<std::uint16_t> seen;
    for (const PdoFacts& pdo : unit.pdos)
        if (pdo.index != 0 && pdo.place < 0 && !seen.insert(pdo.index).second)
            report.add(pdo.where,
                       QStringLiteral("%1 is declared twice%2")
                           .arg(labelOf(pdo), QLatin1String(pdo.isCopy ? ", once as a sample of another one" : "")));
}

/// Whether the index of a PDO is the one that it has in the device: one that moves has it in the slot, as a copy.
bool isInPlace(const PdoFacts& pdo, const UnitFacts& unit)
{
    return pdo.movesWithSlot || pdo.movesWithGroup ? unit.isDevice() : !pdo.isCopy;
}

void checkRange(const UnitFacts& unit, Report& report)
{
    for (const PdoFacts& pdo : unit.pdos) {
        const ObjectArea& area = pdo.isInput ? inputMappings : outputMappings;
        if (unit.isDevice() && !unit.hasCoe)
            return; // its PDOs are not mapped, and their indexes are names only
        if (isInPlace(pdo, unit) && !pdo.entries.empty() && !area.holds(pdo.index))
            report.add(pdo.where, QStringLiteral("%1 is outside %2 to %3, the indexes of %4")
                                      .arg(labelOf(pdo), hexNumber(area.first), hexNumber(area.last),
                                           QLatin1String(pdo.isInput ? "TxPdos" : "RxPdos")));
    }
}

// ---- Contents ----

void checkWholeBytes(const UnitFacts& unit, Report& report)
{
    constexpr std::int64_t bitsPerByte = 8;
    for (const PdoFacts& pdo : unit.pdos)
        if (const std::int64_t bits = bitsOf(pdo);
            !pdo.isCopy && isOnSyncManager(pdo, unit) && bits > bitsPerByte && bits % bitsPerByte != 0)
            report.add(pdo.where, QStringLiteral("%1 is assigned and has %2 bits, which is not a whole number of bytes")
                                      .arg(labelOf(pdo), QString::number(bits)));
}

void checkEntryCount(const UnitFacts& unit, Report& report)
{
    for (const PdoFacts& pdo : unit.pdos)
        if (!pdo.isCopy && pdo.entries.size() > maxEntries)
            report.add(pdo.where,
                       QStringLiteral("%1 has %2 entries, %3 can be mapped")
                           .arg(labelOf(pdo), QString::number(pdo.entries.size()), QString::number(maxEntries)));
}

void checkEntryBits(const UnitFacts& unit, Report& report)
{
    constexpr int maxBits = 255; // a mapping has eight bits for the length
    for (const PdoFacts& pdo : unit.pdos)
        for (const EntryFacts& entry : pdo.entries)
            if (!pdo.isCopy && (entry.bits < 0 || entry.bits > maxBits))
                report.add(entry.where,
                           QStringLiteral("entry %1 of %2 has %3 bits, a mapping carries %4")
                               .arg(objectText(entry.index, entry.subIndex), labelOf(pdo),
                                    QString::number(static_cast<std::uint32_t>(entry.bits)), QString::number(maxBits)));
}

void checkSamples(const UnitFacts& unit, Report& report)
{
    for (const LostSamples& lost : unit.lostSamples)
        report.add(lost.where, QStringLiteral("of PDO %1, the samples after the ninth (%2) go out on no sync manager")
                                   .arg(hexNumber(lost.index), QString::number(lost.samples)));
}

void checkOversampling(const UnitFacts& unit, Report& report)
{
    // Ranges that can be counted through are gone by now: their PDOs are plain copies.
    for (const PdoFacts& pdo : unit.pdos)
        if (pdo.oversamplingFactor > 0)
            report.add(pdo.where, QStringLiteral("%1 is oversampled, but its samples %2 to %3 give no copy")
                                      .arg(labelOf(pdo), QString::number(pdo.oversamplingMin),
                                           QString::number(pdo.oversamplingMax)));
}

// ---- Assignment ----

void checkExcluded(const UnitFacts& unit, Report& report)
{
    std::unordered_set<std::uint16_t> assigned;
    for (const PdoFacts& pdo : unit.pdos)
        if (isOnSyncManager(pdo, unit))
            assigned.insert(pdo.index);
    for (const PdoFacts& pdo : unit.pdos) {
        if (!isOnSyncManager(pdo, unit))
            continue;
        for (const std::uint16_t excluded : pdo.excluded)
            if (excluded != pdo.index && assigned.count(excluded) != 0)
                report.add(
                    pdo.where,
                    QStringLiteral("%1 excludes PDO %2, and both are assigned").arg(labelOf(pdo), hexNumber(excluded)));
    }
}

void checkMandatory(const UnitFacts& unit, Report& report)
{
    for (const PdoFacts& pdo : unit.pdos)
        if (unit.isDevice() && !pdo.isCopy && pdo.isMandatory && pdo.syncManager < 0)
            report.add(pdo.where, QStringLiteral("%1 is mandatory, but on no sync manager").arg(labelOf(pdo)));
}

void checkFixed(const UnitFacts& unit, Report& report)
{
    std::unordered_map<std::uint32_t, int> fixedOnes; // sync managers by PDO
    for (const PdoFacts& pdo : unit.pdos)
        if (pdo.isFixed && pdo.syncManager >= 0)
            fixedOnes.emplace(pdo.index, pdo.syncManager);
    for (const ModeFacts& mode : unit.modes)
        for (const ModePdoFacts& moved : mode.pdos) {
            const auto fixed = fixedOnes.find(moved.index);
            if (fixed != fixedOnes.end() && static_cast<std::uint32_t>(fixed->second) != moved.syncManager)
                report.add(mode.where, QStringLiteral("the mode %1 puts PDO %2 on sync manager %3, it is fixed on %4")
                                           .arg(shown(mode.name), hexNumber(moved.index),
                                                QString::number(moved.syncManager), QString::number(fixed->second)));
        }
}

// ---- Links ----

struct LinkWidth
{
    std::int32_t link;
    int bits;
};

constexpr std::array linkWidths{
    LinkWidth{KTL_PDO_TYPE_I16_AIN, 16},   LinkWidth{KTL_PDO_TYPE_I16_AOUT, 16},
    LinkWidth{KTL_PDO_TYPE_I32_AIN, 32},   LinkWidth{KTL_PDO_TYPE_I32_AOUT, 32},
    LinkWidth{KTL_PDO_TYPE_FLOAT_AIN, 32}, LinkWidth{KTL_PDO_TYPE_FLOAT_AOUT, 32},
    LinkWidth{KTL_PDO_TYPE_ENCODER32, 32},
};

void checkLink(const UnitFacts& unit, Report& report)
{
    for (const PdoFacts& pdo : unit.pdos)
        for (const EntryFacts& entry : pdo.entries) {
            const auto* const width = std::find_if(linkWidths.begin(), linkWidths.end(),
                                                   [&](const LinkWidth& row) { return row.link == entry.link; });
            if (width != linkWidths.end() && entry.bits != width->bits)
                report.add(entry.where,
                           QStringLiteral("entry %1 of %2 has %3 bits, its link %4 takes %5")
                               .arg(objectText(entry.index, entry.subIndex), labelOf(pdo), QString::number(entry.bits),
                                    linkName(entry.link), QString::number(width->bits)));
        }
}

constexpr std::array rules{
    Rule{"pdo-index-twice",
         Severity::Error,
         "two PDOs with the same index",
         "A PDO has the index of one before it in the same device or module, whatever their directions.",
         "The object of a PDO is there once in the device. The startup commands of the second one overwrite those of "
         "the "
         "first.",
         "Give each PDO an index of its own.",
         "<TxPdo><Index>#x1a00</Index></TxPdo><TxPdo><Index>#x1a00</Index></TxPdo>",
         {nullptr, nullptr, checkTwice}},
    Rule{
        "pdo-index-range",
        Severity::Warning,
        "a PDO index outside its range",
        "The index of an RxPdo with entries is not within 0x1600 to 0x17ff, or that of a TxPdo with entries not within "
        "0x1a00 to 0x1bff. PDOs of modules that move with the slot are looked at where they come to lie.",
        "Devices look for the mapping of PDOs in these objects. Elsewhere a startup command is refused.",
        "Correct the index, or swap RxPdo and TxPdo: names are as the device sees them, an RxPdo is what it receives.",
        "<RxPdo><Index>#x1a00</Index><Entry><Index>#x7000</Index><SubIndex>1</SubIndex><BitLen>8</BitLen></Entry></"
        "RxPdo>",
        {nullptr, nullptr, checkRange}},
    Rule{
        "pdo-whole-bytes",
        Severity::Warning,
        "an assigned PDO is not a whole number of bytes",
        "The entries of a PDO that is on a sync manager take more than 8 bits, and their sum is no multiple of 8. PDOs "
        "of up to 8 bits are passed over: simple terminals have one for each of their channels.",
        "What follows in the process image begins within a byte, which devices with a mailbox mostly refuse.",
        "Fill the PDO with a gap: an entry of index 0 with the missing bits.",
        "<TxPdo "
        R"(Sm="3"><Index>#x1a00</Index><Entry><Index>#x6000</Index><SubIndex>1</SubIndex><BitLen>12</BitLen></Entry></)"
        "TxPdo>",
        {nullptr, nullptr, checkWholeBytes}},
    Rule{"pdo-entry-count",
         Severity::Error,
         "a PDO of more than 254 entries",
         "A PDO has more than 254 entries.",
         "A mapping object has the sub-indexes 1 to 254. The rest cannot be mapped.",
         "Split the PDO.",
         "<TxPdo> with 255 <Entry>",
         {nullptr, nullptr, checkEntryCount}},
    Rule{
        "pdo-entry-bits",
        Severity::Error,
        "an entry longer than a mapping can say",
        "The BitLen of an entry is above 255.",
        "A mapping has eight bits for the length. A longer one spills into the sub-index, and the startup command maps "
        "another object.",
        "Split the entry.",
        "<Entry><Index>#x6000</Index><SubIndex>1</SubIndex><BitLen>256</BitLen></Entry>",
        {nullptr, nullptr, checkEntryBits}},
    Rule{"pdo-oversampling-samples",
         Severity::Warning,
         "samples that go out on no sync manager",
         "A PDO that is on a sync manager is oversampled, with OSMax above 9.",
         "Only the first nine samples are on the sync manager in the export; the others are not exchanged.",
         "Use nine samples at most.",
         R"(<TxPdo Sm="0" OSFac="12" OSMin="1" OSMax="12" OSIndexInc="16">)",
         {nullptr, nullptr, checkSamples}},
    Rule{"pdo-oversampling",
         Severity::Warning,
         "oversampling without a copy",
         "A PDO has an oversampling factor (OSFac), but no sample: OSIndexInc or OSMax is missing or 0, or OSMax is "
         "below OSMin.",
         "The PDO goes out once, as if it were not oversampled, and all samples but one are lost.",
         "Give OSMin, OSMax and OSIndexInc.",
         R"(<TxPdo OSFac="10"><Index>#x1a00</Index></TxPdo>)",
         {nullptr, nullptr, checkOversampling}},
    Rule{"pdo-excluded",
         Severity::Error,
         "PDOs that exclude each other are assigned",
         "A PDO that is on a sync manager names another one in Exclude that is on a sync manager too.",
         "The device refuses the assignment when it goes to SAFEOP.",
         "Take the Sm of one of them away, or choose one of them.",
         R"(<TxPdo Sm="3"><Index>#x1a00</Index><Exclude>#x1a01</Exclude></TxPdo><TxPdo )"
         R"(Sm="3"><Index>#x1a01</Index></TxPdo>)",
         {nullptr, nullptr, checkExcluded}},
    Rule{"pdo-mandatory",
         Severity::Warning,
         "a mandatory PDO is not assigned",
         "A PDO of a device is Mandatory, and on no sync manager.",
         "The device expects it, and refuses process data without it.",
         "Assign it to a sync manager.",
         R"(<TxPdo Mandatory="1"><Index>#x1a00</Index></TxPdo>)",
         {nullptr, nullptr, checkMandatory}},
    Rule{"pdo-fixed-moved",
         Severity::Warning,
         "a mode puts a fixed PDO on another sync manager",
         "An operation mode of the distributed clocks lists a fixed PDO under another sync manager than its own Sm.",
         "The two numbers contradict each other. The device takes one of them, and with the other its lengths do not "
         "fit.",
         "Correct the number of the Sm in the OpMode, or that of the PDO.",
         R"(<OpMode><Sm No="2"><Pdo>#x1a00</Pdo></Sm></OpMode> with <TxPdo Fixed="1" Sm="3">)",
         {nullptr, nullptr, checkFixed}},
    Rule{
        "pdo-link",
        Severity::Error,
        "a link that does not fit its entry",
        "An entry is linked to an analog input or output or an encoder of the controller, and its length is not the 16 "
        "or 32 bits of that.",
        "The controller reads or writes beside the entry, and the axis sees wrong values.",
        "Choose a link of the length of the entry.",
        "choices that link an entry of 16 bits to AIN32",
        {nullptr, nullptr, checkLink}},
};

} // namespace

RuleFamily pdoRules()
{
    return rules;
}

} // namespace check
