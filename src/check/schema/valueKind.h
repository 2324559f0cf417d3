// valueKind.h - what a text of an ESI file has to be.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace check {

/// How a text counts.
enum class ValueKind : std::uint8_t
{
    Text, ///< as it is
    Number, ///< a whole number that nothing here reads
    Unsigned, ///< read by `toUint`
    SubIndex, ///< read by `toUint` into a field that is wider than sub-indexes are
    Signed, ///< read by `toInt`
    Boolean,
    Bytes, ///< pairs of hexadecimal digits, read by `toUintFromBytes`
    HexDigits, ///< pairs of hexadecimal digits that nothing here reads
    Decimal, ///< a number with a decimal point
    Token, ///< one of a list
    EntryDataType, ///< the data type of a PDO entry
    TypeName, ///< the name under which a dictionary declares a data type
    DictionaryFile, ///< the name of a file that has the dictionary
};

/// What a value has to be.
struct ValueType
{
    ValueKind kind = ValueKind::Text;
    std::uint8_t bits = 0; ///< width of a number: of the field that it is read into, or of what it means
    std::string_view tokens; ///< allowed, between blanks, in upper case; one at each end too
};

/// The kind of a value by its word in the rows of the schema: "u16", "boolean", "transition".
/// @return  nothing if there is none of this name
[[nodiscard]] std::optional<ValueType> valueKindNamed(std::string_view word);

/// What is wrong with a value.
enum class ValueFaultKind : std::uint8_t
{
    Number, ///< it does not convert; where it is read it becomes 0
    Cut, ///< it is a number, but a part of it is lost
    Boolean, ///< it is neither true nor false
    Token, ///< it is not in the list
    DataType, ///< it names no data type
    Count
};

/// Judges a value. An empty one is as good as none.
/// @return  nothing if it is right
[[nodiscard]] std::optional<ValueFaultKind> faultOf(const ValueType& type, std::string_view text);

/// Whether a text is a whole number in one of the forms that files use, of any size: "-1", "#x1A", "0x1a".
[[nodiscard]] bool isWholeNumber(std::string_view text);

} // namespace check
