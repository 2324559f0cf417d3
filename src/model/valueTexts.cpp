#include "model/valueTexts.h"

#include "text/exactName.h"

#include <QLatin1String>

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>
#include <iterator>
#include <optional>

namespace {

constexpr int decimal = 10;
constexpr int hexadecimal = 16;

struct TokenText
{
    NMTOKEN token;
    QLatin1String read; // upper case, as the texts of an ESI file are compared; empty: no text reads as this token
    QLatin1String shown;
};

// ODD, KEPT: the two directions are not symmetric. Texts are read in any case, while a transition is shown in upper
// case and an access right or category in lower case; and IP_PS is shown but never read. One would expect each shown
// text to be read as its token. Pinned by tst_ValueTexts::token and tst_ValueTexts::tokenText.
const std::array tokenTexts{
    TokenText{IP, QLatin1String("IP"), QLatin1String("IP")},
    TokenText{IP_PS, QLatin1String(), QLatin1String("IP_PS")},
    TokenText{PS, QLatin1String("PS"), QLatin1String("PS")},
    TokenText{PI, QLatin1String("PI"), QLatin1String("PI")},
    TokenText{SP, QLatin1String("SP"), QLatin1String("SP")},
    TokenText{SO, QLatin1String("SO"), QLatin1String("SO")},
    TokenText{SI, QLatin1String("SI"), QLatin1String("SI")},
    TokenText{OS, QLatin1String("OS"), QLatin1String("OS")},
    TokenText{OP, QLatin1String("OP"), QLatin1String("OP")},
    TokenText{OI, QLatin1String("OI"), QLatin1String("OI")},
    TokenText{IB, QLatin1String("IB"), QLatin1String("IB")},
    TokenText{BI, QLatin1String("BI"), QLatin1String("BI")},
    TokenText{m, QLatin1String("M"), QLatin1String("m")},
    TokenText{o, QLatin1String("O"), QLatin1String("o")},
    TokenText{c, QLatin1String("C"), QLatin1String("c")},
    TokenText{ro, QLatin1String("RO"), QLatin1String("ro")},
    TokenText{rw, QLatin1String("RW"), QLatin1String("rw")},
    TokenText{wo, QLatin1String("WO"), QLatin1String("wo")},
    TokenText{t, QLatin1String("T"), QLatin1String("t")},
    TokenText{r, QLatin1String("R"), QLatin1String("r")},
    TokenText{tr, QLatin1String("TR"), QLatin1String("tr")},
    TokenText{NONE, QLatin1String("NONE"), QLatin1String("NONE")},
    TokenText{EQ, QLatin1String("EQ"), QLatin1String("EQ")},
};

/// The text in upper case, as far as its first zero character: the conversions take zero-terminated texts.
QString upperCased(QStringView text)
{
    const auto end = std::find(text.begin(), text.end(), QChar(QChar::Null));
    return text.left(std::distance(text.begin(), end)).toString().toUpper();
}

void removeFirst(QString& text, QLatin1String mark)
{
    if (const auto position = text.indexOf(mark); position >= 0)
        text.remove(position, mark.size());
}

// ODD, KEPT: the marks are searched for anywhere in the text, and each of the digits A to F counts as a mark by itself,
// where one would expect a mark in front. So "#x1A", "0x1a", "DT1A" and a bare "1A" are the same number, and "1E" is
// 30. Pinned by tst_ValueTextNumbers::bothKinds.
bool isHexadecimal(const QString& upper)
{
    static const std::array marks{QLatin1String("#X"), QLatin1String("0X"), QLatin1String("DT")};
    const auto isHexLetter = [](QChar letter) { return letter >= QLatin1Char('A') && letter <= QLatin1Char('F'); };
    return std::any_of(upper.cbegin(), upper.cend(), isHexLetter)
           || std::any_of(marks.cbegin(), marks.cend(), [&](QLatin1String mark) { return upper.contains(mark); });
}

/// The rule of `toUint` and `toInt`, which differ in the last read only. Nothing for a text that does not convert.
template<typename Number> std::optional<Number> toNumber(QStringView text, Number (QString::*read)(bool*, int) const)
{
    QString upper = upperCased(text);
    // ODD, KEPT: part of a word counts, so "untrue" is 1, where one would expect the whole word to be compared. Pinned
    // by tst_ValueTextNumbers::bothKinds.
    if (upper.contains(QLatin1String("TRUE")))
        return 1;
    if (upper.contains(QLatin1String("FALSE")))
        return 0;
    int base = decimal;
    if (isHexadecimal(upper)) {
        base = hexadecimal;
        removeFirst(upper, QLatin1String("#X"));
        removeFirst(upper, QLatin1String("0X"));
        removeFirst(upper, QLatin1String("DT"));
    }
    bool converted = false;
    const Number number = (upper.*read)(&converted, base);
    return converted ? std::optional(number) : std::nullopt;
}

/// Value of a hexadecimal digit, which is that of a decimal one too; 16 for any other character.
constexpr std::uint32_t digitValue(char digit)
{
    if (digit >= '0' && digit <= '9')
        return static_cast<std::uint32_t>(digit - '0');
    if (digit >= 'A' && digit <= 'F')
        return static_cast<std::uint32_t>(digit - 'A' + decimal);
    if (digit >= 'a' && digit <= 'f')
        return static_cast<std::uint32_t>(digit - 'a' + decimal);
    return hexadecimal;
}

/// Number of a text that is nothing but digits, and not too many for 32 bits; else nothing.
std::optional<std::uint32_t> plainNumber(std::string_view digits, std::uint32_t base, std::size_t maxDigits)
{
    if (digits.empty() || digits.size() > maxDigits)
        return std::nullopt;
    std::uint32_t number = 0;
    for (const char digit : digits) {
        const std::uint32_t value = digitValue(digit);
        if (value >= base)
            return std::nullopt;
        number = number * base + value;
    }
    return number;
}

/// Number of a text in one of the forms that nearly all have: decimal digits, or hexadecimal ones after "#x" or "0x".
/// Neither form leaves room for another mark or word, so this is what the full rule gives, without its searches.
std::optional<std::uint32_t> usualNumber(std::string_view text)
{
    if (text.size() > 2 && (text[0] == '#' || text[0] == '0') && (text[1] == 'x' || text[1] == 'X'))
        return plainNumber(text.substr(2), hexadecimal, 8);
    return plainNumber(text, decimal, 9);
}

/// Number of up to four byte pairs without a mark; else nothing. Again what the full rule gives.
std::optional<std::uint32_t> usualBytes(std::string_view text)
{
    if (!plainNumber(text, hexadecimal, 8))
        return std::nullopt;
    std::uint32_t number = 0;
    for (std::size_t end = text.size(); end >= 2; end -= 2)
        number = (number << 8U) + digitValue(text[end - 2]) * hexadecimal + digitValue(text[end - 1]);
    return number;
}

/// Token of a text without letters of other scripts, which upper case could turn into plain ones.
std::optional<NMTOKEN> usualToken(std::string_view text)
{
    constexpr std::size_t maxLength = 4;
    if (text.size() > maxLength)
        return std::nullopt;
    std::array<char, maxLength> upper{};
    for (std::size_t index = 0; index < text.size(); ++index) {
        const char letter = text[index];
        const bool isLower = letter >= 'a' && letter <= 'z';
        if (!isLower && !(letter >= 'A' && letter <= 'Z'))
            return std::nullopt;
        upper[index] = isLower ? static_cast<char>(letter - 'a' + 'A') : letter;
    }
    for (const TokenText& row : tokenTexts)
        if (row.read.size() > 0
            && std::string_view(row.read.data(), static_cast<std::size_t>(row.read.size()))
                   == std::string_view(upper.data(), text.size()))
            return row.token;
    return UnknownType;
}

QString fromUtf8(std::string_view text)
{
    return QString::fromUtf8(text.data(), static_cast<int>(text.size()));
}

} // namespace

bool toBool(QStringView text)
{
    const QString upper = upperCased(text);
    if (upper == QLatin1String("TRUE"))
        return true;
    bool converted = false;
    const int number = upper.toInt(&converted, decimal);
    return converted && number > 0;
}

NMTOKEN toToken(QStringView text)
{
    const QString upper = upperCased(text);
    const auto row = std::find_if(tokenTexts.cbegin(), tokenTexts.cend(), [&](const TokenText& candidate) {
        return candidate.read.size() > 0 && isNamed(upper, candidate.read);
    });
    return row == tokenTexts.cend() ? UnknownType : row->token;
}

std::uint32_t toUint(QStringView text)
{
    return toNumber<std::uint32_t>(text, &QString::toUInt).value_or(0);
}

std::int32_t toInt(QStringView text)
{
    return toNumber<std::int32_t>(text, &QString::toInt).value_or(0);
}

std::uint32_t toUintFromBytes(QStringView text)
{
    QString digits = upperCased(text);
    // ODD, KEPT: with the mark the number is taken as it is, without it the bytes are swapped: "#x0A0B" is 0xA0B and
    // "0A0B" is 0xB0A. One would expect one number. Pinned by tst_ValueTextNumbers::bytePairs.
    if (digits.contains(QLatin1String("#X"))) {
        removeFirst(digits, QLatin1String("#X"));
    } else {
        // Whole pairs are taken from the end, so an odd first digit is dropped: "ABC" is 0xBC.
        QString swapped;
        swapped.reserve(digits.size());
        for (auto position = digits.size() - 2; position >= 0; position -= 2)
            swapped += QStringView(digits).mid(position, 2);
        digits = swapped;
    }
    bool converted = false;
    const std::uint32_t number = digits.toUInt(&converted, hexadecimal);
    return converted ? number : 0;
}

bool toBool(std::string_view text)
{
    return toBool(fromUtf8(text));
}

NMTOKEN toToken(std::string_view text)
{
    if (const std::optional<NMTOKEN> token = usualToken(text))
        return *token;
    return toToken(fromUtf8(text));
}

std::optional<std::uint32_t> convertedUint(std::string_view text)
{
    if (const std::optional<std::uint32_t> number = usualNumber(text))
        return number;
    return toNumber<std::uint32_t>(fromUtf8(text), &QString::toUInt);
}

std::optional<std::int32_t> convertedInt(std::string_view text)
{
    return toNumber<std::int32_t>(fromUtf8(text), &QString::toInt);
}

std::uint32_t toUint(std::string_view text)
{
    return convertedUint(text).value_or(0);
}

std::int32_t toInt(std::string_view text)
{
    return convertedInt(text).value_or(0);
}

std::uint32_t toUintFromBytes(std::string_view text)
{
    if (const std::optional<std::uint32_t> number = usualBytes(text))
        return *number;
    return toUintFromBytes(fromUtf8(text));
}

QString tokenText(NMTOKEN token)
{
    const auto row = std::find_if(tokenTexts.cbegin(), tokenTexts.cend(),
                                  [token](const TokenText& candidate) { return candidate.token == token; });
    return row == tokenTexts.cend() ? QString() : QString(row->shown);
}

std::string numberText(std::uint32_t number)
{
    constexpr std::size_t maxDigits = 8;
    if (number == 0)
        return "0x00";
    std::array<char, maxDigits> digits{};
    char* const end = std::to_chars(digits.data(), digits.data() + digits.size(), number, hexadecimal).ptr;
    return std::string("0x").append(digits.data(), end);
}

QString hexNumber(std::uint32_t number)
{
    return QString::fromStdString(numberText(number));
}
