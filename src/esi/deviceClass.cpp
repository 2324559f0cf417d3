// deviceClass.cpp - device class by ESI profile number.
#include "esi/xmlparsing.h"
#include "model/profileNumbers.h"

#include <cstdint>

namespace {

constexpr int noDevice = 10;

} // namespace

int SetXmlTypeToDevice(struct_EtherCatDevice* p_ether_device, int iType, int bHasSlots)
{
    if (p_ether_device == nullptr)
        return noDevice;
    struct_EtherCatDevice& device = *p_ether_device;
    const bool hasSlots = bHasSlots != 0;
    switch (iType) {
    case ioProfile:
        device.m_iDeviceType = hasSlots ? KTL_DEVICE_TYPE_PnpIOBlock : KTL_DEVICE_TYPE_IOBlock;
        break;
    case driveProfile:
        device.m_iDeviceType = hasSlots ? KTL_DEVICE_TYPE_MultiDriver : KTL_DEVICE_TYPE_SingleDriver;
        device.m_iDriveAxies = hasSlots ? static_cast<std::uint16_t>(device.Slots.vslot.size()) : std::uint16_t{1};
        break;
    case modularProfile:
        device.m_iDeviceType = KTL_DEVICE_TYPE_PnpIOBlock;
        break;
    default:
        device.m_iDeviceType = KTL_DEVICE_TYPE_Special;
    }
    return 0;
}
