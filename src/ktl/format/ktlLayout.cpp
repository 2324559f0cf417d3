#include "ktl/format/ktlLayout.h"

#include "ktl/format/coeCommandCount.h"
#include "ktl/format/headSize.h"
#include "ktl/format/ktlFormat.h"

#include <algorithm>
#include <type_traits>
#include <utility>

namespace {

template<typename Type> constexpr KtlField fieldOf(const char* name, std::size_t offset)
{
    using Value = std::remove_extent_t<Type>;
    constexpr std::size_t count = std::is_array_v<Type> ? std::extent_v<Type> : 1;
    return {name, offset, sizeof(Value), count, std::is_signed_v<Value>, KtlMeaning::Number};
}

// A macro, since nothing else gives the name, place and type of a member at once; the name of a type takes no brackets.
// NOLINTNEXTLINE(bugprone-macro-parentheses)
#define KTL_FIELD(Record, member) fieldOf<decltype(std::declval<Record&>().member)>(#member, offsetof(Record, member))

/// Whether fields follow each other without a gap, up to the end of the record.
/// @param recordSize  bytes of the record, of a head those in front of its records
template<std::size_t Size> constexpr bool covers(const std::array<KtlField, Size>& fields, std::size_t recordSize)
{
    std::size_t end = 0;
    for (const KtlField& field : fields) {
        if (field.offset != end)
            return false;
        end = field.end();
    }
    return end == recordSize;
}

constexpr std::array itemHead{
    KTL_FIELD(KtlItemHead, m_iItemType),
    KTL_FIELD(KtlItemHead, m_iSize),
};
static_assert(covers(itemHead, sizeof(KtlItemHead)));

constexpr std::array endHead{
    KTL_FIELD(struct_KTL_ItemEnd, m_iItemType),
    KTL_FIELD(struct_KTL_ItemEnd, m_iSize),
    KTL_FIELD(struct_KTL_ItemEnd, m_iRev),
};
static_assert(covers(endHead, sizeof(struct_KTL_ItemEnd)));

constexpr std::array generalHead{
    KTL_FIELD(struct_KTL_EtherCatDeviceType, m_iItemType),
    KTL_FIELD(struct_KTL_EtherCatDeviceType, m_iSize),
    KTL_FIELD(struct_KTL_EtherCatDeviceType, m_iVendor_Id),
    KTL_FIELD(struct_KTL_EtherCatDeviceType, m_iProduct_Code),
    KTL_FIELD(struct_KTL_EtherCatDeviceType, m_iRevision_No),
    KTL_FIELD(struct_KTL_EtherCatDeviceType, m_iSerial_No),
    KTL_FIELD(struct_KTL_EtherCatDeviceType, m_iDeviceType).as(KtlMeaning::DeviceType),
    KTL_FIELD(struct_KTL_EtherCatDeviceType, m_bSdoSupport),
    KTL_FIELD(struct_KTL_EtherCatDeviceType, m_iSlotCount),
    KTL_FIELD(struct_KTL_EtherCatDeviceType, m_bEoeSupport),
    KTL_FIELD(struct_KTL_EtherCatDeviceType, m_bHasOD),
    KTL_FIELD(struct_KTL_EtherCatDeviceType, m_bListOD),
    KTL_FIELD(struct_KTL_EtherCatDeviceType, m_bPdoReadVerify),
    KTL_FIELD(struct_KTL_EtherCatDeviceType, m_bAddAlign),
    KTL_FIELD(struct_KTL_EtherCatDeviceType, m_iAlignSign),
    KTL_FIELD(struct_KTL_EtherCatDeviceType, m_iAlignSign2),
    KTL_FIELD(struct_KTL_EtherCatDeviceType, m_iDrive1600Write),
    KTL_FIELD(struct_KTL_EtherCatDeviceType, m_iDrive1600Offset),
    KTL_FIELD(struct_KTL_EtherCatDeviceType, m_iDriveAxies),
    KTL_FIELD(struct_KTL_EtherCatDeviceType, m_iModuleTypeMax),
};
static_assert(covers(generalHead, sizeof(struct_KTL_EtherCatDeviceType)));

constexpr std::array fmmuHead{
    KTL_FIELD(struct_KTL_FmmuType, m_iItemType),
    KTL_FIELD(struct_KTL_FmmuType, m_iSize),
    KTL_FIELD(struct_KTL_FmmuType, m_iCount),
};
static_assert(covers(fmmuHead, headSizeOf<struct_KTL_FmmuType, struct_KTL_FmmuAttributes>));

constexpr std::array fmmuRecord{
    KTL_FIELD(struct_KTL_FmmuAttributes, m_iOpOnly),
    KTL_FIELD(struct_KTL_FmmuAttributes, m_iSm),
    KTL_FIELD(struct_KTL_FmmuAttributes, m_iSu),
    KTL_FIELD(struct_KTL_FmmuAttributes, m_iFmmuType).as(KtlMeaning::Direction),
    KTL_FIELD(struct_KTL_FmmuAttributes, m_reserve),
};
static_assert(covers(fmmuRecord, sizeof(struct_KTL_FmmuAttributes)));

constexpr std::array smHead{
    KTL_FIELD(struct_KTL_SmType, m_iItemType),
    KTL_FIELD(struct_KTL_SmType, m_iSize),
    KTL_FIELD(struct_KTL_SmType, m_iCount),
};
static_assert(covers(smHead, headSizeOf<struct_KTL_SmType, struct_KTL_SmAttributes>));

constexpr std::array smRecord{
    KTL_FIELD(struct_KTL_SmAttributes, m_iStartAddress), KTL_FIELD(struct_KTL_SmAttributes, m_iMinSize),
    KTL_FIELD(struct_KTL_SmAttributes, m_iMaxSize),      KTL_FIELD(struct_KTL_SmAttributes, m_iDefaultSize),
    KTL_FIELD(struct_KTL_SmAttributes, ControlByte),     KTL_FIELD(struct_KTL_SmAttributes, Enable),
};
static_assert(covers(smRecord, sizeof(struct_KTL_SmAttributes)));

constexpr std::array dcHead{
    KTL_FIELD(struct_KTL_DcType, m_iItemType),
    KTL_FIELD(struct_KTL_DcType, m_iSize),
    KTL_FIELD(struct_KTL_DcType, m_iCount),
};
static_assert(covers(dcHead, headSizeOf<struct_KTL_DcType, struct_KTL_DcAttributes>));

constexpr std::array dcRecord{
    KTL_FIELD(struct_KTL_DcAttributes, m_aDesc),
    KTL_FIELD(struct_KTL_DcAttributes, AssignActivate).as(KtlMeaning::AssignActivate),
};
static_assert(covers(dcRecord, sizeof(struct_KTL_DcAttributes)));

/// Heads of PDOs of devices and of modules are the same.
template<typename Head>
constexpr std::array pdoHead{
    KTL_FIELD(Head, m_iItemType), KTL_FIELD(Head, m_iSize),  KTL_FIELD(Head, Fixed), KTL_FIELD(Head, Mandatory),
    KTL_FIELD(Head, m_bVirtual),  KTL_FIELD(Head, SM),       KTL_FIELD(Head, SU),    KTL_FIELD(Head, IndexAttributes),
    KTL_FIELD(Head, m_rev),       KTL_FIELD(Head, m_iCount),
};
static_assert(covers(pdoHead<struct_KTL_PDOListType>, headSizeOf<struct_KTL_PDOListType, struct_KTL_EntryPDOContent>));
static_assert(covers(pdoHead<struct_KTL_moduleEntryType>,
                     headSizeOf<struct_KTL_moduleEntryType, struct_KTL_modulePdoOne>));

constexpr std::array entryRecord{
    KTL_FIELD(struct_KTL_EntryPDOContent, m_bFixed),
    KTL_FIELD(struct_KTL_EntryPDOContent, Index),
    KTL_FIELD(struct_KTL_EntryPDOContent, SubIndex),
    KTL_FIELD(struct_KTL_EntryPDOContent, Bitlen),
    KTL_FIELD(struct_KTL_EntryPDOContent, bLinkTo),
    KTL_FIELD(struct_KTL_EntryPDOContent, LinkToData).as(KtlMeaning::Link),
};
static_assert(covers(entryRecord, sizeof(struct_KTL_EntryPDOContent)));

constexpr std::array moduleEntryRecord{
    KTL_FIELD(struct_KTL_modulePdoOne, DependOnSlot),
    KTL_FIELD(struct_KTL_modulePdoOne, m_AttrRev),
    KTL_FIELD(struct_KTL_modulePdoOne, index),
    KTL_FIELD(struct_KTL_modulePdoOne, SubIndex),
    KTL_FIELD(struct_KTL_modulePdoOne, BitLen),
    KTL_FIELD(struct_KTL_modulePdoOne, LinkToData).as(KtlMeaning::Link),
};
static_assert(covers(moduleEntryRecord, sizeof(struct_KTL_modulePdoOne)));

constexpr std::array eoeHead{
    KTL_FIELD(struct_KTL_EOE, m_iItemType),  KTL_FIELD(struct_KTL_EOE, m_iSize),
    KTL_FIELD(struct_KTL_EOE, m_bIP),        KTL_FIELD(struct_KTL_EOE, m_bMAC),
    KTL_FIELD(struct_KTL_EOE, m_bTimeStamp), KTL_FIELD(struct_KTL_EOE, m_iInitCmdCount),
};
static_assert(covers(eoeHead, headSizeOf<struct_KTL_EOE, struct_KTL_InitCmd>));

constexpr std::array coeHead{
    KTL_FIELD(struct_KTL_COE, m_iItemType),     KTL_FIELD(struct_KTL_COE, m_iSize),
    KTL_FIELD(struct_KTL_COE, m_bSdoInfo),      KTL_FIELD(struct_KTL_COE, m_bPdoAssign),
    KTL_FIELD(struct_KTL_COE, m_bPdoUpload),    KTL_FIELD(struct_KTL_COE, m_bPdoConfig),
    KTL_FIELD(struct_KTL_COE, m_bSegmentedSdo), KTL_FIELD(struct_KTL_COE, m_bCompleteAccess),
    KTL_FIELD(struct_KTL_COE, m_bDiagHistory),  KTL_FIELD(struct_KTL_COE, m_iInitCmdCount),
};
static_assert(covers(coeHead, headSizeOf<struct_KTL_COE, struct_KTL_InitCmd>));

constexpr std::array commandRecord{
    KTL_FIELD(struct_KTL_InitCmd, Transition).as(KtlMeaning::Transition),
    KTL_FIELD(struct_KTL_InitCmd, Index),
    KTL_FIELD(struct_KTL_InitCmd, SubIndex),
    KTL_FIELD(struct_KTL_InitCmd, bIfCA),
    KTL_FIELD(struct_KTL_InitCmd, DataBytes),
    KTL_FIELD(struct_KTL_InitCmd, Data),
};
static_assert(covers(commandRecord, sizeof(struct_KTL_InitCmd)));

constexpr std::array eepromHead{
    KTL_FIELD(struct_KTL_EEPROM, m_iItemType),
    KTL_FIELD(struct_KTL_EEPROM, m_iSize),
    KTL_FIELD(struct_KTL_EEPROM, m_iByteSize),
    KTL_FIELD(struct_KTL_EEPROM, m_aConfigData),
};
static_assert(covers(eepromHead, sizeof(struct_KTL_EEPROM)));

constexpr std::array moreInfoHead{
    KTL_FIELD(struct_KTL_DeviceMoreInfo, m_iItemType), KTL_FIELD(struct_KTL_DeviceMoreInfo, m_iSize),
    KTL_FIELD(struct_KTL_DeviceMoreInfo, m_iDate),     KTL_FIELD(struct_KTL_DeviceMoreInfo, m_iTime),
    KTL_FIELD(struct_KTL_DeviceMoreInfo, m_iVersion),  KTL_FIELD(struct_KTL_DeviceMoreInfo, m_iCount),
};
static_assert(covers(moreInfoHead, headSizeOf<struct_KTL_DeviceMoreInfo, char>));

constexpr std::array slotsHead{
    KTL_FIELD(struct_KTL_Slots, m_iItemType),
    KTL_FIELD(struct_KTL_Slots, m_iSize),
    KTL_FIELD(struct_KTL_Slots, m_iMaxSlotCount),
    KTL_FIELD(struct_KTL_Slots, m_bDownloadModuleIdentList),
    KTL_FIELD(struct_KTL_Slots, m_bDownloadModuleIdentAddressList),
    KTL_FIELD(struct_KTL_Slots, m_iSlotPdoIncrement),
    KTL_FIELD(struct_KTL_Slots, m_iSlotIndexIncrement),
    KTL_FIELD(struct_KTL_Slots, m_iCurSlotCount),
    KTL_FIELD(struct_KTL_Slots, m_iRev),
};
static_assert(covers(slotsHead, headSizeOf<struct_KTL_Slots, struct_KTL_SlotContent>));

constexpr std::array slotRecord{
    KTL_FIELD(struct_KTL_SlotContent, m_iMinInstances),
    KTL_FIELD(struct_KTL_SlotContent, m_iMaxInstances),
    KTL_FIELD(struct_KTL_SlotContent, SlotIndexIncrement),
    KTL_FIELD(struct_KTL_SlotContent, SlotPdoIncrement),
    KTL_FIELD(struct_KTL_SlotContent, m_bModuleIdent),
    KTL_FIELD(struct_KTL_SlotContent, m_iModuleIdentOrClassCount),
    KTL_FIELD(struct_KTL_SlotContent, ModuleIdent),
    KTL_FIELD(struct_KTL_SlotContent, aModuleClassIndex),
};
static_assert(covers(slotRecord, sizeof(struct_KTL_SlotContent)));

constexpr std::array presetHead{
    KTL_FIELD(struct_KTL_Slots_Preconfig, m_iItemType),
    KTL_FIELD(struct_KTL_Slots_Preconfig, m_iSize),
    KTL_FIELD(struct_KTL_Slots_Preconfig, m_iCount),
    KTL_FIELD(struct_KTL_Slots_Preconfig, m_iCountReal),
};
static_assert(covers(presetHead, headSizeOf<struct_KTL_Slots_Preconfig, struct_KTL_Slot_PreModuleIdent>));

constexpr std::array presetRecord{
    KTL_FIELD(struct_KTL_Slot_PreModuleIdent, m_iModuleIdent),
    KTL_FIELD(struct_KTL_Slot_PreModuleIdent, m_ireserve),
};
static_assert(covers(presetRecord, sizeof(struct_KTL_Slot_PreModuleIdent)));

constexpr std::array moduleHead{
    KTL_FIELD(struct_KTL_moduleType, m_iItemType),
    KTL_FIELD(struct_KTL_moduleType, m_iSize),
    KTL_FIELD(struct_KTL_moduleType, TypeAttributes.ModuleIdent),
    KTL_FIELD(struct_KTL_moduleType, TypeAttributes.ModulePdoGroup),
    KTL_FIELD(struct_KTL_moduleType, TypeAttributes.SRA_ParamterSupported),
    KTL_FIELD(struct_KTL_moduleType, TypeAttributes.m_attrRev),
    KTL_FIELD(struct_KTL_moduleType, TypeAttributes.m_u16Rev),
};
static_assert(covers(moduleHead, sizeof(struct_KTL_moduleType)));

constexpr std::array moduleCommandsHead{
    KTL_FIELD(struct_KTL_moduleInitCmdType, m_iItemType),
    KTL_FIELD(struct_KTL_moduleInitCmdType, m_iSize),
    KTL_FIELD(struct_KTL_moduleInitCmdType, m_iCount),
};
static_assert(covers(moduleCommandsHead, headSizeOf<struct_KTL_moduleInitCmdType, struct_KTL_moduleStartupOne>));

constexpr std::array moduleCommandRecord{
    KTL_FIELD(struct_KTL_moduleStartupOne, DependOnSlot),
    KTL_FIELD(struct_KTL_moduleStartupOne, DependOnSlotGroup),
    KTL_FIELD(struct_KTL_moduleStartupOne, AdaptAutomatically),
    KTL_FIELD(struct_KTL_moduleStartupOne, m_DataBytes),
    KTL_FIELD(struct_KTL_moduleStartupOne, index),
    KTL_FIELD(struct_KTL_moduleStartupOne, m_u16AttrRev),
    KTL_FIELD(struct_KTL_moduleStartupOne, Transition).as(KtlMeaning::Transition),
    KTL_FIELD(struct_KTL_moduleStartupOne, SubIndex),
    KTL_FIELD(struct_KTL_moduleStartupOne, bifCA),
    KTL_FIELD(struct_KTL_moduleStartupOne, Data),
};
static_assert(covers(moduleCommandRecord, sizeof(struct_KTL_moduleStartupOne)));

constexpr std::array objectHead{
    KTL_FIELD(struct_KTL_ObjectType, m_iItemType),
    KTL_FIELD(struct_KTL_ObjectType, m_iSize),
    KTL_FIELD(struct_KTL_ObjectType, index),
    KTL_FIELD(struct_KTL_ObjectType, m_iRev),
    KTL_FIELD(struct_KTL_ObjectType, BitSize),
    KTL_FIELD(struct_KTL_ObjectType, flags.Access).as(KtlMeaning::Access),
    KTL_FIELD(struct_KTL_ObjectType, flags.m_iRev2),
    KTL_FIELD(struct_KTL_ObjectType, info.MinData),
    KTL_FIELD(struct_KTL_ObjectType, info.MaxData),
};
static_assert(covers(objectHead, sizeof(struct_KTL_ObjectType)));

constexpr std::array subObjectHead{
    KTL_FIELD(struct_KTL_SubObjectType, m_iItemType),
    KTL_FIELD(struct_KTL_SubObjectType, m_iSize),
    KTL_FIELD(struct_KTL_SubObjectType, subIndex),
    KTL_FIELD(struct_KTL_SubObjectType, BitSize),
    KTL_FIELD(struct_KTL_SubObjectType, flags.Access).as(KtlMeaning::Access),
    KTL_FIELD(struct_KTL_SubObjectType, flags.m_iRev),
    KTL_FIELD(struct_KTL_SubObjectType, info.MinData),
    KTL_FIELD(struct_KTL_SubObjectType, info.MaxData),
};
static_assert(covers(subObjectHead, sizeof(struct_KTL_SubObjectType)));

#undef KTL_FIELD

template<typename Item> std::size_t counted(const ItemBytes& item)
{
    return item.at<Item>(0).m_iCount;
}

std::size_t eoeCommands(const ItemBytes& item)
{
    return item.at<struct_KTL_EOE>(0).m_iInitCmdCount;
}

std::size_t coeCommands(const ItemBytes& item)
{
    return commandCount(item.at<struct_KTL_COE>(0));
}

/// Both counts of the head are cut to 8 bits, so the size counts.
std::size_t slotsBySize(const ItemBytes& item)
{
    constexpr std::size_t headSize = headSizeOf<struct_KTL_Slots, struct_KTL_SlotContent>;
    const std::size_t size = item.at<KtlItemHead>(0).m_iSize;
    return size < headSize ? 0 : (size - headSize) / sizeof(struct_KTL_SlotContent);
}

constexpr auto noRecords = nullptr;

/// An item of a fixed size.
template<std::size_t Size>
constexpr KtlItemLayout fixedItem(std::uint32_t type, const char* name, const std::array<KtlField, Size>& head)
{
    return {type, name, KtlFields(head), KtlFields(), noRecords, KtlTail::Nothing};
}

/// A code that is reserved: there is no layout after the head.
constexpr KtlItemLayout reservedItem(std::uint32_t type, const char* name)
{
    return {type, name, KtlFields(itemHead), KtlFields(), noRecords, KtlTail::Words};
}

constexpr std::array layouts{
    fixedItem(KTL_ITEM_END, "End", endHead),
    fixedItem(KTL_ITEM_General, "General", generalHead),
    KtlItemLayout{KTL_ITEM_SM, "SM", KtlFields(smHead), KtlFields(smRecord), counted<struct_KTL_SmType>,
                  KtlTail::Nothing},
    KtlItemLayout{KTL_ITEM_DC, "DC", KtlFields(dcHead), KtlFields(dcRecord), counted<struct_KTL_DcType>,
                  KtlTail::Nothing},
    KtlItemLayout{KTL_ITEM_RxPdo, "RxPdo", KtlFields(pdoHead<struct_KTL_PDOListType>), KtlFields(entryRecord),
                  counted<struct_KTL_PDOListType>, KtlTail::Nothing},
    KtlItemLayout{KTL_ITEM_TxPdo, "TxPdo", KtlFields(pdoHead<struct_KTL_PDOListType>), KtlFields(entryRecord),
                  counted<struct_KTL_PDOListType>, KtlTail::Nothing},
    KtlItemLayout{KTL_ITEM_EoE, "EoE", KtlFields(eoeHead), KtlFields(commandRecord), eoeCommands, KtlTail::Nothing},
    KtlItemLayout{KTL_ITEM_CoE, "CoE", KtlFields(coeHead), KtlFields(commandRecord), coeCommands,
                  KtlTail::AccessValues},
    KtlItemLayout{KTL_ITEM_Slot, "Slot", KtlFields(slotsHead), KtlFields(slotRecord), slotsBySize, KtlTail::Nothing},
    fixedItem(KTL_ITEM_EEPROM, "EEPROM", eepromHead),
    fixedItem(KTL_ITEM_ObjectDetectType, "ObjectDetectType", objectHead),
    fixedItem(KTL_ITEM_ObjectConfigType, "ObjectConfigType", objectHead),
    reservedItem(KTL_ITEM_ObjectModule, "ObjectModule"),
    fixedItem(KTL_ITEM_SubObjectType, "SubObjectType", subObjectHead),
    fixedItem(KTL_ITEM_ModuleType, "ModuleType", moduleHead),
    KtlItemLayout{KTL_ITEM_FMMU, "FMMU", KtlFields(fmmuHead), KtlFields(fmmuRecord), counted<struct_KTL_FmmuType>,
                  KtlTail::Nothing},
    KtlItemLayout{KTL_ITEM_SlotPreConfig, "SlotPreConfig", KtlFields(presetHead), KtlFields(presetRecord),
                  counted<struct_KTL_Slots_Preconfig>, KtlTail::Nothing},
    KtlItemLayout{KTL_ITEM_DeviceMoreInfo, "DeviceMoreInfo", KtlFields(moreInfoHead), KtlFields(), noRecords,
                  KtlTail::Text},
    reservedItem(KTL_ITEM_ModuleRxPDOType, "ModuleRxPDO"),
    reservedItem(KTL_ITEM_ModuleTxPDOType, "ModuleTxPDO"),
    KtlItemLayout{KTL_ITEM_ModuleTPDOEntryType, "ModuleTPDOEntry", KtlFields(pdoHead<struct_KTL_moduleEntryType>),
                  KtlFields(moduleEntryRecord), counted<struct_KTL_moduleEntryType>, KtlTail::Nothing},
    KtlItemLayout{KTL_ITEM_ModuleRPDOEntryType, "ModuleRPDOEntry", KtlFields(pdoHead<struct_KTL_moduleEntryType>),
                  KtlFields(moduleEntryRecord), counted<struct_KTL_moduleEntryType>, KtlTail::Nothing},
    KtlItemLayout{KTL_ITEM_ModuleCoEInitCmdType, "ModuleCoEInitCmd", KtlFields(moduleCommandsHead),
                  KtlFields(moduleCommandRecord), counted<struct_KTL_moduleInitCmdType>, KtlTail::Nothing},
    reservedItem(KTL_ITEM_ModuleDictDT, "ModuleDictDT"),
    reservedItem(KTL_ITEM_ModuleDictObject, "ModuleDictObject"),
};

constexpr KtlItemLayout unknownItem = reservedItem(0, "");

const KtlItemLayout* knownLayout(std::uint32_t itemType)
{
    const auto* const found = std::find_if(layouts.begin(), layouts.end(),
                                           [=](const KtlItemLayout& layout) { return layout.type == itemType; });
    return found == layouts.end() ? nullptr : &*found;
}

} // namespace

const KtlItemLayout& layoutOf(std::uint32_t itemType)
{
    const KtlItemLayout* const known = knownLayout(itemType);
    return known == nullptr ? unknownItem : *known;
}

bool isKnownItem(std::uint32_t itemType)
{
    return knownLayout(itemType) != nullptr;
}
