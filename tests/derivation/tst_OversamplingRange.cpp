// Where the copies of an oversampled PDO are placed, and ranges that make no sense.
#include "derivation/oversampledPdo.h"
#include "testMain.h"

#include <QtTest>

#include <cstddef>
#include <limits>

class tst_OversamplingRange : public QObject
{
    Q_OBJECT

private slots:
    static void placing_data();
    static void placing();
    static void lowBitsOfTheFirstSample_data();
    static void lowBitsOfTheFirstSample();
    static void left_data();
    static void left();
    static void scanGoesOnAfterALeftOne();
    static void lastSamplesThatTheCounterReaches();
    static void greatestRange();
    static void listLongerThanThePosition();
    static void listThatOutgrowsThePosition();
};

namespace {

/// "P" is a plain PDO, "P:1:3" one with a range of samples.
std::vector<struct_PDOList> listFrom(const QString& text)
{
    std::vector<struct_PDOList> pdos;
    for (const QString& each : text.split(' ')) {
        const QStringList parts = each.split(':');
        const QByteArray name = parts.at(0).toUtf8();
        pdos.push_back(parts.size() == 1 ? plainPdo(name.constData())
                                         : oversampledPdo(name.constData(), parts.at(1).toInt(), parts.at(2).toInt()));
    }
    return pdos;
}

} // namespace

void tst_OversamplingRange::placing_data()
{
    QTest::addColumn<QString>("pdos");
    QTest::addColumn<QStringList>("expected");
    QTest::addRow("nothing to expand") << "A B C" << QStringList{"A", "B", "C"};
    QTest::addRow("alone") << "P:1:3" << QStringList{"P 0", "P 1", "P 2"};
    QTest::addRow("first: the others move back") << "P:1:3 A B" << QStringList{"P 0", "P 1", "P 2", "A", "B"};
    QTest::addRow("in the middle") << "A P:1:2 B" << QStringList{"A", "P 0", "P 1", "B"};
    QTest::addRow("last") << "A B P:1:2" << QStringList{"A", "B", "P 0", "P 1"};
    QTest::addRow("one sample") << "A P:1:1 B" << QStringList{"A", "P 0", "B"};
    QTest::addRow("several, side by side and apart")
        << "P:1:2 Q:1:2 A R:1:3" << QStringList{"P 0", "P 1", "Q 0", "Q 1", "A", "R 0", "R 1", "R 2"};

    QTest::addRow("from 0: sample 1 is inserted before sample 0") << "P:0:1 A" << QStringList{"P 0", "P -1", "A"};
    QTest::addRow("from 0: later samples are inserted before sample 0 too")
        << "P:0:2 A" << QStringList{"P 0", "P 1", "P -1", "A"};
    QTest::addRow("from 0, not first in the list") << "A P:0:2 B" << QStringList{"A", "P 0", "P 1", "P -1", "B"};

    QTest::addRow("from 2: later samples leave a gap for others")
        << "P:2:4 A B" << QStringList{"P 1", "A", "P 2", "P 3", "B"};
    QTest::addRow("from 2, not first in the list") << "A P:2:3 B C" << QStringList{"A", "P 1", "B", "P 2", "C"};
    QTest::addRow("from 2, insert positions past the end mean the end") << "P:2:4" << QStringList{"P 1", "P 2", "P 3"};
    QTest::addRow("from 5, the gap reaches past the end") << "P:5:6 A B" << QStringList{"P 4", "A", "B", "P 5"};
    QTest::addRow("an oversampled PDO in the gap is expanded too")
        << "P:2:3 Q:1:2" << QStringList{"P 1", "Q 0", "Q 1", "P 2"};
    QTest::addRow("from 2, one sample") << "A P:2:2 B" << QStringList{"A", "P 1", "B"};
}

void tst_OversamplingRange::placing()
{
    QFETCH(QString, pdos);
    QFETCH(QStringList, expected);
    QCOMPARE(namesOf(expanded(listFrom(pdos))), expected);
}

void tst_OversamplingRange::lowBitsOfTheFirstSample_data()
{
    QTest::addColumn<int>("first");
    QTest::addColumn<QStringList>("expected");
    QTest::addRow("65536 is 0") << 65536 << QStringList{"P 0", "P 1", "P -1"};
    QTest::addRow("65537 is 1, though it lies above the last sample") << 65537 << QStringList{"P 0", "P 1"};
    QTest::addRow("-65535 is 1") << -65535 << QStringList{"P 0", "P 1"};
    QTest::addRow("-65534 is 2") << -65534 << QStringList{"P 1"};
    QTest::addRow("-1 is 65535, which gives no copy") << -1 << QStringList{"P"};
    QTest::addRow("least number is 0") << std::numeric_limits<int>::min() << QStringList{"P 0", "P 1", "P -1"};
}

void tst_OversamplingRange::lowBitsOfTheFirstSample()
{
    QFETCH(int, first);
    QFETCH(QStringList, expected);
    QCOMPARE(namesOf(expanded({oversampledPdo("P", first, 2)})), expected);
}

void tst_OversamplingRange::left_data()
{
    QTest::addColumn<int>("first");
    QTest::addColumn<int>("last");
    QTest::addRow("first above last") << 2 << 1;
    QTest::addRow("far above") << 65535 << 65534;
    QTest::addRow("last 65535: a 16-bit counter never gets past it") << 1 << 65535;
    QTest::addRow("from 65535 to 65535") << 65535 << 65535;
    QTest::addRow("last 65536") << 1 << 65536;
    QTest::addRow("greatest last") << 0 << std::numeric_limits<int>::max();
}

void tst_OversamplingRange::left()
{
    QFETCH(int, first);
    QFETCH(int, last);
    struct_PDOList strange = oversampledPdo("P", first, last);
    strange.Attributes.SM = 3;
    strange.Size = 1.4F;
    strange.Entry.vPdo_c.resize(1);
    strange.Entry.vPdo_c[0].Index = 0x6000;

    for (const std::size_t position : {std::size_t{0}, std::size_t{1}}) {
        std::vector<struct_PDOList> pdos{plainPdo("A"), plainPdo("B")};
        pdos.at(position) = strange;
        pdos = expanded(pdos);
        QCOMPARE(pdos.size(), std::size_t{2});
        const struct_PDOList& pdo = pdos[position];
        QCOMPARE(QString::fromStdString(pdo.Name), QStringLiteral("P"));
        QCOMPARE(pdo.Attributes.SM, 3);
        QCOMPARE(pdo.Attributes.m_OSFac, 1);
        QCOMPARE(pdo.Attributes.m_OSMin, first);
        QCOMPARE(pdo.Attributes.m_OSMax, last);
        QCOMPARE(pdo.Attributes.m_OSIndexInc, 0x10);
        QCOMPARE(int{pdo.IndexAttributes.Index}, 0x1A00);
        QCOMPARE(pdo.Size, 1.4F);
        QCOMPARE(int{pdo.Entry.vPdo_c.at(0).Index}, 0x6000);
    }
}

void tst_OversamplingRange::scanGoesOnAfterALeftOne()
{
    const QStringList expected{"none", "P 0", "P 1", "endless", "Q 0", "Q 1", "none", "R 0"};
    QCOMPARE(namesOf(expanded(listFrom("none:2:1 P:1:2 endless:1:65535 Q:1:2 none:3:2 R:1:1"))), expected);
}

void tst_OversamplingRange::lastSamplesThatTheCounterReaches()
{
    struct_PDOList pdo = oversampledPdo("P", 65530, 65534);
    pdo.Entry.vPdo_c.resize(1);
    const std::vector<struct_PDOList> pdos = expanded({pdo, plainPdo("A")});
    QCOMPARE(namesOf(pdos), (QStringList{"P 65529", "A", "P 65530", "P 65531", "P 65532", "P 65533"}));
    // 65533 * 0x10 and 0x1A00 + 65533, in 16 bits.
    QCOMPARE(int{pdos.back().Entry.vPdo_c.at(0).Index}, 0xFFD0);
    QCOMPARE(int{pdos.back().IndexAttributes.Index}, 0x19FD);
    QCOMPARE(pdos.back().Attributes.SM, -1);
}

void tst_OversamplingRange::greatestRange()
{
    struct_PDOList pdo = oversampledPdo("P", 1, 65534);
    pdo.Entry.vPdo_c.resize(1);
    const std::vector<struct_PDOList> pdos = expanded({pdo, plainPdo("A")});
    QCOMPARE(pdos.size(), std::size_t{65535});
    QCOMPARE(QString::fromStdString(pdos[0].Name), QStringLiteral("P 0"));
    QCOMPARE(QString::fromStdString(pdos[65533].Name), QStringLiteral("P 65533"));
    QCOMPARE(QString::fromStdString(pdos[65534].Name), QStringLiteral("A"));
}

void tst_OversamplingRange::listLongerThanThePosition()
{
    // The scan has a 16-bit position; it has to end all the same, and a list without oversampling stays as it is.
    constexpr std::size_t count = 65540;
    std::vector<struct_PDOList> pdos(count);
    pdos.front().Name = "first";
    pdos.back().Name = "last";
    pdos = expanded(pdos);
    QCOMPARE(pdos.size(), count);
    QCOMPARE(QString::fromStdString(pdos.front().Name), QStringLiteral("first"));
    QCOMPARE(QString::fromStdString(pdos.back().Name), QStringLiteral("last"));
}

void tst_OversamplingRange::listThatOutgrowsThePosition()
{
    const std::vector<struct_PDOList> pdos = expanded(listFrom("P:1:40000 Q:1:40000"));
    QCOMPARE(pdos.size(), std::size_t{80000});
    QCOMPARE(QString::fromStdString(pdos[39999].Name), QStringLiteral("P 39999"));
    QCOMPARE(QString::fromStdString(pdos[40000].Name), QStringLiteral("Q 0"));
    QCOMPARE(QString::fromStdString(pdos[79999].Name), QStringLiteral("Q 39999"));
}

static const testMain::Registration<tst_OversamplingRange, QCoreApplication> registration;
#include "tst_OversamplingRange.moc"
