// startupAccess.h - startup commands of a device and of a module, read and changed alike.
#pragma once

#include "model/startupRecords.h"

#include <cstdint>

/// Object index of a command.
[[nodiscard]] inline std::uint16_t& indexOf(struct_InitCmd& command) noexcept
{
    return command.Index;
}

[[nodiscard]] inline std::uint16_t indexOf(const struct_InitCmd& command) noexcept
{
    return command.Index;
}

[[nodiscard]] inline std::uint16_t& indexOf(struct_moduleInitCmd& command) noexcept
{
    return command.indexAttributes.index;
}

[[nodiscard]] inline std::uint16_t indexOf(const struct_moduleInitCmd& command) noexcept
{
    return command.indexAttributes.index;
}
