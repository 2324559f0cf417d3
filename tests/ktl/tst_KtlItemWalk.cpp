// Walking over the items of a file, and the parts of an item.
// Covers ktlLayout.cpp.
#include "ktl/ktlBytes.h"
#include "ktl/reading/ktlItemWalk.h"
#include "testMain.h"

#include <QtTest>

class tst_KtlItemWalk : public QObject
{
    Q_OBJECT

private slots:
    void ends_data();
    void ends();
    void itemsAndTheirBytes();
    void cutAtEveryByte();
    void parts_data();
    void parts();
    void layouts_data();
    void layouts();
    void unknownLayout();
    void signedNumbers();
};

Q_DECLARE_METATYPE(KtlWalkEnd)

namespace {

const QByteArray endItem = le32(0) + le32(12) + le32(0);
const QByteArray eeprom = le32(40008) + le32(40) + zeros(32);

std::vector<unsigned char> fileOf(const QByteArray& content)
{
    return {content.begin(), content.end()};
}

ItemBytes itemOf(const std::vector<unsigned char>& bytesOfItem)
{
    return {bytesOfItem.data(), bytesOfItem.size()};
}

} // namespace

void tst_KtlItemWalk::ends_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<KtlWalkEnd>("end");
    QTest::addColumn<int>("items");
    QTest::addColumn<int>("offset");
    QTest::addRow("no bytes") << QByteArray() << KtlWalkEnd::CutHead << 0 << 0;
    QTest::addRow("End item alone") << endItem << KtlWalkEnd::Whole << 1 << 12;
    QTest::addRow("two runs") << eeprom + endItem + eeprom + endItem << KtlWalkEnd::Whole << 4 << 104;
    QTest::addRow("no End item") << endItem + eeprom << KtlWalkEnd::NoEndItem << 2 << 52;
    QTest::addRow("seven bytes of a head") << endItem + eeprom.left(7) << KtlWalkEnd::CutHead << 1 << 12;
    QTest::addRow("head alone of a longer item") << endItem + eeprom.left(8) << KtlWalkEnd::CutItem << 2 << 20;
    QTest::addRow("End item that is cut") << eeprom + endItem.left(11) << KtlWalkEnd::CutItem << 2 << 51;
    QTest::addRow("smallest item") << le32(40008) + le32(8) + endItem << KtlWalkEnd::Whole << 2 << 20;
    QTest::addRow("size below the smallest") << le32(40008) + le32(7) + endItem << KtlWalkEnd::ImpossibleHead << 0 << 0;
    QTest::addRow("largest size") << le32(40008) + le32(0x7FFFFFFF) << KtlWalkEnd::CutItem << 1 << 8;
    QTest::addRow("negative size") << le32(40008) + le32(0x80000000) << KtlWalkEnd::ImpossibleHead << 0 << 0;
    QTest::addRow("largest type") << le32(0x7FFFFFFF) + le32(8) + endItem << KtlWalkEnd::Whole << 2 << 20;
    QTest::addRow("negative type") << endItem + le32(0x80000000) + le32(8) << KtlWalkEnd::ImpossibleHead << 1 << 12;
}

void tst_KtlItemWalk::ends()
{
    QFETCH(QByteArray, content);
    QFETCH(KtlWalkEnd, end);
    QFETCH(int, items);
    QFETCH(int, offset);
    const std::vector<unsigned char> file = fileOf(content);
    const KtlWalk walk = walkItems(file);
    QCOMPARE(int(walk.end), int(end));
    QCOMPARE(int(walk.items.size()), items);
    QCOMPARE(int(walk.offset), offset);
}

void tst_KtlItemWalk::itemsAndTheirBytes()
{
    const std::vector<unsigned char> file = fileOf(le32(40014) + le32(12) + le32(77) + endItem);
    const KtlWalk walk = walkItems(file);
    QCOMPARE(walk.items.at(0).type, 40014U);
    QCOMPARE(walk.items.at(0).announcedSize, 12U);
    QCOMPARE(walk.items.at(0).bytes.size(), std::size_t(12));
    QCOMPARE(walk.items.at(0).bytes.at<std::uint32_t>(8), 77U);
    QCOMPARE(walk.items.at(1).offset, std::size_t(12));
}

/// No item has more bytes than there are, and only the whole file is whole.
void tst_KtlItemWalk::cutAtEveryByte()
{
    const QByteArray content = eeprom + eeprom + endItem;
    for (int size = 0; size <= content.size(); ++size) {
        const std::vector<unsigned char> file = fileOf(content.left(size));
        const KtlWalk walk = walkItems(file);
        std::size_t shown = 0;
        for (const KtlFileItem& item : walk.items)
            shown += item.bytes.size();
        QVERIFY(shown <= file.size() && file.size() - shown < 8);
        QCOMPARE(walk.end == KtlWalkEnd::Whole, size == content.size());
    }
}

void tst_KtlItemWalk::parts_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QList<int>>("expected"); // end of the head, records, their end, end of the tail, end of the fill
    const QByteArray command = zeros(12);
    const auto item = [](std::uint32_t type, const QByteArray& rest) {
        return le32(type) + le32(static_cast<std::uint32_t>(8 + rest.size())) + rest;
    };
    const QByteArray oneCommand = zeros(7) + "\x01" + command;
    const QByteArray head28 = le32(40006) + le32(48) + zeros(7) + "\x01"; // as `item` makes it with 20 bytes after it
    QTest::addRow("half a head") << item(40001, zeros(2)) << QList<int>{8, 0, 8, 8, 8};
    QTest::addRow("head without records") << item(40001, le32(0)) << QList<int>{12, 0, 12, 12, 12};
    QTest::addRow("record and a half") << item(40014, le32(2) + zeros(12)) << QList<int>{12, 1, 20, 20, 20};
    QTest::addRow("four billion records") << item(40014, le32(0xFFFFFFFF) + zeros(16)) << QList<int>{12, 2, 28, 28, 28};
    QTest::addRow("slots by the size") << item(40007, zeros(12 + 2 * 124)) << QList<int>{20, 2, 268, 268, 268};
    QTest::addRow("EoE by its count") << item(40005, zeros(3) + "\x01" + zeros(24)) << QList<int>{12, 1, 24, 24, 24};
    QTest::addRow("CoE, no values") << item(40006, oneCommand) << QList<int>{16, 1, 28, 28, 28};
    QTest::addRow("CoE, values") << item(40006, oneCommand + zeros(8)) << QList<int>{16, 1, 28, 36, 36};
    QTest::addRow("CoE, fill only") << item(40006, oneCommand + head28 + zeros(4)) << QList<int>{16, 1, 28, 28, 48};
    QTest::addRow("CoE, value and a short fill")
        << item(40006, oneCommand + le32(5) + le32(40006)) << QList<int>{16, 1, 28, 32, 36};
    QTest::addRow("CoE, like a fill but for the last byte")
        << item(40006, oneCommand + head28 + zeros(3) + "\x01") << QList<int>{16, 1, 28, 48, 48};
    QTest::addRow("CoE, two bytes after the values")
        << item(40006, oneCommand + zeros(6)) << QList<int>{16, 1, 28, 32, 32};
    QTest::addRow("CoE, 255 means by the size")
        << item(40006, zeros(7) + "\xFF" + command + command) << QList<int>{16, 2, 40, 40, 40};
    QTest::addRow("text") << item(40016, zeros(16) + "abc" + zeros(1)) << QList<int>{24, 0, 24, 27, 28};
    QTest::addRow("text with something after it")
        << item(40016, zeros(16) + "a" + zeros(1) + "b") << QList<int>{24, 0, 24, 25, 25};
    QTest::addRow("words") << item(40999, zeros(11)) << QList<int>{8, 0, 8, 16, 16};
}

void tst_KtlItemWalk::parts()
{
    QFETCH(QByteArray, content);
    QFETCH(QList<int>, expected);
    const std::vector<unsigned char> file = fileOf(content);
    const KtlFileItem item = walkItems(file).items.at(0);
    const KtlItemParts found = partsOf(layoutOf(item.type), item.bytes);
    const QList<int> ends{int(found.headEnd), int(found.records), int(found.recordsEnd), int(found.tailEnd),
                          int(found.fillEnd)};
    QCOMPARE(ends, expected);
}

void tst_KtlItemWalk::layouts_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("headSize");
    QTest::addColumn<int>("recordSize");
    const struct
    {
        const char* name;
        int type;
        int headSize;
        int recordSize;
    } expected[] = {
        {"End", 0, 12, 0},
        {"General", 40000, 52, 0},
        {"SM", 40001, 12, 16},
        {"DC", 40002, 12, 28},
        {"RxPdo", 40003, 28, 20},
        {"TxPdo", 40004, 28, 20},
        {"EoE", 40005, 12, 12},
        {"CoE", 40006, 16, 12},
        {"Slot", 40007, 20, 124},
        {"EEPROM", 40008, 40, 0},
        {"ObjectDetectType", 40009, 28, 0},
        {"ObjectConfigType", 40010, 28, 0},
        {"ObjectModule", 40011, 8, 0},
        {"SubObjectType", 40012, 28, 0},
        {"ModuleType", 40013, 20, 0},
        {"FMMU", 40014, 12, 8},
        {"SlotPreConfig", 40015, 16, 8},
        {"DeviceMoreInfo", 40016, 24, 0},
        {"ModuleRxPDO", 40100, 8, 0},
        {"ModuleTxPDO", 40101, 8, 0},
        {"ModuleTPDOEntry", 40102, 28, 12},
        {"ModuleRPDOEntry", 40103, 28, 12},
        {"ModuleCoEInitCmd", 40104, 12, 16},
        {"ModuleDictDT", 40105, 8, 0},
        {"ModuleDictObject", 40106, 8, 0},
    };
    for (const auto& row : expected)
        QTest::addRow("%s", row.name) << row.type << row.headSize << row.recordSize;
}

void tst_KtlItemWalk::layouts()
{
    QFETCH(int, type);
    QFETCH(int, headSize);
    QFETCH(int, recordSize);
    const KtlItemLayout& layout = layoutOf(static_cast<std::uint32_t>(type));
    QVERIFY(isKnownItem(static_cast<std::uint32_t>(type)));
    QCOMPARE(layout.name, QTest::currentDataTag());
    QCOMPARE(layout.type, static_cast<std::uint32_t>(type));
    QCOMPARE(int(layout.head.size()), headSize);
    QCOMPARE(int(layout.record.size()), recordSize);
    QCOMPARE(layout.announcedRecords != nullptr, recordSize > 0);
}

void tst_KtlItemWalk::unknownLayout()
{
    for (const std::uint32_t type : {1U, 39999U, 40017U, 40099U, 40107U}) {
        QVERIFY(!isKnownItem(type));
        QCOMPARE(int(layoutOf(type).head.size()), 8);
        QCOMPARE(layoutOf(type).name, "");
    }
}

/// Each field by its own width and sign.
void tst_KtlItemWalk::signedNumbers()
{
    const std::vector<unsigned char> file =
        fileOf(le32(40003) + le32(28) + bytes("FF FE") + le16(0xFFFD) + le32(0xFFFFFFFF) + le32(0x80000000)
               + le16(0xFFFF) + le16(0) + le32(0xFFFFFFFE));
    QList<qint64> numbers;
    for (const KtlField& field : layoutOf(40003).head)
        numbers.append(numberIn(itemOf(file), 0, field));
    QCOMPARE(numbers, (QList<qint64>{40003, 28, 255, 254, 65533, -1, -2147483648LL, 65535, 0, 4294967294LL}));
}

static const testMain::Registration<tst_KtlItemWalk, QCoreApplication> registration;
#include "tst_KtlItemWalk.moc"
