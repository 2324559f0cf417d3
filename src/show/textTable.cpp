#include "show/textTable.h"

#include "show/textColumns.h"

#include <algorithm>
#include <ostream>
#include <utility>

namespace show {

namespace {

constexpr std::size_t longWord = 12; // a longer one breaks where room is short
constexpr std::size_t wideGap = 2; // between columns
constexpr std::size_t narrowGap = 1;

/// Whether a cell is no reason to keep its column.
bool saysNothing(const std::string& cell, LeftOut leftOut)
{
    return cell.empty() || (leftOut == LeftOut::EmptyOrNo && (cell == "-" || cell == "no"));
}

} // namespace

TextTable::TextTable(TextRow labels, LeftOut leftOut)
    : m_leftOut(leftOut)
{
    for (std::string& label : labels) {
        Column column;
        column.minWidth = maxWordColumns(label);
        column.cells = column.minWidth;
        column.label = std::move(label);
        m_columns.push_back(std::move(column));
    }
}

bool TextTable::measure(const TextRow& row)
{
    if (row.size() != m_columns.size())
        return false;
    for (std::size_t index = 0; index < row.size(); ++index) {
        Column& column = m_columns[index];
        const std::string& cell = row[index];
        column.cells = std::max(column.cells, columnsOf(cell));
        column.minWidth = std::max(column.minWidth, std::min(maxWordColumns(cell), longWord));
        column.isLeftOut = column.isLeftOut && saysNothing(cell, m_leftOut);
    }
    return true;
}

std::size_t TextTable::totalWidth(std::size_t gap) const
{
    std::size_t total = 0;
    for (const Column& column : m_columns)
        if (!column.isLeftOut)
            total += (total > 0 ? gap : 0) + column.width;
    return total;
}

/// With each label on one line.
bool TextTable::fitWhole(std::size_t lineWidth)
{
    m_gap = wideGap;
    for (Column& column : m_columns)
        column.width = std::max(column.cells, columnsOf(column.label));
    return totalWidth(m_gap) <= lineWidth;
}

bool TextTable::fitCells(std::size_t lineWidth, std::size_t gap, std::size_t limit)
{
    m_gap = gap;
    for (Column& column : m_columns)
        column.width = std::min(column.cells, std::max(column.minWidth, limit));
    return totalWidth(m_gap) <= lineWidth;
}

bool TextTable::fit(std::size_t lineWidth)
{
    if (fitWhole(lineWidth) || fitCells(lineWidth, wideGap, anyWidth) || fitCells(lineWidth, narrowGap, anyWidth))
        return true;
    for (const std::size_t gap : {wideGap, narrowGap})
        for (std::size_t limit = lineWidth; limit > 0; --limit)
            if (fitCells(lineWidth, gap, limit))
                return true;
    return false;
}

void TextTable::writeLabels(std::ostream& out, std::size_t indentation) const
{
    if (std::all_of(m_columns.begin(), m_columns.end(), [](const Column& column) { return column.isLeftOut; }))
        return;
    TextRow labels;
    for (const Column& column : m_columns)
        labels.push_back(column.label);
    writeRow(out, labels, indentation);
}

void TextTable::writeRow(std::ostream& out, const TextRow& row, std::size_t indentation) const
{
    std::vector<std::vector<std::string>> cells;
    std::size_t height = 1;
    for (std::size_t index = 0; index < row.size(); ++index) {
        cells.push_back(m_columns[index].isLeftOut ? std::vector<std::string>()
                                                   : brokenInto(row[index], m_columns[index].width));
        height = std::max(height, cells.back().size());
    }
    for (std::size_t number = 0; number < height; ++number) {
        std::string line(indentation, ' ');
        for (std::size_t index = 0; index < row.size(); ++index) {
            if (m_columns[index].isLeftOut)
                continue;
            const std::string part = number < cells[index].size() ? cells[index][number] : std::string();
            const std::size_t width = m_columns[index].width + m_gap;
            line += part + std::string(width - std::min(width, columnsOf(part)), ' ');
        }
        line.erase(line.find_last_not_of(' ') + 1);
        out << line << '\n';
    }
}

} // namespace show
