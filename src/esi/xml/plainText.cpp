#include "esi/xml/plainText.h"

#include "esi/xml/xmlDecoding.h"

#include <QByteArray>
#include <QTextCodec>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <utility>

namespace xml {

namespace {

// Numbers of encodings, as they are registered with IANA.
constexpr int utf8Number = 106;
constexpr int latin1Number = 4;

/// Whether eight bytes are ASCII without controls, by all of them at once.
bool areEightPlain(const char* bytes)
{
    constexpr std::uint64_t each = 0x0101010101010101U;
    constexpr std::uint64_t upperBits = each * 0x80U;
    std::uint64_t word = 0;
    std::memcpy(&word, bytes, sizeof word);
    // The upper bit of a difference is set for a byte below a blank, if its own upper bit is not.
    return ((word | (word - each * 0x20U)) & upperBits) == 0;
}

/// Length of the well-formed character at the beginning of a text, by the table of well-formed byte sequences of the
/// Unicode Standard; 0 if there is none.
std::size_t characterLength(std::string_view text)
{
    struct Form
    {
        unsigned char first, last; ///< of the first byte
        unsigned char secondFirst, secondLast;
        std::size_t length;
    };
    static constexpr std::array<Form, 8> forms{{{0xC2, 0xDF, 0x80, 0xBF, 2},
                                                {0xE0, 0xE0, 0xA0, 0xBF, 3},
                                                {0xE1, 0xEC, 0x80, 0xBF, 3},
                                                {0xED, 0xED, 0x80, 0x9F, 3}, // no surrogates
                                                {0xEE, 0xEF, 0x80, 0xBF, 3},
                                                {0xF0, 0xF0, 0x90, 0xBF, 4},
                                                {0xF1, 0xF3, 0x80, 0xBF, 4},
                                                {0xF4, 0xF4, 0x80, 0x8F, 4}}};
    const auto byteAt = [&](std::size_t index) { return static_cast<unsigned char>(text[index]); };
    for (const Form& form : forms) {
        if (byteAt(0) < form.first || byteAt(0) > form.last)
            continue;
        if (text.size() < form.length || byteAt(1) < form.secondFirst || byteAt(1) > form.secondLast)
            return 0;
        for (std::size_t index = 2; index < form.length; ++index)
            if ((byteAt(index) & 0xC0U) != 0x80U)
                return 0;
        return form.length;
    }
    return 0;
}

/// Whether a character of several bytes is one that a plain text may hold: no mark (U+FEFF), U+FFFE or U+FFFF.
bool isPlainCharacter(std::string_view bytes)
{
    return bytes != "\xEF\xBB\xBF" && bytes != "\xEF\xBF\xBE" && bytes != "\xEF\xBF\xBF";
}

bool isBeyondAscii(char character)
{
    return static_cast<unsigned char>(character) >= 0x80;
}

} // namespace

bool isPlainUtf8(std::string_view text)
{
    constexpr std::size_t wordSize = 8;
    std::size_t position = 0;
    while (position < text.size()) {
        if (position + wordSize <= text.size() && areEightPlain(text.data() + position)) {
            position += wordSize;
            continue;
        }
        const auto byte = static_cast<unsigned char>(text[position]);
        std::size_t length = 1;
        if (byte >= 0x80) {
            length = characterLength(text.substr(position));
            if (length == 0 || !isPlainCharacter(text.substr(position, length)))
                return false;
        } else if (byte < 0x20 && byte != '\t' && byte != '\n' && byte != '\r') {
            return false;
        }
        position += length;
    }
    return true;
}

std::string utf8OfLatin1(std::string_view file)
{
    std::string text;
    text.reserve(file.size() + static_cast<std::size_t>(std::count_if(file.begin(), file.end(), isBeyondAscii)));
    for (const char character : file) {
        const auto byte = static_cast<unsigned char>(character);
        if (isBeyondAscii(character)) {
            text.push_back(static_cast<char>(0xC0U | (byte >> 6U)));
            text.push_back(static_cast<char>(0x80U | (byte & 0x3FU)));
        } else {
            text.push_back(character);
        }
    }
    return text;
}

std::optional<PlainStart> plainStartOf(std::string_view start)
{
    const std::size_t length = std::min<std::size_t>(start.size(), XmlDecoder::maxDeclarationBytes);
    const XmlEncoding encoding = xmlEncodingOf(QByteArray(start.data(), static_cast<int>(length)));
    const auto markLength = static_cast<std::size_t>(encoding.markLength);
    if (encoding.codec->mibEnum() == latin1Number)
        return PlainStart{PlainEncoding::Latin1, markLength};
    if (encoding.codec->mibEnum() == utf8Number)
        return PlainStart{PlainEncoding::Utf8, markLength};
    return std::nullopt;
}

std::optional<std::string> plainText(std::string file)
{
    const std::optional<PlainStart> start = plainStartOf(file);
    if (!start.has_value())
        return std::nullopt;
    file.erase(0, start->markLength);
    if (start->encoding == PlainEncoding::Latin1 && std::any_of(file.begin(), file.end(), isBeyondAscii))
        file = utf8OfLatin1(file);
    return isPlainUtf8(file) ? std::make_optional(std::move(file)) : std::nullopt;
}

} // namespace xml
