#include "facts/processData.h"

#include "model/syncDirection.h"

#include <algorithm>

namespace facts {

bool isMailbox(const SyncManagerFacts& syncManager)
{
    return syncManager.direction == KTL_MBoxOut || syncManager.direction == KTL_MBoxIn;
}

bool isVirtual(const SyncManagerFacts& syncManager)
{
    return syncManager.attributes.m_Virtual != 0;
}

std::int64_t bitsOf(const PdoFacts& pdo)
{
    std::int64_t bits = 0;
    for (const EntryFacts& entry : pdo.entries)
        bits += std::max(entry.bits, 0);
    return bits;
}

bool isOnSyncManager(const PdoFacts& pdo, const UnitFacts& unit)
{
    return unit.hasPlacesOfSyncManagers && pdo.syncManager >= 0
           && static_cast<std::size_t>(pdo.syncManager) < unit.syncManagers.size();
}

bool fitsPlaceOfSyncManager(const PdoFacts& pdo, const std::vector<SyncManagerFacts>& syncManagers)
{
    if (pdo.syncManager < 0)
        return true;
    const auto place = static_cast<std::size_t>(pdo.syncManager);
    return place < syncManagers.size() && syncManagers[place].direction == (pdo.isInput ? KTL_Inputs : KTL_Outputs);
}

std::vector<std::int64_t> processDataBytes(const UnitFacts& unit, CountedPdos counted)
{
    constexpr std::int64_t bitsPerByte = 8;
    std::vector<std::int64_t> sums(unit.syncManagers.size());
    for (const PdoFacts& pdo : unit.pdos)
        if (isOnSyncManager(pdo, unit) && (counted == CountedPdos::All || pdo.isExported))
            sums[static_cast<std::size_t>(pdo.syncManager)] += bitsOf(pdo);
    for (std::int64_t& sum : sums)
        sum = (sum + bitsPerByte - 1) / bitsPerByte;
    return sums;
}

} // namespace facts
