// pdoWriters.cpp - PDO items, one per PDO.
#include "ktl/itemWriter.h"
#include "ktl/ktlExport.h"

#include <cstdint>
#include <vector>

namespace {

/// Whether a PDO is on a sync manager that is not exported. One on no sync manager is not.
bool isOnVirtualSyncManager(const struct_PDOList& pdo, const std::vector<struct_SM>& syncManagers)
{
    if (pdo.Attributes.SM < 0)
        return false;
    return syncManagers.at(static_cast<std::uint16_t>(pdo.Attributes.SM)).Attributes.m_Virtual != 0;
}

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
