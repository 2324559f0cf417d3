#include "esi/derivation/moduleDefaults.h"

#include "esi/derivation/moduleInSlot.h"
#include "model/deviceType.h"
#include "model/profileNumbers.h"

#include <cstdint>
#include <utility>

namespace {

/// Counts a module as an axis, if its device is a multi-axis drive or becomes one by it.
/// ODD, KEPT: one drive module turns a coupler into a multi-axis drive, and from then on every module counts as an
/// axis, whatever its profile. One would expect the type to stay, and drive modules only to count. Pinned by
/// tst_ModuleDefaults::typeChangesDuringThePass.
void countAxis(struct_EtherCatDevice& device, const struct_module& module)
{
    if (module.m_profileNO == driveProfile)
        device.m_iDeviceType = KTL_DEVICE_TYPE_MultiDriver;
    if (device.m_iDeviceType == KTL_DEVICE_TYPE_MultiDriver)
        ++device.m_iDriveAxies;
}

/// Puts the default modules of one slot in; several defaults all take effect.
void fillSlot(struct_EtherCatDevice& device, struct_Slot& slot, std::uint16_t slotNumber, const ModulesByIdent& modules)
{
    for (const struct_ModuleIdent& ident : slot.ModuleIdent) {
        if (!isDefaultOf(slot, ident))
            continue;
        const struct_module* const module = modules.find(ident.ModuleIdent);
        if (module == nullptr)
            continue;
        struct_slotmodule placed;
        placed.Instances = slotNumber;
        copyModule(*module, placed.module);
        slot.slotmodule.push_back(std::move(placed));
        bringIntoDevice(device, slot, *module, slotNumber);
        countAxis(device, *module);
    }
}

} // namespace

void copyModule(const struct_module& from, struct_module& to)
{
    ModuleTypeAttributes type = from.TypeAttributes;
    if (type.Name.empty())
        type.Name = std::move(to.TypeAttributes.Name);
    if (type.ModuleClass.empty())
        type.ModuleClass = std::move(to.TypeAttributes.ModuleClass);
    to = from;
    to.TypeAttributes = std::move(type);
}

void putInDefaultModules(struct_EtherCatDevice& device, const ModulesByIdent& modules)
{
    // Tested once, at the start: the type may change while the slots are filled.
    const std::uint16_t type = device.m_iDeviceType;
    if (type == KTL_DEVICE_TYPE_IOBlock || type == KTL_DEVICE_TYPE_SingleDriver)
        return;
    // The modules are counted instead of the slots.
    // ODD, KEPT: the other types keep the number that they came with, and a drive module in them counts on from there,
    // where one would expect that they start from 0 too. Pinned by tst_ModuleDefaults::typeChangesDuringThePass.
    if (type == KTL_DEVICE_TYPE_MultiDriver || type == KTL_DEVICE_TYPE_PnpIOBlock)
        device.m_iDriveAxies = 0;
    std::uint16_t slotNumber = 0;
    for (struct_Slot& slot : device.Slots.vslot)
        fillSlot(device, slot, slotNumber++, modules);
}
