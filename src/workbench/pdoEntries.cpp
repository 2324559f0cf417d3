#include "workbench/pdoEntries.h"

#include "editing/pdoRows.h"
#include "model/pdoAccess.h"
#include "model/syncDirection.h"
#include "workbench/rowTexts.h"
#include "workbench/tableViews.h"

#include <iterator>

namespace {

template<typename Pdo> void appendRowsOf(QStandardItemModel& model, const Pdo& pdo)
{
    const auto& entries = entriesOf(pdo);
    if (entries.empty())
        return;
    appendRows(model, entries, [](const auto& entry) { return entryRow(entry); });
    appendRow(model, closingRow(entries.back()));
}

/// Calls `change(entries, place)` for an entry, if there is one at these rows.
template<typename Change> void changeEntry(struct_EtherCatDevice& device, int pdoRow, int entryRow, Change change)
{
    visitPdoRow(device, pdoRow, [&](auto& pdo, PdoDirection /*direction*/) {
        auto& entries = entriesOf(pdo);
        if (entryRow >= 0 && static_cast<std::size_t>(entryRow) < entries.size())
            change(entries, std::next(entries.begin(), entryRow));
    });
}

} // namespace

void appendEntryRows(QStandardItemModel& model, const struct_PDOList& pdo)
{
    appendRowsOf(model, pdo);
}

void appendEntryRows(QStandardItemModel& model, const modulePdo& pdo)
{
    appendRowsOf(model, pdo);
}

bool isAssignable(std::uint16_t pdoIndex, std::uint8_t smType)
{
    constexpr std::uint16_t firstOutput = 0x1400;
    constexpr std::uint16_t lastOutput = 0x17FF;
    constexpr std::uint16_t firstInput = 0x1800;
    constexpr std::uint16_t lastInput = 0x1BFF;
    if (smType == KTL_Outputs)
        return pdoIndex >= firstOutput && pdoIndex <= lastOutput;
    return smType == KTL_Inputs && pdoIndex >= firstInput && pdoIndex <= lastInput;
}

void insertPdoEntry(struct_EtherCatDevice& device, int pdoRow, int entryRow)
{
    changeEntry(device, pdoRow, entryRow, [](auto& entries, auto place) { entries.emplace(std::next(place)); });
}

void erasePdoEntry(struct_EtherCatDevice& device, int pdoRow, int entryRow)
{
    changeEntry(device, pdoRow, entryRow, [](auto& entries, auto place) { entries.erase(place); });
}
