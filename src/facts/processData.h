// processData.h - how the PDOs of a unit fill its sync managers.
#pragma once

#include "facts/unitFacts.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace facts {

/// PDOs that are counted.
enum class CountedPdos : std::uint8_t
{
    All,
    Exported, ///< without those that go out with their modules
};

/// Whether a sync manager is a mailbox.
[[nodiscard]] bool isMailbox(const SyncManagerFacts& syncManager);

/// Whether a sync manager exists in the description only.
[[nodiscard]] bool isVirtual(const SyncManagerFacts& syncManager);

/// Bits of a PDO: the sum of its entries; an entry with a negative length counts as none.
[[nodiscard]] std::int64_t bitsOf(const PdoFacts& pdo);

/// Whether a PDO is on a sync manager that its device has.
[[nodiscard]] bool isOnSyncManager(const PdoFacts& pdo, const UnitFacts& unit);

/// Whether a PDO can be on the sync manager at the place that it names: one that carries process data its way. So is
/// one that names none.
[[nodiscard]] bool fitsPlaceOfSyncManager(const PdoFacts& pdo, const std::vector<SyncManagerFacts>& syncManagers);

/// Bytes of process data for each sync manager of a device, each sum of bits rounded up. PDOs that go out with their
/// modules alone count too.
[[nodiscard]] std::vector<std::int64_t> processDataBytes(const UnitFacts& unit, CountedPdos counted = CountedPdos::All);

} // namespace facts
