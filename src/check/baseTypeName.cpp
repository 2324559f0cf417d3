#include "check/baseTypeName.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace check {

namespace {

constexpr std::array<std::string_view, 44> exactNames{
    "BOOL",
    "BIT",
    "BYTE",
    "WORD",
    "DWORD",
    "LWORD",
    "SINT",
    "INT",
    "DINT",
    "LINT",
    "USINT",
    "UINT",
    "UDINT",
    "ULINT",
    "INT24",
    "INT40",
    "INT48",
    "INT56",
    "UINT24",
    "UINT40",
    "UINT48",
    "UINT56",
    "REAL",
    "LREAL",
    "TIME",
    "LTIME",
    "DATE",
    "TOD",
    "DT",
    "GUID",
    "DOMAIN",
    "STRING",
    "WSTRING",
    "OCTET_STRING",
    "UNICODE_STRING",
    "VISIBLE_STRING",
    "TIME_OF_DAY",
    "TIME_DIFFERENCE",
    "DATE_AND_TIME",
    "PDO_MAPPING",
    "PDO_PARAMETER",
    "SDO_PARAMETER",
    "IDENTITY",
    "COMMAND_PAR",
};

/// Names that end with a number.
constexpr std::array<std::string_view, 2> numberedNames{"BITARR", "BIT"};

/// Names that end with a length in brackets.
constexpr std::array<std::string_view, 5> sizedNames{"STRING", "WSTRING", "OCTET_STRING", "UNICODE_STRING",
                                                     "VISIBLE_STRING"};

bool isDigits(std::string_view text)
{
    return !text.empty()
           && std::all_of(text.begin(), text.end(), [](char digit) { return digit >= '0' && digit <= '9'; });
}

bool isInBrackets(std::string_view text)
{
    if (text.size() < 3)
        return false;
    const bool isRound = text.front() == '(' && text.back() == ')';
    const bool isSquare = text.front() == '[' && text.back() == ']';
    return (isRound || isSquare) && isDigits(text.substr(1, text.size() - 2));
}

bool beginsWith(std::string_view text, std::string_view start)
{
    return text.substr(0, start.size()) == start;
}

} // namespace

bool isBaseTypeName(std::string_view name)
{
    const auto hasTail = [name](const auto& starts, bool (*isTail)(std::string_view)) {
        return std::any_of(starts.begin(), starts.end(), [&](std::string_view start) {
            return beginsWith(name, start) && isTail(name.substr(start.size()));
        });
    };
    return std::find(exactNames.begin(), exactNames.end(), name) != exactNames.end() || hasTail(numberedNames, isDigits)
           || hasTail(sizedNames, isInBrackets);
}

std::string_view elementTypeName(std::string_view name)
{
    constexpr std::string_view array = "ARRAY";
    constexpr std::string_view of = "OF ";
    while (beginsWith(name, array)) {
        const std::size_t bounds = name.find(']');
        const std::size_t word = bounds == std::string_view::npos ? bounds : name.find(of, bounds);
        if (word == std::string_view::npos)
            break;
        name.remove_prefix(word + of.size());
    }
    return name;
}

} // namespace check
