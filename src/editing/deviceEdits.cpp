#include "editing/deviceEdits.h"

#include "editing/deviceTypeTexts.h"
#include "editing/moduleData.h"
#include "esi/derivation/driveAxes.h"

#include <utility>

void setDeviceType(struct_EtherCatDevice& device, std::uint16_t type)
{
    device.m_iDeviceType = type;
    device.m_iDriveAxies = axesOfType(device);
}

void keepDriveAxes(struct_EtherCatDevice& device, std::uint16_t axes)
{
    if (device.m_iDeviceType == KTL_DEVICE_TYPE_MultiDriver)
        device.m_iDriveAxies = axes;
}

void setDriveAxes(struct_EtherCatDevice& device, std::uint32_t axes)
{
    const bool isMultiDriver = device.m_iDeviceType == KTL_DEVICE_TYPE_MultiDriver;
    device.m_iDriveAxies = isMultiDriver ? static_cast<std::uint16_t>(axes) : 0;
}

TypeAndAxes typeAndAxesOf(const struct_EtherCatDevice& device)
{
    return {device.m_iDeviceType, device.m_iDriveAxies};
}

std::set<std::uint16_t> axesOfClicks(const struct_EtherCatDevice& device, const TypeAndAxes& loaded)
{
    std::set<std::uint16_t> axes{device.m_iDriveAxies, 0};
    if (device.m_iDeviceType == loaded.deviceType)
        axes.insert({loaded.driveAxes, axesOfType(device)});
    return axes;
}

bool chooseDriveAxes(struct_EtherCatDevice& device, std::uint16_t axes, const TypeAndAxes& loaded)
{
    if (device.m_iDeviceType != KTL_DEVICE_TYPE_MultiDriver && axesOfClicks(device, loaded).count(axes) == 0)
        return false;
    device.m_iDriveAxies = axes;
    return true;
}

bool chooseOperationMode(struct_EtherCatDevice& device, std::size_t position)
{
    if (position >= device.vopmode.size())
        return false;
    // The first mode is the chosen one. Nothing else remembers the choice, and the exported file holds this order.
    std::swap(device.vopmode.front(), device.vopmode[position]);
    return true;
}

bool takesModuleIndexes(std::uint16_t deviceType)
{
    return deviceType > KTL_DEVICE_TYPE_MultiDriver && deviceType != KTL_DEVICE_TYPE_ManualIOBlock;
}

void setModuleIndexes(struct_EtherCatDevice& device, std::uint32_t configuration, std::uint32_t detection)
{
    device.configindex = static_cast<std::uint16_t>(configuration);
    device.detectindex = static_cast<std::uint16_t>(detection);
}

void setMinSize(struct_SM& syncManager, std::uint32_t bytes)
{
    syncManager.Attributes.MinSize = static_cast<std::uint16_t>(bytes);
}

void DeviceClicks::select(struct_EtherCatDevice& device)
{
    if (m_shownType != device.m_iDeviceType) {
        const std::uint16_t axes = device.m_iDriveAxies;
        const bool hasEntry = deviceTypeTextOf(device.m_iDeviceType) != nullptr;
        m_shownType = hasEntry ? device.m_iDeviceType : -1;
        if (hasEntry)
            setDeviceType(device, device.m_iDeviceType);
        keepDriveAxes(device, axes);
    }
    renewModuleData(device);
}

bool DeviceClicks::chooseType(struct_EtherCatDevice& device, std::uint16_t type)
{
    if (m_shownType == type)
        return false;
    m_shownType = type;
    setDeviceType(device, type);
    renewModuleData(device);
    return true;
}

void DeviceClicks::chooseTypeOnly(struct_EtherCatDevice& device, std::uint16_t type)
{
    m_shownType = type;
    setDeviceType(device, type);
}
