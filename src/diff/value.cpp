#include "diff/value.h"

#include "model/valueTexts.h"
#include "text/shownText.h"

#include <QString>

#include <algorithm>
#include <array>
#include <cstddef>

namespace diff {

Value decimal(std::int64_t number)
{
    return {std::to_string(number), ValueKind::Number};
}

Value hexadecimal(std::uint32_t number)
{
    return words(numberText(number));
}

Value flag(bool isSet)
{
    return words(isSet ? "yes" : "no");
}

Value text(std::string_view utf8)
{
    constexpr std::string_view white = " \t\r\n";
    const std::size_t first = utf8.find_first_not_of(white);
    if (first == std::string_view::npos)
        return {{}, ValueKind::Text};
    return {std::string(utf8.substr(first, utf8.find_last_not_of(white) + 1 - first)), ValueKind::Text};
}

std::string shown(const Value& value)
{
    constexpr std::size_t enough = 400; // bytes: 80 characters are shown
    if (!value.isThere())
        return "none";
    if (value.kind != ValueKind::Text)
        return value.text;
    return shownText(QString::fromStdString(value.text.substr(0, enough))).toStdString();
}

bool saysNothing(const Value& value)
{
    constexpr std::array<std::string_view, 4> nothing{"", "0", "0x00", "no"};
    return !value.isThere() || std::find(nothing.begin(), nothing.end(), value.text) != nothing.end();
}

} // namespace diff
