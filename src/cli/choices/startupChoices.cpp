// startupChoices.cpp - startup commands changed, added and removed.
#include "cli/choices/choicesOfLists.h"
#include "editing/startupRows.h"
#include "editing/startupValues.h"
#include "esi/xmlCharConversion.h"

#include <algorithm>
#include <limits>
#include <map>
#include <type_traits>

namespace {

/// What happens at one row of the list.
struct RowChoices
{
    std::vector<const StartupChoice*> added; ///< behind the row
    bool isTaken = false; ///< changed or removed
    bool isRemoved = false;
};

/// How many rows can be named: rows have 16 bits, and the one behind the last of them has to fit too.
std::uint32_t rowCount(const struct_EtherCatDevice& device)
{
    constexpr std::uint32_t mostRows = std::numeric_limits<std::uint16_t>::max();
    std::uint32_t count = 0;
    forEachStartupList(device, [&](const auto&, std::uint16_t ofList, StartupList) { count += ofList; });
    return std::min(count, mostRows);
}

template<typename Command> void checkCommand(const Command& command, const StartupChoice& choice, Problems& problems)
{
    const QString path = choice.path + QStringLiteral(".was.");
    const StartupValues is = startupValuesOf(command);
    const auto expect = [&](bool agrees, const char* key, const QString& found, const QString& expected) {
        if (!agrees)
            problems.add(path + QLatin1String(key), QStringLiteral("%1 stands there, not %2").arg(found, expected));
    };
    if (choice.was.index.has_value())
        expect(is.index == *choice.was.index, "index", xmlGetStringuint(is.index), xmlGetStringuint(*choice.was.index));
    if (choice.was.subIndex.has_value())
        expect(is.subIndex == *choice.was.subIndex, "subIndex", QString::number(is.subIndex),
               QString::number(*choice.was.subIndex));
    const QString comment = QString::fromStdString(command.Comment);
    if (choice.was.comment.has_value())
        expect(comment == *choice.was.comment, "comment", quoted(comment), quoted(*choice.was.comment));
    constexpr std::uint32_t mostSubIndex = std::numeric_limits<std::decay_t<decltype(command.SubIndex)>>::max();
    if (choice.subIndex.value_or(0) > mostSubIndex)
        problems.add(choice.path + QStringLiteral(".subIndex"),
                     QStringLiteral("%1 is not a number from 0 to %2").arg(*choice.subIndex).arg(mostSubIndex));
}

void check(const StartupChoice& choice, const char* rowKey, const struct_EtherCatDevice& device, Problems& problems)
{
    const std::uint32_t count = rowCount(device);
    if (choice.row >= count)
        problems.add(choice.path + QLatin1Char('.') + QLatin1String(rowKey),
                     QStringLiteral("there is no row %1, the list has %2").arg(choice.row).arg(count));
    else
        visitStartupRow(device, static_cast<int>(choice.row), [&](const auto& commands, std::size_t position) {
            checkCommand(commands[position], choice, problems);
        });
}

void setValues(struct_EtherCatDevice& device, std::uint32_t row, const StartupChoice& choice)
{
    visitStartupRow(device, static_cast<int>(row), [&](auto& commands, std::size_t position) {
        const StartupValues is = startupValuesOf(commands[position]);
        setStartupValues(commands[position], {choice.index.value_or(is.index), choice.subIndex.value_or(is.subIndex),
                                              choice.dataBytes.value_or(is.dataBytes), choice.data.value_or(is.data)});
    });
}

std::map<std::uint32_t, RowChoices> checkedRows(const DeviceChoices& choices, const struct_EtherCatDevice& device,
                                                Problems& problems)
{
    std::map<std::uint32_t, RowChoices> rows;
    const auto take = [&](const StartupChoice& choice, bool isRemoved) {
        check(choice, "row", device, problems);
        RowChoices& row = rows[choice.row];
        if (row.isTaken)
            problems.add(choice.path, QStringLiteral("row %1 is changed or removed twice").arg(choice.row));
        row.isTaken = true;
        row.isRemoved = isRemoved;
    };
    for (const StartupChoice& choice : choices.changedCommands)
        take(choice, false);
    for (const StartupChoice& choice : choices.removedCommands)
        take(choice, true);
    for (const StartupChoice& choice : choices.addedCommands) {
        check(choice, "behind", device, problems);
        rows[choice.row].added.push_back(&choice);
    }
    return rows;
}

} // namespace

void makeStartupChoices(const DeviceChoices& choices, struct_EtherCatDevice& device, Problems& problems)
{
    const std::size_t before = problems.count();
    const std::map<std::uint32_t, RowChoices> rows = checkedRows(choices, device, problems);
    if (problems.count() != before)
        return;
    for (const StartupChoice& choice : choices.changedCommands)
        setValues(device, choice.row, choice);
    // From the last row to the first, so that the numbers of the rows before stay what they are.
    for (auto row = rows.rbegin(); row != rows.rend(); ++row) {
        const std::vector<const StartupChoice*>& added = row->second.added;
        for (auto choice = added.rbegin(); choice != added.rend(); ++choice)
            if (insertStartupCommand(device, static_cast<int>(row->first)))
                setValues(device, row->first + 1, **choice);
        if (row->second.isRemoved)
            eraseStartupCommand(device, static_cast<int>(row->first));
    }
}
