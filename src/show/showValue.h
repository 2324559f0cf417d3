// showValue.h - what `ktl show` has found, as a tree of named values. It is described once and written in several
// forms: JSON, text for people, CSV.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

namespace show {

struct Member;
struct Value;

/// How text for people shows a number. In JSON a number is a number.
enum class NumberForm
{
    Decimal,
    Hexadecimal, ///< "0x1c12"
    Both, ///< "7186 (0x1c12)"
    YesNo, ///< "no" for 0, "yes" for 1, any other in hexadecimal
};

struct Number
{
    std::int64_t value = 0;
    NumberForm form = NumberForm::Decimal;
};

/// Members in their order. All elements of a list have the same members.
using Object = std::vector<Member>;

/// A list whose elements are made when they are written, so that a long one takes no memory. What the elements are made
/// of has to outlive the list.
struct List
{
    std::size_t count = 0;
    std::function<Value(std::size_t index)> at;
};

/// A value of any kind; nothing where it is not known.
struct Value
{
    std::variant<std::monostate, bool, Number, float, std::string, Object, List> content;
};

struct Member
{
    std::string_view key; ///< a literal. In JSON as it is, "likeThis"; text for people separates the words
    Value value;
};

[[nodiscard]] inline Value decimal(std::int64_t number)
{
    return {Number{number, NumberForm::Decimal}};
}

[[nodiscard]] inline Value hexadecimal(std::int64_t number)
{
    return {Number{number, NumberForm::Hexadecimal}};
}

[[nodiscard]] inline Value bothForms(std::int64_t number)
{
    return {Number{number, NumberForm::Both}};
}

/// A flag that is kept as a number.
[[nodiscard]] inline Value yesNoNumber(std::int64_t number)
{
    return {Number{number, NumberForm::YesNo}};
}

[[nodiscard]] inline Value optionalNumber(const std::optional<std::int64_t>& number)
{
    return number ? decimal(*number) : Value();
}

/// A number with a fraction. A length in byte.bit form keeps the digit after its point, and no more.
[[nodiscard]] inline Value fraction(float number)
{
    return {number};
}

[[nodiscard]] inline Value flag(bool isSet)
{
    return {isSet};
}

/// @param utf8  invalid bytes are replaced when it is written
[[nodiscard]] inline Value text(std::string utf8)
{
    return {std::move(utf8)};
}

/// A list with an element for each record.
/// @param records  have to outlive the list
/// @param valueOf  `valueOf(record)` gives a `Value` or `Object`
template<typename Record, typename ValueOf>
[[nodiscard]] Value listOf(const std::vector<Record>& records, ValueOf valueOf)
{
    return {
        List{records.size(), [&records, valueOf](std::size_t index) -> Value { return {valueOf(records[index])}; }}};
}

/// A list of its own few values.
[[nodiscard]] inline Value listOf(std::vector<Value> values)
{
    const std::size_t count = values.size();
    return {List{count, [values = std::move(values)](std::size_t index) { return values[index]; }}};
}

/// The members of two objects in one.
[[nodiscard]] inline Object with(Object members, Object more)
{
    for (Member& member : more)
        members.push_back(std::move(member));
    return members;
}

} // namespace show
