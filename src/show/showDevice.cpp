#include "show/showDevice.h"

#include "show/showStartup.h"
#include "show/showWords.h"

namespace show {

namespace {

std::vector<Value> textList(const std::vector<std::string>& words)
{
    std::vector<Value> values;
    values.reserve(words.size());
    for (const std::string& word : words)
        values.push_back(text(word));
    return values;
}

Object fmmuMembers(const struct_KTL_FmmuAttributes& record)
{
    return {{"type", decimal(record.m_iFmmuType)},
            {"typeName", text(directionName(record.m_iFmmuType))},
            {"syncManager", decimal(record.m_iSm)},
            {"syncUnit", decimal(record.m_iSu)},
            {"opOnly", flag(record.m_iOpOnly != 0)}};
}

Object syncManagerMembers(const struct_KTL_SmAttributes& record)
{
    return {{"startAddress", hexadecimal(record.m_iStartAddress)},
            {"minSize", decimal(record.m_iMinSize)},
            {"maxSize", decimal(record.m_iMaxSize)},
            {"defaultSize", decimal(record.m_iDefaultSize)},
            {"controlByte", hexadecimal(record.ControlByte)},
            {"enable", yesNoNumber(record.Enable)}};
}

Object modeMembers(const struct_KTL_DcAttributes& record)
{
    return {{"assignActivate", hexadecimal(record.AssignActivate)},
            {"bits", assignActivateBits(record.AssignActivate)}};
}

Object entryMembers(const struct_KTL_EntryPDOContent& record)
{
    return {{"index", hexadecimal(record.Index)},  {"subIndex", decimal(record.SubIndex)},
            {"bitLength", decimal(record.Bitlen)}, {"fixed", flag(record.m_bFixed != 0)},
            {"link", decimal(record.LinkToData)},  {"linkName", text(linkWords(record.LinkToData))}};
}

Object moduleEntryMembers(const struct_KTL_modulePdoOne& record)
{
    return {{"index", hexadecimal(record.index)},  {"subIndex", decimal(record.SubIndex)},
            {"bitLength", decimal(record.BitLen)}, {"dependOnSlot", flag(record.DependOnSlot != 0)},
            {"link", decimal(record.LinkToData)},  {"linkName", text(linkWords(record.LinkToData))}};
}

/// PDOs of devices and of modules, whose heads are the same.
/// @param entryMembersOf  members of one entry
template<typename Pdo, typename EntryMembers> Object pdoMembers(const Pdo& pdo, EntryMembers entryMembersOf)
{
    return {{"direction", text(pdo.isInput ? "input" : "output")},
            {"index", hexadecimal(pdo.head.IndexAttributes)},
            {"fixed", flag(pdo.head.Fixed != 0)},
            {"mandatory", flag(pdo.head.Mandatory != 0)},
            {"syncManager", decimal(pdo.head.SM)},
            {"syncUnit", decimal(pdo.head.SU)},
            {"entries", listOf(pdo.entries, entryMembersOf)}};
}

Object coeMembers(const struct_KTL_COE& coe)
{
    return {{"sdoInfo", flag(coe.m_bSdoInfo != 0)},           {"pdoAssign", flag(coe.m_bPdoAssign != 0)},
            {"pdoUpload", flag(coe.m_bPdoUpload != 0)},       {"pdoConfig", flag(coe.m_bPdoConfig != 0)},
            {"segmentedSdo", flag(coe.m_bSegmentedSdo != 0)}, {"completeAccess", flag(coe.m_bCompleteAccess != 0)},
            {"diagHistory", flag(coe.m_bDiagHistory != 0)}};
}

Object slotMembers(const struct_KTL_SlotContent& record)
{
    return {{"minInstances", decimal(record.m_iMinInstances)},
            {"maxInstances", decimal(record.m_iMaxInstances)},
            {"slotIndexIncrement", hexadecimal(record.SlotIndexIncrement)},
            {"slotPdoIncrement", hexadecimal(record.SlotPdoIncrement)}};
}

Value slotsOf(const std::optional<KtlSlots>& deviceSlots)
{
    if (!deviceSlots)
        return {};
    const struct_KTL_Slots& head = deviceSlots->head;
    return {Object{{"downloadModuleIdentList", flag(head.m_bDownloadModuleIdentList != 0)},
                   {"downloadModuleAddressList", flag(head.m_bDownloadModuleIdentAddressList != 0)},
                   {"slotIndexIncrement", hexadecimal(head.m_iSlotIndexIncrement)},
                   {"slotPdoIncrement", hexadecimal(head.m_iSlotPdoIncrement)},
                   {"list", listOf(deviceSlots->records, slotMembers)}}};
}

Value presetOf(const std::optional<KtlPreset>& preset)
{
    if (!preset)
        return {};
    const auto identOf = [](const struct_KTL_Slot_PreModuleIdent& record) {
        return hexadecimal(record.m_iModuleIdent);
    };
    return {Object{{"modulesInSlots", decimal(preset->head.m_iCountReal)},
                   {"moduleIdents", listOf(preset->records, identOf)}}};
}

/// A number below 100 in two digits, as in a date or time.
std::string twoDigits(std::uint32_t number)
{
    constexpr std::uint32_t firstOfTwo = 10;
    return (number < firstOfTwo ? "0" : "") + std::to_string(number);
}

/// Three parts of a number of decimal digits: 20261121 is "2026-11-21".
std::string threeParts(std::uint32_t number, char separator)
{
    constexpr std::uint32_t firstPlace = 10000;
    constexpr std::uint32_t secondPlace = 100;
    return twoDigits(number / firstPlace) + separator + twoDigits(number / secondPlace % secondPlace) + separator
           + twoDigits(number % secondPlace);
}

Value exportOf(const std::optional<KtlMoreInfo>& moreInfo)
{
    if (!moreInfo)
        return {};
    return {Object{{"date", text(threeParts(moreInfo->head.m_iDate, '-'))},
                   {"time", text(threeParts(moreInfo->head.m_iTime, ':'))},
                   {"formatVersion", hexadecimal(moreInfo->head.m_iVersion)}}};
}

Value namesOf(const std::optional<KtlMoreInfo>& moreInfo)
{
    if (!moreInfo)
        return {};
    std::vector<std::string> names(1);
    for (const char character : moreInfo->text) {
        if (character == '\n')
            names.emplace_back();
        else
            names.back() += character;
    }
    return listOf(textList(names));
}

Object moduleCommandMembers(const struct_KTL_moduleStartupOne& record)
{
    return {{"index", hexadecimal(record.index)},
            {"subIndex", decimal(record.SubIndex)},
            {"dependOnSlot", flag(record.DependOnSlot != 0)},
            {"dataBytes", decimal(record.m_DataBytes)},
            {"value", numberOf(record)},
            {"meaning", text(meaningOf(record))}};
}

Object moduleMembers(const KtlModule& module)
{
    const auto pdoOf = [](const KtlModulePdo& pdo) { return pdoMembers(pdo, moduleEntryMembers); };
    return {{"ident", hexadecimal(module.attributes.ModuleIdent)},
            {"pdoGroup", decimal(module.attributes.ModulePdoGroup)},
            {"sraParameterSupported", flag(module.attributes.SRA_ParamterSupported != 0)},
            {"pdos", listOf(module.pdos, pdoOf)},
            {"startup", listOf(module.commands, moduleCommandMembers)}};
}

} // namespace

Value assignActivateBits(std::uint32_t assignActivate)
{
    return listOf(textList(assignActivateWords(assignActivate)));
}

Object deviceMembers(const ShownDevice& device)
{
    const KtlDeviceBlock& block = device.block;
    const struct_KTL_EtherCatDeviceType& general = block.general;
    const auto pdoOf = [](const KtlPdo& pdo) { return pdoMembers(pdo, entryMembers); };
    return {{"run", decimal(static_cast<std::int64_t>(block.run))},
            {"vendorId", bothForms(general.m_iVendor_Id)},
            {"productCode", bothForms(general.m_iProduct_Code)},
            {"revisionNo", bothForms(general.m_iRevision_No)},
            {"serialNo", bothForms(general.m_iSerial_No)},
            {"deviceType", decimal(general.m_iDeviceType)},
            {"deviceTypeName", text(deviceTypeName(general.m_iDeviceType))},
            {"driveAxes", decimal(general.m_iDriveAxies)},
            {"sdoSupport", flag(general.m_bSdoSupport != 0)},
            {"slotCount", decimal(general.m_iSlotCount)},
            {"moduleCount", decimal(general.m_iModuleTypeMax)},
            {"names", namesOf(block.moreInfo)},
            {"export", device.isExported ? exportOf(block.moreInfo) : Value()},
            {"fmmus", listOf(block.fmmus, fmmuMembers)},
            {"syncManagers", listOf(block.syncManagers, syncManagerMembers)},
            {"dcModes", listOf(block.modes, modeMembers)},
            {"pdos", listOf(block.pdos, pdoOf)},
            {"eoe", {Object{{"ip", flag(block.eoe.m_bIP != 0)}, {"mac", flag(block.eoe.m_bMAC != 0)}}}},
            {"coe", {coeMembers(block.coe)}},
            {"startup", startupGroups(device)},
            {"slots", slotsOf(block.deviceSlots)},
            {"slotPreset", presetOf(block.preset)},
            {"modules", listOf(block.modules, moduleMembers)}};
}

} // namespace show
