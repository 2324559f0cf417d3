// Entries of PDOs added, erased and linked by hand.
#include "editing/pdoEdits.h"
#include "testMain.h"
#include "workbench/pdoBuilders.h"

#include <QtTest>

class tst_PdoEdits : public QObject
{
    Q_OBJECT

private slots:
    static void inserted_data();
    static void inserted();
    static void insertedEntryIsEmpty();
    static void erased_data();
    static void erased();
    static void sizeAndPlacesStay();
    static void linked_data();
    static void linked();
    static void linkOfAModule();
};

namespace {

/// A device with a PDO in each list, of two entries each. The index of an entry tells its list and its position.
struct_EtherCatDevice deviceWithEntries()
{
    struct_EtherCatDevice device;
    device.RxPdo.vpdo = {devicePdo(0x1600, {deviceEntry(0xA0, 8), deviceEntry(0xA1, 8)})};
    device.TxPdo.vpdo = {devicePdo(0x1A00, {deviceEntry(0xB0, 8), deviceEntry(0xB1, 8)})};
    device.mRxPdo.mpdo = {pdoOfModule(0x1610, {moduleEntry(0xC0, 8), moduleEntry(0xC1, 8)})};
    device.mTxPdo.mpdo = {pdoOfModule(0x1A10, {moduleEntry(0xD0, 8), moduleEntry(0xD1, 8)})};
    return device;
}

/// Indexes of all entries, PDO by PDO: "a0 a1|b0 b1|c0 c1|d0 d1".
QString entriesIn(const struct_EtherCatDevice& device)
{
    QStringList pdos;
    for (const auto* list : {&device.RxPdo.vpdo, &device.TxPdo.vpdo}) {
        QStringList entries;
        for (const struct_EntryPDOContent& entry : list->at(0).Entry.vPdo_c)
            entries.append(QString::number(entry.Index, 16));
        pdos.append(entries.join(' '));
    }
    for (const auto* list : {&device.mRxPdo.mpdo, &device.mTxPdo.mpdo}) {
        QStringList entries;
        for (const struct_moduleEntry& entry : list->at(0).vEntry)
            entries.append(QString::number(entry.indexAttributes.index, 16));
        pdos.append(entries.join(' '));
    }
    return pdos.join('|');
}

void addPlaces()
{
    QTest::addColumn<int>("pdoRow");
    QTest::addColumn<int>("entryRow");
    QTest::addColumn<QString>("entries");
    const QString unchanged = "a0 a1|b0 b1|c0 c1|d0 d1";
    QTest::addRow("no entry is chosen") << 0 << -1 << unchanged;
    QTest::addRow("the closing row") << 0 << 2 << unchanged;
    QTest::addRow("past the closing row") << 3 << 3 << unchanged;
    QTest::addRow("no PDO is chosen") << -1 << 0 << unchanged;
    QTest::addRow("past the lists") << 4 << 0 << unchanged;
}

} // namespace

void tst_PdoEdits::inserted_data()
{
    addPlaces();
    QTest::addRow("after the first of the outputs") << 0 << 0 << "a0 0 a1|b0 b1|c0 c1|d0 d1";
    QTest::addRow("after the last of the inputs") << 1 << 1 << "a0 a1|b0 b1 0|c0 c1|d0 d1";
    QTest::addRow("outputs of modules") << 2 << 0 << "a0 a1|b0 b1|c0 0 c1|d0 d1";
    QTest::addRow("inputs of modules") << 3 << 1 << "a0 a1|b0 b1|c0 c1|d0 d1 0";
}

void tst_PdoEdits::inserted()
{
    QFETCH(int, pdoRow);
    QFETCH(int, entryRow);
    QFETCH(QString, entries);
    struct_EtherCatDevice device = deviceWithEntries();
    insertPdoEntry(device, pdoRow, entryRow);
    QCOMPARE(entriesIn(device), entries);
}

void tst_PdoEdits::insertedEntryIsEmpty()
{
    struct_EtherCatDevice device = deviceWithEntries();
    insertPdoEntry(device, 0, 0);
    const struct_EntryPDOContent& entry = device.RxPdo.vpdo[0].Entry.vPdo_c.at(1);
    QCOMPARE(entry.Bitlen, 0);
    QCOMPARE(entry.Linkto, 0);
    QVERIFY(entry.Name.empty());
    QVERIFY(entry.DataType.empty());
}

void tst_PdoEdits::erased_data()
{
    addPlaces();
    QTest::addRow("the first of the outputs") << 0 << 0 << "a1|b0 b1|c0 c1|d0 d1";
    QTest::addRow("the last of the inputs") << 1 << 1 << "a0 a1|b0|c0 c1|d0 d1";
    QTest::addRow("outputs of modules") << 2 << 1 << "a0 a1|b0 b1|c0|d0 d1";
    QTest::addRow("inputs of modules") << 3 << 0 << "a0 a1|b0 b1|c0 c1|d1";
}

void tst_PdoEdits::erased()
{
    QFETCH(int, pdoRow);
    QFETCH(int, entryRow);
    QFETCH(QString, entries);
    struct_EtherCatDevice device = deviceWithEntries();
    erasePdoEntry(device, pdoRow, entryRow);
    QCOMPARE(entriesIn(device), entries);
}

void tst_PdoEdits::sizeAndPlacesStay()
{
    struct_EtherCatDevice device = deviceWithEntries();
    struct_PDOList& pdo = device.RxPdo.vpdo[0];
    pdo.Size = 2.0F;
    pdo.Entry.vPdo_c[1].Offs = 1.0F;
    insertPdoEntry(device, 0, 0);
    QCOMPARE(pdo.Size, 2.0F);
    QCOMPARE(pdo.Entry.vPdo_c.at(2).Offs, 1.0F);
    erasePdoEntry(device, 0, 0);
    QCOMPARE(pdo.Size, 2.0F);
    QCOMPARE(pdo.Entry.vPdo_c.at(1).Offs, 1.0F);
}

void tst_PdoEdits::linked_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("link");
    QTest::addColumn<QVector<int>>("links");
    QTest::addRow("first") << 0 << -7 << QVector<int>{-7, 6};
    QTest::addRow("last") << 1 << 0 << QVector<int>{5, 0};
    QTest::addRow("a link of the other direction, or of none") << 0 << 99 << QVector<int>{99, 6};
    QTest::addRow("the closing row") << 2 << -7 << QVector<int>{5, 6};
    QTest::addRow("no row") << -1 << -7 << QVector<int>{5, 6};
}

void tst_PdoEdits::linked()
{
    QFETCH(int, row);
    QFETCH(int, link);
    QFETCH(QVector<int>, links);
    std::vector<struct_EntryPDOContent> entries{deviceEntry(0x7000, 8, 5), deviceEntry(0x7001, 8, 6)};
    linkEntry(entries, row, link);
    QCOMPARE(QVector<int>({entries[0].Linkto, entries[1].Linkto}), links);
}

void tst_PdoEdits::linkOfAModule()
{
    std::vector<struct_moduleEntry> entries{moduleEntry(0x7000, 8, 5)};
    linkEntry(entries, 0, -2);
    QCOMPARE(entries[0].Linkto, -2);
    QCOMPARE(int(entries[0].BitLen), 8);
}

static const testMain::Registration<tst_PdoEdits, testMain::NoApplication> registration;
#include "tst_PdoEdits.moc"
