#include "cli/show/choiceRows.h"

#include "editing/deviceEdits.h"
#include "editing/startupRows.h"
#include "model/pdoAccess.h"
#include "model/startupAccess.h"

#include <algorithm>
#include <limits>
#include <stdexcept>

namespace {

/// What selecting a device reads and makes again.
struct_EtherCatDevice withoutDictionary(const struct_EtherCatDevice& device)
{
    struct_EtherCatDevice selected;
    selected.m_iDeviceType = device.m_iDeviceType;
    selected.m_iDriveAxies = device.m_iDriveAxies;
    selected.Mailbox.COE.Attributes = device.Mailbox.COE.Attributes;
    selected.Slots = device.Slots;
    selected.vSM = device.vSM;
    selected.RxPdo = device.RxPdo;
    selected.TxPdo = device.TxPdo;
    return selected;
}

template<typename Record, typename IsSame>
bool areSame(const std::vector<Record>& left, const std::vector<Record>& right, IsSame isSame)
{
    return std::equal(left.begin(), left.end(), right.begin(), right.end(), isSame);
}

bool isSameCommand(const struct_moduleInitCmd& left, const struct_moduleInitCmd& right)
{
    return indexOf(left) == indexOf(right) && left.SubIndex == right.SubIndex && left.DataBytes == right.DataBytes
           && left.Data == right.Data && left.Transition == right.Transition;
}

bool isSamePdo(const modulePdo& left, const modulePdo& right)
{
    return indexOf(left) == indexOf(right) && left.Instances == right.Instances
           && entriesOf(left).size() == entriesOf(right).size();
}

/// Sources of the commands of one list, which begin at a place of theirs.
struct SourcesOfList
{
    std::vector<StartupSource>& sources;
    std::size_t first;
};

SourcesOfList sourcesOf(StartupSources& sources, const struct_EtherCatDevice& device, StartupList list)
{
    if (list == StartupList::DeviceEoe)
        return {sources.eoe, 0};
    return {sources.coe, list == StartupList::DeviceCoe ? 0 : device.Mailbox.COE.InitCmd.vinitcmd.size()};
}

} // namespace

bool isSameAfterSelection(const struct_EtherCatDevice& device)
{
    if (device.Slots.vslot.empty())
        return true;
    struct_EtherCatDevice selected = withoutDictionary(device);
    try {
        renewModuleData(selected);
    } catch (const std::out_of_range&) {
        return false; // no choices can be made for it
    }
    return areSame(device.mRxPdo.mpdo, selected.mRxPdo.mpdo, isSamePdo)
           && areSame(device.mTxPdo.mpdo, selected.mTxPdo.mpdo, isSamePdo)
           && areSame(device.mMailbox.COE.vinitcmd, selected.mMailbox.COE.vinitcmd, isSameCommand);
}

ChoicePdoRows choicePdoRows(const struct_EtherCatDevice& device, bool isSame)
{
    const auto inputs = static_cast<std::int64_t>(device.RxPdo.vpdo.size());
    ChoicePdoRows rows{0, inputs, std::nullopt, std::nullopt};
    if (isSame) {
        rows.moduleOutputs = inputs + static_cast<std::int64_t>(device.TxPdo.vpdo.size());
        rows.moduleInputs = *rows.moduleOutputs + static_cast<std::int64_t>(device.mRxPdo.mpdo.size());
    }
    return rows;
}

void setChoiceRows(StartupSources& sources, const struct_EtherCatDevice& device, bool isSame)
{
    constexpr std::int64_t endOfRows = std::numeric_limits<std::uint16_t>::max(); // see `forEachStartupList`
    std::int64_t row = 0;
    forEachStartupList(device, [&](const auto& /*commands*/, std::uint16_t count, StartupList list) {
        if (list == StartupList::ModuleCoe && !isSame)
            return;
        const SourcesOfList ofList = sourcesOf(sources, device, list);
        for (std::size_t position = 0; position < count && row < endOfRows; ++position)
            ofList.sources.at(ofList.first + position).choiceRow = row++;
    });
}
