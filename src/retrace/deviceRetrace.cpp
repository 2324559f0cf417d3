#include "retrace/deviceRetrace.h"

#include "choices/apply.h"
#include "editing/deviceEdits.h"
#include "editing/moduleEdits.h"
#include "ktl/reading/ktlItemWalk.h"
#include "ktl/writing/deviceBytes.h"
#include "model/missingSyncManager.h"
#include "retrace/bytesApart.h"
#include "retrace/moduleRetrace.h"
#include "retrace/pdoRetrace.h"
#include "retrace/settingsRetrace.h"
#include "retrace/startupRetrace.h"
#include "retrace/unusualSettings.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <stdexcept>
#include <tuple>
#include <utility>

namespace retrace {

namespace {

/// How much someone did by hand.
std::size_t editsOf(const choices::DeviceChoices& choices)
{
    return choices.links.size() + choices.removedEntries.size() + choices.addedEntries.size()
           + choices.changedCommands.size() + choices.removedCommands.size() + choices.addedCommands.size();
}

bool takesModules(const struct_EtherCatDevice& device)
{
    return !moduleRefusal(device.m_iDeviceType).has_value() && !device.Slots.vslot.empty();
}

bool haveSameFixedParts(const struct_KTL_SmAttributes& left, const struct_KTL_SmAttributes& right)
{
    return left.m_iStartAddress == right.m_iStartAddress && left.m_iMaxSize == right.m_iMaxSize
           && left.ControlByte == right.ControlByte && left.Enable == right.Enable;
}

/// Whether what no choice changes is the same in two blocks, as far as a look at the sync managers, FMMUs and counts
/// tells: if not, no modules make them the same.
bool haveSameFixedParts(const KtlDeviceBlock& left, const KtlDeviceBlock& right)
{
    const auto isSameFmmu = [](const struct_KTL_FmmuAttributes& one, const struct_KTL_FmmuAttributes& other) {
        return one.m_iOpOnly == other.m_iOpOnly && one.m_iSm == other.m_iSm && one.m_iSu == other.m_iSu
               && one.m_iFmmuType == other.m_iFmmuType;
    };
    const auto isSameSyncManager = [](const struct_KTL_SmAttributes& one, const struct_KTL_SmAttributes& other) {
        return haveSameFixedParts(one, other);
    };
    return std::equal(left.fmmus.begin(), left.fmmus.end(), right.fmmus.begin(), right.fmmus.end(), isSameFmmu)
           && std::equal(left.syncManagers.begin(), left.syncManagers.end(), right.syncManagers.begin(),
                         right.syncManagers.end(), isSameSyncManager)
           && left.modes.size() == right.modes.size() && left.modules.size() == right.modules.size();
}

} // namespace

struct_FilenameDevice withoutDevices(const struct_FilenameDevice& file)
{
    struct_FilenameDevice copy;
    copy.xmlfilepath = file.xmlfilepath;
    copy.Vendor_Id = file.Vendor_Id;
    copy.vcommentmodule = file.vcommentmodule;
    return copy;
}

DeviceRetrace::DeviceRetrace(struct_FilenameDevice& file)
    : m_file(file)
    , m_modules(namedModulesOf(file))
    , m_lookUp(file)
{}

/// Holds an export of a device against a block.
void DeviceRetrace::compare(RetracedDevice& retraced, struct_EtherCatDevice& device, const ExportedBlock& block) const
{
    const std::vector<unsigned char> bytes = deviceBytesOf(device, m_file, block.exportTime);
    retraced.isExact = bytes == block.bytes;
    retraced.bytesApart = retraced.isExact ? 0 : bytesApart(bytes, block.bytes);
}

RetracedDevice DeviceRetrace::untouched(struct_EtherCatDevice device, const ExportedBlock& block) const
{
    RetracedDevice nothing;
    compare(nothing, device, block);
    return nothing;
}

/// A device as its export would be.
KtlDeviceBlock DeviceRetrace::blockOf(struct_EtherCatDevice device, const ExportedBlock& like) const
{
    const std::vector<unsigned char> bytes = deviceBytesOf(device, m_file, like.exportTime);
    const KtlWalk walk = walkItems(bytes);
    return deviceBlockAt(walk, blockPlacesOf(walk).front());
}

struct_EtherCatDevice DeviceRetrace::after(const choices::DeviceChoices& choices,
                                           const struct_EtherCatDevice& device) const
{
    struct_EtherCatDevice copy = device;
    DeviceClicks clicks;
    choices::Problems problems; // a choice that does not fit shows in the bytes
    choices::makeDeviceChoices(choices, m_file, copy, m_lookUp, clicks, problems);
    return copy;
}

/// Adds the edits of lists, which follow from type and modules.
void DeviceRetrace::finish(RetracedDevice& retraced, const struct_EtherCatDevice& device,
                           const ExportedBlock& block) const
{
    const struct_EtherCatDevice before = after(retraced.choices, device);
    retracePdos(before, block.content, retraced.choices);
    retraceStartup(before, block.content, retraced.choices);
    struct_EtherCatDevice exported = after(retraced.choices, device);
    compare(retraced, exported, block);
}

RetracedDevice DeviceRetrace::selected(const struct_EtherCatDevice& device, const ExportedBlock& block) const
{
    RetracedDevice settings;
    settings.isSelected = true;
    retraceModuleList(device, block.content, settings.choices);
    retraceType(device, block.content, settings.choices);
    retraceModes(device, block.content, settings.choices);
    retraceSyncManagers(device, block.content, settings.choices);
    const struct_EtherCatDevice set = after(settings.choices, device);
    RetracedDevice best = withModules(settings, device, likelyModules(set, m_modules, block.content), block);
    if (best.isExact || !haveSameFixedParts(blockOf(set, block), block.content))
        return best;
    if (const std::optional<RetracedDevice> unusual = exactOfUnusual(device, block))
        return *unusual;
    if (!takesModules(set))
        return best;
    RetracedDevice ofMany =
        withModules(settings, device, likelyModules(set, m_modules, block.content, wideSearch), block);
    return ofMany.isExact ? ofMany : best;
}

/// What unusual settings make, if that is exact.
std::optional<RetracedDevice> DeviceRetrace::exactOfUnusual(const struct_EtherCatDevice& device,
                                                            const ExportedBlock& block) const
{
    for (choices::DeviceChoices& choices : unusualSettings(device, block.content)) {
        RetracedDevice retraced;
        retraced.isSelected = true;
        retraced.choices = std::move(choices);
        try {
            finish(retraced, device, block);
        } catch (const MissingSyncManager&) {
            continue; // with this type it could not have been exported
        }
        if (retraced.isExact)
            return retraced;
    }
    return std::nullopt;
}

/// The best that comes of lists of modules.
RetracedDevice DeviceRetrace::withModules(const RetracedDevice& settings, const struct_EtherCatDevice& device,
                                          std::vector<std::vector<choices::ModuleChoice>> likely,
                                          const ExportedBlock& block) const
{
    std::optional<RetracedDevice> best;
    for (std::vector<choices::ModuleChoice>& modules : likely) {
        RetracedDevice retraced = settings;
        retraced.choices.modules = std::move(modules);
        finish(retraced, device, block);
        const auto rankOf = [](const RetracedDevice& of) {
            return std::make_tuple(!of.isExact, of.bytesApart, editsOf(of.choices));
        };
        if (!best.has_value() || rankOf(retraced) < rankOf(*best))
            best = std::move(retraced);
        if (best->isExact)
            break;
    }
    return best.value_or(settings);
}

RetracedDevice DeviceRetrace::retraced(const struct_EtherCatDevice& device, const ExportedBlock& block) const
{
    RetracedDevice nothing;
    try {
        nothing = untouched(device, block);
    } catch (const std::out_of_range&) {
        return {}; // it cannot be exported at all: a PDO is on a sync manager that the device does not declare
    }
    if (nothing.isExact)
        return nothing;
    RetracedDevice selected = retracedAsSelected(device, block);
    const bool isNearer = selected.isExact || selected.bytesApart < nothing.bytesApart;
    return isNearer ? selected : nothing;
}

RetracedDevice DeviceRetrace::retracedAsSelected(const struct_EtherCatDevice& device, const ExportedBlock& block) const
{
    try {
        return selected(device, block);
    } catch (const std::out_of_range&) { // as above, with its type or modules
        RetracedDevice nothing;
        nothing.isSelected = true;
        return nothing;
    }
}

} // namespace retrace
