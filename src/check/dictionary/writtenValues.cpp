#include "check/dictionary/writtenValues.h"

#include <cmath>
#include <cstring>
#include <string_view>

namespace check {

namespace {

constexpr std::uint64_t signBit = std::uint64_t{1} << 63U;
constexpr std::uint64_t maxBits = 64;
constexpr unsigned noDigit = 16;

constexpr unsigned digitOf(char letter)
{
    if (letter >= '0' && letter <= '9')
        return static_cast<unsigned>(letter - '0');
    if (letter >= 'a' && letter <= 'f')
        return static_cast<unsigned>(letter - 'a' + 10);
    if (letter >= 'A' && letter <= 'F')
        return static_cast<unsigned>(letter - 'A' + 10);
    return noDigit;
}

/// A number of digits, and nothing else, that fits into 64 bits.
std::optional<std::uint64_t> digitsOf(std::string_view text, unsigned base)
{
    if (text.empty())
        return std::nullopt;
    std::uint64_t number = 0;
    for (const char letter : text) {
        const unsigned digit = digitOf(letter);
        if (digit >= base || number > (~std::uint64_t{0} - digit) / base)
            return std::nullopt;
        number = number * base + digit;
    }
    return number;
}

bool isData(std::string_view text)
{
    for (const char letter : text)
        if (digitOf(letter) == noDigit)
            return false;
    return text.size() % 2 == 0;
}

/// Bytes, the least significant first.
std::optional<std::uint64_t> patternOfData(std::string_view text)
{
    constexpr std::size_t maxDigits = 16;
    if (text.empty() || text.size() > maxDigits || !isData(text))
        return std::nullopt;
    std::uint64_t pattern = 0;
    for (std::size_t end = text.size(); end >= 2; end -= 2)
        pattern = pattern << 8U | digitOf(text[end - 2]) << 4U | digitOf(text[end - 1]);
    return pattern;
}

// Places in the order: signed numbers are shifted up by half of the range; of reals, which are ordered like their
// patterns as long as they are positive, negative ones are turned around.

OrderedNumber placeOfSigned(std::uint64_t number)
{
    return {number ^ signBit};
}

OrderedNumber placeOfReal(double number)
{
    std::uint64_t pattern = 0;
    const double positiveZero = number == 0 ? 0 : number;
    std::memcpy(&pattern, &positiveZero, sizeof pattern);
    return {(pattern & signBit) != 0 ? ~pattern : pattern | signBit};
}

double realAt(const OrderedNumber& number)
{
    const std::uint64_t pattern = (number.place & signBit) != 0 ? number.place & ~signBit : ~number.place;
    double real = 0;
    std::memcpy(&real, &pattern, sizeof real);
    return real;
}

std::optional<OrderedNumber> realOf(std::uint64_t pattern, std::uint64_t bits)
{
    double real = 0;
    if (bits == maxBits) {
        std::memcpy(&real, &pattern, sizeof real);
    } else {
        float small = 0;
        const auto smallPattern = static_cast<std::uint32_t>(pattern);
        std::memcpy(&small, &smallPattern, sizeof small);
        real = static_cast<double>(small);
    }
    if (std::isnan(real))
        return std::nullopt;
    return placeOfReal(real);
}

/// The number that some bits hold.
std::optional<OrderedNumber> numberOfPattern(std::uint64_t pattern, const TypeShape& shape)
{
    if (shape.bits < maxBits && (pattern >> shape.bits) != 0)
        return std::nullopt;
    if (shape.kind == DataKind::Real)
        return realOf(pattern, shape.bits);
    if (shape.kind != DataKind::Signed)
        return OrderedNumber{pattern};
    const std::uint64_t ownSign = std::uint64_t{1} << (shape.bits - 1);
    return placeOfSigned((pattern ^ ownSign) - ownSign);
}

std::optional<OrderedNumber> decimalOf(std::string_view text, const TypeShape& shape)
{
    const bool isNegative = !text.empty() && text.front() == '-';
    const bool hasSign = isNegative || (!text.empty() && text.front() == '+');
    const std::optional<std::uint64_t> digits = digitsOf(hasSign ? text.substr(1) : text, 10);
    if (!digits.has_value() || shape.kind == DataKind::Real)
        return std::nullopt;
    if (shape.kind != DataKind::Signed)
        return isNegative ? std::nullopt : numberOfPattern(*digits, shape);
    const std::uint64_t limit = std::uint64_t{1} << (shape.bits - 1);
    if (*digits > limit || (*digits == limit && !isNegative))
        return std::nullopt;
    return placeOfSigned(isNegative ? ~*digits + 1 : *digits);
}

bool isHexadecimal(std::string_view text)
{
    return text.size() > 2 && (text[0] == '#' || text[0] == '0') && (text[1] == 'x' || text[1] == 'X');
}

bool isNumeric(const TypeShape& shape)
{
    constexpr std::uint64_t bitsOfReal = 32;
    switch (shape.kind) {
    case DataKind::Bits:
    case DataKind::Unsigned:
    case DataKind::Signed:
        return shape.bits > 0 && shape.bits <= maxBits;
    case DataKind::Real:
        return shape.bits == bitsOfReal || shape.bits == maxBits;
    default:
        return false;
    }
}

} // namespace

std::optional<OrderedNumber> numberOf(const WrittenValue& value, const TypeShape& shape)
{
    if (!isNumeric(shape) || value.form == ValueForm::None || value.form == ValueForm::Text)
        return std::nullopt;
    if (value.form == ValueForm::Number && !isHexadecimal(value.text))
        return decimalOf(value.text, shape);
    const std::optional<std::uint64_t> pattern =
        value.form == ValueForm::Data ? patternOfData(value.text) : digitsOf(value.text.substr(2), 16);
    return pattern.has_value() ? numberOfPattern(*pattern, shape) : std::nullopt;
}

QString numberText(const OrderedNumber& number, DataKind kind)
{
    if (kind == DataKind::Real)
        return QString::number(realAt(number));
    if (kind == DataKind::Signed)
        return QString::number(static_cast<qint64>(number.place ^ signBit));
    return QString::number(number.place);
}

std::optional<std::size_t> bytesOf(const WrittenValue& value)
{
    if (value.form == ValueForm::Text)
        return value.text.size();
    if (value.form == ValueForm::Data && isData(value.text))
        return value.text.size() / 2;
    return std::nullopt;
}

} // namespace check
