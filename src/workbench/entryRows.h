// entryRows.h - the rows of a PDO's entries in their table.
#pragma once

#include "model/deviceRecords.h"

class QStandardItemModel;

/// Appends a row per entry and, if there is any, the closing row after the last one.
void appendEntryRows(QStandardItemModel& model, const struct_PDOList& pdo);
void appendEntryRows(QStandardItemModel& model, const modulePdo& pdo); ///< as for a PDO of the device
