#include "editing/pdoEdits.h"

#include "editing/pdoRows.h"
#include "model/pdoAccess.h"

#include <iterator>

/// Calls `change(entries, place)` for an entry, if there is one at these rows.
template<typename Change>
static void changeEntry(struct_EtherCatDevice& device, int pdoRow, int entryRow, Change change)
{
    visitPdoRow(device, pdoRow, [&](auto& pdo, PdoDirection /*direction*/) {
        auto& entries = entriesOf(pdo);
        if (isEntryRow(entries, entryRow))
            change(entries, std::next(entries.begin(), entryRow));
    });
}

void insertPdoEntry(struct_EtherCatDevice& device, int pdoRow, int entryRow)
{
    changeEntry(device, pdoRow, entryRow, [](auto& entries, auto place) { entries.emplace(std::next(place)); });
}

void erasePdoEntry(struct_EtherCatDevice& device, int pdoRow, int entryRow)
{
    changeEntry(device, pdoRow, entryRow, [](auto& entries, auto place) { entries.erase(place); });
}
