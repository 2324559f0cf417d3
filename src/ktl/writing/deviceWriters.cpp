// deviceWriters.cpp - General, FMMU, sync manager, DC, EEPROM and end items.
#include "ktl/ktlExport.h"
#include "ktl/writing/itemWriter.h"
#include "model/byteBit.h"
#include "model/moduleAccess.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace {

/// Slot positions: each slot is one, or as many as it takes modules, whichever sum is greater.
std::uint16_t slotPositions(const struct_EtherCatDevice& device)
{
    std::uint64_t instances = 0;
    for (const struct_Slot& slot : device.Slots.vslot)
        instances += slot.Attributes.MaxInstances;
    return static_cast<std::uint16_t>(std::max<std::uint64_t>(instances, device.Slots.vslot.size()));
}

std::uint16_t moduleCount(const struct_FilenameDevice& file)
{
    std::size_t modules = 0;
    forEachModule(file, [&](const struct_module& /*module*/) { ++modules; });
    return static_cast<std::uint16_t>(modules);
}

struct_KTL_SmAttributes smRecord(const struct_SM& syncManager)
{
    const SmAttributes& attributes = syncManager.Attributes;
    struct_KTL_SmAttributes record{};
    record.m_iStartAddress = attributes.StartAddress;
    record.m_iMinSize = attributes.MinSize;
    record.m_iMaxSize = attributes.MaxSize;
    record.m_iDefaultSize = attributes.DefaultSize;
    record.ControlByte = attributes.ControlByte;
    record.Enable = attributes.Enable;
    // Process data sync managers carry the size that the PDO selection gives now, not the default of the description.
    if (carriesProcessData(syncManager.Smtype))
        record.m_iDefaultSize = static_cast<std::uint16_t>(wholeBytes(syncManager.Length));
    return record;
}

struct_KTL_FmmuAttributes fmmuRecord(const Struct_Fmmu& fmmu)
{
    struct_KTL_FmmuAttributes record{};
    record.m_iOpOnly = fmmu.m_OpOnly ? 1 : 0;
    record.m_iSm = static_cast<std::uint8_t>(fmmu.m_Sm);
    record.m_iSu = static_cast<std::uint8_t>(fmmu.m_Su);
    record.m_iFmmuType = static_cast<std::uint8_t>(fmmu.m_FmmuType);
    return record;
}

/// Only the assign-activate word goes out: the record has no field for cycle and shift times.
struct_KTL_DcAttributes dcRecord(const Struct_DCOpMode& mode)
{
    struct_KTL_DcAttributes record{};
    record.AssignActivate = mode.AssignActivate;
    return record;
}

/// Head that holds nothing but the number of its records.
template<typename Item> Item countedHead(enum_KTL_ITEM_TYPE type, std::size_t count)
{
    Item head{};
    head.m_iItemType = type;
    head.m_iCount = static_cast<std::uint32_t>(count);
    return head;
}

/// ODD, KEPT: a virtual sync manager has no record, while PDOs keep the numbers that they had. One would expect these
/// to be the positions of the records. Pinned by tst_DeviceWriters::smItemLeavesVirtualOnesOut.
std::vector<struct_KTL_SmAttributes> smRecords(const std::vector<struct_SM>& syncManagers)
{
    std::vector<struct_KTL_SmAttributes> records;
    records.reserve(syncManagers.size());
    for (const struct_SM& syncManager : syncManagers)
        if (syncManager.Attributes.m_Virtual == 0)
            records.push_back(smRecord(syncManager));
    return records;
}

struct_KTL_EtherCatDeviceType generalItem(const struct_EtherCatDevice& device, const struct_FilenameDevice& file)
{
    struct_KTL_EtherCatDeviceType item{};
    item.m_iItemType = KTL_ITEM_General;
    item.m_iSize = sizeof item;
    item.m_iVendor_Id = file.Vendor_Id; // the file's: an ESI device has no vendor id of its own
    item.m_iProduct_Code = device.TypeAttributes.Product_Code;
    item.m_iRevision_No = device.TypeAttributes.Revision_No;
    item.m_iSerial_No = device.TypeAttributes.Serial_No;
    item.m_iDeviceType = device.m_iDeviceType;
    item.m_bSdoSupport = device.Mailbox.COE.Attributes.SdoInfo ? 1 : 0;
    if (hasModuleBlocks(device.m_iDeviceType)) {
        item.m_iSlotCount = slotPositions(device);
        item.m_iModuleTypeMax = moduleCount(file);
    }
    item.m_iDriveAxies = device.m_iDriveAxies;
    return item;
}

} // namespace

int KTL_write_device_General(std::FILE* out, struct_EtherCatDevice* device, struct_FilenameDevice* filedevices)
{
    if (out == nullptr || device == nullptr || filedevices == nullptr)
        return 0;
    return static_cast<int>(ItemWriter(generalItem(*device, *filedevices)).writeTo(out));
}

void KTL_write_device_FmmuInfo(std::FILE* out, struct_EtherCatDevice* device)
{
    if (out != nullptr && device != nullptr && !device->vFmmu.empty())
        writeListItem(out, countedHead<struct_KTL_FmmuType>(KTL_ITEM_FMMU, device->vFmmu.size()), device->vFmmu,
                      fmmuRecord);
}

void KTL_write_device_SmInfo(std::FILE* out, struct_EtherCatDevice* device)
{
    if (out == nullptr || device == nullptr)
        return;
    if (const std::vector<struct_KTL_SmAttributes> records = smRecords(device->vSM); !records.empty())
        writeListItem(out, countedHead<struct_KTL_SmType>(KTL_ITEM_SM, records.size()), records);
}

void KTL_write_device_DcInfo(std::FILE* out, struct_EtherCatDevice* device)
{
    if (out != nullptr && device != nullptr && !device->vopmode.empty())
        writeListItem(out, countedHead<struct_KTL_DcType>(KTL_ITEM_DC, device->vopmode.size()), device->vopmode,
                      dcRecord);
}

void KTL_write_device_EEPROM(std::FILE* out, struct_EtherCatDevice* /*device*/)
{
    if (out == nullptr)
        return;
    constexpr std::uint32_t eepromBytes = 2048;
    struct_KTL_EEPROM item{};
    item.m_iItemType = KTL_ITEM_EEPROM;
    item.m_iSize = sizeof item;
    item.m_iByteSize = eepromBytes;
    ItemWriter(item).writeTo(out);
}

void KTL_write_device_end(std::FILE* out)
{
    if (out == nullptr)
        return;
    struct_KTL_ItemEnd item{};
    item.m_iItemType = KTL_ITEM_END;
    item.m_iSize = sizeof item;
    ItemWriter(item).writeTo(out);
}
