// passes.cpp - the passes over a file that was just read, by their fixed names and in the order of their calls.
#include "esi/derivation/moduleDefaults.h"
#include "esi/derivation/modulesByIdent.h"
#include "esi/derivation/oversampling.h"
#include "esi/derivation/slotIncrements.h"
#include "esi/derivation/smLengths.h"
#include "esi/derivation/startupCommands.h"
#include "esi/xmlparsing.h"
#include "model/missingSyncManager.h"

namespace {

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
    forEachDevice(file, [](struct_EtherCatDevice& device) {
        appendDeviceStartup(device);
        appendModuleStartup(device, atLoadTime);
    });
}

void device_sm_defalutset(struct_FilenameDevice* file)
{
    forEachDevice(file, computeLengths);
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
