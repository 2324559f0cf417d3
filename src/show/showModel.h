// showModel.h - devices and modules of an ESI file as the model holds them after loading.
#pragma once

#include "model/deviceRecords.h"
#include "show/showValue.h"

#include <cstdint>
#include <optional>
#include <vector>

/// How much of a record is shown.
enum class ShowDetail
{
    Everything,
    ForPeople, ///< without what is shown in another form: lists of startup commands, data types and objects
};

/// All that the model holds of a device.
/// @param device  has to outlive the result; see `isSameAfterSelection` for what it lends
[[nodiscard]] ShowObject modelMembers(struct_EtherCatDevice& device, ShowDetail detail);

/// The modules of a file, in their groups.
/// @param file  has to outlive the result
[[nodiscard]] ShowValue moduleGroups(const struct_FilenameDevice& file, ShowDetail detail);

/// The CoE dictionary of a device or module.
/// @param dataTypes, objects  have to outlive the result
[[nodiscard]] ShowObject dictionaryMembers(const std::vector<struct_DataTypes>& dataTypes,
                                           const std::vector<struct_Object>& objects, ShowDetail detail);

/// PDOs of a device.
/// @param firstChoiceRow  number of the first one in choices files; nothing if they cannot name them
[[nodiscard]] ShowValue pdosOf(const std::vector<struct_PDOList>& pdos,
                               const std::optional<std::int64_t>& firstChoiceRow);

/// PDOs of a module, or of those in the slots.
/// @param firstChoiceRow  as above
[[nodiscard]] ShowValue pdosOf(const std::vector<modulePdo>& pdos, const std::optional<std::int64_t>& firstChoiceRow);

/// Startup commands of one list of a device.
[[nodiscard]] ShowValue commandList(const std::vector<struct_InitCmd>& commands);

/// Startup commands of a module, or of those in the slots.
[[nodiscard]] ShowValue commandList(const std::vector<struct_moduleInitCmd>& commands);

/// Slots of a device, with the modules that stand in them.
[[nodiscard]] ShowObject slotsMembers(const DeviceSlots& deviceSlots, ShowDetail detail);
