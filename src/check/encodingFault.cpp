#include "check/encodingFault.h"

#include "esi/xml/xmlDecoding.h"
#include "text/shownText.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <string>

namespace check {

namespace {

/// First bytes that reveal the encoding of a file, whatever it declares.
struct Opening
{
    std::string_view bytes;
    std::string_view encoding; ///< what the declarations that agree with it begin with, in upper case
};

// The mark of UTF-32 begins with that of UTF-16, so it comes first.
constexpr std::array<Opening, 9> openings{{
    {std::string_view("\xEF\xBB\xBF", 3), "UTF-8"},
    {std::string_view("\xFF\xFE\x00\x00", 4), "UTF-32"},
    {std::string_view("\x00\x00\xFE\xFF", 4), "UTF-32"},
    {std::string_view("\xFF\xFE", 2), "UTF-16"},
    {std::string_view("\xFE\xFF", 2), "UTF-16"},
    {std::string_view("<\0\0\0", 4), "UTF-32"},
    {std::string_view("\0\0\0<", 4), "UTF-32"},
    {std::string_view("<\0", 2), "UTF-16"},
    {std::string_view("\0<", 2), "UTF-16"},
}};

/// What the names of encodings with one byte for each character begin with, in upper case.
constexpr std::array<std::string_view, 10> singleByteNames{
    "ISO-8859", "ISO8859", "ISO_8859", "WINDOWS-125", "CP125", "LATIN", "US-ASCII", "ASCII", "KOI8", "IBM8",
};

bool beginsWith(std::string_view text, std::string_view start)
{
    return text.substr(0, start.size()) == start;
}

bool isAscii(char byte)
{
    return static_cast<unsigned char>(byte) < 0x80U;
}

/// Position of the first byte from `start` on that is not ASCII; the size of the text if there is none.
std::size_t nextNonAscii(std::string_view text, std::size_t start)
{
    constexpr std::uint64_t highBits = 0x8080808080808080U;
    std::uint64_t word = 0;
    for (; start + sizeof word <= text.size(); start += sizeof word) {
        std::memcpy(&word, text.data() + start, sizeof word);
        if ((word & highBits) != 0)
            break;
    }
    while (start < text.size() && isAscii(text[start]))
        ++start;
    return start;
}

/// Length of the UTF-8 character at a position, which is none of ASCII; 0 if there is no valid one.
std::size_t utf8Length(std::string_view text, std::size_t position)
{
    const auto byteAt = [&](std::size_t offset) -> unsigned {
        return position + offset < text.size() ? static_cast<unsigned char>(text[position + offset]) : 0U;
    };
    const unsigned first = byteAt(0);
    const unsigned second = byteAt(1);
    struct Form
    {
        unsigned firstFrom, firstTo, secondFrom, secondTo;
        std::size_t length;
    };
    // Neither longer than needed, nor half of a surrogate pair, nor above U+10FFFF.
    static constexpr std::array<Form, 8> forms{{
        {0xC2, 0xDF, 0x80, 0xBF, 2},
        {0xE0, 0xE0, 0xA0, 0xBF, 3},
        {0xE1, 0xEC, 0x80, 0xBF, 3},
        {0xED, 0xED, 0x80, 0x9F, 3},
        {0xEE, 0xEF, 0x80, 0xBF, 3},
        {0xF0, 0xF0, 0x90, 0xBF, 4},
        {0xF1, 0xF3, 0x80, 0xBF, 4},
        {0xF4, 0xF4, 0x80, 0x8F, 4},
    }};
    const auto isContinuation = [&](std::size_t offset) { return byteAt(offset) >= 0x80U && byteAt(offset) <= 0xBFU; };
    for (const Form& form : forms)
        if (first >= form.firstFrom && first <= form.firstTo)
            return second >= form.secondFrom && second <= form.secondTo && (form.length < 3 || isContinuation(2))
                           && (form.length < 4 || isContinuation(3))
                       ? form.length
                       : 0;
    return 0;
}

/// Position of the first byte that begins no valid UTF-8 character.
/// @return  the size of the text if there is none
std::size_t firstInvalid(std::string_view text, std::size_t start)
{
    while ((start = nextNonAscii(text, start)) < text.size()) {
        const std::size_t length = utf8Length(text, start);
        if (length == 0)
            return start;
        start += length;
    }
    return start;
}

/// Line and column of a position. Bytes that continue a character are not counted.
xml::Place placeAt(std::string_view text, std::size_t position)
{
    xml::Place place{1, 1};
    for (std::size_t index = 0; index < position; ++index) {
        const char byte = text[index];
        const bool endsLine = byte == '\n' || (byte == '\r' && text[index + 1] != '\n');
        if (endsLine)
            place = {place.line + 1, 1};
        else if ((static_cast<unsigned char>(byte) & 0xC0U) != 0x80U)
            ++place.column;
    }
    return place;
}

/// The encoding that a declaration names, as it is written; empty without one.
/// @param bytes  of an encoding that agrees with ASCII, or of one in which every other byte is 0
std::string declaredEncoding(std::string_view bytes)
{
    std::string start(bytes.substr(0, static_cast<std::size_t>(XmlDecoder::maxDeclarationBytes)));
    start.erase(std::remove(start.begin(), start.end(), '\0'), start.end());
    const std::size_t begin = start.find("<?xml");
    const std::size_t end = start.find("?>");
    const std::size_t word = start.find("encoding");
    if (begin == std::string::npos || end == std::string::npos || word > end || begin > word)
        return {};
    const std::size_t open = start.find_first_of(R"('")", word);
    const std::size_t close = open < end ? start.find(start[open], open + 1) : std::string::npos;
    return close < end ? start.substr(open + 1, close - open - 1) : std::string();
}

std::string upperCased(std::string_view text)
{
    std::string upper(text);
    std::transform(upper.begin(), upper.end(), upper.begin(), [](char letter) {
        return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
    });
    return upper;
}

QString shown(std::string_view text)
{
    return shownText(QString::fromUtf8(text.data(), static_cast<int>(text.size())));
}

QString byteText(char byte)
{
    return QStringLiteral("0x%1").arg(static_cast<unsigned char>(byte), 2, 16, QLatin1Char('0'));
}

bool isReadAsUtf8(std::string_view bytes)
{
    constexpr int utf8 = 106; // its number at IANA
    const auto length = std::min(bytes.size(), static_cast<std::size_t>(XmlDecoder::maxDeclarationBytes));
    return xmlEncodingOf(QByteArray(bytes.data(), static_cast<int>(length))).codec->mibEnum() == utf8;
}

std::optional<EncodingFault> invalidUtf8(std::string_view bytes, std::size_t start, bool isDeclared)
{
    const std::size_t invalid = firstInvalid(bytes, start);
    if (invalid == bytes.size())
        return std::nullopt;
    const QString declaration = isDeclared ? QStringLiteral("as which the file is read")
                                           : QStringLiteral("as which a file without declaration is read");
    return EncodingFault{placeAt(bytes.substr(start), invalid - start),
                         QStringLiteral("byte %1 is not valid UTF-8, %2: the character is lost")
                             .arg(byteText(bytes[invalid]), declaration),
                         true};
}

/// The fault of a file without mark that declares one byte for each character.
std::optional<EncodingFault> hiddenUtf8(std::string_view bytes, std::string_view declared)
{
    const std::size_t first = nextNonAscii(bytes, 0);
    if (first == bytes.size() || firstInvalid(bytes, first) < bytes.size())
        return std::nullopt;
    const std::string_view character = bytes.substr(first, utf8Length(bytes, first));
    return EncodingFault{placeAt(bytes, first),
                         QStringLiteral("the file declares %1, but its characters are in UTF-8, here %2")
                             .arg(shown(declared), shown(character)),
                         false};
}

} // namespace

std::optional<EncodingFault> encodingFaultOf(std::string_view bytes)
{
    const std::string declared = declaredEncoding(bytes);
    const std::string upper = upperCased(declared);
    const auto* const opening = std::find_if(openings.begin(), openings.end(),
                                             [bytes](const Opening& row) { return beginsWith(bytes, row.bytes); });
    if (opening != openings.end() && !upper.empty() && !beginsWith(upper, opening->encoding)) {
        const QString encoding =
            QString::fromLatin1(opening->encoding.data(), static_cast<int>(opening->encoding.size()));
        return EncodingFault{
            {1, 1},
            QStringLiteral("the file declares %1, but its first bytes are those of %2").arg(shown(declared), encoding),
            false};
    }
    if (isReadAsUtf8(bytes))
        return invalidUtf8(bytes, opening == openings.end() ? 0 : opening->bytes.size(), !upper.empty());
    const bool isSingleByte = std::any_of(singleByteNames.begin(), singleByteNames.end(),
                                          [&](std::string_view name) { return beginsWith(upper, name); });
    return isSingleByte ? hiddenUtf8(bytes, declared) : std::nullopt;
}

} // namespace check
