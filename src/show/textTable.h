// textTable.h - a table of texts, set so that it fits a line.
#pragma once

#include <cstddef>
#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

namespace show {

using TextRow = std::vector<std::string>;

/// What a column has to be, throughout, to be left out of a table.
enum class LeftOut
{
    Empty,
    EmptyOrNo, ///< "no" and "-" are as good as nothing; not for names, which can be these too
};

/// The columns of a table: first every row is measured, then the column widths are set, then the rows are written.
class TextTable
{
public:
    explicit TextTable(TextRow labels, LeftOut leftOut = LeftOut::Empty);

    /// Measures a row.
    /// @return  false if it does not have a cell for each column
    [[nodiscard]] bool measure(const TextRow& row);

    /// Sets the widths for lines of at most that many columns of the terminal. A table that is too wide gets narrow
    /// columns, in which cells break into lines. Columns with nothing in them are left out.
    /// @return  false if the table cannot be made to fit
    [[nodiscard]] bool fit(std::size_t lineWidth);

    /// Writes nothing if no column is left.
    void writeLabels(std::ostream& out, std::size_t indentation) const;
    void writeRow(std::ostream& out, const TextRow& row, std::size_t indentation) const;

private:
    struct Column
    {
        std::string label;
        std::size_t cells = 0; ///< columns of its widest cell, or of the widest word of its label
        std::size_t minWidth = 0; ///< with less, words of it would be broken
        bool isLeftOut = true;
        std::size_t width = 0; ///< as it was set
    };

    /// Sets the columns if they fit with cells of at most that many columns, but never less than their words need.
    [[nodiscard]] bool fitCells(std::size_t lineWidth, std::size_t gap, std::size_t limit);
    [[nodiscard]] bool fitWhole(std::size_t lineWidth);
    [[nodiscard]] std::size_t totalWidth(std::size_t gap) const;

    std::vector<Column> m_columns;
    LeftOut m_leftOut;
    std::size_t m_gap = 0; ///< between columns
};

} // namespace show
