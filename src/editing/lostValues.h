// lostValues.h - startup commands whose value an export does not carry.
#pragma once

#include "model/deviceRecords.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

/// One CoE command whose value is lost. (EoE commands are not declared in ESI files; the generated one carries all.)
struct LostValue
{
    std::uint16_t index = 0; ///< of the object
    std::uint16_t subIndex = 0;
    std::uint16_t dataBytes = 0; ///< length of the value
    std::string comment;
};

/// The commands of one place whose values are lost.
struct LostValues
{
    std::size_t count = 0;
    std::optional<LostValue> first; ///< in the order of the export; nothing if there is none
};

/// Those in the lists of a device, which also hold the commands of the modules in its slots.
[[nodiscard]] LostValues lostValuesOf(const struct_EtherCatDevice& device);

/// Those in the module blocks of a file, which go out with each device for which `hasModuleBlocks` is true.
[[nodiscard]] LostValues lostModuleValuesOf(const struct_FilenameDevice& file);
