#include "esi/derivation/smLengths.h"

#include "model/pdoAccess.h"
#include "model/syncDirection.h"

#include <cstddef>
#include <vector>

namespace {

bool isMailbox(const struct_SM& syncManager)
{
    return syncManager.Smtype == KTL_MBoxOut || syncManager.Smtype == KTL_MBoxIn;
}

/// Adds the size of each assigned PDO to its sync manager, if `takes(syncManager)` says so.
/// ODD, KEPT: a plain float sum with no carry from the tenths, so two PDOs of 12 bits make 2.8, where one would expect
/// 3.0. Pinned by tst_SmLengths::lengthsAreSummedAsFloats.
template<typename Pdo, typename Condition>
void addPdoSizes(std::vector<struct_SM>& syncManagers, const std::vector<Pdo>& pdos, Condition takes)
{
    for (const Pdo& pdo : pdos) {
        if (pdo.Attributes.SM < 0)
            continue;
        struct_SM& syncManager = syncManagerAt(syncManagers, static_cast<std::size_t>(pdo.Attributes.SM), pdo);
        if (takes(syncManager))
            syncManager.Length += sizeOf(pdo);
    }
}

} // namespace

/// ODD, KEPT: at load time a PDO counts on whatever sync manager it names, and PDOs that modules bring in do not count.
/// One would expect the rules of `updateProcessDataLengths`. Pinned by tst_SmLengths::lengths and
/// tst_SmLengths::modulePdosAddNothing.
void computeLengths(struct_EtherCatDevice& device)
{
    for (struct_SM& syncManager : device.vSM)
        if (isMailbox(syncManager))
            syncManager.Length += static_cast<float>(syncManager.Attributes.DefaultSize);
    const auto anySyncManager = [](const struct_SM& /*syncManager*/) { return true; };
    addPdoSizes(device.vSM, device.RxPdo.vpdo, anySyncManager);
    addPdoSizes(device.vSM, device.TxPdo.vpdo, anySyncManager);
}

void updateProcessDataLengths(struct_EtherCatDevice& device)
{
    for (struct_SM& syncManager : device.vSM)
        if (!isMailbox(syncManager))
            syncManager.Length = 0;
    const auto isOutput = [](const struct_SM& syncManager) { return syncManager.Smtype == KTL_Outputs; };
    const auto isInput = [](const struct_SM& syncManager) { return syncManager.Smtype == KTL_Inputs; };
    addPdoSizes(device.vSM, device.RxPdo.vpdo, isOutput);
    addPdoSizes(device.vSM, device.TxPdo.vpdo, isInput);
    addPdoSizes(device.vSM, device.mRxPdo.mpdo, isOutput);
    addPdoSizes(device.vSM, device.mTxPdo.mpdo, isInput);
}
