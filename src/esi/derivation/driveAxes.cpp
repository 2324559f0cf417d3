#include "esi/derivation/driveAxes.h"

#include "model/deviceType.h"

#include <QLatin1String>
#include <QString>

std::uint16_t driveAxesOf(const DeviceSlots& deviceSlots)
{
    if (deviceSlots.Attributes.m_MaxSlotGroupCount == 0)
        return static_cast<std::uint16_t>(deviceSlots.vslot.size());
    std::uint16_t axes = 0;
    for (const struct_Slot& slot : deviceSlots.vslot) {
        const std::int32_t group = slot.Attributes.m_SlotGroup;
        if (group >= 0 && axes <= group && QString::fromStdString(slot.Name).contains(QLatin1String("Axis")))
            axes = static_cast<std::uint16_t>(static_cast<std::uint32_t>(group) + 1U);
    }
    return axes;
}

std::uint16_t axesOfType(const struct_EtherCatDevice& device)
{
    if (device.m_iDeviceType == KTL_DEVICE_TYPE_MultiDriver)
        return driveAxesOf(device.Slots);
    return device.m_iDeviceType == KTL_DEVICE_TYPE_SingleDriver ? 1 : 0;
}
