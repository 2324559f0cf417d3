// pdoRecords.h - which PDOs get an item, and their entries as the item has them.
#pragma once

#include "ktl/format/ktlFormat.h"
#include "model/pdoAccess.h"

#include <cstdint>
#include <vector>

/// The flag of an entry that it cannot be changed.
[[nodiscard]] inline std::uint16_t fixedFlagOf(const struct_EntryPDOContent& entry) noexcept
{
    return entry.Attributes.Fixed ? 1 : 0;
}

/// Entries of modules have no such flag.
[[nodiscard]] inline std::uint16_t fixedFlagOf(const struct_moduleEntry& /*entry*/) noexcept
{
    return 0;
}

/// The record of an entry of a device or of a module.
template<typename Entry> [[nodiscard]] struct_KTL_EntryPDOContent entryRecordOf(const Entry& entry)
{
    struct_KTL_EntryPDOContent record{};
    record.m_bFixed = fixedFlagOf(entry);
    record.Index = indexOf(entry);
    record.SubIndex = entry.SubIndex;
    record.Bitlen = bitLengthOf(entry);
    record.LinkToData = entry.Linkto;
    return record;
}

/// Whether a PDO gets an item. Whether the user selected it does not matter: a selection shows in the PDO's `SM`.
/// @throws MissingSyncManager if it names a sync manager that the device does not declare
template<typename Pdo> [[nodiscard]] bool hasItem(const Pdo& pdo, const std::vector<struct_SM>& syncManagers)
{
    return !isOnVirtualSyncManager(pdo, syncManagers) && !entriesOf(pdo).empty();
}
