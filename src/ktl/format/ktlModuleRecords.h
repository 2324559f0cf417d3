// ktlModuleRecords.h - the packed records of slots, modules and dictionary objects.
#pragma once

#include <cstddef>
#include <cstdint>

// Fields are in the file exactly as they are here: packed, little-endian, at the offsets of the comments. The
// one-element array at the end of a record is a placeholder for the records that follow its head in the file.
#pragma pack(push, 1)

/// One slot.
struct struct_KTL_SlotContent
{
    std::uint32_t m_iMinInstances; ///< offset 0, modules in the slot at least
    std::uint32_t m_iMaxInstances; ///< offset 4, modules in the slot at most
    std::uint32_t SlotIndexIncrement; ///< offset 8, object index step of the slot
    std::uint32_t SlotPdoIncrement; ///< offset 12, PDO index step of the slot
    std::uint16_t m_bModuleIdent; ///< offset 16, reserved, 0
    std::uint16_t m_iModuleIdentOrClassCount; ///< offset 18, reserved, 0
    std::uint32_t ModuleIdent[24]; ///< offset 20, reserved, all 0
    std::uint8_t aModuleClassIndex[8]; ///< offset 116, reserved, all 0
};
static_assert(sizeof(struct_KTL_SlotContent) == 124);
static_assert(offsetof(struct_KTL_SlotContent, m_iMaxInstances) == 4);
static_assert(offsetof(struct_KTL_SlotContent, SlotIndexIncrement) == 8);
static_assert(offsetof(struct_KTL_SlotContent, SlotPdoIncrement) == 12);
static_assert(offsetof(struct_KTL_SlotContent, m_bModuleIdent) == 16);
static_assert(offsetof(struct_KTL_SlotContent, m_iModuleIdentOrClassCount) == 18);
static_assert(offsetof(struct_KTL_SlotContent, ModuleIdent) == 20);
static_assert(offsetof(struct_KTL_SlotContent, aModuleClassIndex) == 116);

/// All slots of a device.
struct struct_KTL_Slots
{
    std::uint32_t m_iItemType; ///< offset 0, KTL_ITEM_Slot
    std::uint32_t m_iSize; ///< offset 4, bytes, head included: 20 + 124n
    std::uint16_t m_iMaxSlotCount; ///< offset 8, number of slots, low 8 bits only
    std::uint8_t m_bDownloadModuleIdentList; ///< offset 10, 0 or 1
    std::uint8_t m_bDownloadModuleIdentAddressList; ///< offset 11, 0 or 1
    std::uint16_t m_iSlotPdoIncrement; ///< offset 12, PDO index step of the slots
    std::uint16_t m_iSlotIndexIncrement; ///< offset 14, object index step of the slots
    std::uint16_t m_iCurSlotCount; ///< offset 16, number of slots, low 8 bits only
    std::uint16_t m_iRev; ///< offset 18, reserved, 0
    struct_KTL_SlotContent m_aSlotContent[1]; ///< offset 20, placeholder for the records that follow the head
};
static_assert(sizeof(struct_KTL_Slots) == 144);
static_assert(offsetof(struct_KTL_Slots, m_iSize) == 4);
static_assert(offsetof(struct_KTL_Slots, m_iMaxSlotCount) == 8);
static_assert(offsetof(struct_KTL_Slots, m_bDownloadModuleIdentList) == 10);
static_assert(offsetof(struct_KTL_Slots, m_bDownloadModuleIdentAddressList) == 11);
static_assert(offsetof(struct_KTL_Slots, m_iSlotPdoIncrement) == 12);
static_assert(offsetof(struct_KTL_Slots, m_iSlotIndexIncrement) == 14);
static_assert(offsetof(struct_KTL_Slots, m_iCurSlotCount) == 16);
static_assert(offsetof(struct_KTL_Slots, m_iRev) == 18);
static_assert(offsetof(struct_KTL_Slots, m_aSlotContent) == 20);

/// What is at one slot position.
struct struct_KTL_Slot_PreModuleIdent
{
    std::uint32_t m_iModuleIdent; ///< offset 0, module ident, 0 if the position is empty
    std::uint32_t m_ireserve; ///< offset 4, reserved, 0
};
static_assert(sizeof(struct_KTL_Slot_PreModuleIdent) == 8);
static_assert(offsetof(struct_KTL_Slot_PreModuleIdent, m_ireserve) == 4);

/// The modules at the slot positions, position 0 first. A default module is at the number of its slot, one that a user
/// put in at its place.
struct struct_KTL_Slots_Preconfig
{
    std::uint32_t m_iItemType; ///< offset 0, KTL_ITEM_SlotPreConfig
    std::uint32_t m_iSize; ///< offset 4, bytes, head included: 16 + 8n
    std::uint32_t m_iCount; ///< offset 8, n, number of positions, at most 255
    std::uint32_t m_iCountReal; ///< offset 12, positions that hold a module, at most 255
    struct_KTL_Slot_PreModuleIdent m_aModuleIdent[1]; ///< offset 16, placeholder for the records that follow the head
};
static_assert(sizeof(struct_KTL_Slots_Preconfig) == 24);
static_assert(offsetof(struct_KTL_Slots_Preconfig, m_iSize) == 4);
static_assert(offsetof(struct_KTL_Slots_Preconfig, m_iCount) == 8);
static_assert(offsetof(struct_KTL_Slots_Preconfig, m_iCountReal) == 12);
static_assert(offsetof(struct_KTL_Slots_Preconfig, m_aModuleIdent) == 16);

/// Attributes of a module.
struct KtlModuleAttributes
{
    std::uint32_t ModuleIdent; ///< offset 0, module ident
    std::int32_t ModulePdoGroup; ///< offset 4, PDO group
    std::uint8_t SRA_ParamterSupported; ///< offset 8, 0 or 1
    std::uint8_t m_attrRev; ///< offset 9, reserved, 0
    std::uint16_t m_u16Rev; ///< offset 10, reserved, 0
};
static_assert(sizeof(KtlModuleAttributes) == 12);
static_assert(offsetof(KtlModuleAttributes, ModulePdoGroup) == 4);
static_assert(offsetof(KtlModuleAttributes, SRA_ParamterSupported) == 8);
static_assert(offsetof(KtlModuleAttributes, m_attrRev) == 9);
static_assert(offsetof(KtlModuleAttributes, m_u16Rev) == 10);

/// Opens a module.
struct struct_KTL_moduleType
{
    std::uint32_t m_iItemType; ///< offset 0, KTL_ITEM_ModuleType
    std::uint32_t m_iSize; ///< offset 4, bytes, head included: 20
    KtlModuleAttributes TypeAttributes; ///< offset 8
};
static_assert(sizeof(struct_KTL_moduleType) == 20);
static_assert(offsetof(struct_KTL_moduleType, m_iSize) == 4);
static_assert(offsetof(struct_KTL_moduleType, TypeAttributes) == 8);

/// One entry of the PDOs of a module.
struct struct_KTL_modulePdoOne
{
    std::uint8_t DependOnSlot; ///< offset 0, 0 or 1
    std::uint8_t m_AttrRev; ///< offset 1, reserved, 0
    std::uint16_t index; ///< offset 2, object index
    std::uint16_t SubIndex; ///< offset 4, object sub-index
    std::uint16_t BitLen; ///< offset 6, length in bits
    std::int32_t LinkToData; ///< offset 8, link of the entry, a value of enum_KTL_PDO_TYPE
};
static_assert(sizeof(struct_KTL_modulePdoOne) == 12);
static_assert(offsetof(struct_KTL_modulePdoOne, m_AttrRev) == 1);
static_assert(offsetof(struct_KTL_modulePdoOne, index) == 2);
static_assert(offsetof(struct_KTL_modulePdoOne, SubIndex) == 4);
static_assert(offsetof(struct_KTL_modulePdoOne, BitLen) == 6);
static_assert(offsetof(struct_KTL_modulePdoOne, LinkToData) == 8);

/// All PDOs of one direction of a module, merged.
struct struct_KTL_moduleEntryType
{
    std::uint32_t m_iItemType; ///< offset 0, KTL_ITEM_ModuleRPDOEntryType or KTL_ITEM_ModuleTPDOEntryType
    std::uint32_t m_iSize; ///< offset 4, bytes, head included: 28 + 12n
    std::uint8_t Fixed; ///< offset 8, 0 or 1
    std::uint8_t Mandatory; ///< offset 9, 0 or 1
    std::uint16_t m_bVirtual; ///< offset 10, reserved, 0
    std::int32_t SM; ///< offset 12, sync manager number
    std::int32_t SU; ///< offset 16, sync unit number
    std::uint16_t IndexAttributes; ///< offset 20, PDO index
    std::uint16_t m_rev; ///< offset 22, reserved, 0
    std::uint32_t m_iCount; ///< offset 24, n, number of entries
    struct_KTL_modulePdoOne m_alist[1]; ///< offset 28, placeholder for the records that follow the head
};
static_assert(sizeof(struct_KTL_moduleEntryType) == 40);
static_assert(offsetof(struct_KTL_moduleEntryType, m_iSize) == 4);
static_assert(offsetof(struct_KTL_moduleEntryType, Fixed) == 8);
static_assert(offsetof(struct_KTL_moduleEntryType, Mandatory) == 9);
static_assert(offsetof(struct_KTL_moduleEntryType, m_bVirtual) == 10);
static_assert(offsetof(struct_KTL_moduleEntryType, SM) == 12);
static_assert(offsetof(struct_KTL_moduleEntryType, SU) == 16);
static_assert(offsetof(struct_KTL_moduleEntryType, IndexAttributes) == 20);
static_assert(offsetof(struct_KTL_moduleEntryType, m_rev) == 22);
static_assert(offsetof(struct_KTL_moduleEntryType, m_iCount) == 24);
static_assert(offsetof(struct_KTL_moduleEntryType, m_alist) == 28);

/// One startup command of a module.
struct struct_KTL_moduleStartupOne
{
    std::uint8_t DependOnSlot; ///< offset 0, 0 or 1
    std::uint8_t DependOnSlotGroup; ///< offset 1, reserved, 0
    std::uint8_t AdaptAutomatically; ///< offset 2, reserved, 0
    std::uint8_t m_DataBytes; ///< offset 3, length of the value in bytes
    std::uint16_t index; ///< offset 4, object index
    std::uint16_t m_u16AttrRev; ///< offset 6, reserved, 0
    std::uint16_t Transition; ///< offset 8, reserved, 0
    std::uint8_t SubIndex; ///< offset 10, object sub-index
    std::uint8_t bifCA; ///< offset 11, reserved, 0
    std::uint32_t Data; ///< offset 12, value
};
static_assert(sizeof(struct_KTL_moduleStartupOne) == 16);
static_assert(offsetof(struct_KTL_moduleStartupOne, DependOnSlotGroup) == 1);
static_assert(offsetof(struct_KTL_moduleStartupOne, AdaptAutomatically) == 2);
static_assert(offsetof(struct_KTL_moduleStartupOne, m_DataBytes) == 3);
static_assert(offsetof(struct_KTL_moduleStartupOne, index) == 4);
static_assert(offsetof(struct_KTL_moduleStartupOne, m_u16AttrRev) == 6);
static_assert(offsetof(struct_KTL_moduleStartupOne, Transition) == 8);
static_assert(offsetof(struct_KTL_moduleStartupOne, SubIndex) == 10);
static_assert(offsetof(struct_KTL_moduleStartupOne, bifCA) == 11);
static_assert(offsetof(struct_KTL_moduleStartupOne, Data) == 12);

/// Startup commands of a module.
struct struct_KTL_moduleInitCmdType
{
    std::uint32_t m_iItemType; ///< offset 0, KTL_ITEM_ModuleCoEInitCmdType
    std::uint32_t m_iSize; ///< offset 4, bytes, head included: 12 + 16n
    std::uint32_t m_iCount; ///< offset 8, n, number of commands
    struct_KTL_moduleStartupOne m_alist[1]; ///< offset 12, placeholder for the records that follow the head
};
static_assert(sizeof(struct_KTL_moduleInitCmdType) == 28);
static_assert(offsetof(struct_KTL_moduleInitCmdType, m_iSize) == 4);
static_assert(offsetof(struct_KTL_moduleInitCmdType, m_iCount) == 8);
static_assert(offsetof(struct_KTL_moduleInitCmdType, m_alist) == 12);

/// Flags of an object.
struct KtlObjectFlags
{
    std::uint16_t Access; ///< offset 0, access code, an NMTOKEN
    std::uint16_t m_iRev2; ///< offset 2, reserved, 0
};
static_assert(sizeof(KtlObjectFlags) == 4);
static_assert(offsetof(KtlObjectFlags, m_iRev2) == 2);

/// Flags of a sub-object.
struct KtlSubObjectFlags
{
    std::uint16_t Access; ///< offset 0, access code, an NMTOKEN
    std::uint16_t m_iRev; ///< offset 2, reserved, 0
};
static_assert(sizeof(KtlSubObjectFlags) == 4);
static_assert(offsetof(KtlSubObjectFlags, m_iRev) == 2);

/// Limits of an object or sub-object.
struct KtlObjectInfo
{
    std::uint32_t MinData; ///< offset 0, minimum
    std::uint32_t MaxData; ///< offset 4, maximum
};
static_assert(sizeof(KtlObjectInfo) == 8);
static_assert(offsetof(KtlObjectInfo, MaxData) == 4);

/// One object of the dictionary.
struct struct_KTL_ObjectType
{
    std::uint32_t m_iItemType; ///< offset 0, KTL_ITEM_ObjectDetectType or KTL_ITEM_ObjectConfigType
    std::uint32_t m_iSize; ///< offset 4, bytes
    std::uint16_t index; ///< offset 8, object index
    std::uint16_t m_iRev; ///< offset 10, reserved, 0
    std::int32_t BitSize; ///< offset 12, length in bits
    KtlObjectFlags flags; ///< offset 16
    KtlObjectInfo info; ///< offset 20
};
static_assert(sizeof(struct_KTL_ObjectType) == 28);
static_assert(offsetof(struct_KTL_ObjectType, m_iSize) == 4);
static_assert(offsetof(struct_KTL_ObjectType, index) == 8);
static_assert(offsetof(struct_KTL_ObjectType, m_iRev) == 10);
static_assert(offsetof(struct_KTL_ObjectType, BitSize) == 12);
static_assert(offsetof(struct_KTL_ObjectType, flags) == 16);
static_assert(offsetof(struct_KTL_ObjectType, info) == 20);

/// One sub-object of the dictionary.
struct struct_KTL_SubObjectType
{
    std::uint32_t m_iItemType; ///< offset 0, KTL_ITEM_SubObjectType
    std::uint32_t m_iSize; ///< offset 4, bytes, head included: 28
    std::uint32_t subIndex; ///< offset 8, sub-index
    std::int32_t BitSize; ///< offset 12, length in bits
    KtlSubObjectFlags flags; ///< offset 16
    KtlObjectInfo info; ///< offset 20
};
static_assert(sizeof(struct_KTL_SubObjectType) == 28);
static_assert(offsetof(struct_KTL_SubObjectType, m_iSize) == 4);
static_assert(offsetof(struct_KTL_SubObjectType, subIndex) == 8);
static_assert(offsetof(struct_KTL_SubObjectType, BitSize) == 12);
static_assert(offsetof(struct_KTL_SubObjectType, flags) == 16);
static_assert(offsetof(struct_KTL_SubObjectType, info) == 20);

#pragma pack(pop)
