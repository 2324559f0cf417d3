// startupValues.h - what can be set in a startup command by hand.
#pragma once

#include "model/startupAccess.h"
#include "model/valueTexts.h"

#include <cstdint>
#include <type_traits>

/// The fields of the startup editor.
struct StartupValues
{
    std::uint32_t index = 0;
    std::uint32_t subIndex = 0;
    std::uint32_t dataBytes = 0;
    std::uint32_t data = 0;
};

/// The values of a command of a device or of a module.
template<typename Command> [[nodiscard]] StartupValues startupValuesOf(const Command& command)
{
    return {indexOf(command), command.SubIndex, command.DataBytes, command.Data};
}

/// Sets the values of a command, each cut to the width of its field. Its text is made again from the data; transition,
/// comment and the values of a complete access stay as they were.
template<typename Command> void setStartupValues(Command& command, const StartupValues& values)
{
    indexOf(command) = static_cast<std::uint16_t>(values.index);
    command.SubIndex = static_cast<std::decay_t<decltype(command.SubIndex)>>(values.subIndex);
    command.DataBytes = static_cast<std::uint16_t>(values.dataBytes);
    command.Data = values.data;
    command.strData = numberText(values.data);
}
