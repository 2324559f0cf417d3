// ktlDeviceRecords.h - the packed records of a device block.
#pragma once

#include <cstddef>
#include <cstdint>

// Fields are in the file exactly as they are here: packed, little-endian, at the offsets of the comments. The
// one-element array at the end of a record is a placeholder for the records that follow its head in the file.
#pragma pack(push, 1)

/// The first eight bytes of every item.
struct KtlItemHead
{
    std::uint32_t m_iItemType; ///< offset 0, a code of enum_KTL_ITEM_TYPE
    std::uint32_t m_iSize; ///< offset 4, bytes of the whole item, head, records and fill included; a multiple of 4
};
static_assert(sizeof(KtlItemHead) == 8);
static_assert(offsetof(KtlItemHead, m_iSize) == 4);

/// Closes a run of devices.
struct struct_KTL_ItemEnd
{
    std::uint32_t m_iItemType; ///< offset 0, KTL_ITEM_END
    std::uint32_t m_iSize; ///< offset 4, bytes, head included: 12
    std::uint32_t m_iRev; ///< offset 8, reserved, 0
};
static_assert(sizeof(struct_KTL_ItemEnd) == 12);
static_assert(offsetof(struct_KTL_ItemEnd, m_iSize) == 4);
static_assert(offsetof(struct_KTL_ItemEnd, m_iRev) == 8);

/// Opens a device: its identity and class.
struct struct_KTL_EtherCatDeviceType
{
    std::uint32_t m_iItemType; ///< offset 0, KTL_ITEM_General
    std::uint32_t m_iSize; ///< offset 4, bytes, head included: 52
    std::uint32_t m_iVendor_Id; ///< offset 8, EtherCAT vendor id
    std::uint32_t m_iProduct_Code; ///< offset 12, product code
    std::uint32_t m_iRevision_No; ///< offset 16, revision number
    std::uint32_t m_iSerial_No; ///< offset 20, serial number
    std::uint16_t m_iDeviceType; ///< offset 24, a value of enum_KTL_DEVICE_TYPE
    std::uint16_t m_bSdoSupport; ///< offset 26, 0 or 1
    std::uint16_t m_iSlotCount; ///< offset 28, slot positions; 0 unless the class is 3 or 5
    std::uint16_t m_bEoeSupport; ///< offset 30, reserved, 0
    std::uint8_t m_bHasOD; ///< offset 32, reserved, 0
    std::uint8_t m_bListOD; ///< offset 33, reserved, 0
    std::uint8_t m_bPdoReadVerify; ///< offset 34, reserved, 0
    std::uint8_t m_bAddAlign; ///< offset 35, reserved, 0
    std::uint32_t m_iAlignSign; ///< offset 36, reserved, 0
    std::uint32_t m_iAlignSign2; ///< offset 40, reserved, 0
    std::uint16_t m_iDrive1600Write; ///< offset 44, reserved, 0
    std::uint16_t m_iDrive1600Offset; ///< offset 46, reserved, 0
    std::uint16_t m_iDriveAxies; ///< offset 48, number of drive axes
    std::uint16_t m_iModuleTypeMax; ///< offset 50, modules of the file; 0 unless the class is 3 or 5
};
static_assert(sizeof(struct_KTL_EtherCatDeviceType) == 52);
static_assert(offsetof(struct_KTL_EtherCatDeviceType, m_iSize) == 4);
static_assert(offsetof(struct_KTL_EtherCatDeviceType, m_iVendor_Id) == 8);
static_assert(offsetof(struct_KTL_EtherCatDeviceType, m_iProduct_Code) == 12);
static_assert(offsetof(struct_KTL_EtherCatDeviceType, m_iRevision_No) == 16);
static_assert(offsetof(struct_KTL_EtherCatDeviceType, m_iSerial_No) == 20);
static_assert(offsetof(struct_KTL_EtherCatDeviceType, m_iDeviceType) == 24);
static_assert(offsetof(struct_KTL_EtherCatDeviceType, m_bSdoSupport) == 26);
static_assert(offsetof(struct_KTL_EtherCatDeviceType, m_iSlotCount) == 28);
static_assert(offsetof(struct_KTL_EtherCatDeviceType, m_bEoeSupport) == 30);
static_assert(offsetof(struct_KTL_EtherCatDeviceType, m_bHasOD) == 32);
static_assert(offsetof(struct_KTL_EtherCatDeviceType, m_bListOD) == 33);
static_assert(offsetof(struct_KTL_EtherCatDeviceType, m_bPdoReadVerify) == 34);
static_assert(offsetof(struct_KTL_EtherCatDeviceType, m_bAddAlign) == 35);
static_assert(offsetof(struct_KTL_EtherCatDeviceType, m_iAlignSign) == 36);
static_assert(offsetof(struct_KTL_EtherCatDeviceType, m_iAlignSign2) == 40);
static_assert(offsetof(struct_KTL_EtherCatDeviceType, m_iDrive1600Write) == 44);
static_assert(offsetof(struct_KTL_EtherCatDeviceType, m_iDrive1600Offset) == 46);
static_assert(offsetof(struct_KTL_EtherCatDeviceType, m_iDriveAxies) == 48);
static_assert(offsetof(struct_KTL_EtherCatDeviceType, m_iModuleTypeMax) == 50);

/// One FMMU.
struct struct_KTL_FmmuAttributes
{
    std::uint8_t m_iOpOnly; ///< offset 0, 0 or 1
    std::uint8_t m_iSm; ///< offset 1, sync manager number
    std::uint8_t m_iSu; ///< offset 2, sync unit number
    std::uint8_t m_iFmmuType; ///< offset 3, a value of enum_KTL_SMFMMU_TYPE
    std::uint32_t m_reserve; ///< offset 4, reserved, 0
};
static_assert(sizeof(struct_KTL_FmmuAttributes) == 8);
static_assert(offsetof(struct_KTL_FmmuAttributes, m_iSm) == 1);
static_assert(offsetof(struct_KTL_FmmuAttributes, m_iSu) == 2);
static_assert(offsetof(struct_KTL_FmmuAttributes, m_iFmmuType) == 3);
static_assert(offsetof(struct_KTL_FmmuAttributes, m_reserve) == 4);

/// All FMMUs of a device.
struct struct_KTL_FmmuType
{
    std::uint32_t m_iItemType; ///< offset 0, KTL_ITEM_FMMU
    std::uint32_t m_iSize; ///< offset 4, bytes, head included: 12 + 8n
    std::uint32_t m_iCount; ///< offset 8, n, number of FMMUs
    struct_KTL_FmmuAttributes m_aStrKTL_FmmuAttrb[1]; ///< offset 12, placeholder for the records that follow the head
};
static_assert(sizeof(struct_KTL_FmmuType) == 20);
static_assert(offsetof(struct_KTL_FmmuType, m_iSize) == 4);
static_assert(offsetof(struct_KTL_FmmuType, m_iCount) == 8);
static_assert(offsetof(struct_KTL_FmmuType, m_aStrKTL_FmmuAttrb) == 12);

/// One sync manager.
struct struct_KTL_SmAttributes
{
    std::uint16_t m_iStartAddress; ///< offset 0, physical start address
    std::uint16_t m_iMinSize; ///< offset 2, bytes
    std::uint16_t m_iMaxSize; ///< offset 4, bytes
    std::uint16_t m_iDefaultSize; ///< offset 6, bytes; for process data the size that the assigned PDOs give
    std::uint32_t ControlByte; ///< offset 8, control register value
    std::uint32_t Enable; ///< offset 12, enable value
};
static_assert(sizeof(struct_KTL_SmAttributes) == 16);
static_assert(offsetof(struct_KTL_SmAttributes, m_iMinSize) == 2);
static_assert(offsetof(struct_KTL_SmAttributes, m_iMaxSize) == 4);
static_assert(offsetof(struct_KTL_SmAttributes, m_iDefaultSize) == 6);
static_assert(offsetof(struct_KTL_SmAttributes, ControlByte) == 8);
static_assert(offsetof(struct_KTL_SmAttributes, Enable) == 12);

/// All sync managers of a device that are not virtual.
struct struct_KTL_SmType
{
    std::uint32_t m_iItemType; ///< offset 0, KTL_ITEM_SM
    std::uint32_t m_iSize; ///< offset 4, bytes, head included: 12 + 16n
    std::uint32_t m_iCount; ///< offset 8, n, number of sync managers
    struct_KTL_SmAttributes m_aStrKTL_SmAttrb[1]; ///< offset 12, placeholder for the records that follow the head
};
static_assert(sizeof(struct_KTL_SmType) == 28);
static_assert(offsetof(struct_KTL_SmType, m_iSize) == 4);
static_assert(offsetof(struct_KTL_SmType, m_iCount) == 8);
static_assert(offsetof(struct_KTL_SmType, m_aStrKTL_SmAttrb) == 12);

/// One operation mode of the distributed clocks.
struct struct_KTL_DcAttributes
{
    std::uint8_t m_aDesc[24]; ///< offset 0, reserved, 0
    std::uint32_t AssignActivate; ///< offset 24, DC assign-activate word
};
static_assert(sizeof(struct_KTL_DcAttributes) == 28);
static_assert(offsetof(struct_KTL_DcAttributes, AssignActivate) == 24);

/// All operation modes of a device, the chosen one first.
struct struct_KTL_DcType
{
    std::uint32_t m_iItemType; ///< offset 0, KTL_ITEM_DC
    std::uint32_t m_iSize; ///< offset 4, bytes, head included: 12 + 28n
    std::uint32_t m_iCount; ///< offset 8, n, number of modes
    struct_KTL_DcAttributes m_aStrKTL_DcAttrb[1]; ///< offset 12, placeholder for the records that follow the head
};
static_assert(sizeof(struct_KTL_DcType) == 40);
static_assert(offsetof(struct_KTL_DcType, m_iSize) == 4);
static_assert(offsetof(struct_KTL_DcType, m_iCount) == 8);
static_assert(offsetof(struct_KTL_DcType, m_aStrKTL_DcAttrb) == 12);

/// One entry of a PDO.
struct struct_KTL_EntryPDOContent
{
    std::uint16_t m_bFixed; ///< offset 0, 0 or 1
    std::uint16_t Index; ///< offset 2, object index, 0 for a gap
    std::uint32_t SubIndex; ///< offset 4, object sub-index
    std::int32_t Bitlen; ///< offset 8, length in bits
    std::int32_t bLinkTo; ///< offset 12, reserved, 0
    std::int32_t LinkToData; ///< offset 16, link of the entry, a value of enum_KTL_PDO_TYPE
};
static_assert(sizeof(struct_KTL_EntryPDOContent) == 20);
static_assert(offsetof(struct_KTL_EntryPDOContent, Index) == 2);
static_assert(offsetof(struct_KTL_EntryPDOContent, SubIndex) == 4);
static_assert(offsetof(struct_KTL_EntryPDOContent, Bitlen) == 8);
static_assert(offsetof(struct_KTL_EntryPDOContent, bLinkTo) == 12);
static_assert(offsetof(struct_KTL_EntryPDOContent, LinkToData) == 16);

/// One PDO of a device.
struct struct_KTL_PDOListType
{
    std::uint32_t m_iItemType; ///< offset 0, KTL_ITEM_RxPdo or KTL_ITEM_TxPdo
    std::uint32_t m_iSize; ///< offset 4, bytes, head included: 28 + 20n
    std::uint8_t Fixed; ///< offset 8, 0 or 1
    std::uint8_t Mandatory; ///< offset 9, 0 or 1
    std::uint16_t m_bVirtual; ///< offset 10, reserved, 0
    std::int32_t SM; ///< offset 12, sync manager number, negative when unassigned
    std::int32_t SU; ///< offset 16, sync unit number
    std::uint16_t IndexAttributes; ///< offset 20, PDO index
    std::uint16_t m_rev; ///< offset 22, reserved, 0
    std::uint32_t m_iCount; ///< offset 24, n, number of entries
    struct_KTL_EntryPDOContent
        m_aStrKTL_EntryPDOContent[1]; ///< offset 28, placeholder for the records that follow the head
};
static_assert(sizeof(struct_KTL_PDOListType) == 48);
static_assert(offsetof(struct_KTL_PDOListType, m_iSize) == 4);
static_assert(offsetof(struct_KTL_PDOListType, Fixed) == 8);
static_assert(offsetof(struct_KTL_PDOListType, Mandatory) == 9);
static_assert(offsetof(struct_KTL_PDOListType, m_bVirtual) == 10);
static_assert(offsetof(struct_KTL_PDOListType, SM) == 12);
static_assert(offsetof(struct_KTL_PDOListType, SU) == 16);
static_assert(offsetof(struct_KTL_PDOListType, IndexAttributes) == 20);
static_assert(offsetof(struct_KTL_PDOListType, m_rev) == 22);
static_assert(offsetof(struct_KTL_PDOListType, m_iCount) == 24);
static_assert(offsetof(struct_KTL_PDOListType, m_aStrKTL_EntryPDOContent) == 28);

/// One startup command, in EoE and CoE items alike.
struct struct_KTL_InitCmd
{
    std::uint16_t Transition; ///< offset 0, code of the state transition, an NMTOKEN
    std::uint16_t Index; ///< offset 2, object index
    std::uint8_t SubIndex; ///< offset 4, object sub-index
    std::uint8_t bIfCA; ///< offset 5, 1 for a complete access
    std::uint16_t DataBytes; ///< offset 6, length of the value in bytes
    std::uint32_t Data; ///< offset 8, value, when not a complete access
};
static_assert(sizeof(struct_KTL_InitCmd) == 12);
static_assert(offsetof(struct_KTL_InitCmd, Index) == 2);
static_assert(offsetof(struct_KTL_InitCmd, SubIndex) == 4);
static_assert(offsetof(struct_KTL_InitCmd, bIfCA) == 5);
static_assert(offsetof(struct_KTL_InitCmd, DataBytes) == 6);
static_assert(offsetof(struct_KTL_InitCmd, Data) == 8);

/// EoE flags and startup commands.
struct struct_KTL_EOE
{
    std::uint32_t m_iItemType; ///< offset 0, KTL_ITEM_EoE
    std::uint32_t m_iSize; ///< offset 4, bytes, head included: 12 + 12n
    std::uint8_t m_bIP; ///< offset 8, 0 or 1
    std::uint8_t m_bMAC; ///< offset 9, 0 or 1
    std::uint8_t m_bTimeStamp; ///< offset 10, reserved, 0
    std::uint8_t m_iInitCmdCount; ///< offset 11, n, low 8 bits of the number of commands
    struct_KTL_InitCmd m_aInitCmd[1]; ///< offset 12, placeholder for the records that follow the head
};
static_assert(sizeof(struct_KTL_EOE) == 24);
static_assert(offsetof(struct_KTL_EOE, m_iSize) == 4);
static_assert(offsetof(struct_KTL_EOE, m_bIP) == 8);
static_assert(offsetof(struct_KTL_EOE, m_bMAC) == 9);
static_assert(offsetof(struct_KTL_EOE, m_bTimeStamp) == 10);
static_assert(offsetof(struct_KTL_EOE, m_iInitCmdCount) == 11);
static_assert(offsetof(struct_KTL_EOE, m_aInitCmd) == 12);

/// CoE flags, startup commands and the values of complete accesses.
struct struct_KTL_COE
{
    std::uint32_t m_iItemType; ///< offset 0, KTL_ITEM_CoE
    std::uint32_t m_iSize; ///< offset 4, bytes, head included: 16 + 12c + values, up to a multiple of 4
    std::uint8_t m_bSdoInfo; ///< offset 8, 0 or 1
    std::uint8_t m_bPdoAssign; ///< offset 9, 0 or 1
    std::uint8_t m_bPdoUpload; ///< offset 10, 0 or 1
    std::uint8_t m_bPdoConfig; ///< offset 11, 0 or 1
    std::uint8_t m_bSegmentedSdo; ///< offset 12, 0 or 1
    std::uint8_t m_bCompleteAccess; ///< offset 13, 0 or 1
    std::uint8_t m_bDiagHistory; ///< offset 14, 0 or 1
    std::uint8_t m_iInitCmdCount; ///< offset 15, c, number of commands; 255 means count them from m_iSize
    struct_KTL_InitCmd m_aInitCmd[1]; ///< offset 16, placeholder for the records that follow the head
};
static_assert(sizeof(struct_KTL_COE) == 28);
static_assert(offsetof(struct_KTL_COE, m_iSize) == 4);
static_assert(offsetof(struct_KTL_COE, m_bSdoInfo) == 8);
static_assert(offsetof(struct_KTL_COE, m_bPdoAssign) == 9);
static_assert(offsetof(struct_KTL_COE, m_bPdoUpload) == 10);
static_assert(offsetof(struct_KTL_COE, m_bPdoConfig) == 11);
static_assert(offsetof(struct_KTL_COE, m_bSegmentedSdo) == 12);
static_assert(offsetof(struct_KTL_COE, m_bCompleteAccess) == 13);
static_assert(offsetof(struct_KTL_COE, m_bDiagHistory) == 14);
static_assert(offsetof(struct_KTL_COE, m_iInitCmdCount) == 15);
static_assert(offsetof(struct_KTL_COE, m_aInitCmd) == 16);

/// EEPROM contents.
struct struct_KTL_EEPROM
{
    std::uint32_t m_iItemType; ///< offset 0, KTL_ITEM_EEPROM
    std::uint32_t m_iSize; ///< offset 4, bytes, head included: 40
    std::uint32_t m_iByteSize; ///< offset 8, 2048
    std::uint32_t m_aConfigData[7]; ///< offset 12, all 0
};
static_assert(sizeof(struct_KTL_EEPROM) == 40);
static_assert(offsetof(struct_KTL_EEPROM, m_iSize) == 4);
static_assert(offsetof(struct_KTL_EEPROM, m_iByteSize) == 8);
static_assert(offsetof(struct_KTL_EEPROM, m_aConfigData) == 12);

/// Time of the export and the names of device and modules.
struct struct_KTL_DeviceMoreInfo
{
    std::uint32_t m_iItemType; ///< offset 0, KTL_ITEM_DeviceMoreInfo
    std::uint32_t m_iSize; ///< offset 4, bytes, head included: 24 + text, up to a multiple of 4
    std::uint32_t m_iDate; ///< offset 8, year * 10000 + month * 100 + day
    std::uint32_t m_iTime; ///< offset 12, hour * 10000 + minute * 100 + second
    std::uint32_t m_iVersion; ///< offset 16, format version, see version.h
    std::uint32_t m_iCount; ///< offset 20, reserved, 0
    char m_aStrChar[1]; ///< offset 24, placeholder for the records that follow the head
};
static_assert(sizeof(struct_KTL_DeviceMoreInfo) == 25);
static_assert(offsetof(struct_KTL_DeviceMoreInfo, m_iSize) == 4);
static_assert(offsetof(struct_KTL_DeviceMoreInfo, m_iDate) == 8);
static_assert(offsetof(struct_KTL_DeviceMoreInfo, m_iTime) == 12);
static_assert(offsetof(struct_KTL_DeviceMoreInfo, m_iVersion) == 16);
static_assert(offsetof(struct_KTL_DeviceMoreInfo, m_iCount) == 20);
static_assert(offsetof(struct_KTL_DeviceMoreInfo, m_aStrChar) == 24);

#pragma pack(pop)
