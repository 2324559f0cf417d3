// pdoEntries.h - PDO entries: their table, their changes, and which PDOs a sync manager could carry.
#pragma once

#include "model/deviceRecords.h"

class QStandardItemModel;

/// Appends a row per entry and, if there is any, the closing row behind the last one.
void appendEntryRows(QStandardItemModel& model, const struct_PDOList& pdo);
void appendEntryRows(QStandardItemModel& model, const modulePdo& pdo); ///< as for a PDO of the device

/// Whether a sync manager of that type could carry a PDO, by the PDO's index alone.
/// @param smType  3 for outputs, 4 for inputs; any other type carries none
[[nodiscard]] bool isAssignable(std::uint16_t pdoIndex, std::uint8_t smType);

/// Inserts an empty entry behind one of the PDO at a row. Size and places of the other entries stay as they are. A row
/// past the lists, and the closing row behind the last entry, change nothing.
void insertPdoEntry(struct_EtherCatDevice& device, int pdoRow, int entryRow);

/// Erases an entry of the PDO at a row; size and places of the other entries stay as they are.
void erasePdoEntry(struct_EtherCatDevice& device, int pdoRow, int entryRow);
