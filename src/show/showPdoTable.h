// showPdoTable.h - the table of PDOs of `ktl show --csv`.
#pragma once

#include "show/csvWriter.h"
#include "show/shownFile.h"

namespace show {

void writePdoHeader(CsvWriter& out);

/// Writes a row for each entry.
void writePdoRows(CsvWriter& out, const ShownFile& file);

} // namespace show
