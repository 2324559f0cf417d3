// smDefaults.cpp - the last pass: the working length of each sync manager.
#include "esi/xmlparsing.h"

#include <cstddef>
#include <vector>

namespace {

/// Adds the size of each assigned PDO to its sync manager.
/// ODD, KEPT: a plain float sum with no carry from the tenths, so two PDOs of 12 bits make 2.8 and not 3.0; the
/// controller takes the whole part of that number. PDOs that modules bring in are not counted at load time. Pinned by
/// tst_SmDefaults::lengthsAreSummedAsFloats.
void addPdoSizes(std::vector<struct_SM>& syncManagers, const std::vector<struct_PDOList>& pdos)
{
    for (const struct_PDOList& pdo : pdos)
        if (pdo.Attributes.SM >= 0)
            syncManagers.at(static_cast<std::size_t>(pdo.Attributes.SM)).Length += pdo.Size;
}

void computeLengths(struct_EtherCatDevice& device)
{
    for (struct_SM& syncManager : device.vSM)
        if (syncManager.Smtype == KTL_MBoxOut || syncManager.Smtype == KTL_MBoxIn)
            syncManager.Length += static_cast<float>(syncManager.Attributes.DefaultSize);
    addPdoSizes(device.vSM, device.RxPdo.vpdo);
    addPdoSizes(device.vSM, device.TxPdo.vpdo);
}

} // namespace

void device_sm_defalutset(struct_FilenameDevice* file)
{
    if (file == nullptr)
        return;
    for (struct_EtherCatDevice& device : file->device)
        computeLengths(device);
}
