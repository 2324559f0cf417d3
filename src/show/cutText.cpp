#include "show/cutText.h"

#include "show/textColumns.h"
#include "text/oneLine.h"
#include "text/printableAscii.h"

#include <QString>
#include <QVector>

namespace show {

namespace {

constexpr std::string_view ellipsis = "...";

/// At most that many bytes, and no part of a character.
std::string_view bytesOf(std::string_view utf8, std::size_t bytes)
{
    constexpr unsigned char continuationMask = 0xC0;
    constexpr unsigned char continuation = 0x80;
    if (utf8.size() <= bytes)
        return utf8;
    std::size_t end = bytes;
    while (end > 0 && (static_cast<unsigned char>(utf8[end]) & continuationMask) == continuation)
        --end;
    return utf8.substr(0, end);
}

/// Whether a text is as people read it.
bool isReadable(std::string_view utf8)
{
    return isPrintableAscii(utf8) && (utf8.empty() || (utf8.front() != ' ' && utf8.back() != ' '));
}

/// As many characters as take so many columns.
std::string charactersOf(const std::string& utf8, std::size_t columns)
{
    std::string text;
    std::size_t taken = 0;
    for (const uint code : QString::fromStdString(utf8).toUcs4()) {
        const std::string character = QString::fromUcs4(&code, 1).toStdString();
        taken += columnsOf(character);
        if (taken > columns)
            break;
        text += character;
    }
    return text;
}

} // namespace

std::string cutText(std::string_view utf8, std::size_t columns)
{
    if (utf8.size() <= columns && isReadable(utf8)) // as most are
        return std::string(utf8);
    constexpr std::size_t bytesPerColumn = 16; // more than any writing needs, accents and all
    const std::string start(bytesOf(utf8, columns * bytesPerColumn));
    std::string line = QString::fromStdString(oneLine(start, DrawingHints::AreKept)).trimmed().toStdString();
    if (start.size() == utf8.size() && columnsOf(line) <= columns)
        return line;
    if (columns <= ellipsis.size())
        return charactersOf(line, columns);
    return charactersOf(line, columns - ellipsis.size()) + std::string(ellipsis);
}

std::string cutName(std::string_view utf8)
{
    constexpr std::size_t maxColumns = 120;
    return cutText(utf8, maxColumns);
}

std::string startOf(const std::string& utf8)
{
    constexpr std::size_t maxBytes = 256;
    return utf8.size() <= maxBytes ? utf8 : std::string(bytesOf(utf8, maxBytes)) + std::string(ellipsis);
}

} // namespace show
