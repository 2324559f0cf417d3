#include "show/showSlots.h"

#include "show/showWords.h"

namespace show {

namespace {

Object classMembers(const struct_ModuleClass& moduleClass)
{
    return {{"class", text(moduleClass.Class)}, {"name", text(moduleClass.Name)}};
}

/// The classes of a slot for people. The model has a record for each element of a class, its `Class` and its `Name`;
/// here a name goes with the class before it.
Value readableClasses(const std::vector<struct_ModuleClass>& records)
{
    std::vector<struct_ModuleClass> classes;
    for (const struct_ModuleClass& record : records) {
        const bool isNameAlone = record.Class.empty() && !record.Name.empty();
        if (isNameAlone && !classes.empty() && classes.back().Name.empty())
            classes.back().Name = record.Name;
        else if (isNameAlone || !record.Class.empty())
            classes.push_back(record);
    }
    std::vector<Value> values;
    values.reserve(classes.size());
    for (const struct_ModuleClass& moduleClass : classes)
        values.push_back({classMembers(moduleClass)});
    return listOf(std::move(values));
}

Object identMembers(const struct_ModuleIdent& ident)
{
    return {{"ident", hexadecimal(ident.ModuleIdent)}, {"default", yesNoNumber(ident.Attributes.Default)}};
}

/// The module itself is a copy of that in its group.
Object slotModuleMembers(const struct_slotmodule& placed)
{
    return {{"instances", decimal(placed.Instances)},
            {"ident", hexadecimal(placed.module.TypeAttributes.ModuleIdent)},
            {"name", text(placed.module.Name)}};
}

Object slotMembers(const struct_Slot& slot, Detail detail)
{
    const SlotAttributes& attributes = slot.Attributes;
    return {{"name", text(slot.Name)},
            {"minInstances", decimal(attributes.MinInstances)},
            {"maxInstances", decimal(attributes.MaxInstances)},
            {"slotIndexIncrement", hexadecimal(attributes.SlotIndexIncrement)},
            {"slotPdoIncrement", hexadecimal(attributes.SlotPdoIncrement)},
            {"slotGroup", decimal(attributes.m_SlotGroup)},
            {"slotGroupIndexIncrement", hexadecimal(attributes.m_SlotGroupIndexIncrement)},
            {"slotGroupPdoIncrement", hexadecimal(attributes.m_SlotGroupPdoIncrement)},
            {"moduleClasses",
             detail == Detail::ForPeople ? readableClasses(slot.ModuleClass) : listOf(slot.ModuleClass, classMembers)},
            {"moduleIdents", listOf(slot.ModuleIdent, identMembers)},
            {"modules", listOf(slot.slotmodule, slotModuleMembers)}};
}

} // namespace

Object slotsMembers(const DeviceSlots& deviceSlots, Detail detail)
{
    const SlotsAttributes& attributes = deviceSlots.Attributes;
    const auto slotOf = [detail](const struct_Slot& slot) { return slotMembers(slot, detail); };
    return {{"downloadModuleIdentList", flag(attributes.DownloadModuleIdentList)},
            {"downloadModuleAddressList", flag(attributes.DownloadModuleAddressList)},
            {"downloadModuleListTransition", text(tokenName(attributes.m_DownloadModuleListTransition))},
            {"identifyModuleBy", text(attributes.IdentifyModuleBy)},
            {"maxSlotCount", decimal(attributes.m_MaxSlotCount)},
            {"maxSlotGroupCount", decimal(attributes.m_MaxSlotGroupCount)},
            {"slotIndexIncrement", hexadecimal(attributes.SlotIndexIncrement)},
            {"slotPdoIncrement", hexadecimal(attributes.SlotPdoIncrement)},
            {"slotGroupIndexIncrement", hexadecimal(attributes.m_SlotGroupIndexIncrement)},
            {"slotGroupPdoIncrement", hexadecimal(attributes.m_SlotGroupPdoIncrement)},
            {"list", listOf(deviceSlots.vslot, slotOf)}};
}

} // namespace show
