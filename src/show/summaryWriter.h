// summaryWriter.h - parts of a summary as lines that fit a terminal.
#pragma once

#include "show/summaryPart.h"

#include <cstddef>
#include <iosfwd>
#include <string>

namespace show {

class SummaryWriter
{
public:
    /// @param out        has to outlive this
    /// @param lineWidth  columns of a line
    SummaryWriter(std::ostream& out, std::size_t lineWidth);

    /// Writes a text that goes on in the next line under its first character, `indentation` further right.
    void writeLine(const std::string& text, std::size_t indentation = 0);

    /// Writes texts behind their labels, in one column, and tables under theirs.
    void writeParts(const SummaryParts& parts);

    /// Writes the rows of a table. One that cannot be made to fit has its cells one after another.
    void writeTable(const SummaryPart& part, std::size_t indentation);

private:
    void writeText(const SummaryPart& part);

    std::ostream& m_out;
    std::size_t m_lineWidth;
};

} // namespace show
