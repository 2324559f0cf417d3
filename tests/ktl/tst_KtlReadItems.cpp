// What each item of a KTL file does to the records that are read, field by field, from bytes written by hand.
#include "ktl/ktlReading.h"
#include "testMain.h"

#include <QtTest>

#include <limits>

class tst_KtlReadItems : public QObject
{
    Q_OBJECT

private slots:
    void general();
    void syncManagers();
    void roleOfASyncManagerIsItsPlace();
    void modes();
    void fmmus();
    void devicePdo_data();
    void devicePdo();
    void offsets_data();
    void offsets();
    void slotsItem();
    void slotCountDrivesTheLoop();
    void itemsWithoutEffect_data();
    void itemsWithoutEffect();
    void itemsShorterThanTheirRecords_data();
    void itemsShorterThanTheirRecords();
    void resultOfAnItem_data();
    void resultOfAnItem();
};

void tst_KtlReadItems::general()
{
    const QByteArray item = bytes("40 9C 00 00  34 00 00 00  03 00 57 7E  01 00 16 16  03 00 01 00  5E 00 00 00"
                                  "05 00  02 00  07 00  08 00  09 0A 0B 0C  01 02 03 04  05 06 07 08  0D 00 0E 00"
                                  "02 01  11 00");
    QCOMPARE(item.size(), 52);
    const Reading reading = readingOf(item + endItem());
    QCOMPARE(reading.files.size(), std::size_t(1));
    const struct_FilenameDevice& file = reading.files[0];
    QCOMPARE(file.Vendor_Id, 0x7E570003U);
    QCOMPARE(file.xmlfilepath, std::string("/ktl/伺服.ktl"));
    QCOMPARE(file.device.size(), std::size_t(1));
    const struct_EtherCatDevice& device = file.device[0];
    QCOMPARE(device.TypeAttributes.m_iVendor_Id, 0x7E570003U);
    QCOMPARE(device.TypeAttributes.Product_Code, 0x16160001U);
    QCOMPARE(device.TypeAttributes.Revision_No, 0x00010003U);
    QCOMPARE(device.TypeAttributes.Serial_No, 0x5EU);
    QCOMPARE(int(device.m_iDeviceType), 5);
    QCOMPARE(int(device.m_iDriveAxies), 0x0102);
    QCOMPARE(device.Name, std::string("0x16160001"));
    QCOMPARE(device.TypeAttributes.type, std::string("0x5"));
    QVERIFY(device.Mailbox.COE.Attributes.SdoInfo); // 2 is not 0
    QVERIFY(device.Slots.vslot.empty());
    QVERIFY(device.vSM.empty());
}

void tst_KtlReadItems::syncManagers()
{
    const QByteArray first = bytes("00 10  22 00  33 01  80 00  26 00 01 00  01 00 00 00");
    const QByteArray second = bytes("80 10  01 00  02 00  FF FF  22 00 00 00  00 00 01 00");
    const struct_EtherCatDevice device = deviceReadFrom(ktlItem(40001, le32(2) + first + second));
    QCOMPARE(device.vSM.size(), std::size_t(2));
    const struct_SM& mailbox = device.vSM[0];
    QCOMPARE(int(mailbox.Attributes.StartAddress), 0x1000);
    QCOMPARE(int(mailbox.Attributes.MinSize), 0x22);
    QCOMPARE(int(mailbox.Attributes.MaxSize), 0x133);
    QCOMPARE(int(mailbox.Attributes.DefaultSize), 0x80);
    QCOMPARE(mailbox.Attributes.ControlByte, 0x10026U);
    QCOMPARE(mailbox.Attributes.Enable, 1U);
    QCOMPARE(mailbox.Attributes.m_Virtual, 0U);
    QCOMPARE(mailbox.Length, 128.0F);
    QCOMPARE(mailbox.Name, std::string("0"));
    QCOMPARE(int(mailbox.SM), 0);
    QCOMPARE(int(device.vSM[1].Attributes.StartAddress), 0x1080);
    QCOMPARE(device.vSM[1].Length, 65535.0F);
    QCOMPARE(device.vSM[1].Attributes.Enable, 0x10000U);
    QCOMPARE(device.vSM[1].Name, std::string("1"));
    QCOMPARE(int(device.vSM[1].SM), 1);
}

/// Names count from 0 in each item, numbers over all of them; both the number and the role come from 8 bits.
void tst_KtlReadItems::roleOfASyncManagerIsItsPlace()
{
    const auto item = [](int count) {
        return ktlItem(40001, le32(static_cast<std::uint32_t>(count)) + zeros(16 * count));
    };
    const std::vector<struct_SM> syncManagers = deviceReadFrom(item(2) + item(256)).vSM;
    QCOMPARE(syncManagers.size(), std::size_t(258));
    const QList<int> places{0, 1, 2, 3, 4, 255, 256, 257};
    const QList<int> roles{1, 2, 3, 4, 0, 0, 1, 2};
    const QList<int> numbers{0, 1, 2, 3, 4, 255, 0, 1};
    const QStringList names{"0", "1", "0", "1", "2", "253", "254", "255"};
    for (int row = 0; row < places.size(); ++row) {
        const struct_SM& syncManager = syncManagers[static_cast<std::size_t>(places[row])];
        QCOMPARE(int(syncManager.Smtype), roles[row]);
        QCOMPARE(int(syncManager.SM), numbers[row]);
        QCOMPARE(QString::fromStdString(syncManager.Name), names[row]);
    }
}

void tst_KtlReadItems::modes()
{
    const QByteArray text = QByteArray("a name that is not read!");
    QCOMPARE(text.size(), 24);
    const struct_EtherCatDevice device =
        deviceReadFrom(ktlItem(40002, le32(2) + text + le32(0x300) + text + le32(0x80000700)));
    QCOMPARE(device.vopmode.size(), std::size_t(2));
    QCOMPARE(device.vopmode[0].AssignActivate, 0x300U);
    QCOMPARE(device.vopmode[0].Name, std::string("0"));
    QCOMPARE(device.vopmode[0].Desc, std::string("0"));
    QCOMPARE(device.vopmode[1].AssignActivate, 0x80000700U);
    QCOMPARE(device.vopmode[1].Name, std::string("1"));
    QCOMPARE(device.vopmode[1].Desc, std::string("1"));
    QCOMPARE(device.vopmode[1].m_CycleTimeSync0, 0);
    QCOMPARE(device.vopmode[1].m_ShiftTimeSync0, 0);
    QCOMPARE(device.vopmode[1].m_CycleTimeSync1, 0);
    QCOMPARE(device.vopmode[1].m_ShiftTimeSync1, 0);
    QVERIFY(device.vopmode[1].m_Sm.empty());
}

void tst_KtlReadItems::fmmus()
{
    const struct_EtherCatDevice device =
        deviceReadFrom(ktlItem(40014, le32(2) + bytes("00 02 03 04  11 22 33 44") + bytes("02 FF FE 80  00 00 00 00")));
    QCOMPARE(device.vFmmu.size(), std::size_t(2));
    QVERIFY(!device.vFmmu[0].m_OpOnly);
    QCOMPARE(device.vFmmu[0].m_Sm, 2U);
    QCOMPARE(device.vFmmu[0].m_Su, 3U);
    QCOMPARE(int(device.vFmmu[0].m_FmmuType), 4);
    QVERIFY(device.vFmmu[1].m_OpOnly);
    QCOMPARE(device.vFmmu[1].m_Sm, 255U);
    QCOMPARE(device.vFmmu[1].m_Su, 254U);
    QCOMPARE(int(device.vFmmu[1].m_FmmuType), 128);
    QCOMPARE(device.vFmmu[1].m_Name, std::string());
}

void tst_KtlReadItems::devicePdo_data()
{
    QTest::addColumn<uint>("type");
    QTest::addRow("RxPdo") << 40003U;
    QTest::addRow("TxPdo") << 40004U;
}

void tst_KtlReadItems::devicePdo()
{
    QFETCH(uint, type);
    const QByteArray head = bytes("01  02  34 12  FF FF FF FF  02 00 00 00  00 16  78 56");
    const QByteArray first = bytes("02 00  40 60  05 00 01 00  10 00 00 00  09 00 00 00  F6 FF FF FF");
    const QByteArray second = bytes("00 00  7A 60  00 00 00 00  20 00 00 00  00 00 00 00  01 00 00 00");
    const QByteArray other = ktlItem(type, zeros(4) + le32(3) + zeros(4) + bytes("01 16 00 00") + zeros(4));
    const struct_EtherCatDevice device = deviceReadFrom(ktlItem(type, head + le32(2) + first + second) + other);
    const std::vector<struct_PDOList>& pdos = type == 40003 ? device.RxPdo.vpdo : device.TxPdo.vpdo;
    QVERIFY((type == 40003 ? device.TxPdo.vpdo : device.RxPdo.vpdo).empty());
    QCOMPARE(pdos.size(), std::size_t(2));
    const struct_PDOList& pdo = pdos[0];
    QVERIFY(pdo.Attributes.Fixed);
    QVERIFY(pdo.Attributes.Mandatory);
    QCOMPARE(pdo.Attributes.SM, -1);
    QCOMPARE(pdo.Attributes.SU, 2);
    QCOMPARE(pdo.Attributes.m_OSFac, 0);
    QCOMPARE(int(pdo.IndexAttributes.Index), 0x1600);
    QCOMPARE(pdo.Name, std::string(type == 40003 ? "RPDO" : "TPDO"));
    QCOMPARE(pdo.Entry.vPdo_c.size(), std::size_t(2));
    const struct_EntryPDOContent& entry = pdo.Entry.vPdo_c[0];
    QVERIFY(entry.Attributes.Fixed);
    QCOMPARE(int(entry.Index), 0x6040);
    QCOMPARE(entry.SubIndex, 0x10005U);
    QCOMPARE(entry.Bitlen, 16);
    QCOMPARE(entry.Linkto, -10);
    QCOMPARE(entry.Name, std::string("TEMP"));
    QCOMPARE(entry.DataType, std::string("TEMP"));
    QCOMPARE(entry.DefaultData, 0U);
    QVERIFY(!pdo.Entry.vPdo_c[1].Attributes.Fixed);
    QCOMPARE(pdo.Entry.vPdo_c[1].Linkto, 1);
    QCOMPARE(pdos[1].Attributes.SM, 3);
    QVERIFY(!pdos[1].Attributes.Fixed);
    QVERIFY(!pdos[1].Attributes.Mandatory);
    QCOMPARE(int(pdos[1].IndexAttributes.Index), 0x1601);
    QVERIFY(pdos[1].Entry.vPdo_c.empty());
}

void tst_KtlReadItems::offsets_data()
{
    QTest::addColumn<QList<int>>("lengths");
    QTest::addColumn<QList<float>>("offsets");
    QTest::addColumn<float>("size");
    const int most = std::numeric_limits<std::int32_t>::max();
    QTest::addRow("1, 1 and 8 bits") << QList<int>{1, 1, 8} << QList<float>{0.0F, 0.1F, 0.2F} << 1.2F;
    QTest::addRow("whole bytes") << QList<int>{16, 32} << QList<float>{0.0F, 2.0F} << 6.0F;
    QTest::addRow("7 bits and one") << QList<int>{7, 1, 1} << QList<float>{0.0F, 0.7F, 1.0F} << 1.1F;
    QTest::addRow("no entries") << QList<int>{} << QList<float>{} << 0.0F;
    QTest::addRow("a negative length") << QList<int>{-12, 12} << QList<float>{0.0F, -1.4F} << 0.0F;
    QTest::addRow("a sum that wraps") << QList<int>{most, 1} << QList<float>{0.0F, 268435455.7F} << -268435456.0F;
}

void tst_KtlReadItems::offsets()
{
    QFETCH(QList<int>, lengths);
    QFETCH(QList<float>, offsets);
    QFETCH(float, size);
    QByteArray records;
    for (const int length : lengths)
        records += zeros(8) + le32(static_cast<std::uint32_t>(length)) + zeros(8);
    const struct_EtherCatDevice device =
        deviceReadFrom(ktlItem(40003, zeros(16) + le32(static_cast<std::uint32_t>(lengths.size())) + records));
    QCOMPARE(device.RxPdo.vpdo.size(), std::size_t(1));
    const struct_PDOList& pdo = device.RxPdo.vpdo[0];
    QCOMPARE(int(pdo.Entry.vPdo_c.size()), offsets.size());
    for (int entry = 0; entry < offsets.size(); ++entry)
        QCOMPARE(pdo.Entry.vPdo_c[static_cast<std::size_t>(entry)].Offs, offsets[entry]);
    QCOMPARE(pdo.Size, size);
}

void tst_KtlReadItems::slotsItem()
{
    const QByteArray head = bytes("09 00  01  00  10 00  20 08  02 00  00 00");
    const QByteArray first = bytes("01 00 00 00  10 00 00 00  30 00 01 00  40 00 02 00") + QByteArray(108, '\x77');
    const QByteArray second = bytes("00 00 00 00  02 00 00 00  00 00 00 00  05 00 00 00") + QByteArray(108, '\x77');
    const struct_EtherCatDevice device = deviceReadFrom(ktlItem(40007, head + first + second));
    const SlotsAttributes& attributes = device.Slots.Attributes;
    QVERIFY(attributes.DownloadModuleIdentList);
    QVERIFY(!attributes.DownloadModuleAddressList);
    QCOMPARE(attributes.SlotPdoIncrement, 0x10U);
    QCOMPARE(attributes.SlotIndexIncrement, 0x820U);
    QCOMPARE(attributes.IdentifyModuleBy, std::string("0"));
    QCOMPARE(attributes.m_MaxSlotCount, 0U);
    QCOMPARE(device.Slots.vslot.size(), std::size_t(2));
    const struct_Slot& slot = device.Slots.vslot[0];
    QCOMPARE(slot.Attributes.MinInstances, 1U);
    QCOMPARE(slot.Attributes.MaxInstances, 16U);
    QCOMPARE(slot.Attributes.SlotIndexIncrement, 0x10030U);
    QCOMPARE(slot.Attributes.SlotPdoIncrement, 0x20040U);
    QCOMPARE(slot.Attributes.m_SlotGroup, -1);
    QCOMPARE(slot.Name, std::string("slot"));
    QVERIFY(slot.ModuleClass.empty() && slot.ModuleIdent.empty() && slot.slotmodule.empty());
    QCOMPARE(device.Slots.vslot[1].Attributes.MaxInstances, 2U);
    QCOMPARE(device.Slots.vslot[1].Attributes.SlotPdoIncrement, 5U);
    const SlotsAttributes other = deviceReadFrom(ktlItem(40007, bytes("00 00  00  03") + zeros(8))).Slots.Attributes;
    QVERIFY(!other.DownloadModuleIdentList);
    QVERIFY(other.DownloadModuleAddressList);
}

/// The other count is not asked, and 256 slots, whose count is 0, lose their records.
void tst_KtlReadItems::slotCountDrivesTheLoop()
{
    const auto item = [](int most, int current, int records) {
        return ktlItem(40007, le16(static_cast<std::uint32_t>(most)) + zeros(6)
                                  + le16(static_cast<std::uint32_t>(current)) + zeros(2) + zeros(124 * records));
    };
    QCOMPARE(deviceReadFrom(item(0, 2, 3)).Slots.vslot.size(), std::size_t(2));
    QCOMPARE(deviceReadFrom(item(3, 0, 3)).Slots.vslot.size(), std::size_t(0));
    QCOMPARE(deviceReadFrom(item(0, 0, 256)).Slots.vslot.size(), std::size_t(0));
    QCOMPARE(deviceReadFrom(item(60, 60, 60)).Slots.vslot.size(), std::size_t(60));
    QCOMPARE(deviceReadFrom(item(0, 60, 3)).Slots.vslot.size(), std::size_t(3));
}

void tst_KtlReadItems::itemsWithoutEffect_data()
{
    QTest::addColumn<uint>("type");
    for (const uint type : {40005U, 40008U, 40009U, 40010U, 40011U, 40012U, 40015U, 40016U, 40100U, 40101U, 40105U,
                            40106U, 1U, 39999U, 40017U, 40107U, 2147483647U})
        QTest::addRow("%u", type) << type;
}

/// The item is passed over as a whole, and the one after it is read. A module before it stays the open one.
void tst_KtlReadItems::itemsWithoutEffect()
{
    QFETCH(uint, type);
    const QByteArray item = ktlItem(type, QByteArray(60, '\x01'));
    const QByteArray fmmu = ktlItem(40014, le32(1) + bytes("01 00 00 00 00 00 00 00"));
    const struct_EtherCatDevice device = deviceReadFrom(item + fmmu);
    QCOMPARE(device.Name, std::string("0x2a"));
    QCOMPARE(device.vFmmu.size(), std::size_t(1));
    QVERIFY(device.vSM.empty() && device.vopmode.empty() && device.RxPdo.vpdo.empty() && device.TxPdo.vpdo.empty());
    QVERIFY(device.Slots.vslot.empty() && device.Dictionary.vobject.empty());
    QVERIFY(device.Mailbox.COE.InitCmd.vinitcmd.empty() && device.Mailbox.EOE.InitCmd.vinitcmd.empty());
    QVERIFY(!device.Mailbox.EOE.Attributes.IP && !device.Mailbox.EOE.Attributes.MAC);
    QCOMPARE(int(device.configindex) + int(device.detectindex), 0);
    QCOMPARE(moduleReadFrom(item + ktlItem(40102, zeros(20))).TxPdo.vpdo.size(), std::size_t(1));
}

void tst_KtlReadItems::itemsShorterThanTheirRecords_data()
{
    QTest::addColumn<QByteArray>("item");
    QTest::addColumn<int>("expected"); // records of any kind
    const auto row = [](const char* name, const QByteArray& item, int expected) {
        QTest::addRow("%s", name) << item << expected;
    };
    row("SM: count without records", ktlItem(40001, le32(0xFFFFFFFF)), 0);
    row("SM: head cut", ktlItem(40001, bytes("02 00")), 0);
    row("SM: one and a byte", ktlItem(40001, le32(9) + zeros(17)), 2);
    row("SM: fewer counted than there are", ktlItem(40001, le32(1) + zeros(64)), 1);
    row("DC: count without records", ktlItem(40002, le32(0xFFFFFFFF)), 0);
    row("DC: one and a part", ktlItem(40002, le32(9) + zeros(29)), 2);
    row("FMMU: head alone", ktlItem(40014), 0);
    row("FMMU: two", ktlItem(40014, le32(0x80000000) + zeros(16)), 2);
    row("RxPdo: no entry", ktlItem(40003, zeros(16) + le32(0xFFFFFFFF)), 1);
    row("RxPdo: head alone gives a PDO all the same", ktlItem(40003), 1);
    row("TxPdo: two entries of nine", ktlItem(40004, zeros(16) + le32(9) + zeros(40)), 3);
    row("Slot: head alone", ktlItem(40007), 0);
    row("Slot: two of nine", ktlItem(40007, zeros(8) + le16(9) + zeros(2) + zeros(130)), 2);
    row("CoE: head alone", ktlItem(40006), 0);
}

void tst_KtlReadItems::itemsShorterThanTheirRecords()
{
    QFETCH(QByteArray, item);
    QFETCH(int, expected);
    const struct_EtherCatDevice device = deviceReadFrom(item);
    QCOMPARE(device.Name, std::string("0x2a"));
    std::size_t records = device.vSM.size() + device.vopmode.size() + device.vFmmu.size() + device.Slots.vslot.size()
                          + device.Mailbox.COE.InitCmd.vinitcmd.size();
    for (const auto* pdos : {&device.RxPdo.vpdo, &device.TxPdo.vpdo})
        for (const struct_PDOList& pdo : *pdos)
            records += 1 + pdo.Entry.vPdo_c.size();
    QCOMPARE(int(records), expected);
}

void tst_KtlReadItems::resultOfAnItem_data()
{
    QTest::addColumn<uint>("type");
    QTest::addColumn<bool>("hasModules");
    QTest::addColumn<bool>("expected");
    for (const uint type : {0U, 40000U, 40001U, 40002U, 40003U, 40004U, 40005U, 40006U, 40007U, 40008U, 40009U, 40010U,
                            40011U, 40012U, 40014U, 40100U, 40101U}) {
        QTest::addRow("%u", type) << type << true << true;
        QTest::addRow("%u without a group of modules", type) << type << false << true;
    }
    for (const uint type : {40013U, 40102U, 40103U, 40104U}) {
        QTest::addRow("%u", type) << type << true << true;
        QTest::addRow("%u without a group of modules", type) << type << false << false;
    }
    for (const uint type : {40015U, 40016U, 40105U, 40106U, 1U, 39999U, 0x80000000U})
        QTest::addRow("%u, which is not known", type) << type << true << false;
}

void tst_KtlReadItems::resultOfAnItem()
{
    QFETCH(uint, type);
    QFETCH(bool, hasModules);
    QFETCH(bool, expected);
    const QByteArray item = ktlItem(type, zeros(92));
    struct_FilenameDevice file;
    struct_EtherCatDevice device;
    struct_commentmodule modules;
    struct_commentmodule* const group = hasModules ? &modules : nullptr;
    QCOMPARE(device_ktlupdatexmldata(&file, item.constData(), &device, group), expected);
    QCOMPARE(device_ktlupdatexmldata(nullptr, item.constData(), &device, group), expected);
    QVERIFY(!device_ktlupdatexmldata(&file, nullptr, &device, group));
    QVERIFY(!device_ktlupdatexmldata(&file, item.constData(), nullptr, group));
    QVERIFY(file.device.empty() && file.vcommentmodule.empty());
}

static const testMain::Registration<tst_KtlReadItems, QCoreApplication> registration;
#include "tst_KtlReadItems.moc"
