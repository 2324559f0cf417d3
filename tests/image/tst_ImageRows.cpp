// The rows of a process image.
// Covers imageWords.cpp.
#include "facts/unitParts.h"
#include "image/imageParts.h"
#include "image/imageRows.h"
#include "image/imageWords.h"
#include "show/showWords.h"
#include "testMain.h"

#include <QtTest>

class tst_ImageRows : public QObject
{
    Q_OBJECT

private slots:
    static void rows();
    static void lengths_data();
    static void lengths();
    static void fullBytes();
    static void unknownSyncManager();
    static void labels();
};

namespace {

/// "entry 0.0+1 0x6000:1" for each row of a sync manager, after "PDO 0x1a00 0.0+3" for its PDO.
QStringList linesOf(const image::Area& area)
{
    QStringList lines;
    const auto add = [&](const image::Row& row) {
        lines += QStringLiteral("%1 %2+%3 %4")
                     .arg(QString::fromStdString(std::string(image::kindName(row.kind))),
                          QString::fromStdString(show::placeText(row.bit)))
                     .arg(row.bits)
                     .arg(QString::fromStdString(show::objectText(row.index, row.subIndex)));
    };
    for (const image::Pdo& pdo : area.pdos) {
        lines += QStringLiteral("%1 %2+%3")
                     .arg(QString::fromStdString(image::labelOf(pdo)), QString::fromStdString(show::placeText(pdo.bit)))
                     .arg(pdo.bits);
        for (const image::Row& row : pdo.rows)
            add(row);
    }
    if (area.padding.has_value())
        add(*area.padding);
    return lines;
}

} // namespace

/// Bits without holes between PDOs; one without entries has its place too. 11 bits are used, 5 are left of two bytes.
void tst_ImageRows::rows()
{
    const unitParts::LoadedUnits loaded(unitParts::deviceFile(
        "<Sm>Outputs</Sm><Sm>Inputs</Sm>"
        "<TxPdo Sm='1'><Index>#x1a00</Index><Name>A</Name>"
        "<Entry><Index>#x6000</Index><SubIndex>1</SubIndex><BitLen>1</BitLen><Name>a</Name><DataType>BOOL</DataType></"
        "Entry>"
        "<Entry><Index>0</Index><BitLen>2</BitLen></Entry></TxPdo>"
        "<TxPdo Sm='1'><Index>#x1a01</Index></TxPdo>"
        "<TxPdo Sm='1'><Index>#x1a02</Index>"
        "<Entry><Index>#x6001</Index><SubIndex>2</SubIndex><BitLen>8</BitLen><Name>b</Name></Entry></TxPdo>"));
    const image::Device device = image::deviceOf(loaded.facts.units.at(0));
    QCOMPARE(device.areas.size(), std::size_t{2});
    QVERIFY(!device.areas[0].isInput);
    QVERIFY(device.areas[0].pdos.empty());
    QVERIFY(!device.areas[0].padding.has_value());
    const image::Area& inputs = device.areas[1];
    QVERIFY(inputs.isInput);
    QCOMPARE(linesOf(inputs),
             (QStringList{"PDO 0x1a00 \"A\" 0.0+3", "entry 0.0+1 0x6000:1", "gap 0.1+2 0x0:0", "PDO 0x1a01 0.3+0",
                          "PDO 0x1a02 0.3+8", "entry 0.3+8 0x6001:2", "padding 1.3+5 0x0:0"}));
    QCOMPARE(inputs.bytes, 2);
    QCOMPARE(inputs.pdos[0].rows[0].name, std::string("a"));
    QCOMPARE(inputs.pdos[0].rows[0].type, std::string("BOOL"));
    QCOMPARE(device.name, std::string("Device"));
    QCOMPARE(device.type, std::string("T1"));
    QCOMPARE(device.product, 1U);
    QVERIFY(device.isComplete);
}

void tst_ImageRows::lengths_data()
{
    QTest::addColumn<int>("length");
    QTest::addColumn<int>("most");
    QTest::addColumn<QByteArray>("label");
    const QByteArray start = "Inputs, sync manager 3: 3 bytes used (18 bits)";
    QTest::addRow("right") << 3 << 0 << start + ", length 3";
    QTest::addRow("not known") << -1 << 0 << start + ", length not known";
    QTest::addRow("with a limit") << 3 << 64 << start + ", length 3, at most 64";
    QTest::addRow("the device alone: 15 bits")
        << 2 << 0 << start + ", length 2; warning: the length lacks the PDOs of modules";
    QTest::addRow("as much as it takes") << 3 << 3 << start + ", length 3, at most 3";
    QTest::addRow("more than it takes")
        << 3 << 2 << start + ", length 3, at most 2; warning: the PDOs take more than the sync manager can have";
    QTest::addRow("another one") << 4 << 0 << start + ", length 4; warning: the length is not that of the PDOs";
}

void tst_ImageRows::lengths()
{
    QFETCH(int, length);
    QFETCH(int, most);
    image::Area area = imageParts::mixedArea();
    area.length = length;
    area.maxLength = most;
    QTEST(QByteArray::fromStdString(image::labelOf(area)), "label");
}

void tst_ImageRows::fullBytes()
{
    facts::PdoFacts pdo;
    facts::EntryFacts entry;
    entry.index = 0x7000;
    entry.bits = 16;
    pdo.entries = {entry};
    facts::SyncManagerFacts syncManager;
    syncManager.exportedBytes = 2;
    syncManager.attributes.MaxSize = 8;
    facts::SyncManagerImage one{2, false, &syncManager, {&pdo}, {{&pdo, &pdo.entries[0], 0, 16}}, 16};
    const image::Area area = image::areaOf(one);
    QVERIFY(!area.padding.has_value());
    QVERIFY(!area.hasOtherLength());
    QCOMPARE(image::labelOf(area), std::string("Outputs, sync manager 2: 2 bytes used, length 2, at most 8"));
}

void tst_ImageRows::unknownSyncManager()
{
    facts::SyncManagerImage one;
    one.number = 5;
    const image::Area area = image::areaOf(one);
    QCOMPARE(area.length, -1);
    QVERIFY(!area.hasOtherLength());
    QCOMPARE(image::labelOf(area), std::string("Outputs, sync manager 5: no process data, length not known"));
}

void tst_ImageRows::labels()
{
    image::Device device = imageParts::deviceWith({});
    QCOMPARE(image::labelOf(device), std::string("device 2, 0x7e57:0x1:0x20, T1 \"Drive, left\""));
    device.type.clear();
    QCOMPARE(image::labelOf(device), std::string("device 2, 0x7e57:0x1:0x20, \"Drive, left\""));
    device.name.clear();
    QCOMPARE(image::labelOf(device), std::string("device 2, 0x7e57:0x1:0x20"));
    QCOMPARE(image::labelOf(imageParts::mixedArea().pdos[1]), std::string("PDO 0x1a10 \"Module\", slot 2"));
}

static const testMain::Registration<tst_ImageRows, testMain::NoApplication> registration;
#include "tst_ImageRows.moc"
