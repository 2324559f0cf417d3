// pdoWriters.cpp - PDO items, one per PDO.
#include "ktl/itemWriter.h"
#include "ktl/ktlExport.h"
#include "model/pdoAccess.h"

#include <cstdint>
#include <vector>

namespace {

struct_KTL_EntryPDOContent entryRecord(const struct_EntryPDOContent& entry)
{
    struct_KTL_EntryPDOContent record{};
    record.m_bFixed = entry.Attributes.Fixed ? 1 : 0;
    record.Index = entry.Index;
    record.SubIndex = entry.SubIndex;
    record.Bitlen = entry.Bitlen;
    record.LinkToData = entry.Linkto;
    return record;
}

void writePdo(std::FILE* out, enum_KTL_ITEM_TYPE type, const struct_PDOList& pdo)
{
    struct_KTL_PDOListType head{};
    head.m_iItemType = type;
    head.Fixed = pdo.Attributes.Fixed ? 1 : 0;
    head.Mandatory = pdo.Attributes.Mandatory ? 1 : 0;
    head.SM = pdo.Attributes.SM;
    head.SU = pdo.Attributes.SU;
    head.IndexAttributes = pdo.IndexAttributes.Index;
    head.m_iCount = static_cast<std::uint32_t>(pdo.Entry.vPdo_c.size());
    writeListItem(out, head, pdo.Entry.vPdo_c, entryRecord);
}

/// Every PDO that passes gets its item, whether or not the user selected it: a selection shows in the PDO's `SM`.
void writePdos(std::FILE* out, enum_KTL_ITEM_TYPE type, const std::vector<struct_PDOList>& pdos,
               const std::vector<struct_SM>& syncManagers)
{
    for (const struct_PDOList& pdo : pdos)
        if (!isOnVirtualSyncManager(pdo, syncManagers) && !pdo.Entry.vPdo_c.empty())
            writePdo(out, type, pdo);
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
