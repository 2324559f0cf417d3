#include "esi/derivation/moduleInSlot.h"

#include "model/deviceType.h"

#include <cstdint>
#include <vector>

namespace {

/// How far the indexes of one kind move: by the slot, or by its group.
struct IndexShift
{
    std::uint16_t bySlot = 0;
    std::uint16_t byGroup = 0;
};

struct Shifts
{
    IndexShift pdos; ///< of PDO indexes
    IndexShift objects; ///< of object indexes, in entries and startup commands
};

/// Steps times increment, in 16 bits: it wraps like the indexes themselves.
std::uint16_t shiftBy(std::int32_t steps, std::uint32_t increment)
{
    return static_cast<std::uint16_t>(static_cast<std::uint32_t>(steps) * increment);
}

std::uint32_t firstNotZero(std::uint32_t ofSlot, std::uint32_t ofDevice)
{
    return ofSlot != 0 ? ofSlot : ofDevice;
}

/// A module moves either by its slot or, in a slot that belongs to a group, by that group; the other shift stays 0, so
/// an index that depends on the one that is not in use does not move.
Shifts shiftsOf(const DeviceSlots& deviceSlots, const SlotAttributes& slot, int place)
{
    const SlotsAttributes& device = deviceSlots.Attributes;
    Shifts shifts;
    if (device.m_MaxSlotGroupCount == 0 || slot.m_SlotGroup < 0) {
        shifts.pdos.bySlot = shiftBy(place, firstNotZero(slot.SlotPdoIncrement, device.SlotPdoIncrement));
        shifts.objects.bySlot = shiftBy(place, firstNotZero(slot.SlotIndexIncrement, device.SlotIndexIncrement));
    } else {
        shifts.pdos.byGroup = shiftBy(slot.m_SlotGroup, slot.m_SlotGroupPdoIncrement);
        shifts.objects.byGroup = shiftBy(slot.m_SlotGroup, slot.m_SlotGroupIndexIncrement);
    }
    return shifts;
}

/// Moves an index by what it depends on; it wraps at 16 bits.
void moveIndex(std::uint16_t& index, bool dependsOnSlot, bool dependsOnGroup, const IndexShift& shift)
{
    if (dependsOnSlot)
        index = static_cast<std::uint16_t>(index + shift.bySlot);
    else if (dependsOnGroup)
        index = static_cast<std::uint16_t>(index + shift.byGroup);
}

modulePdo placed(modulePdo pdo, const Shifts& shifts, int place)
{
    ModulePdoIndex& pdoIndex = pdo.indexAttributes;
    moveIndex(pdoIndex.index, pdoIndex.DependOnSlot, pdoIndex.DependOnSlotGroup, shifts.pdos);
    for (struct_moduleEntry& entry : pdo.vEntry) {
        ModuleEntryIndex& entryIndex = entry.indexAttributes;
        moveIndex(entryIndex.index, entryIndex.DependOnSlot, entryIndex.m_DependOnSlotGroup, shifts.objects);
    }
    pdo.Instances = place;
    return pdo;
}

struct_moduleInitCmd placed(struct_moduleInitCmd command, const Shifts& shifts, int place)
{
    ModuleInitCmdIndex& index = command.indexAttributes;
    moveIndex(index.index, index.DependOnSlot, index.DependOnSlotGroup, shifts.objects);
    command.Instances = place;
    return command;
}

template<typename Record>
void appendPlaced(std::vector<Record>& to, const std::vector<Record>& declared, const Shifts& shifts, int place)
{
    for (const Record& record : declared)
        to.push_back(placed(record, shifts, place));
}

template<typename Record> void appendAll(std::vector<Record>& to, const std::vector<Record>& declared)
{
    to.insert(to.end(), declared.begin(), declared.end());
}

void emptyModuleLists(struct_EtherCatDevice& device)
{
    device.mRxPdo.mpdo.clear();
    device.mTxPdo.mpdo.clear();
    device.mMailbox.COE.vinitcmd.clear();
    device.mDictionary.mobject.clear();
    device.mDictionary.mdatatype.clear();
}

} // namespace

void bringIntoDevice(struct_EtherCatDevice& device, const struct_Slot& slot, const struct_module& module, int place)
{
    const Shifts shifts = shiftsOf(device.Slots, slot.Attributes, place);
    appendPlaced(device.mRxPdo.mpdo, module.RxPdo.vpdo, shifts, place);
    appendPlaced(device.mTxPdo.mpdo, module.TxPdo.vpdo, shifts, place);
    appendPlaced(device.mMailbox.COE.vinitcmd, module.Mailbox.COE.vinitcmd, shifts, place);
    appendAll(device.mDictionary.mobject, module.Dictionary.vobject);
    appendAll(device.mDictionary.mdatatype, module.Dictionary.vdatatype);
}

void rebuildModuleLists(struct_EtherCatDevice& device)
{
    if (device.Slots.vslot.empty())
        return;
    emptyModuleLists(device);
    // ODD, KEPT: for device types 0, 1 and 3 modules stay in their slots but bring nothing in. One would expect what
    // happens when a file is loaded, where default modules bring something into a device of type 3 as well. Set back to
    // another type, the device has its modules again. Pinned by tst_ModuleInSlot::typesWithoutModules.
    if (device.m_iDeviceType <= KTL_DEVICE_TYPE_SingleDriver || device.m_iDeviceType == KTL_DEVICE_TYPE_PnpIOBlock)
        return;
    for (const struct_Slot& slot : device.Slots.vslot)
        for (const struct_slotmodule& placedModule : slot.slotmodule)
            bringIntoDevice(device, slot, placedModule.module, placedModule.Instances);
}
