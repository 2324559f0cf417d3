// startupRows.h - which row of the startup list stands for which command, and the changes of that list. No row stores
// its command: it is looked up by the row's number each time.
#pragma once

#include "model/deviceRecords.h"

#include <cstddef>
#include <cstdint>

/// The lists that make up the startup list, in the order of its rows.
enum class StartupList
{
    DeviceCoe,
    DeviceEoe,
    ModuleCoe
};

/// Calls `visit(commands, count, list)` for each list of commands, in the order of the rows. `count` is how many of
/// them have rows: rows and counts have 16 bits.
template<typename Device, typename Visitor> void forEachStartupList(Device& device, Visitor visit)
{
    const auto visitList = [&](auto& commands, StartupList list) {
        visit(commands, static_cast<std::uint16_t>(commands.size()), list);
    };
    visitList(device.Mailbox.COE.InitCmd.vinitcmd, StartupList::DeviceCoe);
    visitList(device.Mailbox.EOE.InitCmd.vinitcmd, StartupList::DeviceEoe);
    visitList(device.mMailbox.COE.vinitcmd, StartupList::ModuleCoe);
}

/// Calls `visit(commands, position)` for the command at a row: its list, and its place there.
/// @param row  from 0; a negative row or one past the lists stands for no command
/// @return     whether there is one
template<typename Device, typename Visitor> bool visitStartupRow(Device& device, int row, Visitor visit)
{
    if (row < 0)
        return false;
    auto position = static_cast<std::size_t>(static_cast<std::uint16_t>(row));
    bool isFound = false;
    forEachStartupList(device, [&](auto& commands, std::uint16_t count, StartupList /*list*/) {
        if (isFound)
            return;
        if (position < count) {
            isFound = true;
            visit(commands, position);
        } else {
            position -= count;
        }
    });
    return isFound;
}

/// A command that is added by hand: empty but for its transition, which is `PS`.
template<typename Command> [[nodiscard]] Command newStartupCommand()
{
    Command command;
    command.Transition = PS;
    return command;
}

/// Inserts a new command after the one at a row, in the same list.
/// @return  false, with nothing changed, if the row stands for no command
bool insertStartupCommand(struct_EtherCatDevice& device, int row);

/// Erases the command at a row. A row that stands for no command changes nothing.
void eraseStartupCommand(struct_EtherCatDevice& device, int row);
