#include "retrace/startupRetrace.h"

#include "editing/startupRows.h"
#include "ktl/writing/commandRecord.h"
#include "retrace/alignment.h"
#include "retrace/startupEdits.h"

#include <QString>

#include <cstdint>
#include <string_view>
#include <vector>

namespace retrace {

namespace {

/// A command of the description, as an export carries it, and its row in the list.
struct DeclaredCommand
{
    struct_KTL_InitCmd record = {};
    std::uint32_t row = 0;
    std::uint32_t subIndex = 0; ///< that of a module's command is wider than the record's
    std::string_view comment;
};

/// Whether a command can become another one by hand: transition and complete access stay as they are.
bool canBecome(const struct_KTL_InitCmd& is, const struct_KTL_InitCmd& wanted)
{
    return is.Transition == wanted.Transition && is.bIfCA == wanted.bIfCA;
}

bool haveSameValues(const struct_KTL_InitCmd& left, const struct_KTL_InitCmd& right)
{
    return left.Index == right.Index && left.SubIndex == right.SubIndex && left.DataBytes == right.DataBytes
           && left.Data == right.Data;
}

struct CommandCosts
{
    const std::vector<DeclaredCommand>& declared;
    const std::vector<struct_KTL_InitCmd>& exported;

    [[nodiscard]] Cost stay(std::size_t before, std::size_t after) const
    {
        const struct_KTL_InitCmd& is = declared[before].record;
        const struct_KTL_InitCmd& wanted = exported[after];
        if (!canBecome(is, wanted))
            return impossible;
        if (haveSameValues(is, wanted))
            return 0;
        constexpr Cost toChange = 4;
        constexpr Cost toChangeObject = 5; // a changed value is likelier than another object
        return is.Index == wanted.Index && is.SubIndex == wanted.SubIndex ? toChange : toChangeObject;
    }
    [[nodiscard]] static Cost remove(std::size_t /*before*/) { return 3; }
    [[nodiscard]] Cost add(std::size_t after, bool isFirst) const
    {
        return isFirst || !canBeAdded(exported[after]) ? impossible : 3;
    }
};

/// Whether the bus does not carry a value as it stands.
bool isCut(const struct_KTL_InitCmd& command)
{
    constexpr std::uint32_t maxBytes = sizeof(command.Data);
    constexpr std::uint32_t bitsOfByte = 8;
    const std::uint64_t data = command.Data;
    return command.DataBytes > maxBytes || (data >> (command.DataBytes * bitsOfByte)) != 0;
}

choices::StartupChoice choiceAt(const DeclaredCommand& command)
{
    choices::StartupChoice choice;
    choice.row = command.row;
    choice.was.index = command.record.Index;
    choice.was.subIndex = command.subIndex;
    choice.was.comment = QString::fromUtf8(command.comment.data(), static_cast<int>(command.comment.size()));
    return choice;
}

choices::StartupChoice addedCommand(const struct_KTL_InitCmd& command, const DeclaredCommand& behind)
{
    choices::StartupChoice choice = choiceAt(behind);
    choice.index = command.Index;
    choice.subIndex = command.SubIndex;
    choice.dataBytes = command.DataBytes;
    choice.data = command.Data;
    choice.isUnchecked = isCut(command);
    return choice;
}

choices::StartupChoice changedCommand(const DeclaredCommand& is, const struct_KTL_InitCmd& wanted)
{
    choices::StartupChoice choice = choiceAt(is);
    if (is.record.Index != wanted.Index)
        choice.index = wanted.Index;
    if (is.record.SubIndex != wanted.SubIndex)
        choice.subIndex = wanted.SubIndex;
    if (is.record.DataBytes != wanted.DataBytes || is.record.Data != wanted.Data) {
        choice.dataBytes = wanted.DataBytes;
        choice.data = wanted.Data;
        choice.isUnchecked = isCut(wanted);
    }
    return choice;
}

/// Choices that make one list of commands another one.
void retraceCommands(const std::vector<DeclaredCommand>& declared, const std::vector<struct_KTL_InitCmd>& exported,
                     choices::DeviceChoices& choices)
{
    const DeclaredCommand* behind = nullptr;
    for (const Step& step : Alignment(declared.size(), exported.size(), CommandCosts{declared, exported}).steps()) {
        if (step.before.has_value())
            behind = &declared[*step.before];
        if (!step.after.has_value()) {
            choices.removedCommands.push_back(choiceAt(*behind));
        } else if (!step.before.has_value()) {
            if (behind != nullptr && canBeAdded(exported[*step.after]))
                choices.addedCommands.push_back(addedCommand(exported[*step.after], *behind));
        } else if (!haveSameValues(behind->record, exported[*step.after])) {
            choices.changedCommands.push_back(changedCommand(*behind, exported[*step.after]));
        }
    }
}

} // namespace

void retraceStartup(const struct_EtherCatDevice& device, const KtlDeviceBlock& block, choices::DeviceChoices& choices)
{
    std::vector<DeclaredCommand> coe; // of the device, then of its modules: the file does not tell them apart
    std::vector<DeclaredCommand> eoe;
    std::uint32_t row = 0;
    forEachStartupList(device, [&](const auto& commands, std::uint16_t count, StartupList list) {
        std::vector<DeclaredCommand>& declared = list == StartupList::DeviceEoe ? eoe : coe;
        for (std::size_t position = 0; position < count; ++position)
            declared.push_back(
                {commandRecordOf(commands[position]), row++, commands[position].SubIndex, commands[position].Comment});
    });
    retraceCommands(coe, block.coeCommands, choices);
    retraceCommands(eoe, block.eoeCommands, choices);
}

} // namespace retrace
