// slotTable.h - the table of a device's slots: their places, and the modules in them.
#pragma once

#include "model/slotRecords.h"

#include <QStringList>

#include <vector>

/// Rows of the slot table.
struct SlotTable
{
    std::vector<QStringList> rows; ///< "Slot", "Module", "ModuleIdent"; a null text is a cell without an item
    int overflows = 0; ///< slots with too many places; they have no rows
};

/// A row per place with its name, and the modules in the rows that their `Instances` name.
/// ODD, KEPT: a default module is in the row of its slot's number, and a slot of more than 99 places has no rows. One
/// would expect each module in a row of its slot. Pinned by tst_SlotTable::defaultModules and
/// tst_SlotTable::tooManyPlaces.
[[nodiscard]] SlotTable slotTableOf(const DeviceSlots& deviceSlots);
