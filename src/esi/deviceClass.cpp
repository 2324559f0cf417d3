// deviceClass.cpp - device class by ESI profile number.
#include "esi/xmlparsing.h"

namespace {

constexpr int noDevice = 10;
constexpr int ioProfile = 0;
constexpr int driveProfile = 402;
constexpr int modularProfile = 5001;

// The values of enum_KTL_DEVICE_TYPE that a profile number can give.
constexpr std::uint16_t ioBlock = 0;
constexpr std::uint16_t singleDriver = 1;
constexpr std::uint16_t multiDriver = 2;
constexpr std::uint16_t pnpIoBlock = 3;
constexpr std::uint16_t special = 4;

} // namespace

int SetXmlTypeToDevice(struct_EtherCatDevice* p_ether_device, int iType, int bHasSlots)
{
    if (p_ether_device == nullptr)
        return noDevice;
    struct_EtherCatDevice& device = *p_ether_device;
    const bool hasSlots = bHasSlots != 0;
    switch (iType) {
    case ioProfile:
        device.m_iDeviceType = hasSlots ? pnpIoBlock : ioBlock;
        break;
    case driveProfile:
        device.m_iDeviceType = hasSlots ? multiDriver : singleDriver;
        device.m_iDriveAxies = hasSlots ? static_cast<std::uint16_t>(device.Slots.vslot.size()) : std::uint16_t{1};
        break;
    case modularProfile:
        device.m_iDeviceType = pnpIoBlock;
        break;
    default:
        device.m_iDeviceType = special;
    }
    return 0;
}
