// svgWriter.cpp - process images as one picture, sync manager below sync manager.
#include "image/imageWords.h"
#include "image/imageWriters.h"
#include "image/svgLetters.h"
#include "image/svgMarkup.h"
#include "image/svgParts.h"
#include "show/cutText.h"
#include "show/showWords.h"

#include <algorithm>
#include <array>
#include <cstdint>
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

/// What a row is called inside its box.
std::string nameOf(const Row& row)
{
    if (row.kind != RowKind::Entry)
        return std::string(kindName(row.kind));
    return row.name.empty() ? show::objectText(row.index, row.subIndex) : row.name;
}

/// What is added to the name on a line of several bytes.
std::string countOn(const Line& line)
{
    return line.firstByte == line.lastByte ? "" : ": " + show::counted(line.lastByte - line.firstByte + 1, "byte");
}

int bitX(int bit)
{
    return gridX + (bitsPerByte - 1 - bit) * bitWidth;
}

int widthOf(const Part& part)
{
    return (part.highBit - part.lowBit + 1) * bitWidth;
}

/// The shapes that keep names in boxes of 1 to 8 bits, measured from the corner of a box.
std::string clipShapes()
{
    std::string shapes = "<defs>\n";
    for (int bits = 1; bits <= bitsPerByte; ++bits)
        shapes += "<clipPath id=\"bits" + std::to_string(bits) + "\">"
                  + rectangleElement({}, {0, 0, bits * bitWidth, lineHeight}, "fill=\"none\"") + "</clipPath>\n";
    return shapes + "</defs>\n";
}

/// Draws one thing below the other, or only finds out how much room that takes.
class Drawing
{
public:
    /// @param out  null if nothing is to be drawn
    explicit Drawing(std::ostream* out)
        : m_out(out)
    {}

    void drawIntroduction()
    {
        heading(12,
                "Process image. Each line is a byte, counted from the start of the sync manager; bit 0, the lowest, "
                "is on the right. Bytes of a long entry share a line.");
    }

    void draw(const File& file, const Device& device)
    {
        m_y += lineHeight;
        heading(15, labelOf(device));
        heading(letterSize, file.name);
        for (const std::string& note : device.notes)
            heading(letterSize, note);
        if (device.areas.empty())
            heading(12, "No process data.");
        for (const Area& area : device.areas)
            draw(area, "device" + std::to_string(device.number) + '-' + std::string(show::dataDirection(area.isInput))
                           + std::to_string(area.number));
    }

    /// Pixels from the upper edge of the page.
    [[nodiscard]] std::int64_t height() const { return m_y; }

private:
    /// @param make  makes the markup, if it is wanted
    template<typename Make> void put(Make make)
    {
        if (m_out != nullptr)
            *m_out << make();
    }

    void draw(const Area& area, const std::string& id)
    {
        m_y += lineHeight / 2;
        heading(13, labelOf(area));
        if (area.bits == 0)
            return;
        drawBitNumbers();
        const Picture picture = pictureOf(area);
        m_top = m_y;
        put([&] { return "<g id=\"" + id + "\">\n"; });
        for (std::size_t line = 0; line < picture.lines.size(); ++line)
            put([&] { return byteNumber(picture.lines[line], line); });
        for (const Box& box : picture.boxes)
            put([&] { return boxOf(area, picture, box, id + "-row" + std::to_string(box.number)); });
        put([] { return "</g>\n"; });
        m_y = lineTop(picture.lines.size()) + lineHeight / 2;
        for (const Pdo& pdo : area.pdos)
            drawLegend(area, pdo);
    }

    void drawBitNumbers()
    {
        constexpr int baseline = 14;
        for (int bit = 0; bit < bitsPerByte; ++bit)
            put([&] {
                return textElement({}, bitX(bit) + bitWidth / 2, m_y + baseline, "text-anchor=\"middle\"",
                                   "bit " + std::to_string(bit));
            });
        m_y += lineHeight;
    }

    [[nodiscard]] std::string byteNumber(const Line& line, std::size_t number) const
    {
        std::string label = std::to_string(line.firstByte);
        if (line.lastByte != line.firstByte)
            label += " to " + std::to_string(line.lastByte);
        std::string attributes = "text-anchor=\"end\"";
        if (pixelsOf(label) > gridX - 2 * letterGap)
            attributes += " font-size=\"8\"";
        return textElement({}, gridX - letterGap, lineTop(number) + letterBaseline, attributes, label);
    }

    [[nodiscard]] std::string boxOf(const Area& area, const Picture& picture, const Box& box,
                                    const std::string& id) const
    {
        std::string markup = "<g id=\"" + id + "\"><title>" + xmlText(titleOf(box)) + "</title>\n";
        const std::string colour = attributesOf(area, box);
        for (std::size_t number = 0; number < box.parts.size(); ++number)
            markup +=
                rectangleElement(id + "-part" + std::to_string(number + 1), rectangleOf(box.parts[number]), colour);
        const auto widest =
            std::max_element(box.parts.begin(), box.parts.end(),
                             [](const Part& left, const Part& right) { return widthOf(left) < widthOf(right); });
        const std::string name = show::cutText(nameOf(*box.row), maxTitle);
        for (auto part = box.parts.begin(); part != box.parts.end(); ++part) {
            const int room = widthOf(*part) - 2 * letterGap;
            const std::string text = fitted(name, countOn(picture.lines[part->line]), room);
            if (part == widest)
                markup += nameElement(id + "-text", *part, text);
            else if (text == name)
                markup +=
                    nameElement(id + "-part" + std::to_string(part - box.parts.begin() + 1) + "-text", *part, text);
        }
        return markup + "</g>\n";
    }

    [[nodiscard]] std::string nameElement(const std::string& id, const Part& part, const std::string& text) const
    {
        const Rectangle place = rectangleOf(part);
        const std::string attributes = "transform=\"translate(" + std::to_string(place.x) + ' '
                                       + std::to_string(place.y) + ")\" clip-path=\"url(#bits"
                                       + std::to_string(place.width / bitWidth) + ")\"";
        return textElement(id, letterGap, letterBaseline, attributes, text);
    }

    void drawLegend(const Area& area, const Pdo& pdo)
    {
        constexpr int size = 12;
        constexpr int left = gridX + size + letterGap;
        put([&] {
            const std::string bits = pdo.bits == 0
                                         ? ": no bits"
                                         : ": " + show::counted(pdo.bits, "bit") + ", " + show::placeText(pdo.bit)
                                               + " to " + show::placeText(pdo.bit + pdo.bits - 1);
            return rectangleElement({}, {gridX, m_y + 4, size, size}, colouredBy(colourOf(area, pdo), fullLine))
                   + textElement({}, left, m_y + letterBaseline, {},
                                 fitted(image::labelOf(pdo), bits, pageWidth - margin - left));
        });
        m_y += lineHeight;
    }

    /// Words on the page, on several lines where they are long.
    void heading(int size, const std::string& text)
    {
        const std::string attributes = "font-size=\"" + std::to_string(size) + '"';
        for (const std::string& line : brokenAt(show::cutText(text, maxHeading), pageWidth - 2 * margin, size)) {
            m_y += lineHeight;
            put([&] { return textElement({}, margin, m_y, attributes, line); });
        }
        m_y += lineHeight / 4;
    }

    [[nodiscard]] std::int64_t lineTop(std::size_t line) const
    {
        return m_top + static_cast<std::int64_t>(line) * lineHeight;
    }
    [[nodiscard]] Rectangle rectangleOf(const Part& part) const
    {
        return {bitX(part.highBit), lineTop(part.line), widthOf(part),
                static_cast<std::int64_t>(part.lines) * lineHeight};
    }

    static constexpr int letterGap = 5;
    static constexpr int letterBaseline = 15;

    std::ostream* m_out;
    std::int64_t m_y = 0; ///< where the next thing begins
    std::int64_t m_top = 0; ///< of the first byte of the sync manager
};

class SvgWriter final : public Writer
{
public:
    SvgWriter(std::ostream& out, std::int64_t height)
        : m_out(out)
        , m_drawing(&out)
        , m_height(height)
    {}

    void begin() override
    {
        Drawing measured(nullptr);
        measured.drawIntroduction();
        const std::int64_t height = measured.height() + m_height + margin;
        const std::string page = std::to_string(pageWidth);
        m_out << "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<svg xmlns=\"http://www.w3.org/2000/svg\" width=\""
              << page << "\" height=\"" << height << "\" viewBox=\"0 0 " << page << ' ' << height
              << R"(" font-family="sans-serif" font-size=")" << letterSize
              << "\" fill=\"#000000\">\n<title>Process image</title>\n"
              << clipShapes() << rectangleElement("page", {0, 0, pageWidth, height}, "fill=\"#ffffff\"");
        m_drawing.drawIntroduction();
    }

    void write(const Device& device) override { m_drawing.draw(file(), device); }
    void end() override { m_out << "</svg>\n"; }

private:
    std::ostream& m_out;
    Drawing m_drawing;
    std::int64_t m_height; ///< of all devices
};

} // namespace

std::unique_ptr<Writer> makeSvgWriter(std::ostream& out, std::int64_t height)
{
    return std::make_unique<SvgWriter>(out, height);
}

std::int64_t svgHeightOf(const File& file, const Device& device)
{
    Drawing measured(nullptr);
    measured.draw(file, device);
    return measured.height();
}

} // namespace image
