// memoryRules.cpp - where the sync managers of a device lie in its memory.
#include "check/factNames.h"
#include "check/rules/report.h"
#include "check/rules/ruleFamilies.h"
#include "check/unitLabels.h"
#include "model/controlByte.h"
#include "model/valueTexts.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <vector>

namespace check {

namespace {

constexpr std::int64_t memoryStart = 0x1000;
constexpr std::int64_t memoryEnd = 0x10000;

/// Registers that a sync manager may have for its data.
struct Registers
{
    std::int64_t start;
    std::int64_t end;
};

constexpr std::array registers{
    Registers{0x0F00, 0x0F04}, // digital outputs of a controller that works without a processor
    Registers{0x0F10, 0x0F20}, // general purpose outputs and inputs
};

QString address(std::int64_t value)
{
    return hexNumber(static_cast<std::uint32_t>(value));
}

/// The bytes that a sync manager takes from its start on.
struct Area
{
    std::size_t number;
    std::int64_t start;
    std::int64_t bytes;
    bool isBuffered; ///< three buffers follow one another

    [[nodiscard]] std::int64_t end() const { return start + bytes; }
};

/// The areas that are in use, by their start.
std::vector<Area> areasOf(const UnitFacts& unit)
{
    const std::vector<std::int64_t> processBytes = processDataBytes(unit);
    std::vector<Area> areas;
    for (std::size_t index = 0; index < unit.syncManagers.size(); ++index) {
        const SyncManagerFacts& syncManager = unit.syncManagers[index];
        const std::int64_t bytes = isMailbox(syncManager) ? syncManager.attributes.DefaultSize : processBytes[index];
        if (!isVirtual(syncManager) && bytes > 0)
            areas.push_back({index, syncManager.attributes.StartAddress, bytes,
                             hasMode(syncManager.attributes.ControlByte, SyncManagerMode::Buffered)});
    }
    std::stable_sort(areas.begin(), areas.end(),
                     [](const Area& left, const Area& right) { return left.start < right.start; });
    return areas;
}

QString rangeText(const Area& area)
{
    return QStringLiteral("%1 to %2").arg(address(area.start), address(area.end() - 1));
}

/// Bytes from the start of an area up to which it reaches with all its buffers. Registers have none.
std::int64_t reachOf(const Area& area)
{
    constexpr std::int64_t buffers = 3;
    return area.start + area.bytes * (area.isBuffered && area.start >= memoryStart ? buffers : 1);
}

void checkOverlap(const UnitFacts& unit, Report& report)
{
    const std::vector<Area> areas = areasOf(unit);
    std::size_t furthest = 0; // the area that reaches furthest so far
    for (std::size_t index = 1; index < areas.size(); ++index) {
        const Area& before = areas[furthest];
        const Area& area = areas[index];
        if (before.end() > area.start)
            report.add(unit.syncManagers[area.number].where,
                       QStringLiteral("sync manager %1 (%2) overlaps sync manager %3 (%4)")
                           .arg(QString::number(area.number), rangeText(area), QString::number(before.number),
                                rangeText(before)));
        if (area.end() > before.end())
            furthest = index;
    }
}

void checkBuffers(const UnitFacts& unit, Report& report)
{
    const std::vector<Area> areas = areasOf(unit);
    std::size_t furthest = 0;
    for (std::size_t index = 1; index < areas.size(); ++index) {
        const Area& before = areas[furthest];
        const Area& area = areas[index];
        if (before.end() <= area.start && reachOf(before) > area.start)
            report.add(unit.syncManagers[before.number].where,
                       QStringLiteral(
                           "the three buffers of sync manager %1 (%2 each from %3) reach into sync manager %4 at %5")
                           .arg(QString::number(before.number), counted(before.bytes, "byte"), address(before.start),
                                QString::number(area.number), address(area.start)));
        if (reachOf(area) > reachOf(before))
            furthest = index;
    }
}

bool isInMemory(const Area& area)
{
    if (area.start >= memoryStart)
        return reachOf(area) <= memoryEnd;
    return std::any_of(registers.begin(), registers.end(),
                       [&](const Registers& place) { return area.start >= place.start && area.end() <= place.end; });
}

void checkMemory(const UnitFacts& unit, Report& report)
{
    for (const Area& area : areasOf(unit))
        if (!isInMemory(area))
            report.add(unit.syncManagers[area.number].where,
                       QStringLiteral("sync manager %1 takes %2%3, the memory of a device is 0x1000 to 0xffff")
                           .arg(QString::number(area.number), rangeText(area),
                                QLatin1String(reachOf(area) > area.end() ? ", three times" : "")));
}

void checkOddAddress(const UnitFacts& unit, Report& report)
{
    for (const Area& area : areasOf(unit))
        if (area.start >= memoryStart && area.start % 2 != 0)
            report.add(unit.syncManagers[area.number].where,
                       QStringLiteral("sync manager %1 begins at the odd address %2")
                           .arg(QString::number(area.number), address(area.start)));
}

constexpr std::array rules{
    Rule{
        "sync-manager-overlap",
        Severity::Error,
        "sync managers overlap",
        "The bytes of a sync manager, its DefaultSize for a mailbox and its PDOs for process data, reach into those of "
        "another one. Virtual and empty ones do not count.",
        "The device refuses the settings, or what is written through one of them destroys what is in the other.",
        "Move StartAddress, or make the areas shorter.",
        R"(<Sm DefaultSize="128" StartAddress="#x1000">MBoxOut</Sm><Sm DefaultSize="128" )"
        R"(StartAddress="#x1040">MBoxIn</Sm>)",
        {nullptr, nullptr, checkOverlap}},
    Rule{"sync-manager-buffers",
         Severity::Warning,
         "the buffers of a sync manager reach into the next",
         "A sync manager in buffered mode (bits 0 and 1 of ControlByte are 0) takes three times its length, and the "
         "second or third buffer reaches into the next sync manager.",
         "Process data is overwritten now and then, which shows as wrong values that nobody can explain.",
         "Leave three times the length of the PDOs before the next sync manager.",
         R"(<Sm StartAddress="#x1100" ControlByte="#x64">Outputs</Sm><Sm StartAddress="#x1104">Inputs</Sm>, and )"
         "two bytes of outputs",
         {nullptr, nullptr, checkBuffers}},
    Rule{"sync-manager-memory",
         Severity::Error,
         "a sync manager outside the memory of the device",
         "The bytes of a sync manager, with its three buffers if it has them, are not within 0x1000 to 0xffff. The "
         "registers of digital and general purpose outputs and inputs (0xf00 to 0xf03, 0xf10 to 0xf1f) are allowed.",
         "Registers of the slave controller are below 0x1000; a sync manager there overwrites settings.",
         "Correct StartAddress.",
         R"(<Sm DefaultSize="128" StartAddress="#x800">MBoxOut</Sm>)",
         {nullptr, nullptr, checkMemory}},
    Rule{"sync-manager-odd-address",
         Severity::Note,
         "a sync manager begins at an odd address",
         "The StartAddress of a sync manager in use is odd, and not below 0x1000, where registers are.",
         "Processors that reach the memory word by word cannot use such an area, or only slowly.",
         "Begin at an even address, unless the maker says that this one is right.",
         R"(<Sm DefaultSize="128" StartAddress="#x1001">MBoxOut</Sm>)",
         {nullptr, nullptr, checkOddAddress}},
};

} // namespace

RuleFamily memoryRules()
{
    return rules;
}

} // namespace check
