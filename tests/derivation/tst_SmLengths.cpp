// The working lengths of the sync managers at load time.
#include "esi/derivation/smLengths.h"
#include "testMain.h"

#include <QtTest>

#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <vector>

class tst_SmLengths : public QObject
{
    Q_OBJECT

private slots:
    static void mailboxesGetTheirDefaultSize();
    static void lengths_data();
    static void lengths();
    static void lengthsAreSummedAsFloats();
    static void lengthsAccumulate();
    static void modulePdosAddNothing();
    static void positionCountsNotTheNumber();
    static void unknownSyncManager_data();
    static void unknownSyncManager();
};

namespace {

constexpr std::uint8_t outputs = 3;
constexpr std::uint8_t inputs = 4;

using Lengths = QVector<float>;

struct_SM syncManager(std::uint8_t type, std::uint16_t defaultSize)
{
    struct_SM made;
    made.Smtype = type;
    made.Attributes.DefaultSize = defaultSize;
    return made;
}

struct_PDOList pdo(int assignedTo, float size)
{
    struct_PDOList made;
    made.Attributes.SM = assignedTo;
    made.Size = size;
    return made;
}

/// A device with the usual four sync managers.
struct_EtherCatDevice usualDevice()
{
    struct_EtherCatDevice device;
    device.vSM = {syncManager(1, 128), syncManager(2, 64), syncManager(outputs, 6), syncManager(inputs, 8)};
    return device;
}

Lengths lengthsOf(const struct_EtherCatDevice& device)
{
    Lengths found;
    for (const struct_SM& each : device.vSM)
        found << each.Length;
    return found;
}

/// "manager:size manager:size ..." as PDOs.
std::vector<struct_PDOList> pdosFrom(const QString& text)
{
    std::vector<struct_PDOList> made;
    for (const QString& each : text.split(' ', Qt::SkipEmptyParts))
        made.push_back(pdo(each.section(':', 0, 0).toInt(), each.section(':', 1).toFloat()));
    return made;
}

} // namespace

void tst_SmLengths::mailboxesGetTheirDefaultSize()
{
    struct_EtherCatDevice device = usualDevice();
    computeLengths(device);
    // The default sizes of outputs and inputs, 6 and 8, are not added.
    QCOMPARE(lengthsOf(device), (Lengths{128.0F, 64.0F, 0.0F, 0.0F}));
}

void tst_SmLengths::lengths_data()
{
    QTest::addColumn<QString>("rx");
    QTest::addColumn<QString>("tx");
    QTest::addColumn<Lengths>("expected");
    QTest::addRow("no PDOs") << ""
                             << "" << Lengths{128.0F, 64.0F, 0.0F, 0.0F};
    QTest::addRow("one PDO of 12 bits each way") << "2:1.4"
                                                 << "3:1.4" << Lengths{128.0F, 64.0F, 1.4F, 1.4F};
    QTest::addRow("no carry from the tenths") << "2:1.4 2:1.4"
                                              << "" << Lengths{128.0F, 64.0F, 2.8F, 0.0F};
    QTest::addRow("a PDO in no sync manager") << "-1:4"
                                              << "-5:4" << Lengths{128.0F, 64.0F, 0.0F, 0.0F};
    QTest::addRow("the direction does not matter, the number does") << "3:2"
                                                                    << "2:5" << Lengths{128.0F, 64.0F, 5.0F, 2.0F};
    QTest::addRow("both directions on one sync manager") << "2:2"
                                                         << "2:5" << Lengths{128.0F, 64.0F, 7.0F, 0.0F};
    QTest::addRow("on a mailbox: on top of its default size") << "0:2"
                                                              << "" << Lengths{130.0F, 64.0F, 0.0F, 0.0F};
}

void tst_SmLengths::lengths()
{
    QFETCH(QString, rx);
    QFETCH(QString, tx);
    QFETCH(Lengths, expected);
    struct_EtherCatDevice device = usualDevice();
    device.RxPdo.vpdo = pdosFrom(rx);
    device.TxPdo.vpdo = pdosFrom(tx);
    computeLengths(device);
    QCOMPARE(lengthsOf(device), expected);
}

void tst_SmLengths::lengthsAreSummedAsFloats()
{
    // Ten times 0.1 is not 1 in a float that is rounded after each addition: it is the next float above 1.
    struct_EtherCatDevice device = usualDevice();
    device.TxPdo.vpdo.assign(10, pdo(3, 0.1F));
    computeLengths(device);
    const float length = device.vSM[3].Length;
    QVERIFY2(length == 1.00000012F, qPrintable(QString::number(static_cast<double>(length), 'g', 9)));
}

void tst_SmLengths::lengthsAccumulate()
{
    struct_EtherCatDevice device = usualDevice();
    device.RxPdo.vpdo = {pdo(2, 6.0F)};
    computeLengths(device);
    computeLengths(device);
    QCOMPARE(lengthsOf(device), (Lengths{256.0F, 128.0F, 12.0F, 0.0F}));
}

void tst_SmLengths::modulePdosAddNothing()
{
    struct_EtherCatDevice device = usualDevice();
    modulePdo ofModule;
    ofModule.Attributes.SM = 2;
    ofModule.size = 6.0F;
    device.mRxPdo.mpdo = {ofModule};
    ofModule.Attributes.SM = 99; // no such sync manager, and it is not looked up
    device.mTxPdo.mpdo = {ofModule};
    computeLengths(device);
    QCOMPARE(lengthsOf(device), (Lengths{128.0F, 64.0F, 0.0F, 0.0F}));
}

void tst_SmLengths::positionCountsNotTheNumber()
{
    struct_EtherCatDevice device = usualDevice();
    device.vSM[2].SM = 3;
    device.vSM[3].SM = 2;
    device.RxPdo.vpdo = {pdo(2, 6.0F)};
    computeLengths(device);
    QCOMPARE(device.vSM[2].Length, 6.0F);
}

void tst_SmLengths::unknownSyncManager_data()
{
    QTest::addColumn<QString>("rx");
    QTest::addColumn<QString>("tx");
    QTest::addColumn<Lengths>("expected"); // what was added up to then stays
    QTest::addRow("output PDO") << "2:6 4:1 2:1"
                                << "3:1" << Lengths{128.0F, 64.0F, 6.0F, 0.0F};
    QTest::addRow("input PDO") << "2:6"
                               << "3:5 1000:1" << Lengths{128.0F, 64.0F, 6.0F, 5.0F};
}

void tst_SmLengths::unknownSyncManager()
{
    QFETCH(QString, rx);
    QFETCH(QString, tx);
    QFETCH(Lengths, expected);
    struct_EtherCatDevice device = usualDevice();
    device.RxPdo.vpdo = pdosFrom(rx);
    device.TxPdo.vpdo = pdosFrom(tx);
    const int position = rx.contains("4:") ? 4 : 1000;
    QString reason;
    try {
        computeLengths(device);
    } catch (const std::out_of_range& error) {
        reason = QString::fromLatin1(error.what());
    }
    QCOMPARE(reason,
             QStringLiteral("vector::_M_range_check: __n (which is %1) >= this->size() (which is 4)").arg(position));
    QCOMPARE(lengthsOf(device), expected);
}

static const testMain::Registration<tst_SmLengths, QCoreApplication> registration;
#include "tst_SmLengths.moc"
