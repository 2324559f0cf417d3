#include "editing/startupRows.h"

#include <iterator>
#include <type_traits>

bool insertStartupCommand(struct_EtherCatDevice& device, int row)
{
    return visitStartupRow(device, row, [](auto& commands, std::size_t position) {
        typename std::decay_t<decltype(commands)>::value_type command;
        command.Transition = PS;
        commands.insert(std::next(commands.begin(), static_cast<std::ptrdiff_t>(position) + 1), command);
    });
}

void eraseStartupCommand(struct_EtherCatDevice& device, int row)
{
    visitStartupRow(device, row, [](auto& commands, std::size_t position) {
        commands.erase(std::next(commands.begin(), static_cast<std::ptrdiff_t>(position)));
    });
}
