#include "image/cutText.h"

#include "show/textColumns.h"
#include "text/oneLine.h"

#include <QString>
#include <QVector>

#include <string_view>

namespace image {

namespace {

constexpr std::string_view ellipsis = "...";

/// At most that many bytes, and no part of a character.
std::string bytesOf(const std::string& utf8, std::size_t bytes)
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

/// As many characters as take so many columns.
std::string charactersOf(const std::string& utf8, std::size_t columns)
{
    std::string text;
    std::size_t taken = 0;
    for (const uint code : QString::fromStdString(utf8).toUcs4()) {
        const std::string character = QString::fromUcs4(&code, 1).toStdString();
        taken += show::columnsOf(character);
        if (taken > columns)
            break;
        text += character;
    }
    return text;
}

} // namespace

std::string cutText(const std::string& utf8, std::size_t columns)
{
    constexpr std::size_t bytesPerColumn = 16; // more than any writing needs, accents and all
    const std::string start = bytesOf(utf8, columns * bytesPerColumn);
    std::string line = QString::fromStdString(oneLine(start, DrawingHints::AreKept)).trimmed().toStdString();
    if (start.size() == utf8.size() && show::columnsOf(line) <= columns)
        return line;
    if (columns <= ellipsis.size())
        return charactersOf(line, columns);
    return charactersOf(line, columns - ellipsis.size()) + std::string(ellipsis);
}

std::string startOf(const std::string& utf8)
{
    constexpr std::size_t maxBytes = 256;
    return utf8.size() <= maxBytes ? utf8 : bytesOf(utf8, maxBytes) + std::string(ellipsis);
}

} // namespace image
