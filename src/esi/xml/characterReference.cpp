#include "esi/xml/characterReference.h"

#include <array>
#include <charconv>
#include <cstdint>
#include <system_error>
#include <utility>

namespace xml {

namespace {

constexpr std::array<std::pair<std::string_view, char16_t>, 5> predefined{
    {{"amp", u'&'}, {"lt", u'<'}, {"gt", u'>'}, {"quot", u'"'}, {"apos", u'\''}}};

/// @param digits  at least one digit and nothing else
std::optional<std::uint32_t> numberOf(std::string_view digits, int base)
{
    std::uint32_t number = 0;
    const char* const end = digits.data() + digits.size();
    const std::from_chars_result result = std::from_chars(digits.data(), end, number, base);
    return result.ec == std::errc() && result.ptr == end ? std::make_optional(number) : std::nullopt;
}

bool isPlain(std::uint32_t code)
{
    constexpr std::uint32_t lastPlain = 0xFFFD;
    const bool isSurrogate = code >= 0xD800 && code <= 0xDFFF;
    const bool isBlank = code == '\t' || code == '\n' || code == '\r';
    return (code >= 0x20 || isBlank) && !isSurrogate && code <= lastPlain;
}

} // namespace

std::optional<char16_t> referencedCharacter(std::string_view name)
{
    constexpr int decimal = 10;
    constexpr int hexadecimal = 16;
    for (const auto& [known, character] : predefined)
        if (name == known)
            return character;
    if (name.substr(0, 1) != "#")
        return std::nullopt;
    const bool isHexadecimal = name.substr(0, 2) == "#x";
    const std::optional<std::uint32_t> code =
        isHexadecimal ? numberOf(name.substr(2), hexadecimal) : numberOf(name.substr(1), decimal);
    return code.has_value() && isPlain(*code) ? std::make_optional(static_cast<char16_t>(*code)) : std::nullopt;
}

} // namespace xml
