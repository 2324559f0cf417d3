#include "show/showStartup.h"

#include "model/carriedValue.h"
#include "model/objectAreas.h"
#include "show/showWords.h"
#include "show/startupOrigins.h"

#include <algorithm>
#include <memory>

namespace show {

namespace {

/// "0x6040:0, 16 bits" of the value that maps an entry.
std::string mappedEntry(std::uint32_t value)
{
    constexpr unsigned indexShift = 16;
    constexpr unsigned subIndexShift = 8;
    constexpr std::uint32_t byteMask = 0xFF;
    const std::string bits = std::to_string(value & byteMask) + " bits";
    const std::uint32_t subIndex = value >> subIndexShift & byteMask;
    const std::uint32_t index = value >> indexShift;
    return index == 0 && subIndex == 0 ? "gap of " + bits
                                       : hexText(index) + ':' + std::to_string(subIndex) + ", " + bits;
}

std::string assignedPdo(std::uint32_t value)
{
    return "PDO " + hexText(value);
}

/// What a list is made of.
struct ListWords
{
    const char* element; ///< "PDO"
    const char* elements; ///< "PDOs"
    std::string (*wordsOf)(std::uint32_t value); ///< of one element
};

constexpr ListWords assignmentWords{"PDO", "PDOs", assignedPdo};
constexpr ListWords mappingWords{"entry", "entries", mappedEntry};

/// Words of the list that an object holds; null for any other object.
const ListWords* listWordsOf(std::uint16_t index)
{
    if (isAssignObject(index))
        return &assignmentWords;
    return isMappingObject(index) ? &mappingWords : nullptr;
}

/// What a command does that writes one element of a list, or its count.
std::string elementMeaning(std::uint32_t subIndex, std::uint32_t data, const ListWords& words)
{
    if (subIndex != 0)
        return words.wordsOf(data);
    return data == 0 ? "clears the list" : std::to_string(data) + ' ' + (data == 1 ? words.element : words.elements);
}

/// What a complete access does that writes a whole list; empty if its values are not known.
std::string wholeListMeaning(const ShownCommand& command, const ListWords& words)
{
    std::string all;
    if (command.values != nullptr)
        for (const std::uint32_t value : *command.values)
            all += (all.empty() ? "" : "; ") + words.wordsOf(value);
    return all;
}

std::string lostValue(std::uint32_t dataBytes)
{
    return "value of " + std::to_string(dataBytes) + " bytes, which the format does not carry";
}

Value valuesOf(const ShownCommand& command)
{
    if (command.record.bIfCA == 0 || command.values == nullptr)
        return {};
    std::vector<Value> values;
    for (const std::uint32_t value : *command.values)
        values.push_back(hexadecimal(value));
    return listOf(std::move(values));
}

Value optionalText(const std::optional<std::string_view>& words)
{
    return words ? text(std::string(*words)) : Value();
}

Value sourceOf(const StartupSource& source)
{
    return {Object{{"origin", text(source.origin)},
                   {"comment", optionalText(source.comment)},
                   {"text", optionalText(source.text)},
                   {"choiceRow", optionalNumber(source.choiceRow)}}};
}

/// The groups of a device; the commands refer to the values beside them.
struct Startup
{
    std::optional<std::vector<std::vector<std::uint32_t>>> values;
    std::vector<TransitionGroup> groups;
};

/// Appends the commands of one list.
void appendCommands(std::vector<ShownCommand>& to, const std::vector<struct_KTL_InitCmd>& records, bool isEoe,
                    const std::vector<StartupSource>& sources)
{
    for (std::size_t index = 0; index < records.size(); ++index)
        to.push_back({to.size() + 1, isEoe, records[index], nullptr, &sourceAt(sources, index)});
}

} // namespace

std::vector<TransitionGroup> groupsByTransition(const std::vector<ShownCommand>& commands)
{
    std::vector<TransitionGroup> groups;
    for (const ShownCommand& command : commands) {
        const std::uint16_t transition = command.record.Transition;
        const auto found = std::find_if(groups.begin(), groups.end(),
                                        [=](const TransitionGroup& group) { return group.transition == transition; });
        (found == groups.end() ? groups.emplace_back(TransitionGroup{transition, {}}) : *found)
            .commands.push_back(command);
    }
    return groups;
}

bool hasNumber(const struct_KTL_InitCmd& record)
{
    return record.bIfCA == 0 && isCarried(record.DataBytes, record.Data);
}

bool hasNumber(const struct_KTL_moduleStartupOne& record)
{
    return isCarried(record.m_DataBytes, record.Data);
}

std::string meaningOf(const ShownCommand& command)
{
    const struct_KTL_InitCmd& record = command.record;
    if (command.isEoe)
        return {};
    if (record.bIfCA == 0 && !hasNumber(record))
        return lostValue(record.DataBytes);
    const ListWords* const words = listWordsOf(record.Index);
    if (words == nullptr)
        return {};
    return record.bIfCA != 0 ? wholeListMeaning(command, *words) : elementMeaning(record.SubIndex, record.Data, *words);
}

std::string meaningOf(const struct_KTL_moduleStartupOne& record)
{
    if (!hasNumber(record))
        return lostValue(record.m_DataBytes);
    const ListWords* const words = listWordsOf(record.index);
    return words == nullptr ? std::string() : elementMeaning(record.SubIndex, record.Data, *words);
}

std::vector<ShownCommand> commandsOf(const ShownDevice& device,
                                     const std::optional<std::vector<std::vector<std::uint32_t>>>& values)
{
    std::vector<ShownCommand> commands;
    appendCommands(commands, device.block.eoeCommands, true, device.sources.eoe);
    const std::size_t firstCoe = commands.size();
    appendCommands(commands, device.block.coeCommands, false, device.sources.coe);
    if (values)
        for (std::size_t index = firstCoe; index < commands.size(); ++index)
            commands[index].values = &(*values)[index - firstCoe];
    return commands;
}

Object commandMembers(const ShownCommand& command)
{
    const struct_KTL_InitCmd& record = command.record;
    return {{"position", decimal(static_cast<std::int64_t>(command.position))},
            {"protocol", text(command.isEoe ? "EoE" : "CoE")},
            {"index", hexadecimal(record.Index)},
            {"subIndex", decimal(record.SubIndex)},
            {"completeAccess", flag(record.bIfCA != 0)},
            {"dataBytes", decimal(record.DataBytes)},
            {"value", numberOf(record)},
            {"values", valuesOf(command)},
            {"meaning", text(meaningOf(command))},
            {"source", sourceOf(*command.source)}};
}

Value startupGroups(const ShownDevice& device)
{
    const auto startup = std::make_shared<Startup>();
    startup->values = valuesOfCommands(device.block.coeCommands, device.block.accessValues);
    startup->groups = groupsByTransition(commandsOf(device, startup->values));
    return {List{startup->groups.size(), [startup](std::size_t index) -> Value {
                     const TransitionGroup& group = startup->groups[index];
                     return {Object{{"transition", decimal(group.transition)},
                                    {"transitionName", text(tokenName(group.transition))},
                                    {"commands", listOf(group.commands, commandMembers)}}};
                 }}};
}

} // namespace show
