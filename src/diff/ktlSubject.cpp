#include "diff/ktlSubject.h"

#include "ktl/format/ktlCodes.h"

#include <utility>
#include <vector>

namespace diff {

namespace {

using facts::Where;

DeviceTraits traitsOf(const KtlDeviceBlock& block)
{
    DeviceTraits traits;
    traits.serial = block.general.m_iSerial_No;
    traits.deviceType = block.general.m_iDeviceType;
    traits.driveAxes = block.general.m_iDriveAxies;
    traits.hasSdoInfo = block.coe.m_bSdoInfo != 0;
    traits.canUploadPdos = block.coe.m_bPdoUpload != 0;
    traits.canConfigurePdos = block.coe.m_bPdoConfig != 0;
    traits.hasSegmentedSdo = block.coe.m_bSegmentedSdo != 0;
    traits.hasDiagnosisHistory = block.coe.m_bDiagHistory != 0;
    traits.isEoeIp = block.eoe.m_bIP != 0;
    traits.isEoeMac = block.eoe.m_bMAC != 0;
    traits.hasSdoSupport = block.general.m_bSdoSupport != 0;
    traits.countedSlots = block.general.m_iSlotCount;
    traits.countedModules = block.general.m_iModuleTypeMax;
    return traits;
}

/// The offsets of the items of a device that are of one type, in the order of the file.
std::vector<Where> offsetsOf(const KtlWalk& walk, const KtlBlockPlace& place, std::uint32_t type)
{
    std::vector<Where> offsets;
    for (std::size_t item = place.first; item < place.end; ++item)
        if (walk.items[item].type == type)
            offsets.push_back(static_cast<Where>(walk.items[item].offset));
    return offsets;
}

Where lastOf(const std::vector<Where>& offsets)
{
    return offsets.empty() ? 0 : offsets.back(); // of several items of a type the last one counts
}

void addSlots(Subject& subject, const KtlDeviceBlock& block, Where where)
{
    if (!block.deviceSlots.has_value())
        return;
    const struct_KTL_Slots& head = block.deviceSlots->head;
    SlotListTraits& list = subject.slotList;
    list.where = where;
    list.isThere = true;
    list.sendsIdents = head.m_bDownloadModuleIdentList != 0;
    list.sendsAddresses = head.m_bDownloadModuleIdentAddressList != 0;
    list.indexStep = head.m_iSlotIndexIncrement;
    list.pdoStep = head.m_iSlotPdoIncrement;
    for (const struct_KTL_SlotContent& record : block.deviceSlots->records) {
        SlotTraits& slot = subject.slotTraits.emplace_back();
        slot.where = where;
        slot.least = record.m_iMinInstances;
        slot.most = record.m_iMaxInstances;
        slot.indexStep = record.SlotIndexIncrement;
        slot.pdoStep = record.SlotPdoIncrement;
    }
}

void addPreset(Subject& subject, const KtlDeviceBlock& block, Where where)
{
    if (!block.preset.has_value())
        return;
    for (std::size_t place = 0; place < block.preset->records.size(); ++place)
        if (const std::uint32_t ident = block.preset->records[place].m_iModuleIdent; ident != 0)
            subject.placed.push_back({where, place, ident});
    subject.presetPdos = facts::presetPdosOf(block).pdos;
    for (facts::PdoFacts& pdo : subject.presetPdos) {
        pdo.where = where;
        for (facts::EntryFacts& entry : pdo.entries)
            entry.where = where;
    }
}

facts::PdoFacts pdoOf(const KtlModulePdo& record, Where where)
{
    facts::PdoFacts pdo;
    pdo.where = where;
    pdo.isInput = record.isInput;
    pdo.index = record.head.IndexAttributes;
    pdo.syncManager = record.head.SM;
    pdo.syncUnit = record.head.SU;
    pdo.isFixed = record.head.Fixed != 0;
    pdo.isMandatory = record.head.Mandatory != 0;
    for (const struct_KTL_modulePdoOne& entry : record.entries)
        pdo.entries.push_back(
            {where, entry.index, entry.DependOnSlot != 0, entry.SubIndex, entry.BitLen, {}, entry.LinkToData, {}});
    return pdo;
}

facts::UnitFacts moduleOf(const KtlModule& record, std::size_t index, Where where)
{
    facts::UnitFacts module;
    module.owner = {facts::OwnerKind::Module, index};
    module.where = where;
    module.isFromKtl = true;
    module.moduleIdent = record.attributes.ModuleIdent;
    module.modulePdoGroup = record.attributes.ModulePdoGroup;
    module.supportsSraParameters = record.attributes.SRA_ParamterSupported != 0;
    for (const KtlModulePdo& pdo : record.pdos)
        module.pdos.push_back(pdoOf(pdo, where));
    for (const struct_KTL_moduleStartupOne& command : record.commands) {
        facts::CommandFacts& made = module.commands.emplace_back();
        made.where = where;
        made.index = command.index;
        made.subIndex = command.SubIndex;
        made.bytes = command.m_DataBytes;
        made.data = command.Data;
        made.movesWithSlot = command.DependOnSlot != 0;
    }
    return module;
}

/// The lines of the names in a device after the first one, which is its own.
std::vector<std::string_view> moduleNamesIn(const KtlDeviceBlock& block)
{
    std::vector<std::string_view> names;
    if (!block.moreInfo.has_value())
        return names;
    std::string_view text = block.moreInfo->text;
    text = text.substr(0, text.find('\0'));
    for (std::size_t end = text.find('\n'); end != std::string_view::npos; end = text.find('\n')) {
        text.remove_prefix(end + 1);
        names.push_back(text.substr(0, text.find('\n')));
    }
    return names;
}

} // namespace

Subject ktlSubjectOf(const facts::KtlFacts& facts, std::size_t index)
{
    const KtlDeviceBlock& block = facts.blocks[index];
    const KtlBlockPlace& place = facts.places[index];
    Subject subject;
    subject.unit = &facts.units[index];
    subject.traits = traitsOf(block);
    addSlots(subject, block, lastOf(offsetsOf(facts.walk, place, KTL_ITEM_Slot)));
    addPreset(subject, block, lastOf(offsetsOf(facts.walk, place, KTL_ITEM_SlotPreConfig)));
    const std::vector<Where> modules = offsetsOf(facts.walk, place, KTL_ITEM_ModuleType);
    for (std::size_t module = 0; module < block.modules.size(); ++module)
        subject.modules.push_back(
            moduleOf(block.modules[module], module, module < modules.size() ? modules[module] : subject.unit->where));
    subject.moduleNames = moduleNamesIn(block);
    subject.image = facts::processImageOf(*subject.unit, subject.presetPdos);
    return subject;
}

} // namespace diff
