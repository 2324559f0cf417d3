// The copies that replace an oversampled PDO: what is in each of them.
#include "derivation/oversampledPdo.h"
#include "testMain.h"

#include <QtTest>

#include <cstddef>
#include <cstdint>
#include <limits>

class tst_Oversampling : public QObject
{
    Q_OBJECT

private slots:
    static void isOversampled_data();
    static void isOversampled();
    static void copiedFields();
    static void copiedEntryFields();
    static void pdoIndex_data();
    static void pdoIndex();
    static void entryIndex_data();
    static void entryIndex();
    static void syncManager_data();
    static void syncManager();
    static void bothDirections();
    static void modulePdosAreNotTouched();
};

void tst_Oversampling::isOversampled_data()
{
    QTest::addColumn<int>("factor");
    QTest::addColumn<int>("first");
    QTest::addColumn<int>("last");
    QTest::addColumn<int>("step");
    QTest::addColumn<QStringList>("expected");
    const QStringList declared{"P"};
    QTest::addRow("all set") << 2 << 1 << 2 << 1 << QStringList{"P 0", "P 1"};
    QTest::addRow("one sample") << 1 << 1 << 1 << 1 << QStringList{"P 0"};
    QTest::addRow("the factor's size does not matter") << 500 << 1 << 2 << 1 << QStringList{"P 0", "P 1"};
    QTest::addRow("nothing set") << 0 << 0 << 0 << 0 << declared;
    QTest::addRow("no factor") << 0 << 1 << 2 << 1 << declared;
    QTest::addRow("no last sample") << 2 << 1 << 0 << 1 << declared;
    QTest::addRow("no step") << 2 << 1 << 2 << 0 << declared;
    QTest::addRow("negative factor") << -1 << 1 << 2 << 1 << declared;
    QTest::addRow("negative last sample") << 2 << 1 << -1 << 1 << declared;
    QTest::addRow("negative step") << 2 << 1 << 2 << -1 << declared;
    QTest::addRow("first sample 0 does not switch it off") << 2 << 0 << 1 << 1 << QStringList{"P 0", "P -1"};
}

void tst_Oversampling::isOversampled()
{
    QFETCH(int, factor);
    QFETCH(int, first);
    QFETCH(int, last);
    QFETCH(int, step);
    QFETCH(QStringList, expected);
    struct_PDOList pdo = plainPdo("P");
    pdo.Attributes.m_OSFac = factor;
    pdo.Attributes.m_OSMin = first;
    pdo.Attributes.m_OSMax = last;
    pdo.Attributes.m_OSIndexInc = step;
    pdo.Size = 1.4F;
    const std::vector<struct_PDOList> pdos = expanded({pdo});
    QCOMPARE(namesOf(pdos), expected);
    const bool isLeft = expected == QStringList{"P"};
    QCOMPARE(pdos[0].Attributes.m_OSFac, isLeft ? factor : 0);
    QCOMPARE(pdos[0].Attributes.m_OSMin, isLeft ? first : 0);
    QCOMPARE(pdos[0].Attributes.m_OSMax, isLeft ? last : 0);
    QCOMPARE(pdos[0].Attributes.m_OSIndexInc, isLeft ? step : 0);
}

void tst_Oversampling::copiedFields()
{
    struct_PDOList pdo = oversampledPdo("Samples", 1, 2);
    pdo.Size = 3.3F;
    pdo.Attributes.SU = 4;
    pdo.Attributes.SM = 2;
    pdo.Attributes.Fixed = true;
    pdo.Attributes.Mandatory = true;
    const std::vector<struct_PDOList> pdos = expanded({pdo});
    QCOMPARE(namesOf(pdos), (QStringList{"Samples 0", "Samples 1"}));
    for (const struct_PDOList& copy : pdos) {
        QCOMPARE(copy.Size, 3.3F);
        QCOMPARE(copy.Attributes.SU, 4);
        QCOMPARE(copy.Attributes.SM, 2);
        QCOMPARE(copy.Attributes.Fixed, true);
        QCOMPARE(copy.Attributes.Mandatory, true);
        QCOMPARE(copy.Attributes.m_OSFac, 0);
        QCOMPARE(copy.Attributes.m_OSMin, 0);
        QCOMPARE(copy.Attributes.m_OSMax, 0);
        QCOMPARE(copy.Attributes.m_OSIndexInc, 0);
    }
}

void tst_Oversampling::copiedEntryFields()
{
    struct_PDOList pdo = oversampledPdo("P", 1, 3);
    struct_EntryPDOContent value;
    value.Index = 0x6000;
    value.SubIndex = 0x12345;
    value.Bitlen = 12;
    value.Name = "Value";
    value.DataType = "INT";
    value.Linkto = 7;
    value.DefaultData = 8;
    value.Offs = 0.4F;
    value.Attributes.Fixed = true;
    pdo.Entry.vPdo_c = {struct_EntryPDOContent{}, value};

    const struct_PDOList third = expanded({pdo}).at(2);

    QCOMPARE(third.Entry.vPdo_c.size(), std::size_t{2});
    QVERIFY2(third.Entry.vPdo_c[0].Index == 0x20, "a padding entry moves like any other");
    const struct_EntryPDOContent& copy = third.Entry.vPdo_c[1];
    QCOMPARE(int{copy.Index}, 0x6020);
    QCOMPARE(copy.SubIndex, 0x12345U);
    QCOMPARE(copy.Bitlen, 12);
    QCOMPARE(QString::fromStdString(copy.Name), QStringLiteral("Value"));
    QCOMPARE(QString::fromStdString(copy.DataType), QStringLiteral("INT"));
    QCOMPARE(copy.Linkto, 7);
    QCOMPARE(copy.DefaultData, 8U);
    QCOMPARE(copy.Offs, 0.4F);
    QCOMPARE(copy.Attributes.Fixed, true);
}

void tst_Oversampling::pdoIndex_data()
{
    QTest::addColumn<int>("declared");
    QTest::addColumn<int>("first");
    QTest::addColumn<int>("last");
    QTest::addColumn<QVector<int>>("expected");
    QTest::addRow("by one per sample, whatever the step of the entries")
        << 0x1A00 << 1 << 3 << QVector<int>{0x1A00, 0x1A01, 0x1A02};
    QTest::addRow("wraps at the top") << 0xFFFF << 1 << 2 << QVector<int>{0xFFFF, 0};
    QTest::addRow("from sample 0: one below the declared one, after the others")
        << 0x1A00 << 0 << 1 << QVector<int>{0x1A00, 0x19FF};
    QTest::addRow("from sample 0, wraps at the bottom") << 0 << 0 << 1 << QVector<int>{0, 0xFFFF};
    QTest::addRow("from sample 2") << 0x1A00 << 2 << 3 << QVector<int>{0x1A01, 0x1A02};
}

void tst_Oversampling::pdoIndex()
{
    QFETCH(int, declared);
    QFETCH(int, first);
    QFETCH(int, last);
    QFETCH(QVector<int>, expected);
    struct_PDOList pdo = oversampledPdo("P", first, last);
    pdo.IndexAttributes.Index = static_cast<std::uint16_t>(declared);
    QVector<int> found;
    for (const struct_PDOList& copy : expanded({pdo}))
        found << copy.IndexAttributes.Index;
    QCOMPARE(found, expected);
}

void tst_Oversampling::entryIndex_data()
{
    QTest::addColumn<int>("declared");
    QTest::addColumn<int>("step");
    QTest::addColumn<int>("first");
    QTest::addColumn<int>("last");
    QTest::addColumn<QVector<int>>("expected");
    QTest::addRow("by the step per sample") << 0x6000 << 0x10 << 1 << 3 << QVector<int>{0x6000, 0x6010, 0x6020};
    QTest::addRow("wraps at the top") << 0xFFF8 << 0x10 << 1 << 2 << QVector<int>{0xFFF8, 8};
    QTest::addRow("only the low 16 bits of the step count")
        << 0x6000 << 0x50010 << 1 << 2 << QVector<int>{0x6000, 0x6010};
    QTest::addRow("a step of which the low 16 bits are 0")
        << 0x6000 << 0x10000 << 1 << 2 << QVector<int>{0x6000, 0x6000};
    // The low 16 bits of the greatest step are -1.
    QTest::addRow("greatest step") << 0x6000 << std::numeric_limits<int>::max() << 1 << 4
                                   << QVector<int>{0x6000, 0x5FFF, 0x5FFE, 0x5FFD};
    QTest::addRow("from sample 0: lowered by the step, after the others")
        << 0x6000 << 0x10 << 0 << 1 << QVector<int>{0x6000, 0x5FF0};
    QTest::addRow("from sample 0, wraps at the bottom") << 0 << 0x10 << 0 << 1 << QVector<int>{0, 0xFFF0};
    QTest::addRow("from sample 0, greatest step")
        << 0x6000 << std::numeric_limits<int>::max() << 0 << 1 << QVector<int>{0x6000, 0x6001};
}

void tst_Oversampling::entryIndex()
{
    QFETCH(int, declared);
    QFETCH(int, step);
    QFETCH(int, first);
    QFETCH(int, last);
    QFETCH(QVector<int>, expected);
    struct_PDOList pdo = oversampledPdo("P", first, last);
    pdo.Attributes.m_OSIndexInc = step;
    pdo.Entry.vPdo_c.resize(1);
    pdo.Entry.vPdo_c[0].Index = static_cast<std::uint16_t>(declared);
    QVector<int> found;
    for (const struct_PDOList& copy : expanded({pdo}))
        found << copy.Entry.vPdo_c.at(0).Index;
    QCOMPARE(found, expected);
}

void tst_Oversampling::syncManager_data()
{
    QTest::addColumn<int>("declared");
    QTest::addColumn<int>("first");
    QTest::addColumn<int>("last");
    QTest::addColumn<QVector<int>>("expected");
    QTest::addRow("nine samples are assigned") << 3 << 1 << 9 << QVector<int>(9, 3);
    QTest::addRow("the tenth and all later ones are not")
        << 3 << 1 << 12 << QVector<int>{3, 3, 3, 3, 3, 3, 3, 3, 3, -1, -1, -1};
    QTest::addRow("the number of the sample counts, not how many there are")
        << 3 << 8 << 11 << QVector<int>{3, 3, -1, -1};
    QTest::addRow("first sync manager") << 0 << 9 << 10 << QVector<int>{0, -1};
    QTest::addRow("unassigned") << -1 << 1 << 2 << QVector<int>{-1, -1};
}

void tst_Oversampling::syncManager()
{
    QFETCH(int, declared);
    QFETCH(int, first);
    QFETCH(int, last);
    QFETCH(QVector<int>, expected);
    struct_PDOList pdo = oversampledPdo("P", first, last);
    pdo.Attributes.SM = declared;
    QVector<int> found;
    for (const struct_PDOList& copy : expanded({pdo}))
        found << copy.Attributes.SM;
    QCOMPARE(found, expected);
}

void tst_Oversampling::bothDirections()
{
    struct_EtherCatDevice device;
    device.RxPdo.vpdo = {oversampledPdo("out", 1, 2)};
    device.TxPdo.vpdo = {plainPdo("status"), oversampledPdo("in", 1, 10)};
    device.TxPdo.vpdo[1].Attributes.SM = 3;
    expandOversampledPdos(device);
    QCOMPARE(namesOf(device.RxPdo.vpdo), (QStringList{"out 0", "out 1"}));
    QCOMPARE(namesOf(device.TxPdo.vpdo),
             (QStringList{"status", "in 0", "in 1", "in 2", "in 3", "in 4", "in 5", "in 6", "in 7", "in 8", "in 9"}));
    QCOMPARE(device.TxPdo.vpdo[9].Attributes.SM, 3);
    QCOMPARE(device.TxPdo.vpdo[10].Attributes.SM, -1);
}

void tst_Oversampling::modulePdosAreNotTouched()
{
    struct_EtherCatDevice device;
    modulePdo ofModule;
    ofModule.Name = "M";
    ofModule.indexAttributes.index = 0x1600;
    device.RxPdo.vpdo = {oversampledPdo("P", 1, 2)};
    device.mRxPdo.mpdo = {ofModule};
    expandOversampledPdos(device);
    QCOMPARE(device.mRxPdo.mpdo.size(), std::size_t{1});
    QCOMPARE(int{device.mRxPdo.mpdo[0].indexAttributes.index}, 0x1600);
    QVERIFY(device.mTxPdo.mpdo.empty());
}

static const testMain::Registration<tst_Oversampling, QCoreApplication> registration;
#include "tst_Oversampling.moc"
