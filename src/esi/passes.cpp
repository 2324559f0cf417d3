// passes.cpp - the passes over a file that was just read, by their fixed names and in the order of their calls.
#include "esi/derivation/moduleDefaults.h"
#include "esi/derivation/modulesByIdent.h"
#include "esi/derivation/oversampling.h"
#include "esi/derivation/slotIncrements.h"
#include "esi/derivation/smLengths.h"
#include "esi/derivation/startupCommands.h"
#include "esi/esiFile.h"
#include "esi/xmlparsing.h"
#include "model/missingSyncManager.h"

#include <array>
#include <stdexcept>

namespace {

/// What a pass does to one device.
using DevicePass = void (*)(struct_EtherCatDevice& device, const ModulesByIdent& modules);

void takeStartup(struct_EtherCatDevice& device)
{
    appendDeviceStartup(device);
    appendModuleStartup(device, atLoadTime);
}

/// A pass that has no use for the modules of the file.
template<void (*Pass)(struct_EtherCatDevice&)>
void withoutModules(struct_EtherCatDevice& device, const ModulesByIdent& /*modules*/)
{
    Pass(device);
}

/// The order counts: slots are made uniform before modules move into them, oversampled PDOs are plain before they get
/// startup commands, and the lengths add up what is assigned in the end.
constexpr std::array<DevicePass, 5> passes{
    withoutModules<completeSlots>, withoutModules<expandOversampledPdos>, putInDefaultModules,
    withoutModules<takeStartup>,   withoutModules<computeLengths>,
};

/// Calls `change(device)` for each device of a file; a null file has none. An error says which device it is about.
template<typename Change> void forEachDevice(struct_FilenameDevice* file, Change change)
{
    if (file == nullptr)
        return;
    for (struct_EtherCatDevice& device : file->device)
        onDevice(device, [&] { change(device); });
}

} // namespace

void device_check_Slots(struct_FilenameDevice* file)
{
    forEachDevice(file, completeSlots);
}

void device_pdo_defalutset(struct_FilenameDevice* file)
{
    forEachDevice(file, expandOversampledPdos);
}

void device_slotmodule_defalutset(struct_FilenameDevice* file)
{
    if (file == nullptr)
        return;
    const ModulesByIdent modules(*file);
    forEachDevice(file, [&](struct_EtherCatDevice& device) { putInDefaultModules(device, modules); });
}

void device_startup_defalutset(struct_FilenameDevice* file)
{
    forEachDevice(file, takeStartup);
}

void device_sm_defalutset(struct_FilenameDevice* file)
{
    forEachDevice(file, computeLengths);
}

void completeFile(struct_FilenameDevice& file)
{
    const ModulesByIdent modules(file);
    for (const DevicePass pass : passes)
        forEachDevice(&file, [&](struct_EtherCatDevice& device) { pass(device, modules); });
}

std::vector<bool> completeDevices(struct_FilenameDevice& file)
{
    const ModulesByIdent modules(file);
    std::vector<bool> areComplete;
    for (struct_EtherCatDevice& device : file.device)
        try {
            for (const DevicePass pass : passes)
                pass(device, modules);
            areComplete.push_back(true);
        } catch (const std::out_of_range&) {
            areComplete.push_back(false);
        }
    return areComplete;
}

bool device_getmodule_byModuleIdent(struct_FilenameDevice* file, std::uint32_t ident, struct_module* out)
{
    if (file == nullptr || out == nullptr)
        return false;
    const struct_module* const module = ModulesByIdent(*file).find(ident);
    if (module == nullptr)
        return false;
    copyModule(*module, *out);
    return true;
}
