// slotWriters.cpp - the Slot item.
#include "ktl/itemWriter.h"
#include "ktl/ktlExport.h"

#include <cstdint>

namespace {

/// What fits a slot is not told here: the controller learns that from the module blocks.
struct_KTL_SlotContent slotRecord(const struct_Slot& slot)
{
    struct_KTL_SlotContent record{};
    record.m_iMinInstances = slot.Attributes.MinInstances;
    record.m_iMaxInstances = slot.Attributes.MaxInstances;
    record.SlotIndexIncrement = slot.Attributes.SlotIndexIncrement;
    record.SlotPdoIncrement = slot.Attributes.SlotPdoIncrement;
    return record;
}

struct_KTL_Slots slotsHead(const DeviceSlots& deviceSlots)
{
    // ODD, KEPT: the counts hold the low 8 bits of the number of slots although the fields are wider; the controller
    // reads the low byte. Size and records are those of all slots. Pinned by tst_SlotWriter::moreSlotsThanAByteCounts.
    const auto shownCount = static_cast<std::uint8_t>(deviceSlots.vslot.size());
    const SlotsAttributes& attributes = deviceSlots.Attributes;
    struct_KTL_Slots head{};
    head.m_iItemType = KTL_ITEM_Slot;
    head.m_iMaxSlotCount = shownCount;
    head.m_bDownloadModuleIdentList = attributes.DownloadModuleIdentList ? 1 : 0;
    head.m_bDownloadModuleIdentAddressList = attributes.DownloadModuleAddressList ? 1 : 0;
    head.m_iSlotPdoIncrement = static_cast<std::uint16_t>(attributes.SlotPdoIncrement);
    head.m_iSlotIndexIncrement = static_cast<std::uint16_t>(attributes.SlotIndexIncrement);
    head.m_iCurSlotCount = shownCount;
    return head;
}

} // namespace

void KTL_write_device_Slots(std::FILE* out, struct_EtherCatDevice* device)
{
    if (out != nullptr && device != nullptr && !device->Slots.vslot.empty())
        writeListItem(out, slotsHead(device->Slots), device->Slots.vslot, slotRecord);
}
