// summaryPart.h - what the summary of a device is made of, before it is set into lines.
#pragma once

#include "show/textTable.h"

#include <string>
#include <vector>

namespace show {

/// A row of a table.
struct SummaryRow
{
    std::string heading; ///< a line in front of the row; empty for none
    TextRow cells; ///< none where there is the heading alone
};

/// A text, or a table.
struct SummaryPart
{
    std::string label;
    std::string text; ///< empty for a table
    TextRow columns; ///< labels of the table; all empty for a table that needs none
    std::vector<SummaryRow> rows;
};

using SummaryParts = std::vector<SummaryPart>;

} // namespace show
