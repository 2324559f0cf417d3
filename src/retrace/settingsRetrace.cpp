#include "retrace/settingsRetrace.h"

#include "choices/words.h"
#include "editing/deviceEdits.h"
#include "editing/deviceTypeTexts.h"
#include "esi/derivation/driveAxes.h"
#include "model/deviceType.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <utility>

namespace retrace {

namespace {

/// The places of the wanted values that are not where they should be, by value.
class MisplacedModes
{
public:
    MisplacedModes(const std::vector<std::uint32_t>& is, const std::vector<std::uint32_t>& wanted)
    {
        for (std::size_t place = 1; place < is.size(); ++place)
            if (is[place] != wanted[place])
                m_places[wanted[place]].insert(place);
    }

    /// A place but the first that lacks a value; nothing if none does.
    [[nodiscard]] std::optional<std::size_t> placeFor(std::uint32_t value) const
    {
        const auto found = m_places.find(value);
        return found == m_places.end() ? std::nullopt : std::make_optional(*found->second.begin());
    }

    /// Any place but the first that has another value than it should.
    [[nodiscard]] std::optional<std::size_t> any() const
    {
        return m_places.empty() ? std::nullopt : std::make_optional(*m_places.begin()->second.begin());
    }

    void setRight(std::size_t place, std::uint32_t value)
    {
        const auto found = m_places.find(value);
        found->second.erase(place);
        if (found->second.empty())
            m_places.erase(found);
    }

private:
    std::map<std::uint32_t, std::set<std::size_t>> m_places;
};

/// The places with which the first value changes places, one after the other, until the values are the wanted ones.
std::vector<std::size_t> swapsWithFirst(std::vector<std::uint32_t> is, const std::vector<std::uint32_t>& wanted)
{
    MisplacedModes misplaced(is, wanted);
    std::vector<std::size_t> swaps;
    while (const std::optional<std::size_t> any = misplaced.any()) {
        const std::optional<std::size_t> home = misplaced.placeFor(is.front());
        const std::size_t place = home.value_or(*any);
        std::swap(is.front(), is[place]);
        swaps.push_back(place);
        if (home.has_value())
            misplaced.setRight(place, wanted[place]);
    }
    return swaps;
}

} // namespace

void retraceModuleList(const struct_EtherCatDevice& loaded, const KtlDeviceBlock& block,
                       choices::DeviceChoices& choices)
{
    if (!block.deviceSlots.has_value())
        return;
    const bool takes = block.deviceSlots->head.m_bDownloadModuleIdentList != 0;
    if (takes != loaded.Slots.Attributes.DownloadModuleIdentList)
        choices.takesModuleList = takes;
}

void retraceType(const struct_EtherCatDevice& loaded, const KtlDeviceBlock& block, choices::DeviceChoices& choices)
{
    struct_EtherCatDevice typed; // as much of the device as the axes of a type follow from
    typed.Slots = loaded.Slots;
    typed.m_iDeviceType = block.general.m_iDeviceType;
    typed.m_iDriveAxies = loaded.m_iDriveAxies;
    if (deviceTypeTextOf(typed.m_iDeviceType) == nullptr)
        return;
    if (typed.m_iDeviceType != loaded.m_iDeviceType) {
        choices.deviceType = typed.m_iDeviceType;
        typed.m_iDriveAxies = axesOfType(typed);
    }
    const std::uint16_t axes = block.general.m_iDriveAxies;
    const bool canHave = typed.m_iDeviceType == KTL_DEVICE_TYPE_MultiDriver
                         || axesOfClicks(typed, typeAndAxesOf(loaded)).count(axes) > 0;
    // Where the order of clicks decides, the choice does.
    const bool isOfOrder = !choices.deviceType.has_value() && axesOfType(typed) != loaded.m_iDriveAxies;
    if (canHave && (axes != typed.m_iDriveAxies || isOfOrder))
        choices.driveAxes = axes;
}

void retraceModes(const struct_EtherCatDevice& device, const KtlDeviceBlock& block, choices::DeviceChoices& choices)
{
    std::vector<std::uint32_t> is;
    std::vector<std::uint32_t> wanted;
    for (const Struct_DCOpMode& mode : device.vopmode)
        is.push_back(mode.AssignActivate);
    for (const struct_KTL_DcAttributes& mode : block.modes)
        wanted.push_back(mode.AssignActivate);
    if (std::multiset<std::uint32_t>(is.begin(), is.end())
        != std::multiset<std::uint32_t>(wanted.begin(), wanted.end()))
        return;
    std::vector<Struct_DCOpMode> modes = device.vopmode;
    for (const std::size_t place : swapsWithFirst(is, wanted)) {
        const QString name = QString::fromStdString(modes[place].Name);
        const bool isOnlyOne = !name.isEmpty() && choices::modesNamed(modes, name).size() == 1;
        choices.dcModes.push_back(isOnlyOne ? choices::ModeName{std::nullopt, name}
                                            : choices::ModeName{static_cast<std::uint32_t>(place), QString()});
        std::swap(modes.front(), modes[place]);
    }
}

void retraceSyncManagers(const struct_EtherCatDevice& device, const KtlDeviceBlock& block,
                         choices::DeviceChoices& choices)
{
    std::size_t next = 0; // virtual ones do not go out
    std::uint32_t row = 0;
    for (const struct_SM& syncManager : device.vSM) {
        const std::uint32_t ofThis = row++;
        if (syncManager.Attributes.m_Virtual != 0)
            continue;
        if (next == block.syncManagers.size())
            return;
        const std::uint16_t wanted = block.syncManagers[next++].m_iMinSize;
        if (wanted == syncManager.Attributes.MinSize)
            continue;
        choices::SyncManagerChoice& choice = choices.syncManagers.emplace_back();
        choice.row = ofThis;
        choice.checkedName = QString::fromStdString(syncManager.Name);
        choice.minSize = wanted;
    }
}

} // namespace retrace
