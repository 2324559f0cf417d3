// words.h - the words of a choices file for device types and objects.
#pragma once

#include "choices/choices.h"
#include "model/syncRecords.h"

#include <QString>
#include <QStringList>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace choices {

/// Name of a device type: "MultiDriver"; its number if it has none.
[[nodiscard]] QString deviceTypeName(std::uint16_t type);

/// The type with that name; nothing if there is none.
[[nodiscard]] std::optional<std::uint16_t> deviceTypeNamed(const QString& name);

/// Names of all device types, in their order.
[[nodiscard]] QStringList deviceTypeNames();

/// Names of the types whose modules are put in and taken out by hand.
[[nodiscard]] QStringList typesThatTakeModules();

/// Positions of the operation modes that have the text as their name or description.
[[nodiscard]] std::vector<std::size_t> modesNamed(const std::vector<Struct_DCOpMode>& modes, const QString& text);

/// "0x6040:0".
[[nodiscard]] QString objectText(const ObjectAddress& address);

/// The object of a text like "0x6040:0"; nothing if it is none.
[[nodiscard]] std::optional<ObjectAddress> objectIn(const QString& text);

} // namespace choices
