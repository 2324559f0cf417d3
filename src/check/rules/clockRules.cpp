// clockRules.cpp - the operation modes of the distributed clocks.
#include "check/rules/report.h"
#include "check/rules/ruleFamilies.h"
#include "check/unitLabels.h"
#include "model/assignActivate.h"
#include "model/valueTexts.h"

#include <array>
#include <cstdint>
#include <cstdlib>

namespace check {

namespace {

QString labelOf(const ModeFacts& mode)
{
    return mode.name.empty() ? QStringLiteral("the mode") : QStringLiteral("mode %1").arg(shown(mode.name));
}

void checkBits(const UnitFacts& unit, Report& report)
{
    // The low byte is register 0x980: who controls the outputs (0) and the two latches (4, 5); the high one is register
    // 0x981: cyclic operation, SYNC0, SYNC1 (8 to 10) and how they start (11 to 15).
    constexpr std::uint32_t knownBits = 0xFF31;
    for (const ModeFacts& mode : unit.modes)
        if (const std::uint32_t unknown = mode.assignActivate & ~knownBits; unknown != 0)
            report.add(mode.where, QStringLiteral("AssignActivate %1 of %2 has bits without a meaning: %3")
                                       .arg(hexNumber(mode.assignActivate), labelOf(mode), hexNumber(unknown)));
}

void checkCyclic(const UnitFacts& unit, Report& report)
{
    for (const ModeFacts& mode : unit.modes) {
        const bool hasSignal = isActive(mode.assignActivate, AssignActivateBit::Sync0)
                               || isActive(mode.assignActivate, AssignActivateBit::Sync1);
        constexpr std::uint32_t autoActivation = 1U << 11U; // sets the cyclic mode when the start time is written
        if (hasSignal && !isActive(mode.assignActivate, AssignActivateBit::CyclicMode)
            && (mode.assignActivate & autoActivation) == 0)
            report.add(mode.where,
                       QStringLiteral("AssignActivate %1 of %2 has a SYNC signal, but not the cyclic mode (bit 8)")
                           .arg(hexNumber(mode.assignActivate), labelOf(mode)));
    }
}

void checkSync1(const UnitFacts& unit, Report& report)
{
    for (const ModeFacts& mode : unit.modes)
        if (isActive(mode.assignActivate, AssignActivateBit::Sync1)
            && !isActive(mode.assignActivate, AssignActivateBit::Sync0))
            report.add(mode.where, QStringLiteral("AssignActivate %1 of %2 has SYNC1 without SYNC0")
                                       .arg(hexNumber(mode.assignActivate), labelOf(mode)));
}

struct ShiftTime
{
    const char* name;
    std::int32_t ModeFacts::*value;
};

constexpr std::array shiftTimes{
    ShiftTime{"ShiftTimeSync0", &ModeFacts::shiftTimeSync0},
    ShiftTime{"ShiftTimeSync1", &ModeFacts::shiftTimeSync1},
};

constexpr std::int32_t second = 1'000'000'000; // ns

/// SYNC1 follows SYNC0 at any distance, so of the cycle times that of SYNC0 counts alone.
void checkTimes(const UnitFacts& unit, Report& report)
{
    constexpr std::int32_t shortestCycle = 5'000; // ns; devices with oversampling go down to there
    for (const ModeFacts& mode : unit.modes) {
        const std::int32_t cycle = mode.cycleTimeSync0;
        if (cycle != 0 && (cycle < shortestCycle || cycle >= second))
            report.add(mode.where, QStringLiteral("CycleTimeSync0 of %1 is %2 ns, no bus has such a cycle")
                                       .arg(labelOf(mode), QString::number(cycle)));
        for (const ShiftTime& time : shiftTimes)
            if (const std::int32_t value = mode.*time.value; value >= second || value <= -second)
                report.add(mode.where, QStringLiteral("%1 of %2 is %3 ns, a second or more")
                                           .arg(QLatin1String(time.name), labelOf(mode), QString::number(value)));
    }
}

void checkName(const UnitFacts& unit, Report& report)
{
    for (const ModeFacts& mode : unit.modes)
        if (mode.name.empty() && !unit.isFromKtl)
            report.add(mode.where, QStringLiteral("the operation mode has no name"));
}

constexpr std::array rules{
    Rule{"clock-bits",
         Severity::Warning,
         "AssignActivate has bits without a meaning",
         "AssignActivate of an operation mode has other bits than 0, 4, 5 and 8 to 15.",
         "The word goes into the registers 0x980 and 0x981 of the device. Bits that mean nothing there are mostly a "
         "number in the wrong form, such as 300 for #x300, and then the bits that are meant are missing.",
         "Compare the number with the manual of the device; usual ones are #x300 and #x700.",
         "<OpMode><Name>DC</Name><AssignActivate>300</AssignActivate></OpMode>",
         {nullptr, nullptr, checkBits}},
    Rule{"clock-cyclic-mode",
         Severity::Warning,
         "a SYNC signal without the cyclic mode",
         "AssignActivate has bit 9 or 10 (SYNC0, SYNC1), but neither bit 8 (cyclic mode) nor bit 11 (which sets it "
         "later).",
         "The device gets no SYNC signal, and a drive that waits for it does not go to OP.",
         "Add bit 8: #x300 instead of #x200.",
         "<OpMode><Name>DC</Name><AssignActivate>#x200</AssignActivate></OpMode>",
         {nullptr, nullptr, checkCyclic}},
    Rule{"clock-sync1-alone",
         Severity::Note,
         "SYNC1 without SYNC0",
         "AssignActivate has bit 10 (SYNC1), but not bit 9 (SYNC0).",
         "SYNC1 is derived from SYNC0. A few devices use it alone; mostly it is a slip.",
         "Compare with the manual of the device.",
         "<OpMode><Name>DC</Name><AssignActivate>#x500</AssignActivate></OpMode>",
         {nullptr, nullptr, checkSync1}},
    Rule{"clock-time",
         Severity::Warning,
         "a time that does not fit its unit",
         "CycleTimeSync0 is not 0, and below 5,000 or 1,000,000,000 or more; or a shift time is 1,000,000,000 or more "
         "in either direction. All are in ns.",
         "A number in us or ms makes the SYNC signal come a thousand times too often or too late.",
         "Write the time in ns: 1000000 for a millisecond. A cycle time of 0 is that of the bus.",
         "<CycleTimeSync0>1000</CycleTimeSync0>",
         {nullptr, nullptr, checkTimes}},
    Rule{"clock-mode-name",
         Severity::Warning,
         "an operation mode without name",
         "An OpMode element has no Name, or an empty one.",
         "The mode shows as an empty line where it is chosen.",
         "Give a name.",
         "<OpMode><AssignActivate>#x300</AssignActivate></OpMode>",
         {nullptr, nullptr, checkName}},
};

} // namespace

RuleFamily clockRules()
{
    return rules;
}

} // namespace check
