// showValue.h - what `ktl show` has found, as a tree of named values. It is described once and written in several
// forms: JSON, text for people, CSV.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

struct ShowMember;
struct ShowValue;

/// How text for people shows a number. In JSON a number is a number.
enum class NumberForm
{
    Decimal,
    Hexadecimal, ///< "0x1c12"
    Both, ///< "7186 (0x1c12)"
    YesNo, ///< "no" for 0, "yes" for 1, any other in hexadecimal
};

struct ShowNumber
{
    std::int64_t value = 0;
    NumberForm form = NumberForm::Decimal;
};

/// Members in their order. All elements of a list have the same members.
using ShowObject = std::vector<ShowMember>;

/// A list whose elements are made when they are written, so that a long one takes no memory. What the elements are made
/// of has to outlive the list.
struct ShowList
{
    std::size_t count = 0;
    std::function<ShowValue(std::size_t index)> at;
};

/// A value of any kind; nothing where it is not known.
struct ShowValue
{
    std::variant<std::monostate, bool, ShowNumber, float, std::string, ShowObject, ShowList> content;
};

struct ShowMember
{
    std::string key; ///< in JSON as it stands, "likeThis"; text for people parts the words
    ShowValue value;
};

[[nodiscard]] inline ShowValue decimal(std::int64_t number)
{
    return {ShowNumber{number, NumberForm::Decimal}};
}

[[nodiscard]] inline ShowValue hexadecimal(std::int64_t number)
{
    return {ShowNumber{number, NumberForm::Hexadecimal}};
}

[[nodiscard]] inline ShowValue bothForms(std::int64_t number)
{
    return {ShowNumber{number, NumberForm::Both}};
}

/// A flag that is kept as a number.
[[nodiscard]] inline ShowValue yesNoNumber(std::int64_t number)
{
    return {ShowNumber{number, NumberForm::YesNo}};
}

[[nodiscard]] inline ShowValue optionalNumber(const std::optional<std::int64_t>& number)
{
    return number ? decimal(*number) : ShowValue();
}

/// A number with a fraction. A length in byte.bit form keeps the digit behind its point, and no more.
[[nodiscard]] inline ShowValue fraction(float number)
{
    return {number};
}

[[nodiscard]] inline ShowValue flag(bool isSet)
{
    return {isSet};
}

/// @param utf8  invalid bytes are replaced when it is written
[[nodiscard]] inline ShowValue text(std::string utf8)
{
    return {std::move(utf8)};
}

/// A list with an element for each record.
/// @param records  have to outlive the list
/// @param valueOf  `valueOf(record)` gives a `ShowValue` or `ShowObject`
template<typename Record, typename ValueOf>
[[nodiscard]] ShowValue listOf(const std::vector<Record>& records, ValueOf valueOf)
{
    return {ShowList{records.size(),
                     [&records, valueOf](std::size_t index) -> ShowValue { return {valueOf(records[index])}; }}};
}

/// A list of its own few values.
[[nodiscard]] inline ShowValue listOf(std::vector<ShowValue> values)
{
    const std::size_t count = values.size();
    return {ShowList{count, [values = std::move(values)](std::size_t index) { return values[index]; }}};
}
