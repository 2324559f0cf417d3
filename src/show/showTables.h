// showTables.h - the tables that `ktl show --csv` gives.
#pragma once

#include "show/showCsv.h"
#include "show/shownFile.h"

#include <QString>

/// One table: its name on the command line, and what it is made of.
struct ShowTable
{
    const char* name;
    void (*writeHeader)(CsvWriter& out);
    void (*writeRows)(CsvWriter& out, const ShownFile& file);
};

/// The table of a name; null if there is none.
[[nodiscard]] const ShowTable* showTableNamed(const QString& name);
