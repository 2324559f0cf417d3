#include "ktl/reading/ktlReadItems.h"

#include "ktl/format/coeCommandCount.h"
#include "ktl/format/headSize.h"
#include "ktl/format/ktlFormat.h"
#include "model/byteBit.h"
#include "model/valueTexts.h"

#include <algorithm>
#include <array>
#include <string>
#include <utility>
#include <vector>

namespace {

// Texts never reach a KTL file: these replace them.
constexpr const char* nameless = "TEMP";
constexpr const char* moduleText = "Module";
constexpr const char* commandText = "IniCmd";

bool readGeneral(const KtlReadTarget& target, const ItemBytes& item)
{
    const auto general = item.at<struct_KTL_EtherCatDeviceType>(0);
    struct_EtherCatDevice& device = target.device;
    DeviceTypeAttributes& type = device.TypeAttributes;
    type.m_iVendor_Id = general.m_iVendor_Id;
    type.Product_Code = general.m_iProduct_Code;
    type.Revision_No = general.m_iRevision_No;
    type.Serial_No = general.m_iSerial_No;
    type.type = numberText(general.m_iDeviceType);
    device.m_iDeviceType = general.m_iDeviceType;
    device.m_iDriveAxies = general.m_iDriveAxies;
    device.Name = numberText(general.m_iProduct_Code);
    device.Mailbox.COE.Attributes.SdoInfo = general.m_bSdoSupport != 0;
    return true;
}

/// The role of a sync manager by its number.
/// ODD, KEPT: the first four are two mailboxes, outputs and inputs, whatever the device is, so process data of a device
/// without mailboxes counts as a mailbox. One would expect FMMUs or PDOs to be asked. Pinned by
/// tst_KtlReadItems::roleOfASyncManagerIsItsPlace.
std::uint8_t usualType(std::uint8_t number)
{
    constexpr std::uint8_t usualSyncManagers = 4;
    return number < usualSyncManagers ? static_cast<std::uint8_t>(KTL_MBoxOut + number)
                                      : static_cast<std::uint8_t>(KTL_UnknownType);
}

bool readSyncManagers(const KtlReadTarget& target, const ItemBytes& item)
{
    constexpr std::size_t headSize = headSizeOf<struct_KTL_SmType, struct_KTL_SmAttributes>;
    std::vector<struct_SM>& syncManagers = target.device.vSM;
    const auto made = [&](const struct_KTL_SmAttributes& record, std::size_t index) {
        struct_SM syncManager;
        syncManager.Attributes.StartAddress = record.m_iStartAddress;
        syncManager.Attributes.MinSize = record.m_iMinSize;
        syncManager.Attributes.MaxSize = record.m_iMaxSize;
        syncManager.Attributes.DefaultSize = record.m_iDefaultSize;
        syncManager.Attributes.ControlByte = record.ControlByte;
        syncManager.Attributes.Enable = record.Enable;
        syncManager.Length = static_cast<float>(record.m_iDefaultSize);
        syncManager.Name = std::to_string(index);
        syncManager.SM = static_cast<std::uint8_t>(syncManagers.size());
        syncManager.Smtype = usualType(syncManager.SM);
        return syncManager;
    };
    item.appendRecords<struct_KTL_SmAttributes>(syncManagers, headSize, item.at<struct_KTL_SmType>(0).m_iCount, made);
    return true;
}

bool readModes(const KtlReadTarget& target, const ItemBytes& item)
{
    constexpr std::size_t headSize = headSizeOf<struct_KTL_DcType, struct_KTL_DcAttributes>;
    const auto made = [&](const struct_KTL_DcAttributes& record, std::size_t index) {
        Struct_DCOpMode mode;
        mode.AssignActivate = record.AssignActivate;
        mode.Name = std::to_string(index);
        mode.Desc = mode.Name;
        return mode;
    };
    item.appendRecords<struct_KTL_DcAttributes>(target.device.vopmode, headSize, item.at<struct_KTL_DcType>(0).m_iCount,
                                                made);
    return true;
}

bool readFmmus(const KtlReadTarget& target, const ItemBytes& item)
{
    constexpr std::size_t headSize = headSizeOf<struct_KTL_FmmuType, struct_KTL_FmmuAttributes>;
    const auto made = [&](const struct_KTL_FmmuAttributes& record, std::size_t /*index*/) {
        Struct_Fmmu fmmu;
        fmmu.m_OpOnly = record.m_iOpOnly != 0;
        fmmu.m_Sm = record.m_iSm;
        fmmu.m_Su = record.m_iSu;
        fmmu.m_FmmuType = record.m_iFmmuType;
        return fmmu;
    };
    item.appendRecords<struct_KTL_FmmuAttributes>(target.device.vFmmu, headSize,
                                                  item.at<struct_KTL_FmmuType>(0).m_iCount, made);
    return true;
}

/// What the heads of PDOs of devices and of modules have in common.
template<typename Head, typename Attributes> void takePdoAttributes(const Head& head, Attributes& to)
{
    to.SM = head.SM;
    to.SU = head.SU;
    to.Fixed = head.Fixed != 0;
    to.Mandatory = head.Mandatory != 0;
}

struct_PDOList pdoFrom(const ItemBytes& item, const char* name)
{
    constexpr std::size_t headSize = headSizeOf<struct_KTL_PDOListType, struct_KTL_EntryPDOContent>;
    const auto head = item.at<struct_KTL_PDOListType>(0);
    struct_PDOList pdo;
    takePdoAttributes(head, pdo.Attributes);
    pdo.IndexAttributes.Index = head.IndexAttributes;
    pdo.Name = name;
    std::int32_t bits = 0;
    const auto made = [&](const struct_KTL_EntryPDOContent& record, std::size_t /*index*/) {
        struct_EntryPDOContent entry;
        entry.Index = record.Index;
        entry.SubIndex = record.SubIndex;
        entry.Bitlen = record.Bitlen;
        entry.Attributes.Fixed = record.m_bFixed != 0;
        entry.Linkto = record.LinkToData;
        entry.Name = nameless;
        entry.DataType = nameless;
        entry.Offs = byteBitForm(bits);
        bits = addBits(bits, record.Bitlen);
        return entry;
    };
    item.appendRecords<struct_KTL_EntryPDOContent>(pdo.Entry.vPdo_c, headSize, head.m_iCount, made);
    pdo.Size = byteBitForm(bits);
    return pdo;
}

bool readRxPdo(const KtlReadTarget& target, const ItemBytes& item)
{
    target.device.RxPdo.vpdo.push_back(pdoFrom(item, "RPDO"));
    return true;
}

bool readTxPdo(const KtlReadTarget& target, const ItemBytes& item)
{
    target.device.TxPdo.vpdo.push_back(pdoFrom(item, "TPDO"));
    return true;
}

/// The values of complete accesses follow the commands and are not read: once one of them was left out for lack of
/// room, their commands are unknown.
bool readCoe(const KtlReadTarget& target, const ItemBytes& item)
{
    constexpr std::size_t headSize = headSizeOf<struct_KTL_COE, struct_KTL_InitCmd>;
    const auto head = item.at<struct_KTL_COE>(0);
    DeviceCoe& coe = target.device.Mailbox.COE;
    coe.Attributes.SdoInfo = head.m_bSdoInfo != 0;
    coe.Attributes.PdoAssign = head.m_bPdoAssign != 0;
    coe.Attributes.PdoUpload = head.m_bPdoUpload != 0;
    coe.Attributes.PdoConfig = head.m_bPdoConfig != 0;
    coe.Attributes.SegmentedSdo = head.m_bSegmentedSdo != 0;
    coe.Attributes.CompleteAccess = head.m_bCompleteAccess != 0;
    coe.Attributes.DiagHistory = head.m_bDiagHistory != 0;
    const auto made = [&](const struct_KTL_InitCmd& record, std::size_t /*index*/) {
        struct_InitCmd command;
        command.Transition = static_cast<NMTOKEN>(record.Transition);
        command.Index = record.Index;
        command.SubIndex = record.SubIndex;
        command.bIfCA = record.bIfCA;
        command.DataBytes = record.DataBytes;
        command.Data = record.Data;
        command.Comment = nameless;
        command.strData = numberText(record.Data);
        return command;
    };
    item.appendRecords<struct_KTL_InitCmd>(coe.InitCmd.vinitcmd, headSize, commandCount(head), made);
    return true;
}

bool readSlots(const KtlReadTarget& target, const ItemBytes& item)
{
    constexpr std::size_t headSize = headSizeOf<struct_KTL_Slots, struct_KTL_SlotContent>;
    const auto head = item.at<struct_KTL_Slots>(0);
    SlotsAttributes& attributes = target.device.Slots.Attributes;
    attributes.DownloadModuleIdentList = head.m_bDownloadModuleIdentList != 0;
    attributes.DownloadModuleAddressList = head.m_bDownloadModuleIdentAddressList != 0;
    attributes.SlotPdoIncrement = head.m_iSlotPdoIncrement;
    attributes.SlotIndexIncrement = head.m_iSlotIndexIncrement;
    attributes.IdentifyModuleBy = "0";
    const auto made = [&](const struct_KTL_SlotContent& record, std::size_t /*index*/) {
        struct_Slot slot;
        slot.Attributes.MinInstances = record.m_iMinInstances;
        slot.Attributes.MaxInstances = record.m_iMaxInstances;
        slot.Attributes.SlotIndexIncrement = record.SlotIndexIncrement;
        slot.Attributes.SlotPdoIncrement = record.SlotPdoIncrement;
        slot.Name = "slot";
        return slot;
    };
    item.appendRecords<struct_KTL_SlotContent>(target.device.Slots.vslot, headSize, head.m_iCurSlotCount, made);
    return true;
}

bool passOver(const KtlReadTarget& /*target*/, const ItemBytes& /*item*/)
{
    return true;
}

/// Whether a module of that ident is in a group that is closed already: a file repeats its modules for each device.
/// ODD, KEPT: only the first module of each closed group counts, not the open module. One would expect all; in a file
/// it is all, since each module closes the group before it. Pinned by tst_KtlReadModules::openModuleIsNotLookedAt.
bool isKnown(const struct_FilenameDevice* file, std::uint32_t moduleIdent)
{
    return file != nullptr
           && std::any_of(file->vcommentmodule.begin(), file->vcommentmodule.end(),
                          [moduleIdent](const struct_commentmodule& group) {
                              return !group.vmodule.empty()
                                     && group.vmodule.front().TypeAttributes.ModuleIdent == moduleIdent;
                          });
}

bool readModule(const KtlReadTarget& target, const ItemBytes& item)
{
    if (target.modules == nullptr)
        return false;
    const KtlModuleAttributes type = item.at<struct_KTL_moduleType>(0).TypeAttributes;
    struct_module module;
    module.TypeAttributes.ModuleIdent = type.ModuleIdent;
    module.TypeAttributes.ModulePdoGroup = static_cast<int>(type.ModulePdoGroup);
    module.TypeAttributes.SRA_ParamterSupported = type.SRA_ParamterSupported != 0;
    module.TypeAttributes.Name = moduleText;
    module.TypeAttributes.ModuleClass = moduleText;
    module.Name = nameless;
    target.modules->comment = moduleText;
    if (!isKnown(target.file, type.ModuleIdent))
        target.modules->vmodule.push_back(std::move(module));
    return true;
}

bool hasModule(const KtlReadTarget& target)
{
    return target.modules != nullptr && !target.modules->vmodule.empty();
}

modulePdo modulePdoFrom(const ItemBytes& item, const char* name)
{
    constexpr std::size_t headSize = headSizeOf<struct_KTL_moduleEntryType, struct_KTL_modulePdoOne>;
    const auto head = item.at<struct_KTL_moduleEntryType>(0);
    modulePdo pdo;
    takePdoAttributes(head, pdo.Attributes);
    pdo.indexAttributes.index = head.IndexAttributes;
    pdo.Name = name;
    const auto made = [&](const struct_KTL_modulePdoOne& record, std::size_t /*index*/) {
        struct_moduleEntry entry;
        entry.BitLen = record.BitLen;
        entry.indexAttributes.index = record.index;
        entry.indexAttributes.DependOnSlot = record.DependOnSlot != 0;
        entry.SubIndex = record.SubIndex;
        entry.Linkto = record.LinkToData;
        entry.Name = nameless;
        entry.DataType = nameless;
        entry.Comment = nameless;
        return entry;
    };
    item.appendRecords<struct_KTL_modulePdoOne>(pdo.vEntry, headSize, head.m_iCount, made);
    return pdo;
}

bool readModuleInputs(const KtlReadTarget& target, const ItemBytes& item)
{
    if (!hasModule(target))
        return target.modules != nullptr;
    target.modules->vmodule.back().TxPdo.vpdo.push_back(modulePdoFrom(item, "TPDO"));
    return true;
}

bool readModuleOutputs(const KtlReadTarget& target, const ItemBytes& item)
{
    if (!hasModule(target))
        return target.modules != nullptr;
    target.modules->vmodule.back().RxPdo.vpdo.push_back(modulePdoFrom(item, "RPDO"));
    return true;
}

bool readModuleCommands(const KtlReadTarget& target, const ItemBytes& item)
{
    constexpr std::size_t headSize = headSizeOf<struct_KTL_moduleInitCmdType, struct_KTL_moduleStartupOne>;
    if (!hasModule(target))
        return target.modules != nullptr;
    std::vector<struct_moduleInitCmd>& commands = target.modules->vmodule.back().Mailbox.COE.vinitcmd;
    const auto made = [&](const struct_KTL_moduleStartupOne& record, std::size_t /*index*/) {
        struct_moduleInitCmd command;
        command.indexAttributes.DependOnSlot = record.DependOnSlot != 0;
        command.indexAttributes.index = record.index;
        command.SubIndex = record.SubIndex;
        command.DataBytes = record.m_DataBytes;
        command.Data = record.Data;
        command.Comment = commandText;
        command.strData = commandText;
        return command;
    };
    item.appendRecords<struct_KTL_moduleStartupOne>(commands, headSize,
                                                    item.at<struct_KTL_moduleInitCmdType>(0).m_iCount, made);
    return true;
}

struct ItemReader
{
    std::uint32_t type;
    bool (*read)(const KtlReadTarget& target, const ItemBytes& item);
};

constexpr std::array itemReaders{
    ItemReader{KTL_ITEM_END, passOver},
    ItemReader{KTL_ITEM_General, readGeneral},
    ItemReader{KTL_ITEM_SM, readSyncManagers},
    ItemReader{KTL_ITEM_DC, readModes},
    ItemReader{KTL_ITEM_RxPdo, readRxPdo},
    ItemReader{KTL_ITEM_TxPdo, readTxPdo},
    ItemReader{KTL_ITEM_EoE, passOver},
    ItemReader{KTL_ITEM_CoE, readCoe},
    ItemReader{KTL_ITEM_Slot, readSlots},
    ItemReader{KTL_ITEM_EEPROM, passOver},
    ItemReader{KTL_ITEM_ObjectDetectType, passOver},
    ItemReader{KTL_ITEM_ObjectConfigType, passOver},
    ItemReader{KTL_ITEM_ObjectModule, passOver},
    ItemReader{KTL_ITEM_SubObjectType, passOver},
    ItemReader{KTL_ITEM_ModuleType, readModule},
    ItemReader{KTL_ITEM_FMMU, readFmmus},
    ItemReader{KTL_ITEM_ModuleRxPDOType, passOver},
    ItemReader{KTL_ITEM_ModuleTxPDOType, passOver},
    ItemReader{KTL_ITEM_ModuleTPDOEntryType, readModuleInputs},
    ItemReader{KTL_ITEM_ModuleRPDOEntryType, readModuleOutputs},
    ItemReader{KTL_ITEM_ModuleCoEInitCmdType, readModuleCommands},
};

} // namespace

bool applyItem(const KtlReadTarget& target, const ItemBytes& item)
{
    const std::uint32_t type = item.at<KtlItemHead>(0).m_iItemType;
    const auto* const reader = std::find_if(itemReaders.begin(), itemReaders.end(),
                                            [type](const ItemReader& candidate) { return candidate.type == type; });
    return reader != itemReaders.end() && reader->read(target, item);
}
