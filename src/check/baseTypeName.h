// baseTypeName.h - the names of data types that need no declaration.
#pragma once

#include <string_view>

namespace check {

/// Whether a name is that of a base type: "UINT", "BIT3", "STRING(12)", "INT24". Names are exact.
[[nodiscard]] bool isBaseTypeName(std::string_view name);

/// The type of the elements of "ARRAY [0..3] OF X", innermost first; any other name is its own.
[[nodiscard]] std::string_view elementTypeName(std::string_view name);

} // namespace check
