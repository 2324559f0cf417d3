// slotWriters.cpp - the items of the slots: how they are made, and what is preset in them.
#include "ktl/ktlExport.h"
#include "ktl/writing/itemWriter.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace {

/// What fits a slot is not written here: the controller learns that from the module blocks.
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
    // ODD, KEPT: the counts hold the low 8 bits of the number of slots, where one would expect all 16 that the fields
    // have. Size and records are those of all slots. Pinned by tst_SlotWriter::moreSlotsThanAByteCounts.
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

/// Slot positions of a preset.
/// ODD, KEPT: the sum wraps at 256, where one would expect a record for each place. Pinned by
/// tst_SlotPreset::positionsWrap.
std::uint8_t presetPositions(const std::vector<struct_Slot>& slots)
{
    std::uint32_t positions = 0;
    for (const struct_Slot& slot : slots)
        positions += slot.Attributes.MaxInstances;
    return static_cast<std::uint8_t>(positions);
}

/// ODD, KEPT: a default module is at the number of its slot, and one that a user put in at its place, where one
/// would expect places only. Of modules that share a position the last one is written, while all of them count. Pinned
/// by tst_SlotPreset::twoSlotsOfTwoPlaces, tst_SlotPreset::modulesPutInByHand and
/// tst_SlotPreset::lastModuleOfASlotCounts.
void writePreset(std::FILE* out, const std::vector<struct_Slot>& slots)
{
    std::vector<struct_KTL_Slot_PreModuleIdent> records(presetPositions(slots));
    std::uint8_t modules = 0; // wraps at 256 as the positions do
    for (const struct_Slot& slot : slots)
        for (const struct_slotmodule& placed : slot.slotmodule) {
            const auto position = static_cast<std::size_t>(placed.Instances); // a negative one is beyond any end
            if (position >= records.size())
                continue;
            ++modules;
            records[position].m_iModuleIdent = placed.module.TypeAttributes.ModuleIdent;
        }
    struct_KTL_Slots_Preconfig head{};
    head.m_iItemType = KTL_ITEM_SlotPreConfig;
    head.m_iCount = static_cast<std::uint32_t>(records.size());
    head.m_iCountReal = modules;
    writeListItem(out, head, records);
}

} // namespace

void KTL_write_device_Slots(std::FILE* out, struct_EtherCatDevice* device)
{
    if (out != nullptr && device != nullptr && !device->Slots.vslot.empty())
        writeListItem(out, slotsHead(device->Slots), device->Slots.vslot, slotRecord);
}

void KTL_write_device_SlotPreConfig(std::FILE* out, struct_EtherCatDevice* device)
{
    if (out != nullptr && device != nullptr && !device->Slots.vslot.empty())
        writePreset(out, device->Slots.vslot);
}
