#include "retrace/deviceRetrace.h"

#include "choices/apply.h"
#include "editing/deviceEdits.h"
#include "ktl/writing/deviceBytes.h"
#include "retrace/bytesApart.h"
#include "retrace/moduleRetrace.h"
#include "retrace/pdoRetrace.h"
#include "retrace/settingsRetrace.h"
#include "retrace/startupRetrace.h"

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
    retraceType(device, block.content, settings.choices);
    retraceModes(device, block.content, settings.choices);
    retraceSyncManagers(device, block.content, settings.choices);
    std::optional<RetracedDevice> best;
    for (std::vector<choices::ModuleChoice>& modules :
         likelyModules(after(settings.choices, device), m_modules, block.content)) {
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
