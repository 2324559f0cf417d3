#include "esi/derivation/driveAxes.h"

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
