#include "check/schema/valueKind.h"

#include "model/valueTexts.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>
#include <string>

namespace check {

namespace {

struct NamedKind
{
    std::string_view word;
    ValueType type;
};

// Of the transitions and restrictions the readers know more than the schema, which is right too.
constexpr std::array kinds{
    NamedKind{"number", {ValueKind::Number, 0, {}}},
    NamedKind{"u8", {ValueKind::Unsigned, 8, {}}},
    NamedKind{"subIndex", {ValueKind::SubIndex, 8, {}}},
    NamedKind{"u16", {ValueKind::Unsigned, 16, {}}},
    NamedKind{"u32", {ValueKind::Unsigned, 32, {}}},
    NamedKind{"i32", {ValueKind::Signed, 32, {}}},
    NamedKind{"boolean", {ValueKind::Boolean, 0, {}}},
    NamedKind{"bytes", {ValueKind::Bytes, 0, {}}},
    NamedKind{"hex", {ValueKind::HexDigits, 0, {}}},
    NamedKind{"float", {ValueKind::Decimal, 0, {}}},
    NamedKind{"dataType", {ValueKind::EntryDataType, 0, {}}},
    NamedKind{"typeName", {ValueKind::TypeName, 0, {}}},
    NamedKind{"dictionaryFile", {ValueKind::DictionaryFile, 0, {}}},
    NamedKind{"transition", {ValueKind::Token, 0, " IP PS SO SP OP OS PI SI OI IB BI "}},
    NamedKind{"upTransition", {ValueKind::Token, 0, " IP PS SO "}},
    NamedKind{"access", {ValueKind::Token, 0, " RO RW WO "}},
    NamedKind{"restriction", {ValueKind::Token, 0, " PREOP PREOP_SAFEOP PREOP_OP SAFEOP SAFEOP_OP OP "}},
    NamedKind{"category", {ValueKind::Token, 0, " M O C "}},
    NamedKind{"pdoMapping", {ValueKind::Token, 0, " T R TR RT "}},
    NamedKind{"safetyMapping", {ValueKind::Token, 0, " SI SO SIO SP "}},
    NamedKind{"sdoAccess", {ValueKind::Token, 0, " COMPLETEACCESS SUBINDEXACCESS "}},
    NamedKind{"check", {ValueKind::Token, 0, " NONE EQ "}},
    NamedKind{"revisionCheck",
              {ValueKind::Token, 0, " NONE EQ EQ_OR_G LW_EQ LW_EQ_HW_EQ_OR_G HW_EQ HW_EQ_LW_EQ_OR_G "}},
    NamedKind{"load", {ValueKind::Token, 0, " SWITCHINGREGULATOR RESISTOR LOWDROPOUTREGULATOR "}},
    NamedKind{"port", {ValueKind::Token, 0, " MII EBUS NONE "}},
    NamedKind{"unit", {ValueKind::Token, 0, " PRIMARY SECONDARY NONE "}},
    NamedKind{"aliasSupport", {ValueKind::Token, 0, " NO_SUPPORT REGISTER_SUPPORT PROCESSDATA_SUPPORT "}},
    NamedKind{"diagClass", {ValueKind::Token, 0, " ERROR WARNING INFORMATION "}},
    NamedKind{"scale",
              {ValueKind::Token, 0,
               " +/-10 0-10 0-20 4-20 0.1\u00b0 0-10(16) 0-20(16) 4-20(16) 0.01\u00b0 0-5 0-15 0-30 0-50 +/-5 +/-2.5 "
               "+/-20 +/-100 0-5(16) 0-30(16) 0-50(16) +/-75MV "}},
    NamedKind{"swap", {ValueKind::Token, 0, " SWAP_HB_LB SWAP_HW_LW SWAP_HB_LB_HW_LW "}},
    NamedKind{"safetyPdo", {ValueKind::Token, 0, " FSOESLAVE FSOEMULTIPLESLAVE FSOEMASTER FSOEMULTIPLEMASTER "}},
    NamedKind{"treeView", {ValueKind::Token, 0, " SLOTGROUP SLOT SLOTCOMPACT PDO "}},
    NamedKind{"identifiedBy", {ValueKind::Token, 0, " MODULEIDENT IDENTITYOBJEKT "}},
};

constexpr bool isBlank(char character)
{
    return character == ' ' || character == '\t' || character == '\n' || character == '\r';
}

constexpr bool isDigit(char character)
{
    return character >= '0' && character <= '9';
}

constexpr char upperCased(char character)
{
    return character >= 'a' && character <= 'z' ? static_cast<char>(character - 'a' + 'A') : character;
}

constexpr bool isHexDigit(char character)
{
    const char upper = upperCased(character);
    return isDigit(character) || (upper >= 'A' && upper <= 'F');
}

std::string_view trimmed(std::string_view text)
{
    while (!text.empty() && isBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

/// Whether a number has the form that nearly all have, and a size that fits everywhere: up to nine decimal digits.
bool isUsualNumber(std::string_view text)
{
    constexpr std::size_t maxDigits = 9;
    return !text.empty() && text.size() <= maxDigits && std::all_of(text.begin(), text.end(), isDigit);
}

bool removeHexMark(std::string_view& text)
{
    if (text.size() < 2 || (text[0] != '#' && text[0] != '0') || upperCased(text[1]) != 'X')
        return false;
    text.remove_prefix(2);
    return true;
}

/// @param number  what the text was converted to, if it was
template<typename Number>
std::optional<ValueFaultKind> numberFault(const ValueType& type, std::string_view text, std::optional<Number> number)
{
    constexpr unsigned widest = 32;
    if (number.has_value())
        return type.bits < widest && (static_cast<std::uint32_t>(*number) >> type.bits) != 0
                   ? std::optional(ValueFaultKind::Cut)
                   : std::nullopt;
    const std::string_view digits = trimmed(text);
    if (digits.empty())
        return std::nullopt;
    const bool isTooBig = isWholeNumber(digits) && (type.kind == ValueKind::Signed || digits.front() != '-');
    return isTooBig ? ValueFaultKind::Cut : ValueFaultKind::Number;
}

/// @param isRead  whether blanks count, as they do for `toUintFromBytes`, and a mark is right
std::optional<ValueFaultKind> bytesFault(std::string_view text, bool isRead)
{
    if (trimmed(text).empty())
        return std::nullopt;
    const bool isPlainNumber = isRead && text.front() == '#' && removeHexMark(text);
    if (text.empty())
        return ValueFaultKind::Number;
    std::size_t digits = 0;
    for (const char character : text) {
        if (!isRead && isBlank(character))
            continue;
        if (!isHexDigit(character))
            return ValueFaultKind::Number;
        ++digits;
    }
    return digits % 2 == 0 || isPlainNumber ? std::nullopt : std::optional(ValueFaultKind::Cut);
}

bool equalsInAnyCase(std::string_view text, std::string_view upper)
{
    return std::equal(text.begin(), text.end(), upper.begin(), upper.end(),
                      [](char letter, char expected) { return upperCased(letter) == expected; });
}

bool isBoolean(std::string_view text)
{
    return text == "0" || text == "1" || equalsInAnyCase(text, "TRUE") || equalsInAnyCase(text, "FALSE");
}

bool isDecimal(std::string_view text)
{
    double number = 0;
    text = trimmed(text);
    if (!text.empty() && text.front() == '+')
        text.remove_prefix(1);
    const std::from_chars_result read = std::from_chars(text.data(), text.data() + text.size(), number);
    return read.ec == std::errc() && read.ptr == text.data() + text.size();
}

bool isTokenOf(std::string_view tokens, std::string_view text)
{
    constexpr std::size_t longest = 40;
    if (text.size() > longest || std::any_of(text.begin(), text.end(), isBlank))
        return false;
    std::array<char, longest + 2> word{' '};
    std::transform(text.begin(), text.end(), word.begin() + 1, upperCased);
    word[text.size() + 1] = ' ';
    return tokens.find(std::string_view(word.data(), text.size() + 2)) != std::string_view::npos;
}

} // namespace

std::optional<ValueType> valueKindNamed(std::string_view word)
{
    const auto* const found =
        std::find_if(kinds.begin(), kinds.end(), [word](const NamedKind& kind) { return kind.word == word; });
    return found == kinds.end() ? std::nullopt : std::optional(found->type);
}

bool isWholeNumber(std::string_view text)
{
    text = trimmed(text);
    const bool isHexadecimal = removeHexMark(text);
    if (!isHexadecimal && !text.empty() && (text.front() == '+' || text.front() == '-'))
        text.remove_prefix(1);
    if (isHexadecimal)
        removeHexMark(text); // "#x0x1A" is read as if it had one mark
    return !text.empty() && std::all_of(text.begin(), text.end(), isHexadecimal ? isHexDigit : isDigit);
}

std::optional<ValueFaultKind> faultOf(const ValueType& type, std::string_view text)
{
    const auto unless = [](bool isRight, ValueFaultKind fault) {
        return isRight ? std::nullopt : std::optional(fault);
    };
    switch (type.kind) {
    case ValueKind::Number:
        return unless(isUsualNumber(text) || trimmed(text).empty() || isWholeNumber(text), ValueFaultKind::Number);
    case ValueKind::Unsigned:
    case ValueKind::SubIndex:
        return numberFault(type, text, convertedUint(text));
    case ValueKind::Signed:
        return isUsualNumber(text) ? std::nullopt : numberFault(type, text, convertedInt(text));
    case ValueKind::Bytes:
    case ValueKind::HexDigits:
        return bytesFault(text, type.kind == ValueKind::Bytes);
    case ValueKind::Boolean:
        return unless(isBoolean(text) || text.empty(), ValueFaultKind::Boolean);
    case ValueKind::Decimal:
        return unless(trimmed(text).empty() || isDecimal(text), ValueFaultKind::Number);
    case ValueKind::Token:
        return unless(text.empty() || isTokenOf(type.tokens, text), ValueFaultKind::Token);
    case ValueKind::Text:
    case ValueKind::EntryDataType:
    case ValueKind::TypeName:
    case ValueKind::DictionaryFile:
        break;
    }
    return std::nullopt;
}

} // namespace check
