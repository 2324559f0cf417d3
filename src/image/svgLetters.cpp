#include "image/svgLetters.h"

#include "show/cutText.h"
#include "show/textColumns.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>

namespace image {

namespace {

constexpr double narrowest = 3.8;

/// Letters of one width, in pixels at the size of most texts.
struct Letters
{
    std::string_view letters;
    double width;
};

constexpr std::array<Letters, 5> widths{{
    {" iljI|'", narrowest},
    {".,:;!()[]ftr-/\\", 4.8},
    {"+=<>~#^&", 9.4},
    {"MWmw@%", 11.5},
    {"ABCDEFGHJKLNOPQRSTUVXYZ", 8.8},
}};

double widthOf(char ascii)
{
    constexpr double usual = 7.1;
    const auto* const found = std::find_if(widths.begin(), widths.end(), [ascii](const Letters& letters) {
        return letters.letters.find(ascii) != std::string_view::npos;
    });
    return found == widths.end() ? usual : found->width;
}

/// Bytes of the first character of a text.
std::size_t characterIn(std::string_view utf8)
{
    constexpr unsigned char continuationMask = 0xC0;
    constexpr unsigned char continuation = 0x80;
    std::size_t bytes = 1;
    while (bytes < utf8.size() && (static_cast<unsigned char>(utf8[bytes]) & continuationMask) == continuation)
        ++bytes;
    return bytes;
}

double widthOf(std::string_view character)
{
    constexpr double perColumn = 13.5; // dashes, fractions, Cyrillic; more than a Chinese character needs
    constexpr std::size_t mostColumns = 1;
    if (character.size() == 1)
        return widthOf(character.front());
    return perColumn * static_cast<double>(std::min(show::columnsOf(character), mostColumns));
}

double scaleOf(int size)
{
    return static_cast<double>(size) / letterSize;
}

/// The beginning of a word that fits a width, at least one character.
std::string_view startThatFits(std::string_view word, double width)
{
    std::size_t end = characterIn(word);
    double taken = widthOf(word.substr(0, end));
    while (end < word.size()) {
        const std::string_view next = word.substr(end, characterIn(word.substr(end)));
        taken += widthOf(next);
        if (taken > width)
            break;
        end += next.size();
    }
    return word.substr(0, end);
}

} // namespace

double pixelsOf(const std::string& utf8, int size)
{
    double pixels = 0;
    for (std::string_view rest = utf8; !rest.empty();) {
        const std::string_view character = rest.substr(0, characterIn(rest));
        pixels += widthOf(character);
        rest.remove_prefix(character.size());
    }
    return pixels * scaleOf(size);
}

std::string fitted(const std::string& utf8, const std::string& ending, int width)
{
    const auto cut = [&](std::size_t columns) { return show::cutText(utf8, columns) + ending; };
    auto most = static_cast<std::size_t>(width / narrowest);
    if (std::string text = cut(most); pixelsOf(text) <= width)
        return text;
    std::size_t least = 0;
    while (most - least > 1) {
        const std::size_t middle = least + (most - least) / 2;
        (pixelsOf(cut(middle)) <= width ? least : most) = middle;
    }
    return cut(least);
}

std::vector<std::string> brokenAt(const std::string& utf8, int width, int size)
{
    const double room = width / scaleOf(size);
    std::vector<std::string> lines(1);
    for (std::string_view rest = utf8; !rest.empty();) {
        std::string_view word = rest.substr(0, rest.find(' '));
        rest.remove_prefix(std::min(rest.size(), word.size() + 1));
        const std::string longer = lines.back() + (lines.back().empty() ? "" : " ") + std::string(word);
        if (pixelsOf(longer) <= room) {
            lines.back() = longer;
            continue;
        }
        if (!lines.back().empty())
            lines.emplace_back();
        for (std::string_view start = startThatFits(word, room); start.size() < word.size();
             start = startThatFits(word, room)) {
            lines.back() = std::string(start);
            lines.emplace_back();
            word.remove_prefix(start.size());
        }
        lines.back() = std::string(word);
    }
    return lines;
}

} // namespace image
