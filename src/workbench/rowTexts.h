// rowTexts.h - the cells of the tables' rows: one record, one row. A null text (`QString()`) leaves its cell without an
// item, an empty one (`""`) sets an empty item.
#pragma once

#include "editing/startupRows.h"
#include "model/deviceRecords.h"

#include <QString>
#include <QStringList>

/// A number with two decimals, as sizes and places are shown.
[[nodiscard]] QString twoDecimals(float value);

/// Text in brackets that names what a list belongs to: "(0x1c12)".
[[nodiscard]] QString bracketed(std::uint32_t index);

[[nodiscard]] QStringList fmmuRow(const Struct_Fmmu& fmmu);

/// Row of the sync manager table; its length is shown in whole bytes.
[[nodiscard]] QStringList smRow(const struct_SM& syncManager);

/// Row of the small table beside the PDO list; here the length keeps its decimals.
[[nodiscard]] QStringList syncRow(const struct_SM& syncManager);

/// Row of the PDO list for a PDO of the device itself.
[[nodiscard]] QStringList pdoRow(const struct_PDOList& pdo);

/// Row of the PDO list for a PDO that a module brought in.
[[nodiscard]] QStringList pdoRow(const modulePdo& pdo);

/// Row of the list of PDOs that the file declares for a module.
[[nodiscard]] QStringList declaredModulePdoRow(const modulePdo& pdo);

/// Row of an entry of a PDO.
[[nodiscard]] QStringList entryRow(const struct_EntryPDOContent& entry);
[[nodiscard]] QStringList entryRow(const struct_moduleEntry& entry); ///< as for an entry of the device

/// Row after the last entry of a PDO: where the next one would start, with six decimals.
[[nodiscard]] QStringList closingRow(const struct_EntryPDOContent& last);
[[nodiscard]] QStringList closingRow(const struct_moduleEntry& last); ///< as for an entry of the device

/// Row of the startup list.
/// @param list            the list that holds the command
/// @param completeAccess  whether the device takes complete accesses
[[nodiscard]] QStringList startupRow(const struct_InitCmd& command, StartupList list, bool completeAccess);
[[nodiscard]] QStringList startupRow(const struct_moduleInitCmd& command, StartupList list, bool completeAccess);
