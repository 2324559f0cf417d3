// At which bit of its sync manager each signal is.
// Covers esiFileFacts.cpp.
#include "facts/processImage.h"
#include "testMain.h"
#include "unitParts.h"

#include <QtTest>

using unitParts::deviceFile;

class tst_ProcessImage : public QObject
{
    Q_OBJECT

private slots:
    static void layout_data();
    static void layout();
    static void unknownSyncManagers();
    static void modulesTellOfSyncManagers_data();
    static void modulesTellOfSyncManagers();
    static void bytesAndBits();
};

namespace {

QString objectText(const facts::ImageEntry& mapped)
{
    return mapped.isGap() ? QStringLiteral("gap")
                          : QStringLiteral("%1:%2").arg(mapped.entry->index, 0, 16).arg(mapped.entry->subIndex);
}

/// "2 out 24: 1600 6000:1@0+8" for sync manager 2, outputs, 24 bits.
QStringList linesOf(const facts::ProcessImage& image)
{
    QStringList lines;
    for (const facts::SyncManagerImage& one : image) {
        QString line =
            QStringLiteral("%1 %2 %3:").arg(one.number).arg(QLatin1String(one.isInput ? "in" : "out")).arg(one.bits);
        for (const facts::ImageEntry& mapped : one.entries)
            line += QStringLiteral(" %1 %2@%3+%4")
                        .arg(mapped.pdo->index, 0, 16)
                        .arg(objectText(mapped))
                        .arg(mapped.bit)
                        .arg(mapped.bits);
        lines += line;
    }
    return lines;
}

const QByteArray mailboxes = "<Sm>MBoxOut</Sm><Sm>MBoxIn</Sm>";

QByteArray entry(const char* index, const char* subIndex, const char* bits)
{
    return QByteArray("<Entry><Index>") + index + "</Index><SubIndex>" + subIndex + "</SubIndex><BitLen>" + bits
           + "</BitLen></Entry>";
}

QByteArray pdo(const char* name, const char* syncManager, const char* index, const QByteArray& entries)
{
    const QByteArray assigned = *syncManager == '\0' ? QByteArray() : QByteArray(" Sm='") + syncManager + "'";
    return QByteArray("<") + name + assigned + "><Index>" + index + "</Index>" + entries + "</" + name + ">";
}

} // namespace

void tst_ProcessImage::layout_data()
{
    QTest::addColumn<QByteArray>("parts");
    QTest::addColumn<QStringList>("lines");
    const QByteArray both = mailboxes + "<Sm>Outputs</Sm><Sm>Inputs</Sm>";
    QTest::newRow("nothing assigned") << both + pdo("TxPdo", "", "#x1a00", entry("#x6000", "1", "8"))
                                      << QStringList{"2 out 0:", "3 in 0:"};
    QTest::newRow("bit after bit, over the ends of PDOs")
        << both + pdo("TxPdo", "3", "#x1a00", entry("#x6000", "1", "1") + entry("0", "0", "2"))
               + pdo("TxPdo", "3", "#x1a01", entry("#x6010", "17", "16"))
        << QStringList{"2 out 0:", "3 in 19: 1a00 6000:1@0+1 1a00 gap@1+2 1a01 6010:17@3+16"};
    QTest::newRow("in the order of the file, not of the indexes")
        << both + pdo("RxPdo", "2", "#x1601", entry("#x7000", "1", "8"))
               + pdo("RxPdo", "2", "#x1600", entry("#x7010", "1", "8"))
        << QStringList{"2 out 16: 1601 7000:1@0+8 1600 7010:1@8+8", "3 in 0:"};
    QTest::newRow("two areas of a direction")
        << both + "<Sm>Inputs</Sm>" + pdo("TxPdo", "4", "#x1a00", entry("#x6000", "1", "8"))
               + pdo("TxPdo", "3", "#x1a01", entry("#x6001", "1", "8"))
        << QStringList{"2 out 0:", "3 in 8: 1a01 6001:1@0+8", "4 in 8: 1a00 6000:1@0+8"};
    QTest::newRow("inputs before outputs in the device")
        << QByteArray("<Sm>Inputs</Sm><Sm>Outputs</Sm>") + pdo("TxPdo", "0", "#x1a00", entry("#x6000", "1", "8"))
        << QStringList{"1 out 0:", "0 in 8: 1a00 6000:1@0+8"};
    QTest::newRow("an output on inputs is there") << both + pdo("RxPdo", "3", "#x1600", entry("#x7000", "1", "8"))
                                                  << QStringList{"2 out 0:", "3 in 8: 1600 7000:1@0+8"};
    QTest::newRow("on a mailbox") << both + pdo("RxPdo", "0", "#x1600", entry("#x7000", "1", "8"))
                                  << QStringList{"2 out 0:", "3 in 0:"};
    QTest::newRow("virtual") << mailboxes + "<Sm Virtual='1'>Outputs</Sm>"
                                    + pdo("RxPdo", "2", "#x1600", entry("#x7000", "1", "8"))
                             << QStringList();
    QTest::newRow("beyond the last") << both + pdo("TxPdo", "4", "#x1a00", entry("#x6000", "1", "8"))
                                     << QStringList{"2 out 0:", "3 in 0:"};
    QTest::newRow("a length above 2^31 counts as none")
        << both + pdo("TxPdo", "3", "#x1a00", entry("#x6000", "1", "#x80000000") + entry("#x6000", "2", "8"))
        << QStringList{"2 out 0:", "3 in 8: 1a00 6000:1@0+0 1a00 6000:2@0+8"};
}

void tst_ProcessImage::layout()
{
    QFETCH(const QByteArray, parts);
    const unitParts::LoadedUnits loaded(deviceFile(parts));
    QTEST(linesOf(facts::processImageOf(loaded.facts.units.at(0))), "lines");
}

/// A KTL file leaves virtual sync managers out, so that a number may not be a place.
void tst_ProcessImage::unknownSyncManagers()
{
    facts::UnitFacts unit;
    unit.hasPlacesOfSyncManagers = false;
    unit.syncManagers.resize(2);
    facts::PdoFacts pdo;
    pdo.isInput = true;
    pdo.syncManager = 3;
    facts::EntryFacts entry;
    entry.index = 0x6000;
    entry.bits = 12;
    pdo.entries = {entry};
    unit.pdos = {pdo, pdo};
    const facts::ProcessImage image = facts::processImageOf(unit);
    QCOMPARE(linesOf(image), QStringList{"3 in 24: 0 6000:0@0+12 0 6000:0@12+12"});
    QVERIFY(image[0].syncManager == nullptr);
}

void tst_ProcessImage::modulesTellOfSyncManagers_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<QStringList>("lines");
    QTest::addRow("inputs are there") << 3 << QStringList{"2 out 0:", "3 in 8: 1a00 6000:0@0+8"};
    QTest::addRow("outputs are there") << 2 << QStringList{"2 in 8: 1a00 6000:0@0+8"};
    QTest::addRow("none is there") << 4 << QStringList{"4 in 8: 1a00 6000:0@0+8"};
    QTest::addRow("none is named") << -1 << QStringList{"2 out 0:", "3 in 0:"};
}

/// The device has no PDO that would show that the numbers are not places.
void tst_ProcessImage::modulesTellOfSyncManagers()
{
    QFETCH(int, number);
    facts::UnitFacts unit;
    for (const std::uint8_t direction : {KTL_MBoxOut, KTL_MBoxIn, KTL_Outputs, KTL_Inputs})
        unit.syncManagers.emplace_back().direction = direction;
    facts::PdoFacts pdo;
    pdo.isInput = true;
    pdo.syncManager = number;
    pdo.index = 0x1a00;
    facts::EntryFacts entry;
    entry.index = 0x6000;
    entry.bits = 8;
    pdo.entries = {entry};
    QTEST(linesOf(facts::processImageOf(unit, {pdo})), "lines");
}

void tst_ProcessImage::bytesAndBits()
{
    facts::SyncManagerImage image;
    QCOMPARE(image.bytes(), 0);
    image.bits = 1;
    QCOMPARE(image.bytes(), 1);
    image.bits = 16;
    QCOMPARE(image.bytes(), 2);
    QCOMPARE(facts::byteOf(19), 2);
    QCOMPARE(facts::bitInByte(19), 3);
}

static const testMain::Registration<tst_ProcessImage, testMain::NoApplication> registration;
#include "tst_ProcessImage.moc"
