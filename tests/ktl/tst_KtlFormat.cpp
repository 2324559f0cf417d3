// Codes, record sizes, and offset, width and sign of every field of the KTL format.
#include "ktl/format/ktlFormat.h"
#include "model/version.h"
#include "testMain.h"

#include <QtTest>

#include <cstring>
#include <type_traits>

/// A row for a number that has a name in the format.
#define CODE(name, expected) QTest::addRow(#name) << qint64(name) << qint64(expected)

/// A row for the whole length of a record: head and, if it has one, the one-element array in the place of its tail.
#define SIZE(record, expected) QTest::addRow(#record) << int(sizeof(record)) << (expected)

/// A row for a field: offset, width in bytes, and whether it is signed.
#define FIELD(record, field, offset, width, isSigned)                                                           \
    QTest::addRow(#record " " #field) << int(offsetof(record, field)) << int(sizeof(record::field))             \
                                      << bool(std::is_signed_v<decltype(record::field)>) << (offset) << (width) \
                                      << (isSigned)

class tst_KtlFormat : public QObject
{
    Q_OBJECT

private slots:
    void itemCodes_data();
    void itemCodes() { compareNumbers(); }
    void otherCodes_data();
    void otherCodes() { compareNumbers(); }
    void recordSizes_data();
    void recordSizes();
    void deviceFields_data();
    void deviceFields() { compareField(); }
    void commandAndSlotFields_data();
    void commandAndSlotFields() { compareField(); }
    void moduleFields_data();
    void moduleFields() { compareField(); }
    void objectFields_data();
    void objectFields() { compareField(); }
    void nestedFields();
    void versionTextAndNumber();

private:
    static void addFieldColumns();
    static void compareNumbers();
    static void compareField();
};

void tst_KtlFormat::compareNumbers()
{
    QFETCH(qint64, number);
    QFETCH(qint64, expected);
    QCOMPARE(number, expected);
}

void tst_KtlFormat::itemCodes_data()
{
    QTest::addColumn<qint64>("number");
    QTest::addColumn<qint64>("expected");
    CODE(KTL_ITEM_END, 0);
    CODE(KTL_ITEM_General, 40000);
    CODE(KTL_ITEM_SM, 40001);
    CODE(KTL_ITEM_DC, 40002);
    CODE(KTL_ITEM_RxPdo, 40003);
    CODE(KTL_ITEM_TxPdo, 40004);
    CODE(KTL_ITEM_EoE, 40005);
    CODE(KTL_ITEM_CoE, 40006);
    CODE(KTL_ITEM_Slot, 40007);
    CODE(KTL_ITEM_EEPROM, 40008);
    CODE(KTL_ITEM_ObjectDetectType, 40009);
    CODE(KTL_ITEM_ObjectConfigType, 40010);
    CODE(KTL_ITEM_ObjectModule, 40011);
    CODE(KTL_ITEM_SubObjectType, 40012);
    CODE(KTL_ITEM_ModuleType, 40013);
    CODE(KTL_ITEM_FMMU, 40014);
    CODE(KTL_ITEM_SlotPreConfig, 40015);
    CODE(KTL_ITEM_DeviceMoreInfo, 40016);
    CODE(KTL_ITEM_ModuleRxPDOType, 40100);
    CODE(KTL_ITEM_ModuleTxPDOType, 40101);
    CODE(KTL_ITEM_ModuleTPDOEntryType, 40102);
    CODE(KTL_ITEM_ModuleRPDOEntryType, 40103);
    CODE(KTL_ITEM_ModuleCoEInitCmdType, 40104);
    CODE(KTL_ITEM_ModuleDictDT, 40105);
    CODE(KTL_ITEM_ModuleDictObject, 40106);
}

void tst_KtlFormat::otherCodes_data()
{
    QTest::addColumn<qint64>("number");
    QTest::addColumn<qint64>("expected");
    CODE(KTL_DEVICE_TYPE_IOBlock, 0);
    CODE(KTL_DEVICE_TYPE_SingleDriver, 1);
    CODE(KTL_DEVICE_TYPE_MultiDriver, 2);
    CODE(KTL_DEVICE_TYPE_PnpIOBlock, 3);
    CODE(KTL_DEVICE_TYPE_Special, 4);
    CODE(KTL_DEVICE_TYPE_ManualIOBlock, 5);
    CODE(KTL_UnknownType, 0);
    CODE(KTL_MBoxOut, 1);
    CODE(KTL_MBoxIn, 2);
    CODE(KTL_Outputs, 3);
    CODE(KTL_Inputs, 4);
    CODE(KTL_DyOutputs, 5);
    CODE(KTL_DyInputs, 6);
    CODE(KTL_Local, 7);
    CODE(KTL_PDO_TYPE_NONE, 0);
    CODE(KTL_PDO_TYPE_DIN, -1);
    CODE(KTL_PDO_TYPE_DOUT, -2); // -3 is not assigned
    CODE(KTL_PDO_TYPE_I16_AIN, -4);
    CODE(KTL_PDO_TYPE_I32_AIN, -5);
    CODE(KTL_PDO_TYPE_FLOAT_AIN, -6);
    CODE(KTL_PDO_TYPE_I16_AOUT, -7);
    CODE(KTL_PDO_TYPE_I32_AOUT, -8);
    CODE(KTL_PDO_TYPE_FLOAT_AOUT, -9);
    CODE(KTL_PDO_TYPE_ENCODER32, -10);
}

void tst_KtlFormat::recordSizes_data()
{
    QTest::addColumn<int>("size");
    QTest::addColumn<int>("expected");
    SIZE(struct_KTL_ItemEnd, 12);
    SIZE(struct_KTL_EtherCatDeviceType, 52);
    SIZE(struct_KTL_FmmuAttributes, 8);
    SIZE(struct_KTL_FmmuType, 12 + 8);
    SIZE(struct_KTL_SmAttributes, 16);
    SIZE(struct_KTL_SmType, 12 + 16);
    SIZE(struct_KTL_DcAttributes, 28);
    SIZE(struct_KTL_DcType, 12 + 28);
    SIZE(struct_KTL_EntryPDOContent, 20);
    SIZE(struct_KTL_PDOListType, 28 + 20);
    SIZE(struct_KTL_InitCmd, 12);
    SIZE(struct_KTL_EOE, 12 + 12);
    SIZE(struct_KTL_COE, 16 + 12);
    SIZE(struct_KTL_SlotContent, 124);
    SIZE(struct_KTL_Slots, 20 + 124);
    SIZE(struct_KTL_Slot_PreModuleIdent, 8);
    SIZE(struct_KTL_Slots_Preconfig, 16 + 8);
    SIZE(struct_KTL_DeviceMoreInfo, 24 + 1);
    SIZE(struct_KTL_moduleType, 20);
    SIZE(struct_KTL_modulePdoOne, 12);
    SIZE(struct_KTL_moduleEntryType, 28 + 12);
    SIZE(struct_KTL_moduleStartupOne, 16);
    SIZE(struct_KTL_moduleInitCmdType, 12 + 16);
    SIZE(struct_KTL_EEPROM, 40);
    SIZE(struct_KTL_ObjectType, 28);
    SIZE(struct_KTL_SubObjectType, 28);
}

void tst_KtlFormat::recordSizes()
{
    QFETCH(int, size);
    QFETCH(int, expected);
    QCOMPARE(size, expected);
}

void tst_KtlFormat::addFieldColumns()
{
    QTest::addColumn<int>("offset");
    QTest::addColumn<int>("width");
    QTest::addColumn<bool>("isSigned");
    QTest::addColumn<int>("expectedOffset");
    QTest::addColumn<int>("expectedWidth");
    QTest::addColumn<bool>("expectedSigned");
}

void tst_KtlFormat::compareField()
{
    QFETCH(int, offset);
    QFETCH(int, width);
    QFETCH(bool, isSigned);
    QFETCH(int, expectedOffset);
    QFETCH(int, expectedWidth);
    QFETCH(bool, expectedSigned);
    QCOMPARE(offset, expectedOffset);
    QCOMPARE(width, expectedWidth);
    QCOMPARE(isSigned, expectedSigned);
}

/// Fields of the lists of a device.
static void addListFields()
{
    FIELD(struct_KTL_FmmuType, m_iCount, 8, 4, false);
    FIELD(struct_KTL_FmmuType, m_aStrKTL_FmmuAttrb, 12, 8, false);
    FIELD(struct_KTL_FmmuAttributes, m_iOpOnly, 0, 1, false);
    FIELD(struct_KTL_FmmuAttributes, m_iSm, 1, 1, false);
    FIELD(struct_KTL_FmmuAttributes, m_iSu, 2, 1, false);
    FIELD(struct_KTL_FmmuAttributes, m_iFmmuType, 3, 1, false);
    FIELD(struct_KTL_FmmuAttributes, m_reserve, 4, 4, false);

    FIELD(struct_KTL_SmType, m_iCount, 8, 4, false);
    FIELD(struct_KTL_SmType, m_aStrKTL_SmAttrb, 12, 16, false);
    FIELD(struct_KTL_SmAttributes, m_iStartAddress, 0, 2, false);
    FIELD(struct_KTL_SmAttributes, m_iMinSize, 2, 2, false);
    FIELD(struct_KTL_SmAttributes, m_iMaxSize, 4, 2, false);
    FIELD(struct_KTL_SmAttributes, m_iDefaultSize, 6, 2, false);
    FIELD(struct_KTL_SmAttributes, ControlByte, 8, 4, false);
    FIELD(struct_KTL_SmAttributes, Enable, 12, 4, false);

    FIELD(struct_KTL_DcType, m_iCount, 8, 4, false);
    FIELD(struct_KTL_DcType, m_aStrKTL_DcAttrb, 12, 28, false);
    FIELD(struct_KTL_DcAttributes, m_aDesc, 0, 24, false);
    FIELD(struct_KTL_DcAttributes, AssignActivate, 24, 4, false);

    FIELD(struct_KTL_PDOListType, Fixed, 8, 1, false);
    FIELD(struct_KTL_PDOListType, Mandatory, 9, 1, false);
    FIELD(struct_KTL_PDOListType, m_bVirtual, 10, 2, false);
    FIELD(struct_KTL_PDOListType, SM, 12, 4, true);
    FIELD(struct_KTL_PDOListType, SU, 16, 4, true);
    FIELD(struct_KTL_PDOListType, IndexAttributes, 20, 2, false);
    FIELD(struct_KTL_PDOListType, m_rev, 22, 2, false);
    FIELD(struct_KTL_PDOListType, m_iCount, 24, 4, false);
    FIELD(struct_KTL_PDOListType, m_aStrKTL_EntryPDOContent, 28, 20, false);
    FIELD(struct_KTL_EntryPDOContent, m_bFixed, 0, 2, false);
    FIELD(struct_KTL_EntryPDOContent, Index, 2, 2, false);
    FIELD(struct_KTL_EntryPDOContent, SubIndex, 4, 4, false);
    FIELD(struct_KTL_EntryPDOContent, Bitlen, 8, 4, true);
    FIELD(struct_KTL_EntryPDOContent, bLinkTo, 12, 4, true);
    FIELD(struct_KTL_EntryPDOContent, LinkToData, 16, 4, true);
}

void tst_KtlFormat::deviceFields_data()
{
    addFieldColumns();
    FIELD(struct_KTL_ItemEnd, m_iItemType, 0, 4, false);
    FIELD(struct_KTL_ItemEnd, m_iSize, 4, 4, false);
    FIELD(struct_KTL_ItemEnd, m_iRev, 8, 4, false);

    FIELD(struct_KTL_EtherCatDeviceType, m_iItemType, 0, 4, false);
    FIELD(struct_KTL_EtherCatDeviceType, m_iSize, 4, 4, false);
    FIELD(struct_KTL_EtherCatDeviceType, m_iVendor_Id, 8, 4, false);
    FIELD(struct_KTL_EtherCatDeviceType, m_iProduct_Code, 12, 4, false);
    FIELD(struct_KTL_EtherCatDeviceType, m_iRevision_No, 16, 4, false);
    FIELD(struct_KTL_EtherCatDeviceType, m_iSerial_No, 20, 4, false);
    FIELD(struct_KTL_EtherCatDeviceType, m_iDeviceType, 24, 2, false);
    FIELD(struct_KTL_EtherCatDeviceType, m_bSdoSupport, 26, 2, false);
    FIELD(struct_KTL_EtherCatDeviceType, m_iSlotCount, 28, 2, false);
    FIELD(struct_KTL_EtherCatDeviceType, m_bEoeSupport, 30, 2, false);
    FIELD(struct_KTL_EtherCatDeviceType, m_bHasOD, 32, 1, false);
    FIELD(struct_KTL_EtherCatDeviceType, m_bListOD, 33, 1, false);
    FIELD(struct_KTL_EtherCatDeviceType, m_bPdoReadVerify, 34, 1, false);
    FIELD(struct_KTL_EtherCatDeviceType, m_bAddAlign, 35, 1, false);
    FIELD(struct_KTL_EtherCatDeviceType, m_iAlignSign, 36, 4, false);
    FIELD(struct_KTL_EtherCatDeviceType, m_iAlignSign2, 40, 4, false);
    FIELD(struct_KTL_EtherCatDeviceType, m_iDrive1600Write, 44, 2, false);
    FIELD(struct_KTL_EtherCatDeviceType, m_iDrive1600Offset, 46, 2, false);
    FIELD(struct_KTL_EtherCatDeviceType, m_iDriveAxies, 48, 2, false);
    FIELD(struct_KTL_EtherCatDeviceType, m_iModuleTypeMax, 50, 2, false);

    addListFields();
}

void tst_KtlFormat::commandAndSlotFields_data()
{
    addFieldColumns();
    FIELD(struct_KTL_InitCmd, Transition, 0, 2, false);
    FIELD(struct_KTL_InitCmd, Index, 2, 2, false);
    FIELD(struct_KTL_InitCmd, SubIndex, 4, 1, false);
    FIELD(struct_KTL_InitCmd, bIfCA, 5, 1, false);
    FIELD(struct_KTL_InitCmd, DataBytes, 6, 2, false);
    FIELD(struct_KTL_InitCmd, Data, 8, 4, false);

    FIELD(struct_KTL_EOE, m_bIP, 8, 1, false);
    FIELD(struct_KTL_EOE, m_bMAC, 9, 1, false);
    FIELD(struct_KTL_EOE, m_bTimeStamp, 10, 1, false);
    FIELD(struct_KTL_EOE, m_iInitCmdCount, 11, 1, false);
    FIELD(struct_KTL_EOE, m_aInitCmd, 12, 12, false);

    FIELD(struct_KTL_COE, m_bSdoInfo, 8, 1, false);
    FIELD(struct_KTL_COE, m_bPdoAssign, 9, 1, false);
    FIELD(struct_KTL_COE, m_bPdoUpload, 10, 1, false);
    FIELD(struct_KTL_COE, m_bPdoConfig, 11, 1, false);
    FIELD(struct_KTL_COE, m_bSegmentedSdo, 12, 1, false);
    FIELD(struct_KTL_COE, m_bCompleteAccess, 13, 1, false);
    FIELD(struct_KTL_COE, m_bDiagHistory, 14, 1, false);
    FIELD(struct_KTL_COE, m_iInitCmdCount, 15, 1, false);
    FIELD(struct_KTL_COE, m_aInitCmd, 16, 12, false);

    FIELD(struct_KTL_Slots, m_iMaxSlotCount, 8, 2, false);
    FIELD(struct_KTL_Slots, m_bDownloadModuleIdentList, 10, 1, false);
    FIELD(struct_KTL_Slots, m_bDownloadModuleIdentAddressList, 11, 1, false);
    FIELD(struct_KTL_Slots, m_iSlotPdoIncrement, 12, 2, false);
    FIELD(struct_KTL_Slots, m_iSlotIndexIncrement, 14, 2, false);
    FIELD(struct_KTL_Slots, m_iCurSlotCount, 16, 2, false);
    FIELD(struct_KTL_Slots, m_iRev, 18, 2, false);
    FIELD(struct_KTL_Slots, m_aSlotContent, 20, 124, false);
    FIELD(struct_KTL_SlotContent, m_iMinInstances, 0, 4, false);
    FIELD(struct_KTL_SlotContent, m_iMaxInstances, 4, 4, false);
    FIELD(struct_KTL_SlotContent, SlotIndexIncrement, 8, 4, false);
    FIELD(struct_KTL_SlotContent, SlotPdoIncrement, 12, 4, false);
    FIELD(struct_KTL_SlotContent, m_bModuleIdent, 16, 2, false);
    FIELD(struct_KTL_SlotContent, m_iModuleIdentOrClassCount, 18, 2, false);
    FIELD(struct_KTL_SlotContent, ModuleIdent, 20, 96, false);
    FIELD(struct_KTL_SlotContent, aModuleClassIndex, 116, 8, false);

    FIELD(struct_KTL_Slots_Preconfig, m_iCount, 8, 4, false);
    FIELD(struct_KTL_Slots_Preconfig, m_iCountReal, 12, 4, false);
    FIELD(struct_KTL_Slots_Preconfig, m_aModuleIdent, 16, 8, false);
    FIELD(struct_KTL_Slot_PreModuleIdent, m_iModuleIdent, 0, 4, false);
    FIELD(struct_KTL_Slot_PreModuleIdent, m_ireserve, 4, 4, false);
}

void tst_KtlFormat::moduleFields_data()
{
    addFieldColumns();
    FIELD(struct_KTL_DeviceMoreInfo, m_iDate, 8, 4, false);
    FIELD(struct_KTL_DeviceMoreInfo, m_iTime, 12, 4, false);
    FIELD(struct_KTL_DeviceMoreInfo, m_iVersion, 16, 4, false);
    FIELD(struct_KTL_DeviceMoreInfo, m_iCount, 20, 4, false);
    FIELD(struct_KTL_DeviceMoreInfo, m_aStrChar, 24, 1, false);

    FIELD(struct_KTL_moduleEntryType, Fixed, 8, 1, false);
    FIELD(struct_KTL_moduleEntryType, Mandatory, 9, 1, false);
    FIELD(struct_KTL_moduleEntryType, m_bVirtual, 10, 2, false);
    FIELD(struct_KTL_moduleEntryType, SM, 12, 4, true);
    FIELD(struct_KTL_moduleEntryType, SU, 16, 4, true);
    FIELD(struct_KTL_moduleEntryType, IndexAttributes, 20, 2, false);
    FIELD(struct_KTL_moduleEntryType, m_rev, 22, 2, false);
    FIELD(struct_KTL_moduleEntryType, m_iCount, 24, 4, false);
    FIELD(struct_KTL_moduleEntryType, m_alist, 28, 12, false);
    FIELD(struct_KTL_modulePdoOne, DependOnSlot, 0, 1, false);
    FIELD(struct_KTL_modulePdoOne, m_AttrRev, 1, 1, false);
    FIELD(struct_KTL_modulePdoOne, index, 2, 2, false);
    FIELD(struct_KTL_modulePdoOne, SubIndex, 4, 2, false);
    FIELD(struct_KTL_modulePdoOne, BitLen, 6, 2, false);
    FIELD(struct_KTL_modulePdoOne, LinkToData, 8, 4, true);

    FIELD(struct_KTL_moduleInitCmdType, m_iCount, 8, 4, false);
    FIELD(struct_KTL_moduleInitCmdType, m_alist, 12, 16, false);
    FIELD(struct_KTL_moduleStartupOne, DependOnSlot, 0, 1, false);
    FIELD(struct_KTL_moduleStartupOne, DependOnSlotGroup, 1, 1, false);
    FIELD(struct_KTL_moduleStartupOne, AdaptAutomatically, 2, 1, false);
    FIELD(struct_KTL_moduleStartupOne, m_DataBytes, 3, 1, false);
    FIELD(struct_KTL_moduleStartupOne, index, 4, 2, false);
    FIELD(struct_KTL_moduleStartupOne, m_u16AttrRev, 6, 2, false);
    FIELD(struct_KTL_moduleStartupOne, Transition, 8, 2, false);
    FIELD(struct_KTL_moduleStartupOne, SubIndex, 10, 1, false);
    FIELD(struct_KTL_moduleStartupOne, bifCA, 11, 1, false);
    FIELD(struct_KTL_moduleStartupOne, Data, 12, 4, false);
}

void tst_KtlFormat::objectFields_data()
{
    addFieldColumns();
    FIELD(struct_KTL_EEPROM, m_iByteSize, 8, 4, false);
    FIELD(struct_KTL_EEPROM, m_aConfigData, 12, 28, false);
    FIELD(struct_KTL_ObjectType, index, 8, 2, false);
    FIELD(struct_KTL_ObjectType, m_iRev, 10, 2, false);
    FIELD(struct_KTL_ObjectType, BitSize, 12, 4, true);
    FIELD(struct_KTL_SubObjectType, subIndex, 8, 4, false);
    FIELD(struct_KTL_SubObjectType, BitSize, 12, 4, true);
}

/// Fields that the format names with a dot: their place shows in the bytes of a record with one field set.
void tst_KtlFormat::nestedFields()
{
    struct_KTL_moduleType module{};
    module.TypeAttributes.ModuleIdent = 0x44434241;
    module.TypeAttributes.ModulePdoGroup = -2;
    module.TypeAttributes.SRA_ParamterSupported = 1;
    module.TypeAttributes.m_attrRev = 0x45;
    module.TypeAttributes.m_u16Rev = 0x4746;
    QCOMPARE(QByteArray(reinterpret_cast<const char*>(&module) + 8, 12), QByteArray("ABCD\xFE\xFF\xFF\xFF\x01"
                                                                                    "EFG"));
    struct_KTL_ObjectType object{};
    object.flags.Access = 0x4241;
    object.flags.m_iRev2 = 0x4443;
    object.info.MinData = 0x48474645;
    object.info.MaxData = 0x4C4B4A49;
    QCOMPARE(QByteArray(reinterpret_cast<const char*>(&object) + 16, 12), QByteArray("ABCDEFGHIJKL"));
    struct_KTL_SubObjectType subObject{};
    subObject.flags.Access = 0x4241;
    subObject.flags.m_iRev = 0x4443;
    subObject.info.MinData = 0x48474645;
    subObject.info.MaxData = 0x4C4B4A49;
    QCOMPARE(QByteArray(reinterpret_cast<const char*>(&subObject) + 16, 12), QByteArray("ABCDEFGHIJKL"));
}

/// The last part of the version text is read in hexadecimal: 28 is 0x28, so the number is 65576 and not 65564.
void tst_KtlFormat::versionTextAndNumber()
{
    QCOMPARE(versionText, "V1.0.28");
    QCOMPARE(formatVersion, 65576U);
}

static const testMain::Registration<tst_KtlFormat, QCoreApplication> registration;
#include "tst_KtlFormat.moc"
