// General, FMMU, SM, DC, EEPROM and end item, byte for byte.
// Covers itemWriter.cpp.
#include "ktl/ktlBytes.h"
#include "ktl/ktlExport.h"
#include "testMain.h"

#include <QtTest>

class tst_DeviceWriters : public QObject
{
    Q_OBJECT

private slots:
    void generalItem();
    void slotCount_data();
    void slotCount();
    void moduleTypeMax_data();
    void moduleTypeMax();
    void generalReportsRecordsWritten();
    void fmmuItem();
    void smItem();
    void smItemLeavesVirtualOnesOut_data();
    void smItemLeavesVirtualOnesOut();
    void smDefaultSize_data();
    void smDefaultSize();
    void dcItem();
    void eepromItem();
    void endItem();
    void nothingToWrite_data();
    void nothingToWrite();
};

static QByteArray generalOf(struct_EtherCatDevice& device, struct_FilenameDevice& file)
{
    return writtenBy([&](std::FILE* out) { KTL_write_device_General(out, &device, &file); });
}

void tst_DeviceWriters::generalItem()
{
    struct_EtherCatDevice device;
    device.Name = "not stored";
    device.TypeAttributes.m_iVendor_Id = 0x99999999; // the file's vendor id counts, not this one
    device.TypeAttributes.Product_Code = 0x16160001;
    device.TypeAttributes.Revision_No = 0x00010003;
    device.TypeAttributes.Serial_No = 0xA1B2C3D4;
    device.Mailbox.COE.Attributes.SdoInfo = true;
    device.Mailbox.EOE.Attributes.IP = true; // does not reach m_bEoeSupport
    device.m_iDeviceType = 1;
    device.m_iDriveAxies = 0x0203;
    device.configindex = 0xF030;
    device.Dictionary.vobject.resize(1);
    struct_FilenameDevice file;
    file.Vendor_Id = 0x7E570003;
    QCOMPARE(generalOf(device, file), bytes("40 9C 00 00" // m_iItemType 40000
                                            "34 00 00 00" // m_iSize 52
                                            "03 00 57 7E" // m_iVendor_Id
                                            "01 00 16 16" // m_iProduct_Code
                                            "03 00 01 00" // m_iRevision_No
                                            "D4 C3 B2 A1" // m_iSerial_No
                                            "01 00" // m_iDeviceType
                                            "01 00" // m_bSdoSupport
                                            "00 00" // m_iSlotCount
                                            "00 00" // m_bEoeSupport
                                            "00 00 00 00" // m_bHasOD, m_bListOD, m_bPdoReadVerify, m_bAddAlign
                                            "00 00 00 00" // m_iAlignSign
                                            "00 00 00 00" // m_iAlignSign2
                                            "00 00 00 00" // m_iDrive1600Write, m_iDrive1600Offset
                                            "03 02" // m_iDriveAxies
                                            "00 00")); // m_iModuleTypeMax
}

void tst_DeviceWriters::slotCount_data()
{
    QTest::addColumn<int>("deviceType");
    QTest::addColumn<QVector<uint>>("maxInstances"); // one number per slot
    QTest::addColumn<QByteArray>("expected");
    const QVector<uint> threeOfFour{4, 4, 4};
    QTest::addRow("plug and play, three slots of 4 give their sum") << 3 << threeOfFour << bytes("0C 00");
    QTest::addRow("preset modules, three slots of 4 give their sum") << 5 << threeOfFour << bytes("0C 00");
    QTest::addRow("three slots of 0 give their number") << 3 << QVector<uint>{0, 0, 0} << bytes("03 00");
    QTest::addRow("sum below the number") << 5 << QVector<uint>{1, 0, 0, 1} << bytes("04 00");
    QTest::addRow("sum above the number") << 3 << QVector<uint>{0, 3, 0} << bytes("03 00");
    QTest::addRow("sum just above the number") << 3 << QVector<uint>{0, 4, 0} << bytes("04 00");
    QTest::addRow("no slot") << 3 << QVector<uint>{} << bytes("00 00");
    QTest::addRow("sum in two bytes") << 3 << QVector<uint>(40, 16) << bytes("80 02"); // 640
    QTest::addRow("65535 is the last that fits") << 3 << QVector<uint>{65535} << bytes("FF FF");
    QTest::addRow("65536 wraps to 0") << 3 << QVector<uint>(4096, 16) << bytes("00 00");
    QTest::addRow("65552 wraps to 16") << 5 << QVector<uint>(4097, 16) << bytes("10 00");
    QTest::addRow("plain I/O has no slot count") << 0 << threeOfFour << bytes("00 00");
    QTest::addRow("single drive has no slot count") << 1 << threeOfFour << bytes("00 00");
    QTest::addRow("multiple drive has no slot count") << 2 << threeOfFour << bytes("00 00");
    QTest::addRow("special has no slot count") << 4 << threeOfFour << bytes("00 00");
}

void tst_DeviceWriters::slotCount()
{
    QFETCH(int, deviceType);
    QFETCH(QVector<uint>, maxInstances);
    QFETCH(QByteArray, expected);
    struct_FilenameDevice file;
    struct_EtherCatDevice device;
    device.m_iDeviceType = static_cast<std::uint16_t>(deviceType);
    for (const uint most : qAsConst(maxInstances)) {
        struct_Slot slot;
        slot.Attributes.MaxInstances = most;
        device.Slots.vslot.push_back(slot);
    }
    const QByteArray general = generalOf(device, file);
    QCOMPARE(general.size(), 52);
    QCOMPARE(general.mid(24, 2), le16(static_cast<std::uint32_t>(deviceType)));
    QCOMPARE(general.mid(28, 2), expected);
}

void tst_DeviceWriters::moduleTypeMax_data()
{
    QTest::addColumn<int>("deviceType");
    QTest::addColumn<QVector<int>>("modulesPerGroup");
    QTest::addColumn<QByteArray>("expected");
    const QVector<int> groups{2, 0, 3};
    QTest::addRow("plug and play, over all groups") << 3 << groups << bytes("05 00");
    QTest::addRow("preset modules, over all groups") << 5 << groups << bytes("05 00");
    QTest::addRow("no group") << 3 << QVector<int>{} << bytes("00 00");
    QTest::addRow("65536 and 7 wrap to 7") << 3 << QVector<int>{65536, 7} << bytes("07 00");
    QTest::addRow("plain I/O") << 0 << groups << bytes("00 00");
    QTest::addRow("single drive") << 1 << groups << bytes("00 00");
    QTest::addRow("multiple drive") << 2 << groups << bytes("00 00");
    QTest::addRow("special") << 4 << groups << bytes("00 00");
}

void tst_DeviceWriters::moduleTypeMax()
{
    QFETCH(int, deviceType);
    QFETCH(QVector<int>, modulesPerGroup);
    QFETCH(QByteArray, expected);
    struct_EtherCatDevice device;
    device.m_iDeviceType = static_cast<std::uint16_t>(deviceType);
    struct_FilenameDevice file;
    for (const int modules : qAsConst(modulesPerGroup)) {
        file.vcommentmodule.emplace_back();
        file.vcommentmodule.back().vmodule.resize(static_cast<std::size_t>(modules));
    }
    QCOMPARE(generalOf(device, file).mid(50), expected);
}

void tst_DeviceWriters::generalReportsRecordsWritten()
{
    struct_EtherCatDevice device;
    struct_FilenameDevice file;
    const FileHandle good = streamWith();
    QCOMPARE(KTL_write_device_General(good.get(), &device, &file), 1);
    const FileHandle readOnly = streamThatRefuses();
    QVERIFY(readOnly);
    QCOMPARE(KTL_write_device_General(readOnly.get(), &device, &file), 0);
    const FileHandle fullDisk = streamToFullDisk();
    QVERIFY2(fullDisk, "this system has no /dev/full that acts as a full disk");
    QCOMPARE(KTL_write_device_General(fullDisk.get(), &device, &file), 0);
}

void tst_DeviceWriters::fmmuItem()
{
    struct_EtherCatDevice device;
    device.vFmmu.resize(3);
    device.vFmmu[0].m_Name = "Outputs";
    device.vFmmu[0].m_OpOnly = true;
    device.vFmmu[0].m_Sm = 2;
    device.vFmmu[0].m_Su = 5;
    device.vFmmu[0].m_FmmuType = 3;
    device.vFmmu[1].m_Sm = 0x1FE; // only the low byte of each number fits
    device.vFmmu[1].m_Su = 0xABCD0100;
    device.vFmmu[1].m_FmmuType = 0x0104;
    device.vFmmu[2].m_Sm = 0xFFFFFFFF;
    device.vFmmu[2].m_FmmuType = -1;
    const QByteArray written = writtenBy([&](std::FILE* out) { KTL_write_device_FmmuInfo(out, &device); });
    QCOMPARE(written, bytes("4E 9C 00 00" // m_iItemType 40014
                            "24 00 00 00" // m_iSize 12 + 3 * 8
                            "03 00 00 00" // m_iCount
                            "01 02 05 03  00 00 00 00" // m_iOpOnly, m_iSm, m_iSu, m_iFmmuType, m_reserve
                            "00 FE 00 04  00 00 00 00"
                            "00 FF 00 FF  00 00 00 00"));
}

/// A sync manager with a number in each field that is written; its length differs from its default size.
static struct_SM syncManager(std::uint8_t type)
{
    struct_SM sm;
    sm.SM = 9; // not stored, nor is the name
    sm.Name = "not stored";
    sm.Smtype = type;
    sm.Attributes.StartAddress = 0x1180;
    sm.Attributes.MinSize = 0x0122;
    sm.Attributes.MaxSize = 0x0344;
    sm.Attributes.DefaultSize = 0x0506;
    sm.Attributes.ControlByte = 0x01020364;
    sm.Attributes.Enable = 0x0A0B0C0D;
    sm.Length = 771.5F; // 0x0303 and a half
    return sm;
}

void tst_DeviceWriters::smItem()
{
    struct_EtherCatDevice device;
    device.vSM = {syncManager(1), syncManager(4)};
    const QByteArray written = writtenBy([&](std::FILE* out) { KTL_write_device_SmInfo(out, &device); });
    QCOMPARE(written, bytes("41 9C 00 00" // m_iItemType 40001
                            "2C 00 00 00" // m_iSize 12 + 2 * 16
                            "02 00 00 00" // m_iCount
                            // m_iStartAddress, m_iMinSize, m_iMaxSize, m_iDefaultSize, ControlByte, Enable
                            "80 11  22 01  44 03  06 05  64 03 02 01  0D 0C 0B 0A"
                            "80 11  22 01  44 03  03 03  64 03 02 01  0D 0C 0B 0A"));
}

void tst_DeviceWriters::smItemLeavesVirtualOnesOut_data()
{
    QTest::addColumn<QVector<uint>>("isVirtual"); // one value of m_Virtual per sync manager
    QTest::addColumn<QVector<int>>("expected"); // numbers of those that are written, from 0
    QTest::addRow("virtual one between real ones") << QVector<uint>{0, 1, 0} << QVector<int>{0, 2};
    QTest::addRow("virtual one first") << QVector<uint>{1, 0} << QVector<int>{1};
    QTest::addRow("virtual one last") << QVector<uint>{0, 1} << QVector<int>{0};
    QTest::addRow("any number but 0 is virtual") << QVector<uint>{2, 0, 0xFFFFFFFF} << QVector<int>{1};
    QTest::addRow("only virtual ones: no item") << QVector<uint>{1, 1} << QVector<int>{};
    QTest::addRow("six, more than a controller handles") << QVector<uint>(6, 0) << QVector<int>{0, 1, 2, 3, 4, 5};
}

void tst_DeviceWriters::smItemLeavesVirtualOnesOut()
{
    QFETCH(QVector<uint>, isVirtual);
    QFETCH(QVector<int>, expected);
    struct_EtherCatDevice device;
    for (int number = 0; number < isVirtual.size(); ++number) {
        struct_SM sm;
        sm.Attributes.StartAddress = static_cast<std::uint16_t>(0x1000 + number);
        sm.Attributes.m_Virtual = isVirtual.at(number);
        device.vSM.push_back(sm);
    }
    const QByteArray written = writtenBy([&](std::FILE* out) { KTL_write_device_SmInfo(out, &device); });
    QByteArray wanted;
    const auto count = static_cast<std::uint32_t>(expected.size());
    if (count > 0)
        wanted = bytes("41 9C 00 00") + le32(12 + 16 * count) + le32(count);
    for (const int number : qAsConst(expected))
        wanted += le16(static_cast<std::uint32_t>(0x1000 + number)) + zeros(14);
    QCOMPARE(written, wanted);
}

void tst_DeviceWriters::smDefaultSize_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<float>("length");
    QTest::addColumn<QByteArray>("expected"); // default size is 0x0506
    QTest::addRow("mailbox out keeps the default size") << 1 << 12.0F << bytes("06 05");
    QTest::addRow("mailbox in keeps the default size") << 2 << 12.0F << bytes("06 05");
    QTest::addRow("outputs take the length") << 3 << 12.0F << bytes("0C 00");
    QTest::addRow("inputs take the length") << 4 << 12.0F << bytes("0C 00");
    QTest::addRow("unknown type keeps the default size") << 0 << 12.0F << bytes("06 05");
    QTest::addRow("dynamic outputs keep the default size") << 5 << 12.0F << bytes("06 05");
    QTest::addRow("dynamic inputs keep the default size") << 6 << 12.0F << bytes("06 05");
    QTest::addRow("local keeps the default size") << 7 << 12.0F << bytes("06 05");
    QTest::addRow("outputs without PDO are 0") << 3 << 0.0F << bytes("00 00");
    QTest::addRow("left-over bits are cut off") << 4 << 3.7F << bytes("03 00");
    QTest::addRow("two times 12 bits are 2.8, so 2 and not 3") << 3 << 1.4F + 1.4F << bytes("02 00");
    QTest::addRow("four times 7 bits are 2.8, so 2 and not 3") << 3 << 0.7F + 0.7F + 0.7F + 0.7F << bytes("02 00");
    QTest::addRow("65535 is the last that fits") << 3 << 65535.0F << bytes("FF FF");
    QTest::addRow("65537.5 is cut to 16 bits") << 3 << 65537.5F << bytes("01 00");
    QTest::addRow("above 31 bits, 0xB2D05E00") << 4 << 3.0e9F << bytes("00 5E");
    QTest::addRow("above 32 bits, 0x12A05F200") << 4 << 5.0e9F << bytes("00 F2");
    QTest::addRow("above 64 bits, low bits are 0") << 4 << 1.0e20F << bytes("00 00");
    QTest::addRow("negative, truncated toward zero") << 3 << -1.5F << bytes("FF FF");
}

void tst_DeviceWriters::smDefaultSize()
{
    QFETCH(int, type);
    QFETCH(float, length);
    QFETCH(QByteArray, expected);
    struct_EtherCatDevice device;
    device.vSM = {syncManager(static_cast<std::uint8_t>(type))};
    device.vSM.front().Length = length;
    const QByteArray written = writtenBy([&](std::FILE* out) { KTL_write_device_SmInfo(out, &device); });
    QCOMPARE(written.size(), 12 + 16);
    QCOMPARE(written.mid(12 + 6, 2), expected);
}

void tst_DeviceWriters::dcItem()
{
    struct_EtherCatDevice device;
    device.vopmode.resize(2);
    device.vopmode[0].Name = "DC synchronous";
    device.vopmode[0].Desc = "not stored";
    device.vopmode[0].AssignActivate = 0x00000300;
    device.vopmode[0].m_CycleTimeSync0 = 125000;
    device.vopmode[0].m_ShiftTimeSync0 = -500;
    device.vopmode[0].m_CycleTimeSync1 = 250000;
    device.vopmode[0].m_ShiftTimeSync1 = 7;
    device.vopmode[0].m_Sm.resize(1);
    device.vopmode[1].AssignActivate = 0xFEDCBA98;
    const QByteArray written = writtenBy([&](std::FILE* out) { KTL_write_device_DcInfo(out, &device); });
    QCOMPARE(written, bytes("42 9C 00 00" // m_iItemType 40002
                            "44 00 00 00" // m_iSize 12 + 2 * 28
                            "02 00 00 00") // m_iCount
                          + zeros(24) + bytes("00 03 00 00") // m_aDesc, AssignActivate
                          + zeros(24) + bytes("98 BA DC FE"));
}

void tst_DeviceWriters::eepromItem()
{
    struct_EtherCatDevice device;
    const QByteArray written = writtenBy([&](std::FILE* out) { KTL_write_device_EEPROM(out, &device); });
    QCOMPARE(written, bytes("48 9C 00 00" // m_iItemType 40008
                            "28 00 00 00" // m_iSize 40
                            "00 08 00 00") // m_iByteSize 2048
                          + zeros(28)); // m_aConfigData
}

void tst_DeviceWriters::endItem()
{
    QCOMPARE(writtenBy([](std::FILE* out) { KTL_write_device_end(out); }), // m_iItemType, m_iSize, m_iRev
             bytes("00 00 00 00  0C 00 00 00  00 00 00 00"));
}

using DeviceWriter = void (*)(std::FILE*, struct_EtherCatDevice*);
Q_DECLARE_METATYPE(DeviceWriter)

void tst_DeviceWriters::nothingToWrite_data()
{
    QTest::addColumn<DeviceWriter>("write");
    QTest::addRow("no FMMU") << DeviceWriter(KTL_write_device_FmmuInfo);
    QTest::addRow("no sync manager") << DeviceWriter(KTL_write_device_SmInfo);
    QTest::addRow("no DC mode") << DeviceWriter(KTL_write_device_DcInfo);
    QTest::addRow("no output PDO") << DeviceWriter(KTL_write_device_RxPdoinfo);
    QTest::addRow("no input PDO") << DeviceWriter(KTL_write_device_TxPdoinfo);
    QTest::addRow("no slot") << DeviceWriter(KTL_write_device_Slots);
}

void tst_DeviceWriters::nothingToWrite()
{
    QFETCH(DeviceWriter, write);
    struct_EtherCatDevice device;
    QCOMPARE(writtenBy([&](std::FILE* out) { write(out, &device); }), QByteArray());
    QCOMPARE(writtenBy([&](std::FILE* out) { write(out, nullptr); }), QByteArray());
}

static const testMain::Registration<tst_DeviceWriters, QCoreApplication> registration;
#include "tst_DeviceWriters.moc"
