#include "diff/value.h"

#include "model/valueTexts.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace diff {

Value decimal(std::int64_t number)
{
    return {std::to_string(number), true, true};
}

Value hexadecimal(std::uint32_t number)
{
    return {numberText(number), false, true};
}

Value flag(bool isSet)
{
    return {isSet ? "yes" : "no", false, true};
}

Value text(std::string_view utf8)
{
    constexpr std::string_view white = " \t\r\n";
    const std::size_t first = utf8.find_first_not_of(white);
    if (first == std::string_view::npos)
        return {};
    return {std::string(utf8.substr(first, utf8.find_last_not_of(white) + 1 - first)), false, true};
}

bool saysNothing(const Value& value)
{
    constexpr std::array<std::string_view, 4> nothing{"", "0", "0x00", "no"};
    return !value.isThere || std::find(nothing.begin(), nothing.end(), value.text) != nothing.end();
}

} // namespace diff
