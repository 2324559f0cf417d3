// pdoEdits.h - entries of PDOs that are added, erased and linked by hand.
#pragma once

#include "model/deviceRecords.h"

#include <cstddef>
#include <cstdint>

/// Inserts an empty entry after one of the PDO at a row. Size and places of the other entries stay as they are. A row
/// past the lists, and the closing row after the last entry, change nothing.
void insertPdoEntry(struct_EtherCatDevice& device, int pdoRow, int entryRow);

/// Erases an entry of the PDO at a row; size and places of the other entries stay as they are.
void erasePdoEntry(struct_EtherCatDevice& device, int pdoRow, int entryRow);

/// Whether a row of a PDO's table is that of an entry; the closing row after the last one is not.
template<typename Entries> [[nodiscard]] bool isEntryRow(const Entries& entries, int row)
{
    return row >= 0 && static_cast<std::size_t>(row) < entries.size();
}

/// Links the entry at a row to an input or output of the controller. A row that is no entry changes nothing.
/// @param entries  those of a PDO of a device or of a module
/// @param link     stored as it is, whatever the direction of the PDO
template<typename Entries> void linkEntry(Entries& entries, int row, std::int32_t link)
{
    if (isEntryRow(entries, row))
        entries[static_cast<std::size_t>(row)].Linkto = link;
}
