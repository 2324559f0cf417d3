#include "find/textWindow.h"

#include "esi/xml/xmlLimits.h"

#include <QByteArray>

#include <algorithm>

namespace find {

namespace {

constexpr std::size_t blockSize = std::size_t{256} * 1024;

/// Length of the first bytes of a character of UTF-8 at the end of a text that is cut there; 0 if none is.
std::size_t cutLength(std::string_view text)
{
    constexpr std::size_t maxCut = 3;
    for (std::size_t length = 1; length <= std::min(maxCut, text.size()); ++length) {
        const auto byte = static_cast<unsigned char>(text[text.size() - length]);
        if (byte < 0x80)
            return 0;
        if (byte >= 0xC0) {
            const std::size_t whole = byte >= 0xF0 ? 4 : (byte >= 0xE0 ? 3 : 2);
            return length < whole ? length : 0;
        }
    }
    return 0;
}

} // namespace

TextWindow::TextWindow(QIODevice& file)
    : m_file(file)
{
    fill(1);
}

void TextWindow::fill(std::size_t length)
{
    while (text().size() < length && readMore()) {}
}

std::optional<std::size_t> TextWindow::lengthUpTo(std::string_view mark)
{
    std::size_t from = 0;
    do {
        if (const std::size_t end = text().find(mark, from); end != std::string_view::npos)
            return end;
        from = text().size() - std::min(text().size(), mark.size() - 1);
    } while (readMore());
    return std::nullopt;
}

std::optional<std::size_t> TextWindow::tagLength()
{
    char quote = '\0';
    std::size_t at = 0;
    do {
        const std::string_view part = text();
        for (; at < part.size(); ++at) {
            const char character = part[at];
            if (quote != '\0')
                quote = character == quote ? '\0' : quote;
            else if (character == '"' || character == '\'')
                quote = character;
            else if (character == '>')
                return at + 1;
        }
    } while (readMore());
    return std::nullopt;
}

int TextWindow::line()
{
    countLines();
    return m_lines.line();
}

void TextWindow::countLines()
{
    m_lines.pass(std::string_view(m_text).substr(m_counted, m_place - m_counted));
    m_counted = m_place;
}

bool TextWindow::readMore()
{
    if (m_hasEnded || !m_isPlain)
        return false;
    countLines();
    m_text.erase(0, m_place);
    m_place = 0;
    m_counted = 0;
    if (m_text.size() > maxLength) {
        m_isPlain = false;
        return false;
    }
    // As much as there is: a long text would be looked through and moved too often otherwise.
    const QByteArray block = m_file.read(static_cast<qint64>(std::max(blockSize, m_text.size())));
    m_hasEnded = block.isEmpty();
    append({block.constData(), static_cast<std::size_t>(block.size())});
    return !m_hasEnded && m_isPlain;
}

void TextWindow::append(std::string_view bytes)
{
    if (!m_encoding.has_value()) {
        const std::optional<xml::PlainStart> start = xml::plainStartOf(bytes);
        m_isPlain = start.has_value();
        if (!m_isPlain)
            return;
        m_encoding = start->encoding;
        bytes.remove_prefix(start->markLength);
    }
    const std::size_t before = m_text.size();
    if (m_encoding == xml::PlainEncoding::Latin1) {
        m_text += xml::utf8OfLatin1(bytes);
    } else {
        m_text += m_rest;
        m_text += bytes;
        const std::size_t cut = m_hasEnded ? 0 : cutLength(std::string_view(m_text).substr(before));
        m_rest = m_text.substr(m_text.size() - cut);
        m_text.resize(m_text.size() - cut);
    }
    m_isPlain = xml::isPlainUtf8(std::string_view(m_text).substr(before));
}

} // namespace find
