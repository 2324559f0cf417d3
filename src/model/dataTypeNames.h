// dataTypeNames.h - what the name of a data type says about it.
#pragma once

#include <string_view>

/// Whether the name is that of a structured data type, a record or an array. All others are simple.
/// ODD, KEPT: the mark counts anywhere in the name, where one would look for it at the start. So "WIDTH" is structured:
/// an object of this type shows none, a sub-item has no row. Pinned by
/// tst_DataTypeNames::structured.
[[nodiscard]] inline bool isStructuredType(std::string_view name) noexcept
{
    return name.find("DT") != std::string_view::npos;
}

/// Whether the name is that of a text, whose default is a text too: "STRING(12)", "VISIBLE_STRING".
[[nodiscard]] inline bool isStringType(std::string_view name) noexcept
{
    return name.find("STRING") != std::string_view::npos;
}
