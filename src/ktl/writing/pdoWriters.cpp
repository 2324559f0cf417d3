// pdoWriters.cpp - PDO items, one per PDO: those of the device, and those that modules bring into it.
#include "ktl/ktlExport.h"
#include "ktl/writing/itemWriter.h"
#include "ktl/writing/pdoItemHead.h"
#include "ktl/writing/pdoRecords.h"
#include "model/pdoAccess.h"

#include <vector>

namespace {

template<typename Entry, typename Pdo>
void writePdo(std::FILE* out, enum_KTL_ITEM_TYPE type, const Pdo& pdo, const std::vector<Entry>& entries)
{
    writeListItem(out, pdoItemHead<struct_KTL_PDOListType>(type, pdo, entries.size()), entries, entryRecordOf<Entry>);
}

template<typename Pdo>
void writePdos(std::FILE* out, enum_KTL_ITEM_TYPE type, const std::vector<Pdo>& pdos,
               const std::vector<struct_SM>& syncManagers)
{
    for (const Pdo& pdo : pdos)
        if (hasItem(pdo, syncManagers))
            writePdo(out, type, pdo, entriesOf(pdo));
}

} // namespace

void KTL_write_device_RxPdoinfo(std::FILE* out, struct_EtherCatDevice* device)
{
    if (out != nullptr && device != nullptr)
        writePdos(out, KTL_ITEM_RxPdo, device->RxPdo.vpdo, device->vSM);
}

void KTL_write_device_TxPdoinfo(std::FILE* out, struct_EtherCatDevice* device)
{
    if (out != nullptr && device != nullptr)
        writePdos(out, KTL_ITEM_TxPdo, device->TxPdo.vpdo, device->vSM);
}

void KTL_write_device_AddModuleRPdo(std::FILE* out, struct_EtherCatDevice* device)
{
    if (out != nullptr && device != nullptr)
        writePdos(out, KTL_ITEM_RxPdo, device->mRxPdo.mpdo, device->vSM);
}

void KTL_write_device_AddModuleTPdo(std::FILE* out, struct_EtherCatDevice* device)
{
    if (out != nullptr && device != nullptr)
        writePdos(out, KTL_ITEM_TxPdo, device->mTxPdo.mpdo, device->vSM);
}
