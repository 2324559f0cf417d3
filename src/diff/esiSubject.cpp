#include "diff/esiSubject.h"

#include "model/valueTexts.h"

#include <QString>

#include <algorithm>

namespace diff {

namespace {

DeviceTraits traitsOf(const struct_EtherCatDevice& device)
{
    const CoeAttributes& coe = device.Mailbox.COE.Attributes;
    const EoeAttributes& eoe = device.Mailbox.EOE.Attributes;
    DeviceTraits traits;
    traits.serial = device.TypeAttributes.Serial_No;
    traits.checkProductCode = device.TypeAttributes.CheckProductCode;
    traits.deviceType = device.m_iDeviceType;
    traits.driveAxes = device.m_iDriveAxies;
    traits.hasSdoInfo = coe.SdoInfo;
    traits.canUploadPdos = coe.PdoUpload;
    traits.canConfigurePdos = coe.PdoConfig;
    traits.hasSegmentedSdo = coe.SegmentedSdo;
    traits.hasDiagnosisHistory = coe.DiagHistory;
    traits.isEoeIp = eoe.IP;
    traits.isEoeMac = eoe.MAC;
    return traits;
}

SlotListTraits slotListOf(const SlotsAttributes& attributes)
{
    SlotListTraits list;
    list.isThere = true;
    list.sendsIdents = attributes.DownloadModuleIdentList;
    list.sendsAddresses = attributes.DownloadModuleAddressList;
    list.indexStep = attributes.SlotIndexIncrement;
    list.pdoStep = attributes.SlotPdoIncrement;
    list.groups = attributes.m_MaxSlotGroupCount;
    list.most = attributes.m_MaxSlotCount;
    list.groupIndexStep = attributes.m_SlotGroupIndexIncrement;
    list.groupPdoStep = attributes.m_SlotGroupPdoIncrement;
    list.identifiedBy = attributes.IdentifyModuleBy;
    list.transition = tokenText(attributes.m_DownloadModuleListTransition).toStdString();
    return list;
}

SlotTraits slotOf(const struct_Slot& record, facts::Where where)
{
    SlotTraits traits;
    traits.where = where;
    traits.name = record.Name;
    traits.least = record.Attributes.MinInstances;
    traits.most = record.Attributes.MaxInstances;
    traits.indexStep = record.Attributes.SlotIndexIncrement;
    traits.pdoStep = record.Attributes.SlotPdoIncrement;
    traits.group = record.Attributes.m_SlotGroup;
    for (const struct_ModuleClass& moduleClass : record.ModuleClass)
        if (!moduleClass.Class.empty()) // there is a record for each node in the element
            traits.classes.emplace_back(moduleClass.Class);
    for (const struct_ModuleIdent& ident : record.ModuleIdent)
        traits.idents.push_back({ident.ModuleIdent, ident.Attributes.Default != 0});
    return traits;
}

} // namespace

Subject esiSubjectOf(const facts::EsiFileFacts& facts, const struct_FilenameDevice& file,
                     const std::vector<facts::SlotFacts>& slotFacts, std::size_t index)
{
    const struct_EtherCatDevice& device = file.device[index];
    Subject subject;
    subject.unit = &facts.units[index];
    subject.traits = traitsOf(device);
    const auto first = std::partition_point(slotFacts.begin(), slotFacts.end(),
                                            [&](const facts::SlotFacts& slot) { return slot.device.index < index; });
    for (auto slot = first; slot != slotFacts.end() && slot->device.index == index; ++slot) {
        if (!subject.slotList.isThere) {
            subject.slotList = slotListOf(device.Slots.Attributes);
            subject.slotList.where = slot->slotList.placeKey();
        }
        subject.slotTraits.push_back(slotOf(*slot->record, slot->element.placeKey()));
        for (const struct_slotmodule& placed : slot->record->slotmodule)
            subject.placed.push_back(
                {slot->element.placeKey(), slot->number, placed.module.TypeAttributes.ModuleIdent});
    }
    subject.image = facts::processImageOf(*subject.unit);
    return subject;
}

} // namespace diff
