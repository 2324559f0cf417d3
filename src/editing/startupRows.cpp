#include "editing/startupRows.h"

#include <iterator>
#include <type_traits>

bool insertStartupCommand(struct_EtherCatDevice& device, int row)
{
    return visitStartupRow(device, row, [](auto& commands, std::size_t position) {
        using Command = typename std::decay_t<decltype(commands)>::value_type;
        commands.insert(std::next(commands.begin(), static_cast<std::ptrdiff_t>(position) + 1),
                        newStartupCommand<Command>());
    });
}

void eraseStartupCommand(struct_EtherCatDevice& device, int row)
{
    visitStartupRow(device, row, [](auto& commands, std::size_t position) {
        commands.erase(std::next(commands.begin(), static_cast<std::ptrdiff_t>(position)));
    });
}
