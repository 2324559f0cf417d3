// svgWriter.cpp - process images as one picture, sync manager below sync manager.
#include "image/imageWords.h"
#include "image/imageWriters.h"
#include "image/svgMarkup.h"
#include "image/svgParts.h"
#include "show/cutText.h"
#include "show/showWords.h"
#include "show/textColumns.h"

#include <algorithm>
#include <array>
#include <ostream>
#include <string>
#include <string_view>

namespace image {

namespace {

constexpr int margin = 16;
constexpr int labelWidth = 96; // for the numbers of bytes
constexpr int bitWidth = 100;
constexpr int bitsPerByte = 8;
constexpr int lineHeight = 22;
constexpr int pageWidth = margin + labelWidth + bitsPerByte * bitWidth + margin;
constexpr int gridX = margin + labelWidth;
constexpr std::size_t maxTitle = 300; // columns
constexpr std::size_t maxHeading = 1000; // columns
constexpr std::size_t maxLegend = 64; // columns of the name of a PDO

/// Colours of PDOs, which those who see few colours tell apart too; black is legible on each.
constexpr std::array<std::string_view, 8> colours{"#77aadd", "#ee8866", "#eedd88", "#ffaabb",
                                                  "#99ddff", "#44bb99", "#bbcc33", "#aaaa00"};

constexpr std::string_view fullLine = R"(stroke="#333333")";
constexpr std::string_view dashedLine = R"(stroke="#777777" stroke-dasharray="3,2")";

std::string_view colourOf(const Area& area, const Pdo& pdo)
{
    return colours.at(static_cast<std::size_t>(&pdo - area.pdos.data()) % colours.size());
}

/// The attributes of a rectangle.
/// @param line  those of the line around it
std::string colouredBy(std::string_view colour, std::string_view line)
{
    return "fill=\"" + std::string(colour) + "\" " + std::string(line);
}

std::string attributesOf(const Area& area, const Box& box)
{
    if (box.row->kind == RowKind::Entry)
        return colouredBy(colourOf(area, *box.pdo), fullLine);
    return colouredBy(box.row->kind == RowKind::Gap ? "#ffffff" : "#e8e8e8", dashedLine);
}

/// All that is known of a row.
std::string titleOf(const Box& box)
{
    const Row& row = *box.row;
    std::string title =
        row.kind == RowKind::Entry ? show::objectText(row.index, row.subIndex) : std::string(kindName(row.kind));
    for (const std::string& text : {row.name, row.type})
        if (!text.empty())
            title += ", " + show::cutText(text, maxTitle);
    title += ", " + show::counted(row.bits, "bit") + " from " + show::placeText(row.bit);
    if (box.pdo != nullptr)
        title += ", " + labelOf(*box.pdo);
    return title;
}

constexpr double columnWidth = 7.0; // of most letters

/// Pixels that a text takes at most, whichever of the usual fonts a page is shown with.
double pixelsOf(const std::string& utf8)
{
    constexpr std::string_view wideLetters = "MWmw@%";
    constexpr double moreOfWide = 4.5;
    constexpr double moreOfCapital = 1.3;
    double pixels = static_cast<double>(show::columnsOf(utf8)) * columnWidth;
    for (const char letter : utf8)
        if (wideLetters.find(letter) != std::string_view::npos)
            pixels += moreOfWide;
        else if (letter >= 'A' && letter <= 'Z')
            pixels += moreOfCapital;
    return pixels;
}

/// As much of a text as fits a width, and an ending.
std::string fitted(const std::string& utf8, const std::string& ending, int width)
{
    auto columns = static_cast<std::size_t>(width / columnWidth);
    std::string text = show::cutText(utf8, columns) + ending;
    while (columns > 0 && pixelsOf(text) > width)
        text = show::cutText(utf8, --columns) + ending;
    return text;
}

/// What a row is called inside its box.
std::string labelOf(const Box& box, const Picture& picture, const Part& part, int width)
{
    const Row& row = *box.row;
    std::string name = row.name.empty() ? show::objectText(row.index, row.subIndex) : row.name;
    if (row.kind != RowKind::Entry)
        name = kindName(row.kind);
    const Line& line = picture.lines[part.line];
    const std::string count =
        line.firstByte == line.lastByte ? "" : ": " + show::counted(line.lastByte - line.firstByte + 1, "byte");
    return fitted(name, count, width);
}

class SvgWriter final : public Writer
{
public:
    explicit SvgWriter(std::ostream& out)
        : m_out(out)
    {}

    void begin() override
    {
        heading(12,
                "Process image. Each line is a byte, counted from the start of the sync manager; bit 0, the lowest, "
                "is on the right. Bytes of a long entry share a line.");
    }

    void write(const File& file) override
    {
        for (const Device& device : file.devices)
            write(file, device);
    }

    void end() override
    {
        const int height = m_y + margin;
        const std::string page = std::to_string(pageWidth);
        m_out << "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<svg xmlns=\"http://www.w3.org/2000/svg\" width=\""
              << page << "\" height=\"" << height << "\" viewBox=\"0 0 " << page << ' ' << height
              << "\" font-family=\"sans-serif\" font-size=\"11\" fill=\"#000000\">\n<title>Process image</title>\n"
              << rectangleElement("page", {0, 0, pageWidth, height}, "fill=\"#ffffff\"") << m_body << "</svg>\n";
    }

private:
    void write(const File& file, const Device& device)
    {
        m_y += lineHeight;
        heading(15, labelOf(device));
        heading(11, file.name);
        for (const std::string& note : device.notes)
            heading(11, note);
        if (device.areas.empty())
            heading(12, "No process data.");
        for (const Area& area : device.areas)
            write(area, "device" + std::to_string(device.number) + '-' + std::string(show::dataDirection(area.isInput))
                            + std::to_string(area.number));
    }

    void write(const Area& area, const std::string& id)
    {
        m_y += lineHeight / 2;
        heading(13, labelOf(area));
        if (area.bits == 0)
            return;
        writeBitNumbers();
        const Picture picture = pictureOf(area);
        m_top = m_y;
        m_body += "<g id=\"" + id + "\">\n";
        for (std::size_t line = 0; line < picture.lines.size(); ++line)
            writeByteNumber(picture.lines[line], line);
        for (const Box& box : picture.boxes)
            writeBox(area, picture, box, id + "-row" + std::to_string(box.number));
        m_body += "</g>\n";
        m_y = lineTop(picture.lines.size()) + lineHeight / 2;
        for (const Pdo& pdo : area.pdos)
            writeLegend(area, pdo);
    }

    void writeBitNumbers()
    {
        constexpr int baseline = 14;
        for (int bit = 0; bit < bitsPerByte; ++bit)
            m_body += textElement({}, bitX(bit) + bitWidth / 2, m_y + baseline, "text-anchor=\"middle\"",
                                  "bit " + std::to_string(bit));
        m_y += lineHeight;
    }

    void writeByteNumber(const Line& line, std::size_t number)
    {
        std::string label = std::to_string(line.firstByte);
        if (line.lastByte != line.firstByte)
            label += " to " + std::to_string(line.lastByte);
        m_body += textElement({}, gridX - letterGap, lineTop(number) + letterBaseline, "text-anchor=\"end\"", label);
    }

    void writeBox(const Area& area, const Picture& picture, const Box& box, const std::string& id)
    {
        m_body += "<g id=\"" + id + "\"><title>" + xmlText(titleOf(box)) + "</title>\n";
        const std::string colour = attributesOf(area, box);
        for (std::size_t number = 0; number < box.parts.size(); ++number)
            m_body +=
                rectangleElement(id + "-part" + std::to_string(number + 1), rectangleOf(box.parts[number]), colour);
        const Part& widest =
            *std::max_element(box.parts.begin(), box.parts.end(), [](const Part& left, const Part& right) {
                return left.highBit - left.lowBit < right.highBit - right.lowBit;
            });
        const Rectangle place = rectangleOf(widest);
        m_body += textElement(id + "-text", place.x + letterGap, place.y + letterBaseline, {},
                              labelOf(box, picture, widest, place.width - 2 * letterGap));
        m_body += "</g>\n";
    }

    void writeLegend(const Area& area, const Pdo& pdo)
    {
        constexpr int size = 12;
        const std::string colour = colouredBy(colourOf(area, pdo), fullLine);
        m_body += rectangleElement({}, {gridX, m_y + 4, size, size}, colour);
        const std::string bits = pdo.bits == 0 ? "no bits"
                                               : show::counted(pdo.bits, "bit") + ", " + show::placeText(pdo.bit)
                                                     + " to " + show::placeText(pdo.bit + pdo.bits - 1);
        m_body += textElement({}, gridX + size + letterGap, m_y + letterBaseline, {},
                              show::cutText(image::labelOf(pdo), maxLegend) + ": " + bits);
        m_y += lineHeight;
    }

    /// Words on the page, on several lines where they are long.
    void heading(int size, const std::string& text)
    {
        constexpr double columnsOfSize = 0.66; // columns of a letter of one pixel
        const auto columns = static_cast<std::size_t>((pageWidth - 2 * margin) / (size * columnsOfSize));
        const std::string attributes = "font-size=\"" + std::to_string(size) + '"';
        for (const std::string& line : show::brokenInto(show::cutText(text, maxHeading), columns)) {
            m_y += lineHeight;
            m_body += textElement({}, margin, m_y, attributes, line);
        }
        m_y += lineHeight / 4;
    }

    [[nodiscard]] static int bitX(int bit) { return gridX + (bitsPerByte - 1 - bit) * bitWidth; }
    [[nodiscard]] int lineTop(std::size_t line) const { return m_top + static_cast<int>(line) * lineHeight; }
    [[nodiscard]] Rectangle rectangleOf(const Part& part) const
    {
        return {bitX(part.highBit), lineTop(part.line), (part.highBit - part.lowBit + 1) * bitWidth,
                static_cast<int>(part.lines) * lineHeight};
    }

    static constexpr int letterGap = 5;
    static constexpr int letterBaseline = 15;

    std::ostream& m_out;
    std::string m_body;
    int m_y = 0; ///< where the next thing begins
    int m_top = 0; ///< of the first byte of the sync manager
};

} // namespace

std::unique_ptr<Writer> makeSvgWriter(std::ostream& out)
{
    return std::make_unique<SvgWriter>(out);
}

} // namespace image
