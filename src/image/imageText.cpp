// imageText.cpp - process images as text for people.
#include "image/imageWords.h"
#include "image/imageWriters.h"
#include "show/cutText.h"
#include "show/showWords.h"
#include "show/textColumns.h"
#include "show/textTable.h"

#include <algorithm>
#include <ostream>

namespace image {

namespace {

constexpr std::size_t step = 2; // blanks by which what belongs to a heading is indented

/// Without PDO: that is in a heading of its own.
show::TextRow cellsOf(const Row& row)
{
    const bool isEntry = row.kind == RowKind::Entry;
    return {show::placeText(row.bit),
            std::to_string(row.bits),
            isEntry ? show::objectText(row.index, row.subIndex) : std::string(kindName(row.kind)),
            show::cutName(row.name),
            show::cutName(row.type),
            isEntry ? show::linkWords(row.link) : std::string()};
}

/// A row on a terminal that is too narrow for a table.
std::string joined(const show::TextRow& cells)
{
    std::string all;
    for (const std::string& cell : cells)
        if (!cell.empty())
            all += (all.empty() ? "" : "  ") + cell;
    return all;
}

class TextWriter final : public Writer
{
public:
    TextWriter(std::ostream& out, std::size_t lineWidth)
        : m_out(out)
        , m_lineWidth(lineWidth)
    {}

    void write(const Device& device) override
    {
        constexpr std::size_t maxFileName = 1000;
        if (!m_isFirst)
            m_out << '\n';
        m_isFirst = false;
        line(0, show::cutText(file().name, maxFileName) + ": " + labelOf(device));
        for (const std::string& note : device.notes)
            line(1, note);
        if (device.areas.empty())
            line(1, "No process data.");
        for (const Area& area : device.areas)
            write(area);
    }

private:
    void write(const Area& area)
    {
        constexpr std::size_t depth = 3;
        line(1, labelOf(area));
        if (area.pdos.empty())
            return;
        show::TextTable table({"byte.bit", "bits", "object", "name", "type", "link"});
        forEachRow(area, [&](const Row& row) { static_cast<void>(table.measure(cellsOf(row))); });
        const std::size_t indentation = depth * step;
        const bool fits = table.fit(m_lineWidth == show::anyWidth ? m_lineWidth : remaining(indentation));
        const auto writeRow = [&](const Row& row) {
            if (fits)
                table.writeRow(m_out, cellsOf(row), indentation);
            else
                line(depth, joined(cellsOf(row)));
        };
        if (fits)
            table.writeLabels(m_out, indentation);
        for (const Pdo& pdo : area.pdos) {
            line(2, labelOf(pdo) + (pdo.rows.empty() ? ": no entries" : ""));
            std::for_each(pdo.rows.begin(), pdo.rows.end(), writeRow);
        }
        if (area.padding.has_value())
            writeRow(*area.padding);
    }

    template<typename Visit> static void forEachRow(const Area& area, Visit visit)
    {
        for (const Pdo& pdo : area.pdos)
            std::for_each(pdo.rows.begin(), pdo.rows.end(), visit);
        if (area.padding.has_value())
            visit(*area.padding);
    }

    /// A line of words, broken where it is too long.
    void line(std::size_t depth, const std::string& text)
    {
        std::string indentation(depth * step, ' ');
        for (const std::string& part : show::brokenInto(text, remaining((depth + 1) * step))) {
            m_out << indentation << part << '\n';
            indentation.assign((depth + 1) * step, ' ');
        }
    }

    [[nodiscard]] std::size_t remaining(std::size_t indentation) const
    {
        return m_lineWidth > indentation ? m_lineWidth - indentation : 1;
    }

    std::ostream& m_out;
    std::size_t m_lineWidth;
    bool m_isFirst = true;
};

} // namespace

std::unique_ptr<Writer> makeTextWriter(std::ostream& out, std::size_t lineWidth)
{
    return std::make_unique<TextWriter>(out, lineWidth);
}

} // namespace image
