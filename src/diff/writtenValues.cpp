#include "diff/writtenValues.h"

#include "model/valueTexts.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace diff {

namespace {

using facts::ValueForm;
using facts::WrittenValue;

constexpr std::string_view digits = "0123456789";
constexpr std::string_view hexDigits = "0123456789abcdef";

std::string lowerCased(std::string_view letters)
{
    std::string lower(letters);
    std::transform(lower.begin(), lower.end(), lower.begin(), [](char letter) {
        return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
    });
    return lower;
}

std::string bytesIn(std::string_view data)
{
    std::string bytes = lowerCased(data);
    const auto isWhite = [](char letter) { return letter == ' ' || (letter >= '\t' && letter <= '\r'); };
    bytes.erase(std::remove_if(bytes.begin(), bytes.end(), isWhite), bytes.end());
    return bytes;
}

bool isMadeOf(std::string_view letters, std::string_view allowed)
{
    return !letters.empty() && letters.find_first_not_of(allowed) == std::string_view::npos;
}

/// Whether a text is a number or truth value. Of others some would convert too: "1E3" as a hexadecimal number.
bool isNumber(const std::string& lower)
{
    const std::string_view start = std::string_view(lower).substr(0, 2);
    if (start == "#x" || start == "0x")
        return isMadeOf(std::string_view(lower).substr(2), hexDigits);
    const bool hasSign = !lower.empty() && (lower.front() == '-' || lower.front() == '+');
    return isMadeOf(std::string_view(lower).substr(hasSign ? 1 : 0), digits) || lower == "true" || lower == "false";
}

std::optional<std::int64_t> numberIn(std::string_view written)
{
    const std::string lower = lowerCased(text(written).text);
    if (!isNumber(lower))
        return std::nullopt;
    if (const std::optional<std::uint32_t> number = convertedUint(lower))
        return *number;
    return convertedInt(lower);
}

/// Whether bytes, the least significant first, are those of a number.
bool areBytesOf(std::string_view data, std::string_view written)
{
    constexpr std::size_t maxBytes = 8;
    constexpr unsigned bitsOfByte = 8;
    const std::string bytes = bytesIn(data);
    const std::optional<std::int64_t> number = numberIn(written);
    if (!number.has_value() || !isMadeOf(bytes, hexDigits) || bytes.size() % 2 != 0 || bytes.size() > 2 * maxBytes)
        return false;
    std::uint64_t pattern = 0;
    for (std::size_t end = bytes.size(); end > 0; --end) {
        // pairs from the end, the digits of each from its start
        const std::size_t digit = end % 2 == 0 ? end - 2 : end;
        pattern = pattern * hexDigits.size() + hexDigits.find(bytes[digit]);
    }
    const auto bits = static_cast<unsigned>(bytes.size() / 2) * bitsOfByte;
    const std::uint64_t mask = ~std::uint64_t{0} >> (maxBytes * bitsOfByte - bits);
    const auto whole = static_cast<std::uint64_t>(*number);
    const bool hasRoom = *number < 0 ? (~whole & ~(mask >> 1U)) == 0 : (whole & ~mask) == 0;
    return hasRoom && (whole & mask) == pattern;
}

} // namespace

Value valueOf(const WrittenValue& written)
{
    switch (written.form) {
    case ValueForm::None:
        return noValue();
    case ValueForm::Data:
        if (std::string bytes = bytesIn(written.text); isMadeOf(bytes, hexDigits))
            return words(std::move(bytes));
        break;
    case ValueForm::Number:
        if (const std::optional<std::int64_t> number = numberIn(written.text))
            return decimal(*number);
        break;
    case ValueForm::Text:
        break;
    }
    return text(written.text);
}

bool areSame(const WrittenValue& before, const WrittenValue& after)
{
    if (before.form == after.form && before.text == after.text)
        return true;
    if (before.form == ValueForm::Data && after.form == ValueForm::Number)
        return areBytesOf(before.text, after.text);
    if (before.form == ValueForm::Number && after.form == ValueForm::Data)
        return areBytesOf(after.text, before.text);
    return valueOf(before) == valueOf(after);
}

} // namespace diff
