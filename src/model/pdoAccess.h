// pdoAccess.h - PDOs of a device and PDOs of a module, read alike: what the two records name differently, and the tests
// on a PDO that reader, writers and views share.
#pragma once

#include "model/missingSyncManager.h"
#include "model/moduleRecords.h"
#include "model/pdoRecords.h"
#include "model/syncRecords.h"

#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <vector>

/// Index of a PDO.
[[nodiscard]] inline std::uint16_t indexOf(const struct_PDOList& pdo) noexcept
{
    return pdo.IndexAttributes.Index;
}

[[nodiscard]] inline std::uint16_t indexOf(const modulePdo& pdo) noexcept
{
    return pdo.indexAttributes.index;
}

/// Total size of a PDO, byte.bit form.
[[nodiscard]] inline float sizeOf(const struct_PDOList& pdo) noexcept
{
    return pdo.Size;
}

[[nodiscard]] inline float sizeOf(const modulePdo& pdo) noexcept
{
    return pdo.size;
}

/// Entries of a PDO, in order. The reference is valid as long as the PDO.
[[nodiscard]] inline std::vector<struct_EntryPDOContent>& entriesOf(struct_PDOList& pdo) noexcept
{
    return pdo.Entry.vPdo_c;
}

[[nodiscard]] inline const std::vector<struct_EntryPDOContent>& entriesOf(const struct_PDOList& pdo) noexcept
{
    return pdo.Entry.vPdo_c;
}

[[nodiscard]] inline std::vector<struct_moduleEntry>& entriesOf(modulePdo& pdo) noexcept
{
    return pdo.vEntry;
}

[[nodiscard]] inline const std::vector<struct_moduleEntry>& entriesOf(const modulePdo& pdo) noexcept
{
    return pdo.vEntry;
}

/// Object index of an entry.
[[nodiscard]] inline std::uint16_t indexOf(const struct_EntryPDOContent& entry) noexcept
{
    return entry.Index;
}

[[nodiscard]] inline std::uint16_t indexOf(const struct_moduleEntry& entry) noexcept
{
    return entry.indexAttributes.index;
}

/// Length of an entry in bits, as the record holds it: a number above 2^31 in a file is negative here.
[[nodiscard]] inline int bitLengthOf(const struct_EntryPDOContent& entry) noexcept
{
    return entry.Bitlen;
}

[[nodiscard]] inline int bitLengthOf(const struct_moduleEntry& entry) noexcept
{
    return entry.BitLen;
}

/// Value that maps an entry into its PDO: object index, sub-index and bit length in 32 bits. A gap gives its length.
/// ODD, KEPT: plain additions, so a length of 256 bits or more carries into the sub-index, where one would expect it to
/// be cut to 8 bits. Pinned by tst_StartupCommands::longEntry.
template<typename Entry> [[nodiscard]] std::uint32_t mappingValueOf(const Entry& entry) noexcept
{
    constexpr unsigned indexShift = 16;
    constexpr unsigned subIndexShift = 8;
    const std::uint32_t index = indexOf(entry);
    const std::uint32_t subIndex = entry.SubIndex;
    return (index << indexShift) + (subIndex << subIndexShift) + static_cast<std::uint32_t>(bitLengthOf(entry));
}

/// The sync manager at the position that a PDO names.
/// @param position  in `syncManagers`
/// @throws MissingSyncManager if there are not so many
template<typename SyncManagers, typename Pdo>
[[nodiscard]] auto& syncManagerAt(SyncManagers& syncManagers, std::size_t position, const Pdo& pdo)
{
    try {
        return syncManagers.at(position);
    } catch (const std::out_of_range& error) {
        throw MissingSyncManager(error, indexOf(pdo), pdo.Name, pdo.Attributes.SM, syncManagers.size());
    }
}

/// Whether a PDO is on a sync manager that exists in the description only.
/// ODD, KEPT: the number that the PDO names, its low 16 bits, is a position here, while a PDO is assigned to the sync
/// manager of that number. One would expect one rule. Pinned by tst_StartupCommands::unmappedPdos.
/// @throws MissingSyncManager if there are not so many
template<typename Pdo>
[[nodiscard]] bool isOnVirtualSyncManager(const Pdo& pdo, const std::vector<struct_SM>& syncManagers)
{
    if (pdo.Attributes.SM < 0)
        return false;
    return syncManagerAt(syncManagers, static_cast<std::uint16_t>(pdo.Attributes.SM), pdo).Attributes.m_Virtual != 0;
}
