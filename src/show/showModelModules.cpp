// showModelModules.cpp - what devices and modules have in common, slots, and the modules themselves.
#include "editing/linkTexts.h"
#include "model/pdoAccess.h"
#include "model/startupAccess.h"
#include "show/showModel.h"
#include "show/showWords.h"

namespace {

/// What entries of devices and of modules have in common.
template<typename Entry> ShowObject commonEntryMembers(const Entry& entry)
{
    return {{"index", hexadecimal(indexOf(entry))},
            {"subIndex", decimal(entry.SubIndex)},
            {"bitLength", decimal(bitLengthOf(entry))},
            {"offset", fraction(entry.Offs)},
            {"name", text(entry.Name)},
            {"dataType", text(entry.DataType)},
            {"link", decimal(entry.Linkto)},
            {"linkName", text(linkText(entry.Linkto).toStdString())},
            {"defaultData", decimal(entry.DefaultData)}};
}

ShowObject with(ShowObject members, ShowObject more)
{
    for (ShowMember& member : more)
        members.push_back(std::move(member));
    return members;
}

ShowObject entryMembers(const struct_EntryPDOContent& entry)
{
    return with(commonEntryMembers(entry), {{"fixed", flag(entry.Attributes.Fixed)}});
}

ShowObject entryMembers(const struct_moduleEntry& entry)
{
    return with(commonEntryMembers(entry), {{"dependOnSlot", flag(entry.indexAttributes.DependOnSlot)},
                                            {"dependOnSlotGroup", flag(entry.indexAttributes.m_DependOnSlotGroup)},
                                            {"comment", text(entry.Comment)}});
}

/// What PDOs of devices and of modules have in common.
template<typename Pdo> ShowObject commonPdoMembers(const Pdo& pdo)
{
    return {{"index", hexadecimal(indexOf(pdo))},
            {"name", text(pdo.Name)},
            {"fixed", flag(pdo.Attributes.Fixed)},
            {"mandatory", flag(pdo.Attributes.Mandatory)},
            {"syncManager", decimal(pdo.Attributes.SM)},
            {"syncUnit", decimal(pdo.Attributes.SU)},
            {"size", fraction(sizeOf(pdo))}};
}

/// @param choiceRow  of the PDO
template<typename Pdo> ShowMember entriesMember(const Pdo& pdo, const std::optional<std::int64_t>& choiceRow)
{
    const bool hasRow = choiceRow.has_value();
    return {"entries", {ShowList{entriesOf(pdo).size(), [&pdo, hasRow](std::size_t index) -> ShowValue {
                                     const auto position = static_cast<std::int64_t>(index);
                                     return {with(entryMembers(entriesOf(pdo)[index]),
                                                  {{"choiceEntry", hasRow ? decimal(position) : ShowValue()}})};
                                 }}}};
}

ShowObject pdoMembers(const struct_PDOList& pdo, const std::optional<std::int64_t>& choiceRow)
{
    const PdoAttributes& attributes = pdo.Attributes;
    return with(commonPdoMembers(pdo), {{"oversamplingFactor", decimal(attributes.m_OSFac)},
                                        {"oversamplingMin", decimal(attributes.m_OSMin)},
                                        {"oversamplingMax", decimal(attributes.m_OSMax)},
                                        {"oversamplingIndexIncrement", decimal(attributes.m_OSIndexInc)},
                                        {"choicePdo", optionalNumber(choiceRow)},
                                        entriesMember(pdo, choiceRow)});
}

ShowObject pdoMembers(const modulePdo& pdo, const std::optional<std::int64_t>& choiceRow)
{
    return with(commonPdoMembers(pdo), {{"dependOnSlot", flag(pdo.indexAttributes.DependOnSlot)},
                                        {"dependOnSlotGroup", flag(pdo.indexAttributes.DependOnSlotGroup)},
                                        {"instances", decimal(pdo.Instances)},
                                        {"choicePdo", optionalNumber(choiceRow)},
                                        entriesMember(pdo, choiceRow)});
}

template<typename Pdo>
ShowValue pdoList(const std::vector<Pdo>& pdos, const std::optional<std::int64_t>& firstChoiceRow)
{
    return {ShowList{pdos.size(), [&pdos, firstChoiceRow](std::size_t index) -> ShowValue {
                         std::optional<std::int64_t> row = firstChoiceRow;
                         if (row)
                             *row += static_cast<std::int64_t>(index);
                         return {pdoMembers(pdos[index], row)};
                     }}};
}

/// What commands of devices and of modules have in common.
template<typename Command> ShowObject commonCommandMembers(const Command& command)
{
    const auto valueOf = [](unsigned int value) { return hexadecimal(value); };
    return {{"transition", decimal(command.Transition)},
            {"transitionName", text(tokenName(command.Transition))},
            {"index", hexadecimal(indexOf(command))},
            {"subIndex", decimal(command.SubIndex)},
            {"completeAccess", decimal(command.bIfCA)},
            {"dataBytes", decimal(command.DataBytes)},
            {"data", bothForms(command.Data)},
            {"values", listOf(command.m_CADataList, valueOf)},
            {"text", text(command.strData)},
            {"comment", text(command.Comment)}};
}

ShowObject moduleCommandMembers(const struct_moduleInitCmd& command)
{
    const ModuleInitCmdIndex& index = command.indexAttributes;
    return with(commonCommandMembers(command), {{"dependOnSlot", flag(index.DependOnSlot)},
                                                {"dependOnSlotGroup", flag(index.DependOnSlotGroup)},
                                                {"adaptAutomatically", flag(index.AdaptAutomatically)},
                                                {"instances", decimal(command.Instances)}});
}

ShowObject classMembers(const struct_ModuleClass& moduleClass)
{
    return {{"class", text(moduleClass.Class)}, {"name", text(moduleClass.Name)}};
}

/// The classes of a slot for people. The model has a record for each element of a class, its `Class` and its `Name`;
/// here a name goes with the class before it.
ShowValue readableClasses(const std::vector<struct_ModuleClass>& records)
{
    std::vector<struct_ModuleClass> classes;
    for (const struct_ModuleClass& record : records) {
        const bool isNameAlone = record.Class.empty() && !record.Name.empty();
        if (isNameAlone && !classes.empty() && classes.back().Name.empty())
            classes.back().Name = record.Name;
        else if (isNameAlone || !record.Class.empty())
            classes.push_back(record);
    }
    std::vector<ShowValue> values;
    values.reserve(classes.size());
    for (const struct_ModuleClass& moduleClass : classes)
        values.push_back({classMembers(moduleClass)});
    return listOf(std::move(values));
}

ShowObject identMembers(const struct_ModuleIdent& ident)
{
    return {{"ident", hexadecimal(ident.ModuleIdent)}, {"default", yesNoNumber(ident.Attributes.Default)}};
}

/// The module itself is a copy of that in its group.
ShowObject slotModuleMembers(const struct_slotmodule& standing)
{
    return {{"instances", decimal(standing.Instances)},
            {"ident", hexadecimal(standing.module.TypeAttributes.ModuleIdent)},
            {"name", text(standing.module.Name)}};
}

ShowObject slotMembers(const struct_Slot& slot, ShowDetail detail)
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
            {"moduleClasses", detail == ShowDetail::ForPeople ? readableClasses(slot.ModuleClass)
                                                              : listOf(slot.ModuleClass, classMembers)},
            {"moduleIdents", listOf(slot.ModuleIdent, identMembers)},
            {"modules", listOf(slot.slotmodule, slotModuleMembers)}};
}

ShowObject moduleMembers(const struct_module& module, ShowDetail detail)
{
    const ModuleTypeAttributes& type = module.TypeAttributes;
    const auto firstInput = static_cast<std::int64_t>(module.RxPdo.vpdo.size());
    return {{"name", text(module.Name)},
            {"type", text(type.Name)},
            {"ident", hexadecimal(type.ModuleIdent)},
            {"moduleClass", text(type.ModuleClass)},
            {"pdoGroup", decimal(type.ModulePdoGroup)},
            {"sraParameterSupported", flag(type.SRA_ParamterSupported)},
            {"profileNo", decimal(module.m_profileNO)},
            {"rxPdos", pdosOf(module.RxPdo.vpdo, 0)},
            {"txPdos", pdosOf(module.TxPdo.vpdo, firstInput)},
            {"commands", commandList(module.Mailbox.COE.vinitcmd)},
            {"dictionary", {dictionaryMembers(module.Dictionary.vdatatype, module.Dictionary.vobject, detail)}}};
}

} // namespace

ShowValue pdosOf(const std::vector<struct_PDOList>& pdos, const std::optional<std::int64_t>& firstChoiceRow)
{
    return pdoList(pdos, firstChoiceRow);
}

ShowValue pdosOf(const std::vector<modulePdo>& pdos, const std::optional<std::int64_t>& firstChoiceRow)
{
    return pdoList(pdos, firstChoiceRow);
}

ShowValue commandList(const std::vector<struct_InitCmd>& commands)
{
    return listOf(commands, commonCommandMembers<struct_InitCmd>);
}

ShowValue commandList(const std::vector<struct_moduleInitCmd>& commands)
{
    return listOf(commands, moduleCommandMembers);
}

ShowObject slotsMembers(const DeviceSlots& deviceSlots, ShowDetail detail)
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

ShowValue moduleGroups(const struct_FilenameDevice& file, ShowDetail detail)
{
    return listOf(file.vcommentmodule, [detail](const struct_commentmodule& group) -> ShowObject {
        const auto moduleOf = [detail](const struct_module& module) { return moduleMembers(module, detail); };
        return {{"comment", text(group.comment)}, {"modules", listOf(group.vmodule, moduleOf)}};
    });
}
