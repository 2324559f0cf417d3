#include "retrace/unusualSettings.h"

#include "editing/deviceTypeTexts.h"
#include "esi/derivation/driveAxes.h"
#include "retrace/settingsRetrace.h"

#include <cstdint>

namespace retrace {

namespace {

/// Drive axes, where they are not those that a device has without a choice.
void chooseAxes(std::uint16_t has, const KtlDeviceBlock& block, choices::DeviceChoices& choices)
{
    if (block.general.m_iDriveAxies != has)
        choices.driveAxes = static_cast<std::uint16_t>(block.general.m_iDriveAxies);
}

/// Axes of a device that gets a type.
std::uint16_t axesWith(std::uint16_t type, const struct_EtherCatDevice& loaded)
{
    struct_EtherCatDevice typed;
    typed.Slots = loaded.Slots;
    typed.m_iDeviceType = type;
    return axesOfType(typed);
}

choices::DeviceChoices settingsWithoutType(const struct_EtherCatDevice& loaded, const KtlDeviceBlock& block)
{
    choices::DeviceChoices choices;
    retraceModuleList(loaded, block, choices);
    retraceModes(loaded, block, choices);
    retraceSyncManagers(loaded, block, choices);
    return choices;
}

choices::DeviceChoices withoutClick(const struct_EtherCatDevice& loaded, const KtlDeviceBlock& block)
{
    const std::uint16_t type = block.general.m_iDeviceType;
    choices::DeviceChoices choices = settingsWithoutType(loaded, block);
    choices.isClicked = false;
    if (type != loaded.m_iDeviceType)
        choices.deviceType = type;
    chooseAxes(choices.deviceType.has_value() ? axesWith(type, loaded) : loaded.m_iDriveAxies, block, choices);
    return choices;
}

/// A size that is set to what it is: it makes the lengths again.
choices::SyncManagerChoice sameSize(const struct_SM& first)
{
    choices::SyncManagerChoice choice;
    choice.row = 0;
    choice.checkedName = QString::fromStdString(first.Name);
    choice.minSize = first.Attributes.MinSize;
    return choice;
}

} // namespace

std::vector<choices::DeviceChoices> unusualSettings(const struct_EtherCatDevice& loaded, const KtlDeviceBlock& block)
{
    const std::uint16_t type = block.general.m_iDeviceType;
    if (deviceTypeTextOf(type) == nullptr)
        return {};
    std::vector<choices::DeviceChoices> settings{withoutClick(loaded, block)};
    if (settings.front().syncManagers.empty() && !loaded.vSM.empty()) {
        settings.push_back(settings.front());
        settings.back().syncManagers.push_back(sameSize(loaded.vSM.front()));
    }
    for (const DeviceTypeText& before : deviceTypeTexts) {
        if (before.type == type)
            continue;
        choices::DeviceChoices choices = settingsWithoutType(loaded, block);
        if (before.type != loaded.m_iDeviceType)
            choices.deviceType = before.type;
        choices.lastType = type;
        chooseAxes(axesWith(type, loaded), block, choices);
        settings.push_back(std::move(choices));
    }
    return settings;
}

} // namespace retrace
