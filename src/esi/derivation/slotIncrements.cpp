#include "esi/derivation/slotIncrements.h"

#include "esi/derivation/driveAxes.h"
#include "model/deviceType.h"

#include <cstdint>

namespace {

void takeIfZero(std::uint32_t& value, std::uint32_t fallback)
{
    if (value == 0)
        value = fallback;
}

/// Fills the increments that the device itself leaves open. The order counts: the group's steps fall back on the
/// device's, which may just have come from the first slot.
void completeIncrements(SlotsAttributes& device, const SlotAttributes& firstSlot)
{
    takeIfZero(device.SlotPdoIncrement, firstSlot.SlotPdoIncrement);
    takeIfZero(device.SlotIndexIncrement, firstSlot.SlotIndexIncrement);
    takeIfZero(device.m_SlotGroupPdoIncrement, device.SlotPdoIncrement);
    takeIfZero(device.m_SlotGroupIndexIncrement, device.SlotIndexIncrement);
}

/// ODD, KEPT: each slot gets the steps of the device or, in a slot group, those of the group, where one would expect a
/// step that the slot itself declares to count. Pinned by tst_SlotIncrements::slotIncrements.
void unifyIncrements(DeviceSlots& deviceSlots)
{
    for (struct_Slot& slot : deviceSlots.vslot) {
        const bool inGroup = slot.Attributes.m_SlotGroup >= 0;
        const SlotsAttributes& device = deviceSlots.Attributes;
        slot.Attributes.SlotIndexIncrement = inGroup ? device.m_SlotGroupIndexIncrement : device.SlotIndexIncrement;
        slot.Attributes.SlotPdoIncrement = inGroup ? device.m_SlotGroupPdoIncrement : device.SlotPdoIncrement;
    }
}

} // namespace

void completeSlots(struct_EtherCatDevice& device)
{
    if (!device.Slots.vslot.empty()) {
        completeIncrements(device.Slots.Attributes, device.Slots.vslot.front().Attributes);
        unifyIncrements(device.Slots);
    }
    if (device.m_iDeviceType == KTL_DEVICE_TYPE_MultiDriver)
        device.m_iDriveAxies = driveAxesOf(device.Slots);
}
