/* ktl_format.h - the KTL file for firmware: codes and packed records, in plain C99 and C++.
 *
 * Include it as it is: it needs the two headers of the standard library below and an int of 32 bits. ktl-format.md, the
 * page beside it, explains each field; what is said here is what a reader has to mind.
 *
 * A file is a sequence of items, without a header, magic number or checksum. Numbers are little-endian, signed ones in
 * two's complement, and each field lies at exactly the offset given here; a big-endian processor swaps what it reads.
 * An item begins with `KtlItemHead`, whose m_iSize tells where the next one begins, so an unknown code is passed over.
 *
 *   - Stop at a size below 8, and at a type or size that is negative as a signed number: the file is corrupt there.
 *   - Hold m_iSize against the bytes that are left before you use it. A file can end inside its last item.
 *   - Hold the count of a head against what m_iSize leaves room for, and take the smaller: `ktl_records_that_fit`.
 *   - A ModuleCoEInitCmd item can announce more or fewer records than are there, and EoE and CoE items fewer: the
 *     next item then starts elsewhere than m_iSize says. Only devices far from the usual have such items.
 *   - End closes a run of devices, not the file: go on until the file ends. A run without its End item was cut short.
 *   - Reserved fields are 0 now. Do not test them.
 *
 * The array of one element at the end of an item is the place of its records, whose number the head tells: the head
 * alone has offsetof(item, array) bytes. To read a record at any alignment, copy it out with memcpy.
 */
#ifndef KTL_FORMAT_H
#define KTL_FORMAT_H

#include <stddef.h>
#include <stdint.h>

#define KTL_FORMAT_VERSION 0x10028u /* 1.0.28: the last part reads as 28 in hexadecimal. See DeviceMoreInfo */

/* A condition that the compiler holds. Fields keep their order, so a record as long as its fields together has no gap:
 * its size holds the place of each field, and those after a change of width are there to tell which one is wrong. */
#if defined(__cplusplus) && __cplusplus >= 201103L
#define KTL_ASSERT(name, condition) static_assert(condition, "layout of " #name)
#elif defined(__STDC_VERSION__) && __STDC_VERSION__ >= 201112L
#define KTL_ASSERT(name, condition) _Static_assert(condition, "layout of " #name)
#else
#define KTL_ASSERT(name, condition) typedef char ktl_layout_of_##name[(condition) ? 1 : -1]
#endif
#define KTL_AT(record, field, offset) (offsetof(record, field) == (offset))

/* Codes of the items: m_iItemType. */
enum enum_KTL_ITEM_TYPE
{
    KTL_ITEM_END = 0, /* struct_KTL_ItemEnd; closes a run */
    KTL_ITEM_General = 40000, /* struct_KTL_EtherCatDeviceType; opens a device */
    KTL_ITEM_SM = 40001, /* struct_KTL_SmType */
    KTL_ITEM_DC = 40002, /* struct_KTL_DcType */
    KTL_ITEM_RxPdo = 40003, /* struct_KTL_PDOListType, one output PDO */
    KTL_ITEM_TxPdo = 40004, /* struct_KTL_PDOListType, one input PDO */
    KTL_ITEM_EoE = 40005, /* struct_KTL_EOE */
    KTL_ITEM_CoE = 40006, /* struct_KTL_COE */
    KTL_ITEM_Slot = 40007, /* struct_KTL_Slots */
    KTL_ITEM_EEPROM = 40008, /* struct_KTL_EEPROM; in no exported file */
    KTL_ITEM_ObjectDetectType = 40009, /* struct_KTL_ObjectType; in no exported file */
    KTL_ITEM_ObjectConfigType = 40010, /* struct_KTL_ObjectType; in no exported file */
    KTL_ITEM_ObjectModule = 40011, /* reserved, no layout */
    KTL_ITEM_SubObjectType = 40012, /* struct_KTL_SubObjectType; in no exported file */
    KTL_ITEM_ModuleType = 40013, /* struct_KTL_moduleType; opens a module */
    KTL_ITEM_FMMU = 40014, /* struct_KTL_FmmuType */
    KTL_ITEM_SlotPreConfig = 40015, /* struct_KTL_Slots_Preconfig */
    KTL_ITEM_DeviceMoreInfo = 40016, /* struct_KTL_DeviceMoreInfo */
    KTL_ITEM_ModuleRxPDOType = 40100, /* reserved, no layout */
    KTL_ITEM_ModuleTxPDOType = 40101, /* reserved, no layout */
    KTL_ITEM_ModuleTPDOEntryType = 40102, /* struct_KTL_moduleEntryType, inputs. Tx has the lower code here, */
    KTL_ITEM_ModuleRPDOEntryType = 40103, /* struct_KTL_moduleEntryType, outputs. Rx has it of the device PDOs */
    KTL_ITEM_ModuleCoEInitCmdType = 40104, /* struct_KTL_moduleInitCmdType */
    KTL_ITEM_ModuleDictDT = 40105, /* reserved, no layout */
    KTL_ITEM_ModuleDictObject = 40106 /* reserved, no layout */
};

/* Classes of devices: General m_iDeviceType. */
enum enum_KTL_DEVICE_TYPE
{
    KTL_DEVICE_TYPE_IOBlock = 0, /* plain I/O */
    KTL_DEVICE_TYPE_SingleDriver = 1, /* one drive axis */
    KTL_DEVICE_TYPE_MultiDriver = 2, /* several drive axes; module PDOs become RxPdo and TxPdo items */
    KTL_DEVICE_TYPE_PnpIOBlock = 3, /* coupler that finds its modules by itself; module blocks */
    KTL_DEVICE_TYPE_Special = 4, /* coupler and modules form one device; items as of MultiDriver */
    KTL_DEVICE_TYPE_ManualIOBlock = 5 /* coupler whose modules must be preset; module blocks and SlotPreConfig */
};

/* Types of FMMUs: m_iFmmuType. Exports have 0 to 4 only. */
enum enum_KTL_SMFMMU_TYPE
{
    KTL_UnknownType = 0,
    KTL_MBoxOut = 1,
    KTL_MBoxIn = 2,
    KTL_Outputs = 3,
    KTL_Inputs = 4,
    KTL_DyOutputs = 5,
    KTL_DyInputs = 6,
    KTL_Local = 7
};

/* What an entry is linked to: LinkToData. -3 is not assigned. */
enum enum_KTL_PDO_TYPE
{
    KTL_PDO_TYPE_NONE = 0,
    KTL_PDO_TYPE_DIN = -1,
    KTL_PDO_TYPE_DOUT = -2,
    KTL_PDO_TYPE_I16_AIN = -4,
    KTL_PDO_TYPE_I32_AIN = -5,
    KTL_PDO_TYPE_FLOAT_AIN = -6,
    KTL_PDO_TYPE_I16_AOUT = -7,
    KTL_PDO_TYPE_I32_AOUT = -8,
    KTL_PDO_TYPE_FLOAT_AOUT = -9,
    KTL_PDO_TYPE_ENCODER32 = -10
};

/* State transitions: Transition of struct_KTL_InitCmd. */
enum enum_KTL_TRANSITION
{
    KTL_TRANSITION_UNKNOWN = 0, /* none or unknown */
    KTL_TRANSITION_IP = 1, /* INIT to PREOP */
    KTL_TRANSITION_PS = 2, /* PREOP to SAFEOP */
    KTL_TRANSITION_IP_PS = 3, /* both 1 and 2 */
    KTL_TRANSITION_PI = 4, /* PREOP to INIT */
    KTL_TRANSITION_SP = 5, /* SAFEOP to PREOP */
    KTL_TRANSITION_SO = 6, /* SAFEOP to OP */
    KTL_TRANSITION_SI = 7, /* SAFEOP to INIT */
    KTL_TRANSITION_OS = 8, /* OP to SAFEOP */
    KTL_TRANSITION_OP = 9, /* OP to PREOP */
    KTL_TRANSITION_OI = 10, /* OP to INIT */
    KTL_TRANSITION_IB = 11, /* INIT to BOOT */
    KTL_TRANSITION_BI = 12 /* BOOT to INIT */
};

/* Access to objects of the dictionary: flags.Access. */
enum enum_KTL_ACCESS
{
    KTL_ACCESS_UNKNOWN = 0,
    KTL_ACCESS_RO = 16, /* read only */
    KTL_ACCESS_RW = 17, /* read and write */
    KTL_ACCESS_WO = 18 /* write only */
};

#pragma pack(push, 1)

/* The first eight bytes of every item. */
typedef struct KtlItemHead
{
    uint32_t m_iItemType; /* 0: a code of enum_KTL_ITEM_TYPE */
    uint32_t m_iSize; /* 4: bytes of the item, head and fill included; at least 8, written as a multiple of 4 */
} KtlItemHead;
KTL_ASSERT(KtlItemHead, sizeof(KtlItemHead) == 8);

/* End: closes a run of devices. Device items belong to the last General before them. */
typedef struct struct_KTL_ItemEnd
{
    uint32_t m_iItemType; /* 0: KTL_ITEM_END */
    uint32_t m_iSize; /* 4: 12 */
    uint32_t m_iRev; /* 8: reserved, 0 */
} struct_KTL_ItemEnd;
KTL_ASSERT(ItemEnd, sizeof(struct_KTL_ItemEnd) == 12);

/* General: opens a device. */
typedef struct struct_KTL_EtherCatDeviceType
{
    uint32_t m_iItemType; /* 0: KTL_ITEM_General */
    uint32_t m_iSize; /* 4: 52 */
    uint32_t m_iVendor_Id; /* 8 */
    uint32_t m_iProduct_Code; /* 12 */
    uint32_t m_iRevision_No; /* 16 */
    uint32_t m_iSerial_No; /* 20: 0 where the ESI has none */
    uint16_t m_iDeviceType; /* 24: enum_KTL_DEVICE_TYPE */
    uint16_t m_bSdoSupport; /* 26: 0 or 1 */
    uint16_t m_iSlotCount; /* 28: device types 3 and 5: slot positions, low 16 bits; else 0 */
    uint16_t m_bEoeSupport; /* 30: reserved, 0 even for a device with EoE: go by the EoE item */
    uint8_t m_bHasOD; /* 32: reserved, 0, as the next seven */
    uint8_t m_bListOD; /* 33 */
    uint8_t m_bPdoReadVerify; /* 34 */
    uint8_t m_bAddAlign; /* 35 */
    uint32_t m_iAlignSign; /* 36 */
    uint32_t m_iAlignSign2; /* 40 */
    uint16_t m_iDrive1600Write; /* 44 */
    uint16_t m_iDrive1600Offset; /* 46 */
    uint16_t m_iDriveAxies; /* 48: number of drive axes */
    uint16_t m_iModuleTypeMax; /* 50: device types 3 and 5: modules of the ESI file, low 16 bits; else 0 */
} struct_KTL_EtherCatDeviceType;
KTL_ASSERT(EtherCatDeviceType, sizeof(struct_KTL_EtherCatDeviceType) == 52
                                   && KTL_AT(struct_KTL_EtherCatDeviceType, m_iDeviceType, 24)
                                   && KTL_AT(struct_KTL_EtherCatDeviceType, m_bHasOD, 32)
                                   && KTL_AT(struct_KTL_EtherCatDeviceType, m_iAlignSign, 36)
                                   && KTL_AT(struct_KTL_EtherCatDeviceType, m_iDrive1600Write, 44));

/* One FMMU. */
typedef struct struct_KTL_FmmuAttributes
{
    uint8_t m_iOpOnly; /* 0: 0 or 1 */
    uint8_t m_iSm; /* 1: sync manager; 0 where the ESI has none, which is not sync manager 0: match by m_iFmmuType */
    uint8_t m_iSu; /* 2: sync unit; 0 where the ESI has none */
    uint8_t m_iFmmuType; /* 3: enum_KTL_SMFMMU_TYPE */
    uint32_t m_reserve; /* 4: reserved, 0 */
} struct_KTL_FmmuAttributes;
KTL_ASSERT(FmmuAttributes, sizeof(struct_KTL_FmmuAttributes) == 8 && KTL_AT(struct_KTL_FmmuAttributes, m_reserve, 4));

/* FMMU: all FMMUs of a device. */
typedef struct struct_KTL_FmmuType
{
    uint32_t m_iItemType; /* 0: KTL_ITEM_FMMU */
    uint32_t m_iSize; /* 4: 12 + 8n */
    uint32_t m_iCount; /* 8: n */
    struct_KTL_FmmuAttributes m_aStrKTL_FmmuAttrb[1]; /* 12: n records */
} struct_KTL_FmmuType;
KTL_ASSERT(FmmuType, sizeof(struct_KTL_FmmuType) == 20 && KTL_AT(struct_KTL_FmmuType, m_aStrKTL_FmmuAttrb, 12));

/* One sync manager. Its place is its number only if no virtual one comes before it, since those are not in the file. */
typedef struct struct_KTL_SmAttributes
{
    uint16_t m_iStartAddress; /* 0 */
    uint16_t m_iMinSize; /* 2 */
    uint16_t m_iMaxSize; /* 4 */
    uint16_t m_iDefaultSize; /* 6: of outputs and inputs what the assigned PDOs need; left-over bits are lost */
    uint32_t ControlByte; /* 8 */
    uint32_t Enable; /* 12 */
} struct_KTL_SmAttributes;
KTL_ASSERT(SmAttributes, sizeof(struct_KTL_SmAttributes) == 16 && KTL_AT(struct_KTL_SmAttributes, ControlByte, 8));

/* SM: all sync managers of a device that are not virtual. */
typedef struct struct_KTL_SmType
{
    uint32_t m_iItemType; /* 0: KTL_ITEM_SM */
    uint32_t m_iSize; /* 4: 12 + 16n */
    uint32_t m_iCount; /* 8: n */
    struct_KTL_SmAttributes m_aStrKTL_SmAttrb[1]; /* 12: n records */
} struct_KTL_SmType;
KTL_ASSERT(SmType, sizeof(struct_KTL_SmType) == 28 && KTL_AT(struct_KTL_SmType, m_aStrKTL_SmAttrb, 12));

/* One operation mode of the distributed clocks. */
typedef struct struct_KTL_DcAttributes
{
    uint8_t m_aDesc[24]; /* 0: reserved, all 0 */
    uint32_t AssignActivate; /* 24 */
} struct_KTL_DcAttributes;
KTL_ASSERT(DcAttributes, sizeof(struct_KTL_DcAttributes) == 28 && KTL_AT(struct_KTL_DcAttributes, AssignActivate, 24));

/* DC: all operation modes of a device, the chosen one first. */
typedef struct struct_KTL_DcType
{
    uint32_t m_iItemType; /* 0: KTL_ITEM_DC */
    uint32_t m_iSize; /* 4: 12 + 28n */
    uint32_t m_iCount; /* 8: n */
    struct_KTL_DcAttributes m_aStrKTL_DcAttrb[1]; /* 12: n records */
} struct_KTL_DcType;
KTL_ASSERT(DcType, sizeof(struct_KTL_DcType) == 40 && KTL_AT(struct_KTL_DcType, m_aStrKTL_DcAttrb, 12));

/* One entry of a PDO. A gap is an ordinary entry, and its bits count. */
typedef struct struct_KTL_EntryPDOContent
{
    uint16_t m_bFixed; /* 0: 0 or 1 */
    uint16_t Index; /* 2: object index, 0 for a gap */
    uint32_t SubIndex; /* 4 */
    int32_t Bitlen; /* 8: length in bits */
    int32_t bLinkTo; /* 12: reserved, 0 */
    int32_t LinkToData; /* 16: enum_KTL_PDO_TYPE */
} struct_KTL_EntryPDOContent;
KTL_ASSERT(EntryPDOContent,
           sizeof(struct_KTL_EntryPDOContent) == 20 && KTL_AT(struct_KTL_EntryPDOContent, SubIndex, 4));

/* RxPdo and TxPdo: one PDO. One that is on no sync manager is a choice that nobody made: do not map it. */
typedef struct struct_KTL_PDOListType
{
    uint32_t m_iItemType; /* 0: KTL_ITEM_RxPdo or KTL_ITEM_TxPdo */
    uint32_t m_iSize; /* 4: 28 + 20n */
    uint8_t Fixed; /* 8: 0 or 1 */
    uint8_t Mandatory; /* 9: 0 or 1 */
    uint16_t m_bVirtual; /* 10: reserved, 0 */
    int32_t SM; /* 12: number of the sync manager, virtual ones counted too; negative if the PDO is on none */
    int32_t SU; /* 16: sync unit; 0 if missing */
    uint16_t IndexAttributes; /* 20: PDO index */
    uint16_t m_rev; /* 22: reserved, 0 */
    uint32_t m_iCount; /* 24: n, at least 1 */
    struct_KTL_EntryPDOContent m_aStrKTL_EntryPDOContent[1]; /* 28: n records */
} struct_KTL_PDOListType;
KTL_ASSERT(PDOListType, sizeof(struct_KTL_PDOListType) == 48 && KTL_AT(struct_KTL_PDOListType, Fixed, 8)
                            && KTL_AT(struct_KTL_PDOListType, m_bVirtual, 10) && KTL_AT(struct_KTL_PDOListType, SM, 12)
                            && KTL_AT(struct_KTL_PDOListType, IndexAttributes, 20)
                            && KTL_AT(struct_KTL_PDOListType, m_iCount, 24)
                            && KTL_AT(struct_KTL_PDOListType, m_aStrKTL_EntryPDOContent, 28));

/* One startup command, in EoE and CoE items alike. */
typedef struct struct_KTL_InitCmd
{
    uint16_t Transition; /* 0: enum_KTL_TRANSITION */
    uint16_t Index; /* 2: object index */
    uint8_t SubIndex; /* 4: low 8 bits */
    uint8_t bIfCA; /* 5: 1 for a complete access, whose values are in the block after the commands */
    uint16_t DataBytes; /* 6: length of the value; above 4 with Data 0 the value is lost, do not send it */
    uint32_t Data; /* 8: the value; without meaning for a complete access */
} struct_KTL_InitCmd;
KTL_ASSERT(InitCmd, sizeof(struct_KTL_InitCmd) == 12 && KTL_AT(struct_KTL_InitCmd, SubIndex, 4)
                        && KTL_AT(struct_KTL_InitCmd, DataBytes, 6) && KTL_AT(struct_KTL_InitCmd, Data, 8));

/* EoE: flags and startup commands. Count and size go by the low 8 bits of the number of commands, all of which are
 * written: 256 commands are announced as none. */
typedef struct struct_KTL_EOE
{
    uint32_t m_iItemType; /* 0: KTL_ITEM_EoE */
    uint32_t m_iSize; /* 4: 12 + 12n */
    uint8_t m_bIP; /* 8: 0 or 1 */
    uint8_t m_bMAC; /* 9: 0 or 1 */
    uint8_t m_bTimeStamp; /* 10: reserved, 0 */
    uint8_t m_iInitCmdCount; /* 11: n, low 8 bits */
    struct_KTL_InitCmd m_aInitCmd[1]; /* 12: n records */
} struct_KTL_EOE;
KTL_ASSERT(EOE,
           sizeof(struct_KTL_EOE) == 24 && KTL_AT(struct_KTL_EOE, m_bIP, 8) && KTL_AT(struct_KTL_EOE, m_aInitCmd, 12));

/* CoE: flags, startup commands, the 32-bit values of all complete accesses one after another, in the order of their
 * commands and at most 4096 bytes, and a fill. The fill begins with a copy of the head, and zeros follow: bytes without
 * a meaning. A complete access whose values did not fit has none, and must not be sent. */
typedef struct struct_KTL_COE
{
    uint32_t m_iItemType; /* 0: KTL_ITEM_CoE */
    uint32_t m_iSize; /* 4: 16 + 12c + values and fill, up to a multiple of 4 */
    uint8_t m_bSdoInfo; /* 8: 0 or 1, as the next five */
    uint8_t m_bPdoAssign; /* 9 */
    uint8_t m_bPdoUpload; /* 10 */
    uint8_t m_bPdoConfig; /* 11 */
    uint8_t m_bSegmentedSdo; /* 12 */
    uint8_t m_bCompleteAccess; /* 13: use of complete access */
    uint8_t m_bDiagHistory; /* 14: 0 or 1 */
    uint8_t m_iInitCmdCount; /* 15: c up to 254; 255 is to say: count them from m_iSize. See ktl_coe_commands */
    struct_KTL_InitCmd m_aInitCmd[1]; /* 16: c records */
} struct_KTL_COE;
KTL_ASSERT(COE, sizeof(struct_KTL_COE) == 28 && KTL_AT(struct_KTL_COE, m_bSdoInfo, 8)
                    && KTL_AT(struct_KTL_COE, m_aInitCmd, 16));

/* One slot. The order of the two steps differs from that of the head. */
typedef struct struct_KTL_SlotContent
{
    uint32_t m_iMinInstances; /* 0 */
    uint32_t m_iMaxInstances; /* 4: 16 at most */
    uint32_t SlotIndexIncrement; /* 8: step of an object index, of this slot */
    uint32_t SlotPdoIncrement; /* 12: step of a PDO index, of this slot */
    uint16_t m_bModuleIdent; /* 16: reserved, 0 */
    uint16_t m_iModuleIdentOrClassCount; /* 18: reserved, 0 */
    uint32_t ModuleIdent[24]; /* 20: reserved, all 0 */
    uint8_t aModuleClassIndex[8]; /* 116: reserved, all 0 */
} struct_KTL_SlotContent;
KTL_ASSERT(SlotContent, sizeof(struct_KTL_SlotContent) == 124 && KTL_AT(struct_KTL_SlotContent, m_bModuleIdent, 16)
                            && KTL_AT(struct_KTL_SlotContent, ModuleIdent, 20)
                            && KTL_AT(struct_KTL_SlotContent, aModuleClassIndex, 116));

/* Slot: all slots of a device. Both counts have the low 8 bits only, while all records are there: see ktl_slots. */
typedef struct struct_KTL_Slots
{
    uint32_t m_iItemType; /* 0: KTL_ITEM_Slot */
    uint32_t m_iSize; /* 4: 20 + 124n, from the full n */
    uint16_t m_iMaxSlotCount; /* 8: n, low 8 bits only */
    uint8_t m_bDownloadModuleIdentList; /* 10: 0 or 1 */
    uint8_t m_bDownloadModuleIdentAddressList; /* 11: 0 or 1 */
    uint16_t m_iSlotPdoIncrement; /* 12: step of a PDO index per slot, low 16 bits */
    uint16_t m_iSlotIndexIncrement; /* 14: step of an object index per slot, low 16 bits */
    uint16_t m_iCurSlotCount; /* 16: n, low 8 bits only */
    uint16_t m_iRev; /* 18: reserved, 0 */
    struct_KTL_SlotContent m_aSlotContent[1]; /* 20: n records */
} struct_KTL_Slots;
KTL_ASSERT(Slots, sizeof(struct_KTL_Slots) == 144 && KTL_AT(struct_KTL_Slots, m_iMaxSlotCount, 8)
                      && KTL_AT(struct_KTL_Slots, m_bDownloadModuleIdentList, 10)
                      && KTL_AT(struct_KTL_Slots, m_iSlotPdoIncrement, 12)
                      && KTL_AT(struct_KTL_Slots, m_aSlotContent, 20));

/* One slot position. */
typedef struct struct_KTL_Slot_PreModuleIdent
{
    uint32_t m_iModuleIdent; /* 0: ident of the module, 0 if there is none */
    uint32_t m_ireserve; /* 4: reserved, 0 */
} struct_KTL_Slot_PreModuleIdent;
KTL_ASSERT(Slot_PreModuleIdent, sizeof(struct_KTL_Slot_PreModuleIdent) == 8);

/* SlotPreConfig: the modules at the slot positions. A default module is at the number of its slot, one that was put in
 * by hand at its place; nothing tells the two apart. n wraps at 256, and there are only n records. */
typedef struct struct_KTL_Slots_Preconfig
{
    uint32_t m_iItemType; /* 0: KTL_ITEM_SlotPreConfig */
    uint32_t m_iSize; /* 4: 16 + 8n */
    uint32_t m_iCount; /* 8: n, at most 255; may be 0 */
    uint32_t m_iCountReal; /* 12: modules at positions below n, at most 255; several can share a position */
    struct_KTL_Slot_PreModuleIdent m_aModuleIdent[1]; /* 16: n records, position 0 first */
} struct_KTL_Slots_Preconfig;
KTL_ASSERT(Slots_Preconfig,
           sizeof(struct_KTL_Slots_Preconfig) == 24 && KTL_AT(struct_KTL_Slots_Preconfig, m_aModuleIdent, 16));

/* DeviceMoreInfo: UTF-8, the name of the device and, after a line feed each, those of the modules of its file. Read up
 * to the first zero byte, or to the end of the item. Only this item tells the version, and not every file has one. */
typedef struct struct_KTL_DeviceMoreInfo
{
    uint32_t m_iItemType; /* 0: KTL_ITEM_DeviceMoreInfo */
    uint32_t m_iSize; /* 4: 24 + at most 1000 bytes of text, up to a multiple of 4 */
    uint32_t m_iDate; /* 8: year * 10000 + month * 100 + day */
    uint32_t m_iTime; /* 12: hour * 10000 + minute * 100 + second */
    uint32_t m_iVersion; /* 16: KTL_FORMAT_VERSION */
    uint32_t m_iCount; /* 20: reserved, 0 */
    char m_aStrChar[1]; /* 24: text */
} struct_KTL_DeviceMoreInfo;
KTL_ASSERT(DeviceMoreInfo,
           sizeof(struct_KTL_DeviceMoreInfo) == 25 && KTL_AT(struct_KTL_DeviceMoreInfo, m_aStrChar, 24));

/* Attributes of a module. */
typedef struct KtlModuleAttributes
{
    uint32_t ModuleIdent; /* 0 */
    int32_t ModulePdoGroup; /* 4 */
    uint8_t SRA_ParamterSupported; /* 8: 0 or 1 */
    uint8_t m_attrRev; /* 9: reserved, 0 */
    uint16_t m_u16Rev; /* 10: reserved, 0 */
} KtlModuleAttributes;
KTL_ASSERT(KtlModuleAttributes, sizeof(KtlModuleAttributes) == 12
                                    && KTL_AT(KtlModuleAttributes, SRA_ParamterSupported, 8)
                                    && KTL_AT(KtlModuleAttributes, m_u16Rev, 10));

/* ModuleType: opens a module. Module items belong to the last one before them. */
typedef struct struct_KTL_moduleType
{
    uint32_t m_iItemType; /* 0: KTL_ITEM_ModuleType */
    uint32_t m_iSize; /* 4: 20 */
    KtlModuleAttributes TypeAttributes; /* 8 */
} struct_KTL_moduleType;
KTL_ASSERT(moduleType, sizeof(struct_KTL_moduleType) == 20 && KTL_AT(struct_KTL_moduleType, TypeAttributes, 8));

/* One entry of a module. */
typedef struct struct_KTL_modulePdoOne
{
    uint8_t DependOnSlot; /* 0: 1 if the index steps with the slot */
    uint8_t m_AttrRev; /* 1: reserved, 0 */
    uint16_t index; /* 2: object index, as declared */
    uint16_t SubIndex; /* 4 */
    uint16_t BitLen; /* 6: length in bits: low 16 bits for Rx, low 8 bits for Tx */
    int32_t LinkToData; /* 8: enum_KTL_PDO_TYPE */
} struct_KTL_modulePdoOne;
KTL_ASSERT(modulePdoOne, sizeof(struct_KTL_modulePdoOne) == 12 && KTL_AT(struct_KTL_modulePdoOne, index, 2)
                             && KTL_AT(struct_KTL_modulePdoOne, LinkToData, 8));

/* ModuleRPDOEntry and ModuleTPDOEntry: the entries of all PDOs of one direction together, under the head of the first.
 */
typedef struct struct_KTL_moduleEntryType
{
    uint32_t m_iItemType; /* 0: KTL_ITEM_ModuleRPDOEntryType or KTL_ITEM_ModuleTPDOEntryType */
    uint32_t m_iSize; /* 4: 28 + 12n */
    uint8_t Fixed; /* 8: 0 or 1 */
    uint8_t Mandatory; /* 9: 0 or 1 */
    uint16_t m_bVirtual; /* 10: reserved, 0 */
    int32_t SM; /* 12: number of the sync manager */
    int32_t SU; /* 16: sync unit */
    uint16_t IndexAttributes; /* 20: PDO index, as declared: not shifted for any slot */
    uint16_t m_rev; /* 22: reserved, 0 */
    uint32_t m_iCount; /* 24: n; may be 0 */
    struct_KTL_modulePdoOne m_alist[1]; /* 28: n records */
} struct_KTL_moduleEntryType;
KTL_ASSERT(moduleEntryType,
           sizeof(struct_KTL_moduleEntryType) == 40 && KTL_AT(struct_KTL_moduleEntryType, Fixed, 8)
               && KTL_AT(struct_KTL_moduleEntryType, m_bVirtual, 10) && KTL_AT(struct_KTL_moduleEntryType, SM, 12)
               && KTL_AT(struct_KTL_moduleEntryType, IndexAttributes, 20)
               && KTL_AT(struct_KTL_moduleEntryType, m_iCount, 24) && KTL_AT(struct_KTL_moduleEntryType, m_alist, 28));

/* One startup command of a module. */
typedef struct struct_KTL_moduleStartupOne
{
    uint8_t DependOnSlot; /* 0: 1 if the index steps with the slot */
    uint8_t DependOnSlotGroup; /* 1: reserved, 0 */
    uint8_t AdaptAutomatically; /* 2: reserved, 0 */
    uint8_t m_DataBytes; /* 3: length of the value, low 8 bits */
    uint16_t index; /* 4: object index, as declared */
    uint16_t m_u16AttrRev; /* 6: reserved, 0 */
    uint16_t Transition; /* 8: reserved, 0 */
    uint8_t SubIndex; /* 10: low 8 bits; 1 in every assignment of a PDO: number several of them yourself */
    uint8_t bifCA; /* 11: reserved, 0 */
    uint32_t Data; /* 12: value */
} struct_KTL_moduleStartupOne;
KTL_ASSERT(moduleStartupOne, sizeof(struct_KTL_moduleStartupOne) == 16 && KTL_AT(struct_KTL_moduleStartupOne, index, 4)
                                 && KTL_AT(struct_KTL_moduleStartupOne, SubIndex, 10)
                                 && KTL_AT(struct_KTL_moduleStartupOne, Data, 12));

/* ModuleCoEInitCmd: startup commands of a module. n and m_iSize are counted by rules of their own: for a few devices
 * more records follow than they say, or fewer, and nothing fills or cuts the item. */
typedef struct struct_KTL_moduleInitCmdType
{
    uint32_t m_iItemType; /* 0: KTL_ITEM_ModuleCoEInitCmdType */
    uint32_t m_iSize; /* 4: 12 + 16n */
    uint32_t m_iCount; /* 8: n */
    struct_KTL_moduleStartupOne m_alist[1]; /* 12: n records */
} struct_KTL_moduleInitCmdType;
KTL_ASSERT(moduleInitCmdType,
           sizeof(struct_KTL_moduleInitCmdType) == 28 && KTL_AT(struct_KTL_moduleInitCmdType, m_alist, 12));

/* EEPROM, kept in reserve. */
typedef struct struct_KTL_EEPROM
{
    uint32_t m_iItemType; /* 0: KTL_ITEM_EEPROM */
    uint32_t m_iSize; /* 4: 40 */
    uint32_t m_iByteSize; /* 8: 2048 */
    uint32_t m_aConfigData[7]; /* 12: all 0 */
} struct_KTL_EEPROM;
KTL_ASSERT(EEPROM, sizeof(struct_KTL_EEPROM) == 40);

/* Flags of an object. */
typedef struct KtlObjectFlags
{
    uint16_t Access; /* 0: enum_KTL_ACCESS */
    uint16_t m_iRev2; /* 2: reserved, 0 */
} KtlObjectFlags;
KTL_ASSERT(KtlObjectFlags, sizeof(KtlObjectFlags) == 4);

/* Flags of a sub-object. */
typedef struct KtlSubObjectFlags
{
    uint16_t Access; /* 0: enum_KTL_ACCESS */
    uint16_t m_iRev; /* 2: reserved, 0 */
} KtlSubObjectFlags;
KTL_ASSERT(KtlSubObjectFlags, sizeof(KtlSubObjectFlags) == 4);

/* Limits of an object or sub-object. */
typedef struct KtlObjectInfo
{
    uint32_t MinData; /* 0 */
    uint32_t MaxData; /* 4 */
} KtlObjectInfo;
KTL_ASSERT(KtlObjectInfo, sizeof(KtlObjectInfo) == 8);

/* ObjectDetectType and ObjectConfigType, kept in reserve. */
typedef struct struct_KTL_ObjectType
{
    uint32_t m_iItemType; /* 0: KTL_ITEM_ObjectDetectType or KTL_ITEM_ObjectConfigType */
    uint32_t m_iSize; /* 4: 28 */
    uint16_t index; /* 8: object index */
    uint16_t m_iRev; /* 10: reserved, 0 */
    int32_t BitSize; /* 12 */
    KtlObjectFlags flags; /* 16 */
    KtlObjectInfo info; /* 20 */
} struct_KTL_ObjectType;
KTL_ASSERT(ObjectType, sizeof(struct_KTL_ObjectType) == 28 && KTL_AT(struct_KTL_ObjectType, index, 8)
                           && KTL_AT(struct_KTL_ObjectType, BitSize, 12) && KTL_AT(struct_KTL_ObjectType, flags, 16)
                           && KTL_AT(struct_KTL_ObjectType, info, 20));

/* SubObjectType, kept in reserve. */
typedef struct struct_KTL_SubObjectType
{
    uint32_t m_iItemType; /* 0: KTL_ITEM_SubObjectType */
    uint32_t m_iSize; /* 4: 28 */
    uint32_t subIndex; /* 8 */
    int32_t BitSize; /* 12 */
    KtlSubObjectFlags flags; /* 16 */
    KtlObjectInfo info; /* 20 */
} struct_KTL_SubObjectType;
KTL_ASSERT(SubObjectType, sizeof(struct_KTL_SubObjectType) == 28 && KTL_AT(struct_KTL_SubObjectType, flags, 16)
                              && KTL_AT(struct_KTL_SubObjectType, info, 20));

#pragma pack(pop)

/* How many records after the head of an item are there whole: the number that the head announces, or what the item has
 * room for. `item_bytes` are those that are really there: m_iSize, or less where the file ends. */
static inline uint32_t ktl_records_that_fit(uint32_t announced, uint32_t item_bytes, size_t head_bytes,
                                            size_t record_bytes)
{
    const uint32_t room = item_bytes < head_bytes ? 0u : (uint32_t)((item_bytes - head_bytes) / record_bytes);
    return announced < room ? announced : room;
}

/* How many commands a CoE item announces. The byte saturates: at 255, and wherever m_iSize leaves room for more than
 * 254 commands, the size counts. That is exact without values of complete accesses, which are counted as commands too.
 */
static inline uint32_t ktl_coe_commands(const struct_KTL_COE* coe)
{
    const uint32_t room = ktl_records_that_fit(0xFFFFFFFFu, coe->m_iSize, offsetof(struct_KTL_COE, m_aInitCmd),
                                               sizeof(struct_KTL_InitCmd));
    return coe->m_iInitCmdCount == 255 || room > 254 ? room : coe->m_iInitCmdCount;
}

/* How many slots a Slot item announces: by its size, since its counts are cut to 8 bits. */
static inline uint32_t ktl_slots(const struct_KTL_Slots* slots)
{
    return ktl_records_that_fit(0xFFFFFFFFu, slots->m_iSize, offsetof(struct_KTL_Slots, m_aSlotContent),
                                sizeof(struct_KTL_SlotContent));
}

#undef KTL_AT
#undef KTL_ASSERT

#endif
