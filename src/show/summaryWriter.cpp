#include "show/summaryWriter.h"

#include "show/textColumns.h"
#include "text/oneLine.h"

#include <algorithm>
#include <ostream>

namespace show {

namespace {

constexpr std::size_t margin = 2; ///< of the parts of a device
constexpr std::size_t labelWidth = 21; ///< of the column of labels, with what separates it from the texts

/// A text on one line, without blanks at its end.
std::string readable(const std::string& text)
{
    std::string line = oneLine(text, DrawingHints::AreKept);
    line.erase(line.find_last_not_of(' ') + 1);
    return line;
}

TextRow readable(const TextRow& row)
{
    TextRow cells;
    cells.reserve(row.size());
    for (const std::string& cell : row)
        cells.push_back(readable(cell));
    return cells;
}

bool isSaid(const std::string& text)
{
    return !text.empty();
}

std::string joined(const TextRow& row)
{
    std::string all;
    for (const std::string& cell : row)
        if (isSaid(cell))
            all += (all.empty() ? "" : "  ") + cell;
    return all;
}

} // namespace

SummaryWriter::SummaryWriter(std::ostream& out, std::size_t lineWidth)
    : m_out(out)
    , m_lineWidth(lineWidth)
{}

void SummaryWriter::writeLine(const std::string& text, std::size_t indentation)
{
    constexpr std::size_t leastRoom = 10;
    std::size_t start = indentation;
    const std::size_t room = std::max(m_lineWidth, indentation + margin + leastRoom) - indentation - margin;
    for (const std::string& line : brokenInto(readable(text), room)) {
        m_out << std::string(start, ' ') << line << '\n';
        start = indentation + margin;
    }
}

void SummaryWriter::writeText(const SummaryPart& part)
{
    constexpr std::size_t leastRoom = 10;
    std::string head = std::string(margin, ' ') + part.label;
    head.resize(std::max(labelWidth, head.size() + 1), ' ');
    const std::size_t room = std::max(m_lineWidth, head.size() + leastRoom) - head.size();
    for (const std::string& line : brokenInto(readable(part.text), room)) {
        m_out << head << line << '\n';
        head.assign(head.size(), ' ');
    }
}

void SummaryWriter::writeTable(const SummaryPart& part, std::size_t indentation)
{
    const bool hasHeadings =
        std::any_of(part.rows.begin(), part.rows.end(), [](const SummaryRow& row) { return isSaid(row.heading); });
    const std::size_t rowIndentation = indentation + (hasHeadings ? margin : 0);
    TextTable table(part.columns);
    bool fits = true;
    for (const SummaryRow& row : part.rows)
        fits = fits && (row.cells.empty() || table.measure(readable(row.cells)));
    fits = fits && table.fit(std::max(m_lineWidth, rowIndentation) - rowIndentation);
    if (fits && std::any_of(part.columns.begin(), part.columns.end(), isSaid))
        table.writeLabels(m_out, rowIndentation);
    for (const SummaryRow& row : part.rows) {
        if (isSaid(row.heading))
            writeLine(row.heading, indentation);
        if (fits && !row.cells.empty())
            table.writeRow(m_out, readable(row.cells), rowIndentation);
        else if (!row.cells.empty())
            writeLine(joined(row.cells), rowIndentation);
    }
}

void SummaryWriter::writeParts(const SummaryParts& parts)
{
    for (const SummaryPart& part : parts) {
        if (isSaid(part.text)) {
            writeText(part);
            continue;
        }
        m_out << std::string(margin, ' ') << part.label << '\n';
        writeTable(part, margin + margin);
    }
}

} // namespace show
