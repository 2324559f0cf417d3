#include "diff/pairing.h"
#include "diff/sections.h"
#include "facts/processData.h"
#include "model/syncDirection.h"
#include "show/showWords.h"

#include <array>
#include <cstddef>
#include <string>

namespace diff {

namespace {

using facts::FmmuFacts;
using facts::SyncManagerFacts;

/// "Outputs"; a number for a direction without a name.
Value directionValue(std::uint8_t direction)
{
    const std::string name = show::directionName(direction);
    return name.empty() ? decimal(direction) : words(name);
}

constexpr std::array syncManagerFields{
    Field<SyncManagerFacts>{"type", "kind", Weight::Breaking,
                            [](const SyncManagerFacts& facts) { return directionValue(facts.direction); }},
    Field<SyncManagerFacts>{"startAddress", "start address", Weight::Breaking,
                            [](const SyncManagerFacts& facts) { return hexadecimal(facts.attributes.StartAddress); }},
    Field<SyncManagerFacts>{"minSize", "least size", Weight::Breaking,
                            [](const SyncManagerFacts& facts) { return decimal(facts.attributes.MinSize); }},
    Field<SyncManagerFacts>{"maxSize", "largest size", Weight::Breaking,
                            [](const SyncManagerFacts& facts) { return decimal(facts.attributes.MaxSize); }},
    Field<SyncManagerFacts>{"length", "length", Weight::Breaking,
                            [](const SyncManagerFacts& facts) {
                                return facts.exportedBytes < 0 ? noValue() : decimal(facts.exportedBytes);
                            }},
    Field<SyncManagerFacts>{"controlByte", "control byte", Weight::Breaking,
                            [](const SyncManagerFacts& facts) { return hexadecimal(facts.attributes.ControlByte); }},
    Field<SyncManagerFacts>{"enable", "enabled", Weight::Breaking,
                            [](const SyncManagerFacts& facts) { return decimal(facts.attributes.Enable); }},
    Field<SyncManagerFacts>{"virtual", "virtual", Weight::Breaking,
                            [](const SyncManagerFacts& facts) { return flag(facts::isVirtual(facts)); }, In::Esi},
};

/// A name that is a kind is told as one.
constexpr Field<SyncManagerFacts> syncManagerName{
    "name", "name", Weight::Text, [](const SyncManagerFacts& facts) { return text(facts.name); }, In::Esi};

constexpr auto defaultSizeOf = [](const SyncManagerFacts& facts) { return decimal(facts.attributes.DefaultSize); };

/// Of process data the export has the length of the PDOs in place of the default size.
constexpr Field<SyncManagerFacts> mailboxSize{"defaultSize", "default size", Weight::Breaking, defaultSizeOf};
constexpr Field<SyncManagerFacts> processDataSize{"defaultSize", "default size", Weight::Behaviour, defaultSizeOf,
                                                  In::Esi};

constexpr std::array fmmuFields{
    Field<FmmuFacts>{"type", "kind", Weight::Breaking,
                     [](const FmmuFacts& facts) { return directionValue(facts.direction); }},
    Field<FmmuFacts>{"syncManager", "sync manager", Weight::Breaking,
                     [](const FmmuFacts& facts) { return decimal(facts.syncManager); }},
    Field<FmmuFacts>{"syncUnit", "sync unit", Weight::Breaking,
                     [](const FmmuFacts& facts) { return decimal(facts.syncUnit); }},
    Field<FmmuFacts>{"opOnly", "in OP only", Weight::Behaviour,
                     [](const FmmuFacts& facts) { return flag(facts.isForOpOnly); }},
};

void compareSyncManager(const SyncManagerFacts& before, const SyncManagerFacts& after, std::size_t number,
                        Comparison& out)
{
    const auto spotOf = [&] {
        return Spot{Area::SyncManager, "sync manager " + std::to_string(number), before.where, after.where};
    };
    out.compare(syncManagerFields, before, after, spotOf);
    if (before.direction == after.direction)
        out.compare(syncManagerName, before, after, spotOf);
    const bool isMailbox = facts::isMailbox(before) && facts::isMailbox(after);
    out.compare(isMailbox ? mailboxSize : processDataSize, before, after, spotOf);
}

void compareFmmu(const FmmuFacts& before, const FmmuFacts& after, std::size_t number, Comparison& out)
{
    out.compare(fmmuFields, before, after, [&] {
        return Spot{Area::Fmmu, "FMMU " + std::to_string(number), before.where, after.where};
    });
}

/// The kind of a part that has come or gone; its name in the file where there is no word for it.
template<typename Part> Value kindOf(const Part& part)
{
    return part.direction == KTL_UnknownType && !part.name.empty() ? text(part.name) : directionValue(part.direction);
}

/// Compares the parts of two lists place by place.
/// @param compareOne  `compareOne(before, after, number, out)` for those that are on both sides
template<typename Part, typename CompareOne>
void compareByNumber(const std::vector<Part>& before, const std::vector<Part>& after, Area area, const char* words,
                     CompareOne compareOne, Comparison& out)
{
    for (std::size_t number = 0; number < std::max(before.size(), after.size()); ++number) {
        const std::string part = words + std::to_string(number);
        if (number >= after.size())
            out.removed({area, part, before[number].where, {}}, Weight::Breaking, kindOf(before[number]));
        else if (number >= before.size())
            out.added({area, part, {}, after[number].where}, Weight::Breaking, kindOf(after[number]));
        else
            compareOne(before[number], after[number], number, out);
    }
}

} // namespace

void compareChannels(const Subject& before, const Subject& after, Comparison& out)
{
    compareByNumber(before.unit->syncManagers, after.unit->syncManagers, Area::SyncManager, "sync manager ",
                    compareSyncManager, out);
    compareByNumber(before.unit->fmmus, after.unit->fmmus, Area::Fmmu, "FMMU ", compareFmmu, out);
}

} // namespace diff
