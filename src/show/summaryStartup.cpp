#include "model/objectAreas.h"
#include "show/cutText.h"
#include "show/showStartup.h"
#include "show/showWords.h"
#include "show/summarySections.h"

#include <optional>
#include <string_view>

namespace show {

namespace {

using Commands = std::vector<ShownCommand>;
using Iterator = Commands::const_iterator;

/// Whether a command writes an element of a list, or its count, by itself.
bool isListStep(const ShownCommand& command)
{
    const struct_KTL_InitCmd& record = command.record;
    return !command.isEoe && record.bIfCA == 0 && (isAssignObject(record.Index) || isMappingObject(record.Index))
           && hasNumber(record);
}

/// Commands that write a list, and are told as one.
struct ListSteps
{
    Iterator begin; ///< of the elements
    Iterator count; ///< the command that writes how many they are
};

/// The commands that write a whole list from a place on: they may clear it, write each element in turn, and then the
/// count.
/// @return  nothing if those at the place do not
std::optional<ListSteps> listAt(Iterator place, Iterator end)
{
    const std::uint16_t object = place->record.Index;
    const auto isStep = [&](Iterator at) { return at != end && isListStep(*at) && at->record.Index == object; };
    auto at = place;
    if (isStep(at) && at->record.SubIndex == 0 && at->record.Data == 0)
        ++at;
    const Iterator begin = at;
    std::uint32_t elements = 0;
    for (; isStep(at) && at->record.SubIndex == elements + 1; ++at)
        ++elements;
    const bool isWhole = elements > 0 && isStep(at) && at->record.SubIndex == 0 && at->record.Data == elements;
    return isWhole ? std::optional(ListSteps{begin, at}) : std::nullopt;
}

std::string listText(const ListSteps& steps)
{
    const std::uint16_t object = steps.count->record.Index;
    if (isMappingObject(object))
        return "maps " + counted(steps.count->record.Data, "entry", "entries") + " into PDO " + hexText(object);
    std::string all = "assigns ";
    for (Iterator at = steps.begin; at != steps.count; ++at)
        all += (at == steps.begin ? "" : ", ") + meaningOf(*at);
    return all;
}

/// A number of one digit is the same in both forms.
std::string valueText(const struct_KTL_InitCmd& record)
{
    constexpr std::uint32_t firstOfTwoDigits = 10;
    if (record.bIfCA != 0)
        return "complete access";
    if (!hasNumber(record))
        return {};
    const std::string number = std::to_string(record.Data);
    return record.Data < firstOfTwoDigits ? number : number + " (" + hexText(record.Data) + ')';
}

/// What a command does, and what the file says of it. Of a generated command the first is enough.
std::string purposeText(const ShownCommand& command)
{
    const StartupSource& source = *command.source;
    const std::string meaning = meaningOf(command);
    const bool isDeclared = std::string_view(source.origin) == "ESI" || std::string_view(source.origin) == "module";
    const std::string comment = isDeclared || meaning.empty() ? cutName(source.comment.value_or("")) : std::string();
    return meaning + (meaning.empty() || comment.empty() ? "" : "; ") + comment;
}

TextRow commandCells(const ShownCommand& command)
{
    const struct_KTL_InitCmd& record = command.record;
    const std::string object = objectText(record.Index, record.SubIndex);
    return {command.isEoe ? "EoE" : object, valueText(record), purposeText(command)};
}

void addRows(SummaryPart& part, const Commands& commands)
{
    for (auto at = commands.begin(); at != commands.end(); ++at) {
        if (const auto steps = listAt(at, commands.end())) {
            part.rows.push_back({{}, {hexText(at->record.Index), {}, listText(*steps)}});
            at = steps->count;
        } else {
            part.rows.push_back({{}, commandCells(*at)});
        }
    }
}

} // namespace

SummaryParts startupSection(const SummaryDevice& device)
{
    const auto values = valuesOfCommands(device.carried.block.coeCommands, device.carried.block.accessValues);
    SummaryParts parts;
    for (const TransitionGroup& group : groupsByTransition(commandsOf(device.carried, values))) {
        const std::string name = tokenName(group.transition);
        SummaryPart part{"startup commands, " + (name.empty() ? "transition " + std::to_string(group.transition) : name)
                             + " (" + std::to_string(group.commands.size()) + ')',
                         {},
                         TextRow(3),
                         {}};
        addRows(part, group.commands);
        parts.push_back(std::move(part));
    }
    return parts;
}

} // namespace show
