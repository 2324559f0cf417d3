// The complete-access block of the CoE item: what the size announces, what is written, and the fill between the two.
#include "ktl/ktlBytes.h"
#include "ktl/ktlExport.h"
#include "ktl/writing/itemWriter.h"
#include "testMain.h"

#include <QtTest>

#include <numeric>

namespace {

QByteArray coeOf(struct_EtherCatDevice& device)
{
    return writtenBy([&](std::FILE* out) { KTL_write_device_CoEInitCmd(out, &device); });
}

/// Head of a CoE item without flags.
QByteArray head(std::uint32_t size, std::uint32_t count)
{
    return bytes("46 9C 00 00") + le32(size) + zeros(7) + le16(count).left(1);
}

/// Record of a complete access without transition, index and data.
QByteArray record(std::uint32_t dataBytes)
{
    return zeros(4) + bytes("00 01") + le16(dataBytes) + zeros(4);
}

/// So many values: `first` and the numbers after it.
std::vector<unsigned int> values(std::size_t count, unsigned int first)
{
    std::vector<unsigned int> list(count);
    std::iota(list.begin(), list.end(), first);
    return list;
}

/// The same values as they are in the file.
QByteArray block(std::uint32_t count, std::uint32_t first)
{
    QByteArray all;
    for (std::uint32_t number = 0; number < count; ++number)
        all += le32(first + number);
    return all;
}

void addToDevice(struct_EtherCatDevice& device, std::uint16_t dataBytes, const std::vector<unsigned int>& list)
{
    struct_InitCmd command;
    command.bIfCA = 1;
    command.DataBytes = dataBytes;
    command.m_CADataList = list;
    device.Mailbox.COE.InitCmd.vinitcmd.push_back(command);
}

void addToModules(struct_EtherCatDevice& device, std::uint16_t dataBytes, const std::vector<unsigned int>& list)
{
    struct_moduleInitCmd command;
    command.bIfCA = 1;
    command.DataBytes = dataBytes;
    command.m_CADataList = list;
    device.mMailbox.COE.vinitcmd.push_back(command);
}

} // namespace

class tst_CompleteAccess : public QObject
{
    Q_OBJECT

private slots:
    void twoValues();
    void bothListsInOrder();
    void fillComesFromTheHead_data();
    void fillComesFromTheHead();
    void fillAfterValues();
    void moreValuesThanAnnounced();
    void limitIsReachedExactly();
    void limitIsPassedInOneList();
    void limitIsPassedByBothLists();
    void hugeLengthDoesNotWrap();
    void valuesThatDoNotFitAreDropped();
    void smallerCommandStillFits();
    void itemWriterFillsThreeBytes();
    void itemWriterKeepsTheOrderOfALongItem();
    void itemWriterReportsARefusal();
};

/// `DataBytes` 8 and two values: 8 bytes announced and 8 there. The record keeps its other fields, also `Data`.
void tst_CompleteAccess::twoValues()
{
    struct_EtherCatDevice device;
    addToDevice(device, 8, {0x60400010, 0x89ABCDEF});
    struct_InitCmd& command = device.Mailbox.COE.InitCmd.vinitcmd.front();
    command.Transition = PS;
    command.Index = 0x1600;
    command.SubIndex = 0;
    command.Data = 0x12345678;
    QCOMPARE(coeOf(device), bytes("46 9C 00 00  24 00 00 00  00 00 00 00 00 00 00 01" // m_iSize 16 + 12 + 8
                                  "02 00 00 16  00 01 08 00  78 56 34 12"
                                  "10 00 40 60  EF CD AB 89"));
}

void tst_CompleteAccess::bothListsInOrder()
{
    struct_EtherCatDevice device;
    addToModules(device, 4, {0x33333333});
    addToDevice(device, 4, {0x11111111});
    device.Mailbox.COE.InitCmd.vinitcmd.emplace_back(); // no complete access, between the two
    addToDevice(device, 4, {0x22222222});
    QCOMPARE(coeOf(device), bytes("46 9C 00 00  4C 00 00 00  00 00 00 00 00 00 00 04" // m_iSize 16 + 48 + 12
                                  "00 00 00 00  00 01 04 00  00 00 00 00"
                                  "00 00 00 00  00 00 00 00  00 00 00 00"
                                  "00 00 00 00  00 01 04 00  00 00 00 00"
                                  "00 00 00 00  00 01 04 00  00 00 00 00"
                                  "11 11 11 11  22 22 22 22  33 33 33 33"));
}

void tst_CompleteAccess::fillComesFromTheHead_data()
{
    QTest::addColumn<int>("dataBytes");
    QTest::addColumn<QByteArray>("size");
    QTest::addColumn<QByteArray>("fill");
    QTest::addRow("nothing announced, nothing filled") << 0 << bytes("1C 00 00 00") << QByteArray();
    QTest::addRow("1 byte is rounded up to 4") << 1 << bytes("20 00 00 00") << bytes("46 9C 00 00");
    QTest::addRow("4 bytes") << 4 << bytes("20 00 00 00") << bytes("46 9C 00 00");
    QTest::addRow("5 bytes are rounded up to 8") << 5 << bytes("24 00 00 00") << bytes("46 9C 00 00 24 00 00 00");
    QTest::addRow("12 bytes") << 12 << bytes("28 00 00 00") << bytes("46 9C 00 00 28 00 00 00 00 01 00 01");
    QTest::addRow("16 bytes are the whole head")
        << 16 << bytes("2C 00 00 00") << bytes("46 9C 00 00 2C 00 00 00 00 01 00 01 00 01 00 01");
    QTest::addRow("20 bytes: zero after the head")
        << 20 << bytes("30 00 00 00") << bytes("46 9C 00 00 30 00 00 00 00 01 00 01 00 01 00 01") + zeros(4);
    QTest::addRow("4096 bytes: zero after the head")
        << 4096 << bytes("1C 10 00 00") << bytes("46 9C 00 00 1C 10 00 00 00 01 00 01 00 01 00 01") + zeros(4080);
    QTest::addRow("4097 bytes are not announced") << 4097 << bytes("1C 00 00 00") << QByteArray();
}

/// A command that announces data and has none, as after reading a KTL file back.
void tst_CompleteAccess::fillComesFromTheHead()
{
    QFETCH(int, dataBytes);
    QFETCH(QByteArray, size);
    QFETCH(QByteArray, fill);
    struct_EtherCatDevice device;
    device.Mailbox.COE.Attributes.PdoAssign = true; // flags that are seen again in a long fill
    device.Mailbox.COE.Attributes.PdoConfig = true;
    device.Mailbox.COE.Attributes.CompleteAccess = true;
    addToDevice(device, static_cast<std::uint16_t>(dataBytes), {});
    QCOMPARE(coeOf(device), bytes("46 9C 00 00") + size + bytes("00 01 00 01 00 01 00 01")
                                + record(static_cast<std::uint32_t>(dataBytes)) + fill);
}

void tst_CompleteAccess::fillAfterValues()
{
    struct_EtherCatDevice device;
    addToModules(device, 11, {0xA0A1A2A3});
    QCOMPARE(coeOf(device), head(40, 1) + record(11) + bytes("A3 A2 A1 A0") // 16 + 12 + 11 is 39, up to 40
                                + bytes("46 9C 00 00  28 00 00 00"));
}

/// A module's input PDO of two entries of 8 bits announces 2 bytes and has two values: the block passes the size, and
/// no fill follows.
void tst_CompleteAccess::moreValuesThanAnnounced()
{
    struct_EtherCatDevice device;
    addToModules(device, 2, {0x60000108, 0x60000208});
    QCOMPARE(coeOf(device), head(32, 1) + record(2) + bytes("08 01 00 60  08 02 00 60"));
}

void tst_CompleteAccess::limitIsReachedExactly()
{
    struct_EtherCatDevice device;
    addToDevice(device, 4092, values(1023, 1));
    addToDevice(device, 4, {0xCAFEF00D});
    QCOMPARE(coeOf(device), head(16 + 24 + 4096, 2) + record(4092) + record(4) + block(1023, 1) + le32(0xCAFEF00D));
}

/// A command that passes 4096 bytes keeps its flag and loses its data; it is not announced either.
void tst_CompleteAccess::limitIsPassedInOneList()
{
    struct_EtherCatDevice device;
    addToDevice(device, 4096, values(1024, 5));
    addToDevice(device, 4, {0xCAFEF00D});
    QCOMPARE(coeOf(device), head(16 + 24 + 4096, 2) + record(4096) + record(4) + block(1024, 5));
}

/// The size has a limit for each list, the block one for both: 2000 and 3000 bytes are announced, 2000 are there, and
/// the 3000 are filled.
void tst_CompleteAccess::limitIsPassedByBothLists()
{
    struct_EtherCatDevice device;
    addToDevice(device, 2000, values(500, 1));
    addToModules(device, 3000, values(750, 9000));
    const QByteArray itemHead = head(16 + 24 + 5000, 2);
    QCOMPARE(coeOf(device), itemHead + record(2000) + record(3000) + block(500, 1) + itemHead + zeros(3000 - 16));
}

/// 65535 bytes after 4 others are beyond the limit: the sum does not wrap in 16 bits.
void tst_CompleteAccess::hugeLengthDoesNotWrap()
{
    struct_EtherCatDevice device;
    addToDevice(device, 4, {1});
    addToDevice(device, 65535, {2});
    addToDevice(device, 4, {3});
    addToModules(device, 65533, {4});
    QCOMPARE(coeOf(device), head(16 + 48 + 8, 4) + record(4) + record(65535) + record(4) + record(65533)
                                + bytes("01 00 00 00  03 00 00 00"));
}

/// The block never passes 4096 bytes, however many values a command has that announces a few bytes.
void tst_CompleteAccess::valuesThatDoNotFitAreDropped()
{
    struct_EtherCatDevice device;
    addToDevice(device, 4, values(1020, 1)); // 4080 bytes
    addToDevice(device, 8, values(6, 9000)); // 8 bytes fit, so the values are taken: four of the six
    addToDevice(device, 0, {7}); // fits by its length of 0, but there is no room for a value
    QCOMPARE(coeOf(device),
             head(16 + 36 + 12, 3) + record(4) + record(8) + record(0) + block(1020, 1) + block(4, 9000));
}

/// A command that did not fit leaves the level alone, and a later, smaller one still gets its place.
void tst_CompleteAccess::smallerCommandStillFits()
{
    struct_EtherCatDevice device;
    addToDevice(device, 4000, values(1000, 1));
    addToDevice(device, 100, values(25, 5000));
    addToModules(device, 96, values(24, 7000));
    QCOMPARE(coeOf(device),
             head(16 + 36 + 4000 + 96, 3) + record(4000) + record(100) + record(96) + block(1000, 1) + block(24, 7000));
}

void tst_CompleteAccess::itemWriterFillsThreeBytes()
{
    struct_KTL_COE item{};
    item.m_iItemType = KTL_ITEM_CoE;
    item.m_iSize = 19;
    const QByteArray written = writtenBy([&](std::FILE* out) {
        ItemWriter writer(item, offsetof(struct_KTL_COE, m_aInitCmd));
        QCOMPARE(writer.writeTo(out), std::size_t(1));
    });
    QCOMPARE(written, bytes("46 9C 00 00  13 00 00 00") + zeros(8) + bytes("46 9C 00"));
}

/// Records, a shorter one after them, and the fill stay in order, however long the item is.
void tst_CompleteAccess::itemWriterKeepsTheOrderOfALongItem()
{
    constexpr std::uint32_t count = 33; // of 124 bytes each, so the item is longer than 4096
    struct_KTL_Slots item{};
    item.m_iItemType = KTL_ITEM_Slot;
    item.m_iSize = 20 + count * 124 + 4 + 8;
    const QByteArray written = writtenBy([&](std::FILE* out) {
        ItemWriter writer(item, offsetof(struct_KTL_Slots, m_aSlotContent));
        for (std::uint32_t number = 0; number < count; ++number) {
            struct_KTL_SlotContent slot{};
            slot.m_iMinInstances = number;
            writer.add(slot);
        }
        writer.add(std::uint32_t{0x44332211});
        QCOMPARE(writer.writeTo(out), std::size_t(1));
    });
    QByteArray expected = bytes("47 9C 00 00") + le32(4124) + zeros(12);
    for (std::uint32_t number = 0; number < count; ++number)
        expected += le32(number) + zeros(120);
    QCOMPARE(written, expected + bytes("11 22 33 44  47 9C 00 00") + le32(4124));
}

void tst_CompleteAccess::itemWriterReportsARefusal()
{
    struct_KTL_ItemEnd item{};
    item.m_iSize = sizeof item;
    const FileHandle readOnly = streamThatRefuses();
    QVERIFY(readOnly);
    QCOMPARE(ItemWriter(item).writeTo(readOnly.get()), std::size_t(0));
}

static const testMain::Registration<tst_CompleteAccess, QCoreApplication> registration;
#include "tst_CompleteAccess.moc"
