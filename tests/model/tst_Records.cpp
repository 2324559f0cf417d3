// The fields of all records: their types, and that a new record is cleared.
#include "model/cleared.h"
#include "testMain.h"

#include <QtTest>

#include <cstdint>
#include <string>
#include <vector>

class tst_Records : public QObject
{
    Q_OBJECT

private slots:
    static void file();
    static void deviceIdentity();
    static void deviceParts();
    static void deviceMailbox();
    static void slotsOfDevice();
    static void slot();
    static void syncManagerAndFmmu();
    static void operationMode();
    static void pdo();
    static void startupCommand();
    static void dataType();
    static void object();
    static void module();
    static void modulePdos();
    static void moduleStartupCommand();
};

void tst_Records::file()
{
    FIELD(struct_FilenameDevice, xmlfilepath, std::string);
    FIELD(struct_FilenameDevice, Vendor_Id, std::uint32_t);
    FIELD(struct_FilenameDevice, device, std::vector<struct_EtherCatDevice>);
    FIELD(struct_FilenameDevice, vcommentmodule, std::vector<struct_commentmodule>);
    FIELD(struct_commentmodule, comment, std::string);
    FIELD(struct_commentmodule, vmodule, std::vector<struct_module>);
}

void tst_Records::deviceIdentity()
{
    FIELD(struct_EtherCatDevice, TypeAttributes.Product_Code, std::uint32_t);
    FIELD(struct_EtherCatDevice, TypeAttributes.Revision_No, std::uint32_t);
    FIELD(struct_EtherCatDevice, TypeAttributes.Serial_No, std::uint32_t);
    FIELD(struct_EtherCatDevice, TypeAttributes.m_iVendor_Id, std::uint32_t);
    FIELD(struct_EtherCatDevice, TypeAttributes.CheckProductCode, NMTOKEN);
    FIELD(struct_EtherCatDevice, TypeAttributes.type, std::string);
    FIELD(struct_EtherCatDevice, Name, std::string);
    FIELD(struct_EtherCatDevice, configindex, std::uint16_t);
    FIELD(struct_EtherCatDevice, detectindex, std::uint16_t);
    FIELD(struct_EtherCatDevice, m_iDeviceType, std::uint16_t);
    FIELD(struct_EtherCatDevice, m_iDriveAxies, std::uint16_t);
}

void tst_Records::deviceParts()
{
    FIELD(struct_EtherCatDevice, vopmode, std::vector<Struct_DCOpMode>);
    FIELD(struct_EtherCatDevice, vFmmu, std::vector<Struct_Fmmu>);
    FIELD(struct_EtherCatDevice, vSM, std::vector<struct_SM>);
    FIELD(struct_EtherCatDevice, RxPdo.vpdo, std::vector<struct_PDOList>);
    FIELD(struct_EtherCatDevice, TxPdo.vpdo, std::vector<struct_PDOList>);
    FIELD(struct_EtherCatDevice, Dictionary.vdatatype, std::vector<struct_DataTypes>);
    FIELD(struct_EtherCatDevice, Dictionary.vobject, std::vector<struct_Object>);
    FIELD(struct_EtherCatDevice, mRxPdo.mpdo, std::vector<modulePdo>);
    FIELD(struct_EtherCatDevice, mTxPdo.mpdo, std::vector<modulePdo>);
    FIELD(struct_EtherCatDevice, mDictionary.mdatatype, std::vector<struct_DataTypes>);
    FIELD(struct_EtherCatDevice, mDictionary.mobject, std::vector<struct_Object>);
    FIELD(struct_EtherCatDevice, mMailbox.COE.vinitcmd, std::vector<struct_moduleInitCmd>);
}

void tst_Records::deviceMailbox()
{
    FIELD(struct_EtherCatDevice, Mailbox.EOE.Attributes.IP, bool);
    FIELD(struct_EtherCatDevice, Mailbox.EOE.Attributes.MAC, bool);
    FIELD(struct_EtherCatDevice, Mailbox.EOE.InitCmd.vinitcmd, std::vector<struct_InitCmd>);
    FIELD(struct_EtherCatDevice, Mailbox.COE.Attributes.SdoInfo, bool);
    FIELD(struct_EtherCatDevice, Mailbox.COE.Attributes.PdoAssign, bool);
    FIELD(struct_EtherCatDevice, Mailbox.COE.Attributes.PdoUpload, bool);
    FIELD(struct_EtherCatDevice, Mailbox.COE.Attributes.PdoConfig, bool);
    FIELD(struct_EtherCatDevice, Mailbox.COE.Attributes.SegmentedSdo, bool);
    FIELD(struct_EtherCatDevice, Mailbox.COE.Attributes.CompleteAccess, bool);
    FIELD(struct_EtherCatDevice, Mailbox.COE.Attributes.DiagHistory, bool);
    FIELD(struct_EtherCatDevice, Mailbox.COE.InitCmd.vinitcmd, std::vector<struct_InitCmd>);
}

void tst_Records::slotsOfDevice()
{
    FIELD(struct_EtherCatDevice, Slots.Attributes.DownloadModuleIdentList, bool);
    FIELD(struct_EtherCatDevice, Slots.Attributes.DownloadModuleAddressList, bool);
    FIELD(struct_EtherCatDevice, Slots.Attributes.SlotIndexIncrement, std::uint32_t);
    FIELD(struct_EtherCatDevice, Slots.Attributes.SlotPdoIncrement, std::uint32_t);
    FIELD(struct_EtherCatDevice, Slots.Attributes.m_DownloadModuleListTransition, NMTOKEN);
    FIELD(struct_EtherCatDevice, Slots.Attributes.IdentifyModuleBy, std::string);
    FIELD(struct_EtherCatDevice, Slots.Attributes.m_MaxSlotCount, std::uint32_t);
    FIELD(struct_EtherCatDevice, Slots.Attributes.m_MaxSlotGroupCount, std::uint32_t);
    FIELD(struct_EtherCatDevice, Slots.Attributes.m_SlotGroupIndexIncrement, std::uint32_t);
    FIELD(struct_EtherCatDevice, Slots.Attributes.m_SlotGroupPdoIncrement, std::uint32_t);
    FIELD(struct_EtherCatDevice, Slots.vslot, std::vector<struct_Slot>);
}

void tst_Records::slot()
{
    FIELD(struct_Slot, Attributes.MinInstances, std::uint32_t);
    FIELD(struct_Slot, Attributes.MaxInstances, std::uint32_t);
    FIELD(struct_Slot, Attributes.SlotIndexIncrement, std::uint32_t);
    FIELD(struct_Slot, Attributes.SlotPdoIncrement, std::uint32_t);
    FIELD_STARTS_AT(struct_Slot, Attributes.m_SlotGroup, std::int32_t, value == -1);
    FIELD(struct_Slot, Attributes.m_SlotGroupIndexIncrement, std::uint32_t);
    FIELD(struct_Slot, Attributes.m_SlotGroupPdoIncrement, std::uint32_t);
    FIELD(struct_Slot, Name, std::string);
    FIELD(struct_Slot, ModuleClass, std::vector<struct_ModuleClass>);
    FIELD(struct_Slot, ModuleIdent, std::vector<struct_ModuleIdent>);
    FIELD(struct_Slot, slotmodule, std::vector<struct_slotmodule>);
    FIELD(struct_ModuleClass, Class, std::string);
    FIELD(struct_ModuleClass, Name, std::string);
    FIELD(struct_ModuleIdent, Attributes.Default, std::uint32_t);
    FIELD(struct_ModuleIdent, ModuleIdent, std::uint32_t);
    FIELD(struct_slotmodule, Instances, int);
    FIELD(struct_slotmodule, module.Name, std::string);
}

void tst_Records::syncManagerAndFmmu()
{
    FIELD(struct_SM, SM, std::uint8_t);
    FIELD(struct_SM, Attributes.StartAddress, std::uint16_t);
    FIELD(struct_SM, Attributes.MinSize, std::uint16_t);
    FIELD(struct_SM, Attributes.MaxSize, std::uint16_t);
    FIELD(struct_SM, Attributes.DefaultSize, std::uint16_t);
    FIELD(struct_SM, Attributes.ControlByte, std::uint32_t);
    FIELD(struct_SM, Attributes.Enable, std::uint32_t);
    FIELD(struct_SM, Attributes.m_Virtual, std::uint32_t);
    FIELD(struct_SM, Name, std::string);
    FIELD(struct_SM, Smtype, std::uint8_t);
    FIELD(struct_SM, Length, float);
    FIELD(Struct_Fmmu, m_Name, std::string);
    FIELD(Struct_Fmmu, m_OpOnly, bool);
    FIELD(Struct_Fmmu, m_Sm, std::uint32_t);
    FIELD(Struct_Fmmu, m_Su, std::uint32_t);
    FIELD(Struct_Fmmu, m_FmmuType, std::int16_t);
}

void tst_Records::operationMode()
{
    FIELD(Struct_DCOpMode, Name, std::string);
    FIELD(Struct_DCOpMode, Desc, std::string);
    FIELD(Struct_DCOpMode, AssignActivate, std::uint32_t);
    FIELD(Struct_DCOpMode, m_CycleTimeSync0, std::int32_t);
    FIELD(Struct_DCOpMode, m_ShiftTimeSync0, std::int32_t);
    FIELD(Struct_DCOpMode, m_CycleTimeSync1, std::int32_t);
    FIELD(Struct_DCOpMode, m_ShiftTimeSync1, std::int32_t);
    FIELD(Struct_DCOpMode, m_Sm, std::vector<Struct_DCSm>);
    FIELD(Struct_DCOpMode, vendorSpecific.twinCAT.oversampling.m_DefaultFactor, std::uint32_t);
    FIELD(Struct_DCOpMode, vendorSpecific.twinCAT.oversampling.m_MinCycleTime, std::uint32_t);
    FIELD(Struct_DCSm, Attributes.m_No, std::uint32_t);
    FIELD(Struct_DCSm, m_SyncType, std::int32_t);
    FIELD(Struct_DCSm, m_CycleTime, std::int32_t);
    FIELD(Struct_DCSm, m_ShiftTime, std::int32_t);
    FIELD(Struct_DCSm, m_Pdo, std::vector<Struct_DCPdo>);
    FIELD(Struct_DCPdo, Attributes.m_OsFac, std::uint32_t);
    FIELD(Struct_DCPdo, m_index, std::uint32_t);
}

void tst_Records::pdo()
{
    FIELD(struct_PDOList, Attributes.Fixed, bool);
    FIELD(struct_PDOList, Attributes.Mandatory, bool);
    // Not 0: that is the number of the first sync manager.
    FIELD_STARTS_AT(struct_PDOList, Attributes.SM, int, value == -1);
    FIELD(struct_PDOList, Attributes.SU, int);
    FIELD(struct_PDOList, Attributes.m_OSFac, int);
    FIELD(struct_PDOList, Attributes.m_OSMin, int);
    FIELD(struct_PDOList, Attributes.m_OSMax, int);
    FIELD(struct_PDOList, Attributes.m_OSIndexInc, int);
    FIELD(struct_PDOList, IndexAttributes.Index, std::uint16_t);
    FIELD(struct_PDOList, Name, std::string);
    FIELD(struct_PDOList, Entry.vPdo_c, std::vector<struct_EntryPDOContent>);
    FIELD(struct_PDOList, Size, float);
    FIELD(struct_EntryPDOContent, Attributes.Fixed, bool);
    FIELD(struct_EntryPDOContent, Index, std::uint16_t);
    FIELD(struct_EntryPDOContent, SubIndex, std::uint32_t);
    FIELD(struct_EntryPDOContent, Bitlen, int);
    FIELD(struct_EntryPDOContent, Name, std::string);
    FIELD(struct_EntryPDOContent, DataType, std::string);
    FIELD(struct_EntryPDOContent, Linkto, std::int32_t);
    FIELD(struct_EntryPDOContent, DefaultData, std::uint32_t);
    FIELD(struct_EntryPDOContent, Offs, float);
}

void tst_Records::startupCommand()
{
    FIELD(struct_InitCmd, Transition, NMTOKEN);
    FIELD(struct_InitCmd, Index, std::uint16_t);
    FIELD(struct_InitCmd, SubIndex, std::uint8_t);
    FIELD(struct_InitCmd, bIfCA, std::uint8_t);
    FIELD(struct_InitCmd, DataBytes, std::uint16_t);
    FIELD(struct_InitCmd, Data, std::uint32_t);
    FIELD(struct_InitCmd, Comment, std::string);
    FIELD(struct_InitCmd, strData, std::string);
    FIELD(struct_InitCmd, m_CADataList, std::vector<unsigned int>);
}

void tst_Records::dataType()
{
    FIELD(struct_DataTypes, Name, std::string);
    FIELD(struct_DataTypes, BitSize, int);
    FIELD(struct_DataTypes, index, std::uint16_t);
    FIELD(struct_DataTypes, BaseType, std::string);
    FIELD(struct_DataTypes, varrayinfo, std::vector<ArrayInfo>);
    FIELD(struct_DataTypes, vsubitem, std::vector<DataTypeSubItem>);
    FIELD(struct_DataTypes, venuminfo, std::vector<EnumInfo>);
    FIELD(ArrayInfo, LBound, int);
    FIELD(ArrayInfo, Elements, int);
    FIELD(EnumInfo, Name, std::string);
    FIELD(EnumInfo, Enum, int);
    FIELD(EnumInfo, Comment, std::string);
    FIELD(DataTypeSubItem, SubIdx, std::uint32_t);
    FIELD(DataTypeSubItem, Name, std::string);
    FIELD(DataTypeSubItem, Type, std::string);
    FIELD(DataTypeSubItem, BitSize, int);
    FIELD(DataTypeSubItem, BitOffs, int);
    FIELD(DataTypeSubItem, flag.Access, NMTOKEN);
    FIELD(DataTypeSubItem, flag.Category, NMTOKEN);
    FIELD(DataTypeSubItem, flag.Backup, int);
    FIELD(DataTypeSubItem, flag.Setting, int);
}

void tst_Records::object()
{
    FIELD(struct_Object, index, std::uint16_t);
    FIELD(struct_Object, Name, std::string);
    FIELD(struct_Object, Comment, std::string);
    FIELD(struct_Object, Type, std::string);
    FIELD(struct_Object, BitSize, int);
    FIELD(struct_Object, flags.Access, NMTOKEN);
    FIELD(struct_Object, flags.Category, NMTOKEN);
    FIELD(struct_Object, flags.PdoMapping, NMTOKEN);
    FIELD(struct_Object, flags.SafetyMapping, NMTOKEN);
    FIELD(struct_Object, flags.SdoAccess, NMTOKEN);
    FIELD(struct_Object, flags.Backup, int);
    FIELD(struct_Object, flags.Setting, int);
    FIELD(struct_Object, Info.DefaultString, std::string);
    FIELD(struct_ObjectInfo, DefaultString, std::string);
    FIELD(struct_ObjectInfo, DefaultValue, std::uint32_t);
    FIELD(struct_ObjectInfo, MinData, std::uint32_t);
    FIELD(struct_ObjectInfo, MaxData, std::uint32_t);
    FIELD(struct_ObjectInfo, vsubitem, std::vector<struct_Subitem>);
    FIELD(struct_Subitem, Name, std::string);
    FIELD(struct_Subitem, Info.Info.DefaultValue, std::uint32_t);
}

void tst_Records::module()
{
    FIELD(struct_module, TypeAttributes.SRA_ParamterSupported, bool);
    FIELD(struct_module, TypeAttributes.ModulePdoGroup, int);
    FIELD(struct_module, TypeAttributes.ModuleIdent, std::uint32_t);
    FIELD(struct_module, TypeAttributes.ModuleClass, std::string);
    FIELD(struct_module, TypeAttributes.Name, std::string);
    FIELD(struct_module, Name, std::string);
    FIELD(struct_module, RxPdo.vpdo, std::vector<modulePdo>);
    FIELD(struct_module, TxPdo.vpdo, std::vector<modulePdo>);
    FIELD(struct_module, Dictionary.vdatatype, std::vector<struct_DataTypes>);
    FIELD(struct_module, Dictionary.vobject, std::vector<struct_Object>);
    FIELD(struct_module, Mailbox.COE.vinitcmd, std::vector<struct_moduleInitCmd>);
    FIELD(struct_module, m_profileNO, std::uint32_t);
    static_assert(std::is_same_v<decltype(struct_module::Mailbox), moduleMailobx>);
}

void tst_Records::modulePdos()
{
    FIELD(modulePdo, Attributes.Fixed, bool);
    FIELD(modulePdo, Attributes.Mandatory, bool);
    FIELD_STARTS_AT(modulePdo, Attributes.SM, int, value == -1);
    FIELD(modulePdo, Attributes.SU, int);
    FIELD(modulePdo, indexAttributes.DependOnSlot, bool);
    FIELD(modulePdo, indexAttributes.DependOnSlotGroup, bool);
    FIELD(modulePdo, indexAttributes.index, std::uint16_t);
    FIELD(modulePdo, Name, std::string);
    FIELD(modulePdo, vEntry, std::vector<struct_moduleEntry>);
    FIELD(modulePdo, size, float);
    FIELD(modulePdo, Instances, int);
    FIELD(struct_moduleEntry, indexAttributes.DependOnSlot, bool);
    FIELD(struct_moduleEntry, indexAttributes.m_DependOnSlotGroup, bool);
    FIELD(struct_moduleEntry, indexAttributes.index, std::uint16_t);
    FIELD(struct_moduleEntry, SubIndex, std::uint16_t);
    FIELD(struct_moduleEntry, BitLen, int);
    FIELD(struct_moduleEntry, Name, std::string);
    FIELD(struct_moduleEntry, DataType, std::string);
    FIELD(struct_moduleEntry, Comment, std::string);
    FIELD(struct_moduleEntry, DefaultData, std::uint32_t);
    FIELD(struct_moduleEntry, Linkto, std::int32_t);
    FIELD(struct_moduleEntry, Offs, float);
}

void tst_Records::moduleStartupCommand()
{
    FIELD(struct_moduleInitCmd, indexAttributes.DependOnSlot, bool);
    FIELD(struct_moduleInitCmd, indexAttributes.DependOnSlotGroup, bool);
    FIELD(struct_moduleInitCmd, indexAttributes.AdaptAutomatically, bool);
    FIELD(struct_moduleInitCmd, indexAttributes.index, std::uint16_t);
    FIELD(struct_moduleInitCmd, Transition, NMTOKEN);
    // Wider than the same field of a device's command.
    FIELD(struct_moduleInitCmd, SubIndex, std::uint16_t);
    FIELD(struct_moduleInitCmd, DataBytes, std::uint16_t);
    FIELD(struct_moduleInitCmd, Data, std::uint32_t);
    FIELD(struct_moduleInitCmd, Comment, std::string);
    FIELD(struct_moduleInitCmd, strData, std::string);
    FIELD(struct_moduleInitCmd, Instances, int);
    FIELD(struct_moduleInitCmd, bIfCA, std::uint8_t);
    FIELD(struct_moduleInitCmd, m_CADataList, std::vector<unsigned int>);
}

static const testMain::Registration<tst_Records, QCoreApplication> registration;
#include "tst_Records.moc"
