#include "randomChoices.h"

#include "choices/apply.h"
#include "choices/moduleLookUp.h"
#include "editing/linkTexts.h"
#include "editing/moduleEdits.h"
#include "editing/pdoRows.h"
#include "editing/slotPlaces.h"
#include "editing/startupRows.h"
#include "model/deviceType.h"
#include "model/moduleAccess.h"
#include "model/pdoAccess.h"

#include <QString>

#include <algorithm>
#include <numeric>
#include <optional>

namespace {

constexpr std::uint16_t lastType = KTL_DEVICE_TYPE_ManualIOBlock;

/// The type that a device has after its choices.
std::uint16_t typeOf(const struct_EtherCatDevice& device, const choices::DeviceChoices& choices)
{
    return choices.deviceType.value_or(device.m_iDeviceType);
}

/// All modules of a file.
std::vector<const struct_module*> modulesOf(const struct_FilenameDevice& file)
{
    std::vector<const struct_module*> modules;
    forEachModule(file, [&](const struct_module& module) { modules.push_back(&module); });
    return modules;
}

choices::ModuleName nameAt(const std::vector<const struct_module*>& modules, std::size_t row)
{
    return {modules[row]->TypeAttributes.ModuleIdent, QString(), static_cast<std::uint32_t>(row)};
}

/// The device after the choices so far; nothing if it does not take them.
std::optional<struct_EtherCatDevice> after(const choices::DeviceChoices& choices, struct_FilenameDevice& file,
                                           const struct_EtherCatDevice& device, DeviceClicks& clicks)
{
    struct_EtherCatDevice copy = device;
    choices::Problems problems;
    choices::makeDeviceChoices(choices, file, copy, choices::ModuleLookUp(file), clicks, problems);
    return problems.count() == 0 ? std::make_optional(std::move(copy)) : std::nullopt;
}

} // namespace

choices::FileChoices RandomChoices::next()
{
    choices::FileChoices choices;
    std::vector<struct_FilenameDevice> files = m_files; // modules are linked on the way
    std::vector<std::pair<std::size_t, std::size_t>> devices;
    for (std::size_t file = 0; file < files.size(); ++file)
        for (std::size_t device = 0; device < files[file].device.size(); ++device)
            devices.emplace_back(file, device);
    std::vector<std::uint32_t> order(devices.size());
    std::iota(order.begin(), order.end(), 0U);
    std::shuffle(order.begin(), order.end(), m_chance);
    DeviceClicks clicks;
    const std::uint32_t share = happens(50) ? 70 : 20;
    for (const std::uint32_t number : order) {
        if (happens(40)) {
            if (!choices.exported.has_value())
                choices.exported.emplace();
            choices.exported->push_back(QString::number(number + 1));
        }
        if (!happens(share))
            continue;
        choices::DeviceChoices ofDevice;
        ofDevice.device = QString::number(number + 1);
        const auto [file, device] = devices[number];
        chooseDevice(files[file], files[file].device[device], clicks, ofDevice);
        choices.devices.push_back(std::move(ofDevice));
    }
    if (happens(60))
        choices.exported.reset();
    return choices;
}

void RandomChoices::chooseDevice(struct_FilenameDevice& file, const struct_EtherCatDevice& device, DeviceClicks& clicks,
                                 choices::DeviceChoices& choices)
{
    const choices::DeviceChoices nothing = choices;
    chooseSettings(device, choices);
    if (happens(8)) {
        choices.isClicked = false;
    } else if (happens(8)) {
        choices.lastType = static_cast<std::uint16_t>(below(lastType + 1U));
        choices.driveAxes.reset(); // it is for the last type
    }
    if (choices.isClicked && !choices.lastType.has_value())
        chooseModules(file, device, choices);
    chooseModuleLinks(file, choices);
    DeviceClicks trial = clicks;
    std::optional<struct_EtherCatDevice> made = after(choices, file, device, trial);
    if (!made.has_value()) { // a module that needs a sync manager which is not there, for one
        choices = nothing;
        trial = clicks;
        made = after(choices, file, device, trial);
    }
    clicks = trial;
    if (!made.has_value())
        return;
    chooseSyncManagers(*made, choices);
    chooseEntries(*made, choices);
    chooseStartup(*made, choices);
}

void RandomChoices::chooseSettings(const struct_EtherCatDevice& device, choices::DeviceChoices& choices)
{
    if (happens(20))
        choices.takesModuleList = happens(50);
    if (happens(40))
        choices.deviceType = static_cast<std::uint16_t>(below(lastType + 1U));
    if (typeOf(device, choices) == KTL_DEVICE_TYPE_MultiDriver && happens(40))
        choices.driveAxes = static_cast<std::uint16_t>(below(0x10000));
    if (!device.vopmode.empty() && happens(40))
        for (std::uint32_t count = 1 + below(3); count > 0; --count)
            choices.dcModes.push_back({below(device.vopmode.size()), QString()});
}

void RandomChoices::chooseModules(const struct_FilenameDevice& file, const struct_EtherCatDevice& device,
                                  choices::DeviceChoices& choices)
{
    if (moduleRefusal(typeOf(device, choices)).has_value() || happens(30))
        return;
    const std::vector<const struct_module*> modules = modulesOf(file);
    const std::uint32_t share = happens(30) ? 90 : 30;
    std::uint32_t place = 0;
    for (const struct_Slot& slot : device.Slots.vslot) {
        std::vector<std::size_t> accepted;
        for (std::size_t row = 0; row < modules.size(); ++row)
            if (acceptsModule(slot, modules[row]->TypeAttributes.ModuleIdent))
                accepted.push_back(row);
        for (std::uint32_t ofSlot = 0; ofSlot < slot.Attributes.MaxInstances; ++ofSlot, ++place) {
            if (!happens(share))
                continue;
            choices::ModuleChoice& choice = choices.modules.emplace_back();
            choice.place = place;
            if (!accepted.empty() && happens(70))
                choice.module = nameAt(modules, accepted[below(accepted.size())]);
        }
    }
}

void RandomChoices::chooseModuleLinks(const struct_FilenameDevice& file, choices::DeviceChoices& choices)
{
    const std::vector<const struct_module*> modules = modulesOf(file);
    if (modules.empty() || !happens(30))
        return;
    const std::size_t row = below(modules.size());
    std::uint32_t pdoRow = 0;
    forEachPdoList(*modules[row], [&](const auto& pdos, PdoDirection direction) {
        const std::vector<LinkText> offered = linksFor(direction);
        for (const auto& pdo : pdos) {
            for (std::uint32_t position = 0; position < pdo.vEntry.size(); ++position) {
                if (!happens(30))
                    continue;
                choices::LinkChoice& choice = choices.moduleLinks.emplace_back();
                choice.module = nameAt(modules, row);
                choice.pdoRow = pdoRow;
                choice.entryPosition = position;
                choice.link = offered[below(offered.size())].link;
            }
            ++pdoRow;
        }
    });
}

void RandomChoices::chooseSyncManagers(const struct_EtherCatDevice& device, choices::DeviceChoices& choices)
{
    for (std::uint32_t row = 0; row < device.vSM.size(); ++row)
        if (happens(15)) {
            choices::SyncManagerChoice& choice = choices.syncManagers.emplace_back();
            choice.row = row;
            choice.minSize = static_cast<std::uint16_t>(below(0x10000));
        }
}

void RandomChoices::chooseEntries(const struct_EtherCatDevice& device, choices::DeviceChoices& choices)
{
    std::uint32_t rows = 0;
    forEachPdoList(device, [&](const auto& pdos, PdoDirection) { rows += static_cast<std::uint32_t>(pdos.size()); });
    for (std::uint32_t row = 0; row < rows; ++row)
        if (happens(25))
            chooseEntriesOf(row, device, choices);
}

void RandomChoices::chooseEntriesOf(std::uint32_t row, const struct_EtherCatDevice& device,
                                    choices::DeviceChoices& choices)
{
    const std::uint32_t removed = happens(15) ? 100 : 15;
    visitPdoRow(device, static_cast<int>(row), [&](const auto& pdo, PdoDirection direction) {
        const std::vector<LinkText> offered = linksFor(direction);
        for (std::uint32_t position = 0; position < entriesOf(pdo).size(); ++position) {
            choices::EntryName name;
            name.pdoRow = row;
            name.entryPosition = position;
            if (happens(40))
                choices.links.push_back({{}, name, {}, offered[below(offered.size())].link});
            if (happens(removed))
                choices.removedEntries.push_back({{}, name, 0});
            while (happens(15))
                choices.addedEntries.push_back({{}, name, offered[below(offered.size())].link});
        }
    });
}

void RandomChoices::setValues(choices::StartupChoice& choice)
{
    choice.index = below(0x10000);
    choice.subIndex = below(0x100);
    choice.isUnchecked = happens(20);
    choice.dataBytes = choice.isUnchecked ? below(0x10000) : 1 + below(4);
    const auto data = static_cast<std::uint32_t>(m_chance());
    choice.data = choice.isUnchecked || choice.dataBytes == 4 ? data : data % (1U << (*choice.dataBytes * 8));
}

void RandomChoices::chooseStartup(const struct_EtherCatDevice& device, choices::DeviceChoices& choices)
{
    std::uint32_t rows = 0;
    forEachStartupList(device, [&](const auto&, std::uint16_t count, StartupList) { rows += count; });
    const std::uint32_t removed = happens(10) ? 90 : 5;
    for (std::uint32_t row = 0; row < rows; ++row) {
        choices::StartupChoice choice;
        choice.row = row;
        if (happens(removed)) {
            choices.removedCommands.push_back(choice);
        } else if (happens(10)) {
            setValues(choice);
            choices.changedCommands.push_back(choice);
        }
        while (happens(8)) {
            choice = {};
            choice.row = row;
            setValues(choice);
            choices.addedCommands.push_back(choice);
        }
    }
}
