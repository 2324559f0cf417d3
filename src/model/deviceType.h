// deviceType.h - the classes of devices, as `m_iDeviceType` and the KTL file hold them.
#pragma once

#include <cstdint>

/// Device classes. They count from 0; the words that the window offers for them count from 1.
enum enum_KTL_DEVICE_TYPE : std::uint16_t
{
    KTL_DEVICE_TYPE_IOBlock = 0,
    KTL_DEVICE_TYPE_SingleDriver = 1,
    KTL_DEVICE_TYPE_MultiDriver = 2, ///< module PDOs are written as ordinary PDO items
    KTL_DEVICE_TYPE_PnpIOBlock = 3, ///< slot and module counts in General, module blocks after the device
    KTL_DEVICE_TYPE_Special = 4, ///< module PDOs are written as ordinary PDO items
    KTL_DEVICE_TYPE_ManualIOBlock = 5 ///< as PnpIOBlock, and a SlotPreConfig item
};

/// Whether a device of this class is a coupler whose file goes out with it: slot and module counts in its General item,
/// and the module blocks after it.
[[nodiscard]] constexpr bool hasModuleBlocks(std::uint16_t deviceType) noexcept
{
    return deviceType == KTL_DEVICE_TYPE_PnpIOBlock || deviceType == KTL_DEVICE_TYPE_ManualIOBlock;
}

/// Whether the modules of a device of this class are part of it: their PDOs go out as the device's own.
[[nodiscard]] constexpr bool hasModulePdos(std::uint16_t deviceType) noexcept
{
    return deviceType == KTL_DEVICE_TYPE_MultiDriver || deviceType == KTL_DEVICE_TYPE_Special;
}
