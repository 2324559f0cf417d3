// showTables.h - the tables of `ktl show --csv`.
#pragma once

#include "show/csvWriter.h"
#include "show/shownFile.h"

#include <QString>

namespace show {

/// One table: its name on the command line, and what it is made of.
struct Table
{
    const char* name;
    void (*writeHeader)(CsvWriter& out);
    void (*writeRows)(CsvWriter& out, const ShownFile& file);
};

/// The table of a name; null if there is none.
[[nodiscard]] const Table* tableNamed(const QString& name);

} // namespace show
