// standardTypes.h - the data types of the CoE standard, which a dictionary need not declare.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace facts {

/// What a value of a data type is.
enum class DataKind : std::uint8_t
{
    Unknown,
    Bits, ///< a truth value, or bits without a meaning as a number: BOOL, BYTE, BITARR8
    Unsigned,
    Signed,
    Real,
    Text,
    Bytes, ///< a block: OCTET_STRING, ARRAY [0..3] OF BYTE
};

/// What a data type says about its values.
struct TypeShape
{
    DataKind kind = DataKind::Unknown;
    std::uint64_t bits = 0; ///< 0 if it is not known
    bool isStandard = true; ///< false for a name that says what it is, but that no standard has: "UINT16"
};

/// The data type of a name, by any of the names that the standard and its predecessors have for it.
/// @return  nothing for any other name
[[nodiscard]] std::optional<TypeShape> standardTypeNamed(std::string_view name);

/// The type of the elements of "ARRAY [0..3] OF X", innermost first; any other name is its own.
[[nodiscard]] std::string_view elementTypeName(std::string_view name);

/// Whether values of two kinds can be the same in other words: a byte is a number or eight bits.
[[nodiscard]] bool canBeSame(DataKind left, DataKind right) noexcept;

} // namespace facts
