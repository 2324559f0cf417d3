// showText.h - values as text for people.
#pragma once

#include "cli/showValue.h"

#include <cstddef>
#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

/// The words of a key: "syncManagers" are "sync managers".
[[nodiscard]] std::string labelOf(const std::string& key);

/// A plain value, or a list of such, on one line; "-" for nothing.
[[nodiscard]] std::string cellOf(const ShowValue& value);

/// The plain members of an object and of the objects in it, in one row; nothing if it holds a list of objects.
/// @param labels  takes the label of each cell; may be null
[[nodiscard]] std::optional<std::vector<std::string>> rowOf(const ShowValue& object, std::vector<std::string>* labels);

/// Writes the members of an object, one to a line, lists of plain objects as tables, and other lists element by
/// element, each line indented.
void writeText(std::ostream& out, const ShowObject& object, std::size_t indentation);
