#include "diff/pairing.h"
#include "diff/sections.h"
#include "diff/words.h"
#include "model/objectAreas.h"
#include "model/valueTexts.h"
#include "show/showWords.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <tuple>
#include <vector>

namespace diff {

namespace {

using facts::CommandFacts;

constexpr std::size_t bytesOfNumber = 4;

Value valueOf(const CommandFacts& command)
{
    if (command.isCompleteAccess) {
        std::string list;
        for (const std::uint32_t value : command.values)
            list += (list.empty() ? "" : " ") + numberText(value);
        return words(list);
    }
    if (command.bytes > bytesOfNumber) // no number; a KTL file does not carry it
        return words(command.longValue);
    return hexadecimal(command.data);
}

constexpr Field<CommandFacts> transition{
    "transition", "transition", Weight::Behaviour,
    [](const CommandFacts& command) { return words(show::tokenName(command.transition)); }};

constexpr std::array fields{
    transition,
    Field<CommandFacts>{"value", "value", Weight::Behaviour, valueOf},
    Field<CommandFacts>{"dataBytes", "bytes", Weight::Behaviour,
                        [](const CommandFacts& command) { return decimal(command.bytes); }},
    Field<CommandFacts>{"completeAccess", "complete access", Weight::Behaviour,
                        [](const CommandFacts& command) { return flag(command.isCompleteAccess); }},
    Field<CommandFacts>{"dependOnSlot", "moves with the slot", Weight::Behaviour,
                        [](const CommandFacts& command) { return flag(command.movesWithSlot); }},
    Field<CommandFacts>{"dependOnSlotGroup", "moves with the slot group", Weight::Behaviour,
                        [](const CommandFacts& command) { return flag(command.movesWithGroup); }, In::Esi},
    Field<CommandFacts>{"comment", "comment", Weight::Text,
                        [](const CommandFacts& command) { return text(command.comment); }, In::Esi},
};

using Commands = std::vector<const CommandFacts*>;

/// The commands that are compared. Those that are made from PDOs and their assignment follow from what is compared
/// itself; a KTL file does not tell which these are.
Commands comparedOf(const std::vector<CommandFacts>& commands, Sides sides)
{
    Commands compared;
    for (const CommandFacts& command : commands)
        if (sides != Sides::Esi || !command.isDerived
            || (!isMappingObject(command.index) && !isAssignObject(command.index)))
            compared.push_back(&command);
    return compared;
}

using ObjectKey = std::tuple<std::uint16_t, std::uint16_t>;
using CommandKey = std::tuple<NMTOKEN, std::uint16_t, std::uint16_t, bool, std::uint16_t, std::string>;

ObjectKey objectOf(const CommandFacts& command)
{
    return {command.index, command.subIndex};
}

CommandKey wholeOf(const CommandFacts& command)
{
    return {command.transition,       command.index, command.subIndex,
            command.isCompleteAccess, command.bytes, valueOf(command).text};
}

template<typename KeyOf> auto keysOf(const Commands& commands, KeyOf keyOf)
{
    std::vector<decltype(keyOf(*commands.front()))> keys;
    keys.reserve(commands.size());
    for (const CommandFacts* const command : commands)
        keys.push_back(keyOf(*command));
    return keys;
}

/// Tells what differs between commands.
class CommandTeller
{
public:
    CommandTeller(Area area, const std::string& owner, Comparison& out)
        : m_area(area)
        , m_owner(owner)
        , m_out(out)
    {}

    void tell(const CommandFacts* before, const CommandFacts* after)
    {
        if (after == nullptr)
            m_out.removed(spotOf(before, after), Weight::Behaviour, valueOf(*before));
        else if (before == nullptr)
            m_out.added(spotOf(before, after), Weight::Behaviour, valueOf(*after));
        else
            m_out.compare(fields, *before, *after, [&] { return spotOf(before, after); });
    }

    void tellMove(const CommandFacts& before, const CommandFacts& after, const Pair& pair)
    {
        m_out.moved(spotOf(&before, &after), Weight::Behaviour, "place " + std::to_string(*pair.before + 1),
                    "place " + std::to_string(*pair.after + 1));
    }

private:
    [[nodiscard]] Spot spotOf(const CommandFacts* before, const CommandFacts* after) const
    {
        const CommandFacts& one = before != nullptr ? *before : *after;
        Spot spot;
        spot.area = m_area;
        const bool isSameTransition = before == nullptr || after == nullptr || before->transition == after->transition;
        spot.part = m_owner + "startup command " + (isSameTransition ? show::tokenName(one.transition) + " " : "")
                    + objectWords(one.index, one.subIndex);
        if (before != nullptr)
            spot.before = before->where;
        if (after != nullptr)
            spot.after = after->where;
        return spot;
    }

    Area m_area;
    const std::string& m_owner;
    Comparison& m_out;
};

} // namespace

void compareStartup(const std::vector<CommandFacts>& before, const std::vector<CommandFacts>& after, Area area,
                    const std::string& owner, Comparison& out)
{
    const Commands oldCommands = comparedOf(before, out.sides());
    const Commands newCommands = comparedOf(after, out.sides());
    CommandTeller teller(area, owner, out);
    Commands oldLeft; // of which there is no equal one
    Commands newLeft;
    for (const Pair& pair : pairsInSequence(keysOf(oldCommands, wholeOf), keysOf(newCommands, wholeOf))) {
        const CommandFacts* const oldCommand = pair.before ? oldCommands[*pair.before] : nullptr;
        const CommandFacts* const newCommand = pair.after ? newCommands[*pair.after] : nullptr;
        if (newCommand == nullptr) {
            oldLeft.push_back(oldCommand);
        } else if (oldCommand == nullptr) {
            newLeft.push_back(newCommand);
        } else {
            if (pair.isMoved)
                teller.tellMove(*oldCommand, *newCommand, pair);
            teller.tell(oldCommand, newCommand); // their comments may differ
        }
    }
    for (const Pair& pair : pairsByKey(keysOf(oldLeft, objectOf), keysOf(newLeft, objectOf)))
        teller.tell(pair.before ? oldLeft[*pair.before] : nullptr, pair.after ? newLeft[*pair.after] : nullptr);
}

void compareStartup(const Subject& before, const Subject& after, Comparison& out)
{
    compareStartup(before.unit->commands, after.unit->commands, Area::Startup, {}, out);
    if (out.sides() != Sides::Esi) // there they are made from what EoE can do
        compareStartup(before.unit->eoeCommands, after.unit->eoeCommands, Area::Startup, "EoE ", out);
}

} // namespace diff
