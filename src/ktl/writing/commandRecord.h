// commandRecord.h - a startup command as an EoE or CoE item has it.
#pragma once

#include "ktl/format/ktlFormat.h"
#include "model/startupAccess.h"

#include <cstdint>

/// The record of a command of a device or of a module; the sub-index of the latter, which is wider, is cut.
template<typename Command> [[nodiscard]] struct_KTL_InitCmd commandRecordOf(const Command& command)
{
    struct_KTL_InitCmd record{};
    record.Transition = static_cast<std::uint16_t>(command.Transition);
    record.Index = indexOf(command);
    record.SubIndex = static_cast<std::uint8_t>(command.SubIndex);
    record.bIfCA = command.bIfCA;
    record.DataBytes = command.DataBytes;
    record.Data = command.Data;
    return record;
}
