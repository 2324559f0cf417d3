// deviceRecords.h - one device of a loaded file.
#pragma once

#include "model/dictionaryRecords.h"
#include "model/moduleRecords.h"
#include "model/nmtoken.h"
#include "model/pdoRecords.h"
#include "model/slotRecords.h"
#include "model/startupRecords.h"
#include "model/syncRecords.h"

#include <cstdint>
#include <string>
#include <vector>

/// Identity of a device, from its `Type` element.
struct DeviceTypeAttributes
{
    std::uint32_t Product_Code = 0;
    std::uint32_t Revision_No = 0;
    std::uint32_t Serial_No = 0;
    std::uint32_t m_iVendor_Id = 0; ///< from a KTL file only; the vendor id of an ESI file is that of its file record
    NMTOKEN CheckProductCode = UnknownType;
    std::string type; ///< text of the element
};

/// Process data of one direction.
struct DevicePdoList
{
    std::vector<struct_PDOList> vpdo;
};

/// Startup commands of one mailbox protocol.
struct InitCmdList
{
    std::vector<struct_InitCmd> vinitcmd;
};

/// Attributes of the EoE mailbox.
struct EoeAttributes
{
    bool IP = false;
    bool MAC = false;
};

/// EoE mailbox of a device.
struct DeviceEoe
{
    EoeAttributes Attributes;
    InitCmdList InitCmd;
};

/// Attributes of the CoE mailbox.
struct CoeAttributes
{
    bool SdoInfo = false;
    bool PdoAssign = false;
    bool PdoUpload = false;
    bool PdoConfig = false;
    bool SegmentedSdo = false;
    bool CompleteAccess = false; ///< set by no ESI attribute
    bool DiagHistory = false;
};

/// CoE mailbox of a device.
struct DeviceCoe
{
    CoeAttributes Attributes;
    InitCmdList InitCmd; ///< declared by the ESI, and generated from the PDO mapping
};

/// Mailbox of a device.
struct DeviceMailbox
{
    DeviceEoe EOE;
    DeviceCoe COE;
};

/// CoE dictionary of a device.
struct DeviceDictionary
{
    std::vector<struct_DataTypes> vdatatype;
    std::vector<struct_Object> vobject;
};

/// Process data of one direction that the modules in the slots bring in.
struct DeviceModulePdoList
{
    std::vector<modulePdo> mpdo;
};

/// Dictionary that the modules in the slots bring in.
struct DeviceModuleDictionary
{
    std::vector<struct_DataTypes> mdatatype;
    std::vector<struct_Object> mobject;
};

/// One device of a file.
struct struct_EtherCatDevice
{
    DeviceTypeAttributes TypeAttributes;
    std::string Name; ///< the last `Name` of the device, without a CDATA mark
    std::vector<Struct_DCOpMode> vopmode; ///< operation modes of distributed clocks
    std::vector<Struct_Fmmu> vFmmu; ///< in document order
    std::vector<struct_SM> vSM; ///< in document order
    DevicePdoList RxPdo; ///< output PDOs
    DevicePdoList TxPdo; ///< input PDOs
    DeviceMailbox Mailbox;
    DeviceDictionary Dictionary;
    DeviceSlots Slots;
    std::uint16_t configindex = 0; ///< object index of the module configuration, entered by the user
    std::uint16_t detectindex = 0; ///< object index of the module detection, entered by the user
    std::uint16_t m_iDeviceType = 0; ///< a value of `enum_KTL_DEVICE_TYPE`
    std::uint16_t m_iDriveAxies = 0; ///< number of drive axes
    DeviceModulePdoList mRxPdo; ///< output PDOs of the modules in the slots
    DeviceModulePdoList mTxPdo; ///< input PDOs of the modules in the slots
    DeviceModuleDictionary mDictionary; ///< dictionary of the modules in the slots
    moduleMailobx mMailbox; ///< commands of the modules, and all PDO assign commands, also those of device PDOs
};
using str_EtherCatDevice = struct_EtherCatDevice;

/// One loaded file.
struct struct_FilenameDevice
{
    std::string xmlfilepath; ///< the path as it was given to the reader
    std::uint32_t Vendor_Id = 0; ///< vendor id of the file, from its first `Vendor` element
    std::vector<struct_EtherCatDevice> device; ///< in document order
    std::vector<struct_commentmodule> vcommentmodule; ///< modules of the file, grouped by the comment before each run
};
using str_FilenameDevice = struct_FilenameDevice;

// Compiled once, in recordLists.cpp.
extern template class std::vector<struct_EtherCatDevice>;
extern template class std::vector<struct_FilenameDevice>;
