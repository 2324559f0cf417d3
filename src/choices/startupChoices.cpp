#include "choices/startupChoices.h"

#include "editing/startupRows.h"
#include "editing/startupValues.h"
#include "model/valueTexts.h"
#include "text/shownText.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <map>
#include <optional>
#include <utility>
#include <vector>

namespace choices {

namespace {

/// What happens at one row of the list.
struct RowChoices
{
    const StartupChoice* taken = nullptr; ///< changed or removed
    bool isRemoved = false;
    std::vector<const StartupChoice*> added; ///< after the row
};

using ChosenRows = std::map<std::uint32_t, RowChoices>;

/// How many rows can be named: rows have 16 bits, and the one after the last of them has to fit too.
std::uint32_t rowCount(const struct_EtherCatDevice& device)
{
    constexpr std::uint32_t maxRows = std::numeric_limits<std::uint16_t>::max();
    std::uint32_t count = 0;
    forEachStartupList(device, [&](const auto&, std::uint16_t ofList, StartupList) { count += ofList; });
    return std::min(count, maxRows);
}

/// Holds a command against what a choice says is there; the first difference is told.
template<typename Command> void checkCommand(const Command& command, const StartupChoice& choice, Problems& problems)
{
    const StartupValues is = startupValuesOf(command);
    const auto tell = [&](const char* key, const QString& found, const QString& expected) {
        problems.add(ProblemCode::Check, choice.path + QStringLiteral(".was.") + QLatin1String(key),
                     QStringLiteral("%1 stands there, not %2").arg(found, expected));
    };
    const QString comment = QString::fromStdString(command.Comment);
    if (choice.was.index.value_or(is.index) != is.index)
        tell("index", hexNumber(is.index), hexNumber(*choice.was.index));
    else if (choice.was.subIndex.value_or(is.subIndex) != is.subIndex)
        tell("subIndex", QString::number(is.subIndex), QString::number(*choice.was.subIndex));
    else if (choice.was.comment.value_or(comment) != comment)
        tell("comment", shownText(comment), shownText(*choice.was.comment));
}

StartupValues valuesWith(const StartupChoice& choice, const StartupValues& is)
{
    return {choice.index.value_or(is.index), choice.subIndex.value_or(is.subIndex),
            choice.dataBytes.value_or(is.dataBytes), choice.data.value_or(is.data)};
}

/// Tells of a value that cannot be sent in so many bytes.
void checkData(const StartupValues& wanted, const StartupChoice& choice, Problems& problems)
{
    constexpr std::uint32_t maxBytes = sizeof(wanted.data);
    constexpr std::uint32_t bitsOfByte = 8;
    const auto tell = [&](const char* key, const QString& text) {
        problems.add(ProblemCode::StartupData, choice.path + QLatin1Char('.') + QLatin1String(key), text);
    };
    if (wanted.dataBytes <= maxBytes) {
        if ((std::uint64_t{wanted.data} >> (wanted.dataBytes * bitsOfByte)) != 0)
            tell("data", QStringLiteral("%1 does not fit into dataBytes %2").arg(wanted.data).arg(wanted.dataBytes));
    } else if (choice.dataBytes.has_value()) {
        tell("dataBytes", QStringLiteral("%1 is not a number from 0 to %2").arg(wanted.dataBytes).arg(maxBytes));
    } else {
        tell("data", QStringLiteral("the command has %1 data bytes, a value has %2 at most; give dataBytes too")
                         .arg(wanted.dataBytes)
                         .arg(maxBytes));
    }
}

/// Tells of values that the bus cuts or does not carry. What a command has already is taken: the description declares
/// it so.
void checkValues(const StartupValues& wanted, const StartupValues& is, const StartupChoice& choice, Problems& problems)
{
    if (choice.isUnchecked)
        return;
    constexpr std::uint32_t maxSubIndex = std::numeric_limits<std::uint8_t>::max();
    if (wanted.subIndex != is.subIndex && wanted.subIndex > maxSubIndex)
        problems.add(ProblemCode::StartupData, choice.path + QStringLiteral(".subIndex"),
                     QStringLiteral("%1 is not a number from 0 to %2").arg(wanted.subIndex).arg(maxSubIndex));
    if (wanted.dataBytes != is.dataBytes || wanted.data != is.data)
        checkData(wanted, choice, problems);
}

/// The values of the command at a choice's row, which is held against what the choice says; tells if there is none.
/// @param rowKey  by which the choice names its row: "behind" for a command that is added
std::optional<StartupValues> checkedRow(const StartupChoice& choice, const char* rowKey,
                                        const struct_EtherCatDevice& device, Problems& problems)
{
    const std::uint32_t count = rowCount(device);
    if (choice.row >= count) {
        problems.add(ProblemCode::Row, choice.path + QLatin1Char('.') + QLatin1String(rowKey),
                     QStringLiteral("there is no row %1, the list has %2").arg(choice.row).arg(count));
        return std::nullopt;
    }
    std::optional<StartupValues> values;
    visitStartupRow(device, static_cast<int>(choice.row), [&](const auto& commands, std::size_t position) {
        checkCommand(commands[position], choice, problems);
        values = startupValuesOf(commands[position]);
    });
    return values;
}

/// Adds changed or removed commands to the rows, each row once.
void takeRows(const std::vector<StartupChoice>& choices, bool areRemoved, const struct_EtherCatDevice& device,
              ChosenRows& rows, Problems& problems)
{
    for (const StartupChoice& choice : choices) {
        if (const std::optional<StartupValues> is = checkedRow(choice, "row", device, problems))
            checkValues(valuesWith(choice, *is), *is, choice, problems);
        RowChoices& row = rows[choice.row];
        if (row.taken != nullptr)
            problems.add(ProblemCode::Row, choice.path,
                         QStringLiteral("row %1 is changed or removed twice").arg(choice.row));
        row.taken = &choice;
        row.isRemoved = areRemoved;
    }
}

ChosenRows checkedRows(const DeviceChoices& choices, const struct_EtherCatDevice& device, Problems& problems)
{
    ChosenRows rows;
    takeRows(choices.changedCommands, false, device, rows, problems);
    takeRows(choices.removedCommands, true, device, rows, problems);
    for (const StartupChoice& choice : choices.addedCommands) {
        static_cast<void>(checkedRow(choice, "behind", device, problems));
        checkValues(valuesWith(choice, {}), {}, choice, problems);
        rows[choice.row].added.push_back(&choice);
    }
    return rows;
}

/// The commands of one list after the choices.
/// @param firstRow  row of its first command
/// @param count     how many of its commands have rows
template<typename Command>
std::vector<Command> renewed(std::vector<Command> commands, std::uint32_t firstRow, std::uint32_t count,
                             const ChosenRows& rows)
{
    std::vector<Command> after;
    after.reserve(commands.size());
    for (std::size_t position = 0; position < commands.size(); ++position) {
        const auto found = position < count ? rows.find(firstRow + static_cast<std::uint32_t>(position)) : rows.end();
        Command& command = commands[position];
        if (found == rows.end()) {
            after.push_back(std::move(command));
            continue;
        }
        const RowChoices& choices = found->second;
        if (choices.taken != nullptr && !choices.isRemoved)
            setStartupValues(command, valuesWith(*choices.taken, startupValuesOf(command)));
        if (!choices.isRemoved)
            after.push_back(std::move(command));
        for (const StartupChoice* const added : choices.added) {
            after.push_back(newStartupCommand<Command>());
            setStartupValues(after.back(), valuesWith(*added, {}));
        }
    }
    return after;
}

} // namespace

void makeStartupChoices(const DeviceChoices& choices, struct_EtherCatDevice& device, Problems& problems)
{
    const std::size_t before = problems.count();
    const ChosenRows rows = checkedRows(choices, device, problems);
    if (rows.empty() || problems.count() != before)
        return;
    std::uint32_t firstRow = 0;
    forEachStartupList(device, [&](auto& commands, std::uint16_t count, StartupList) {
        commands = renewed(std::move(commands), firstRow, count, rows);
        firstRow += count;
    });
}

} // namespace choices
