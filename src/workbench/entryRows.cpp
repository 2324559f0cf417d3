#include "workbench/entryRows.h"

#include "model/pdoAccess.h"
#include "workbench/rowTexts.h"
#include "workbench/tableViews.h"

template<typename Pdo> static void appendRowsOf(QStandardItemModel& model, const Pdo& pdo)
{
    const auto& entries = entriesOf(pdo);
    if (entries.empty())
        return;
    appendRows(model, entries, [](const auto& entry) { return entryRow(entry); });
    appendRow(model, closingRow(entries.back()));
}

void appendEntryRows(QStandardItemModel& model, const struct_PDOList& pdo)
{
    appendRowsOf(model, pdo);
}

void appendEntryRows(QStandardItemModel& model, const modulePdo& pdo)
{
    appendRowsOf(model, pdo);
}
