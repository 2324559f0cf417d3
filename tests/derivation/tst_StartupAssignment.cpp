// Generated startup commands: the assignment of PDOs, of the device and of its modules, to sync managers.
#include "derivation/startupBuilders.h"
#include "testMain.h"

#include <QtTest>

#include <cstddef>
#include <vector>

class tst_StartupAssignment : public QObject
{
    Q_OBJECT

private slots:
    static void singleCommands_data();
    static void singleCommands();
    static void completeAccess_data();
    static void completeAccess();
    static void fixedPdos();
    static void whatBelongs_data();
    static void whatBelongs();
    static void syncManagers_data();
    static void syncManagers();
    static void afterTheMappings();
    static void manyPdos_data();
    static void manyPdos();
    static void manyPdosAtOnce_data();
    static void manyPdosAtOnce();
};

namespace {

/// A PDO of each list on the same sync manager, against the order of the lists.
const QStringList onePdoOfEachList{"mTx 1b01 @2 fixed", "Tx 1a01 @2", "mRx 1701 @2", "Rx 1601 @2"};

/// The commands that assign one PDO each to sync manager 2, and set their count.
QStringList singleAssignments(const QStringList& indexes)
{
    QStringList lines;
    for (const QString& index : indexes)
        lines << QStringLiteral("PS 1c12:%1 2B %2 '0x%2' download pdo 0x1c12 index").arg(lines.size() + 1).arg(index);
    if (!indexes.isEmpty())
        lines << QStringLiteral("PS 1c12:0 1B %1 '0x%1 ' download pdo 0x1c12  count").arg(indexes.size());
    return lines;
}

struct_EtherCatDevice withManyPdos(const char* flags, int count)
{
    struct_EtherCatDevice device = deviceFrom({flags, "SM 2 outputs"});
    device.RxPdo.vpdo.assign(static_cast<std::size_t>(count), pdoFrom<struct_PDOList>("1600 @2"));
    return withStartup(device);
}

} // namespace

void tst_StartupAssignment::singleCommands_data()
{
    QTest::addColumn<QStringList>("pdos");
    QTest::addColumn<QStringList>("expected");
    QTest::addRow("no PDOs: nothing") << QStringList{} << QStringList{};
    QTest::addRow("one output PDO: nothing for the inputs")
        << QStringList{"Rx 1600 @2"}
        << QStringList{"PS 1c12:1 2B 1600 '0x1600' download pdo 0x1c12 index",
                       "PS 1c12:0 1B 1 '0x1 ' download pdo 0x1c12  count"};
    QTest::addRow("index 0") << QStringList{"Rx 0 @2"}
                             << QStringList{"PS 1c12:1 2B 0 '0x00' download pdo 0x1c12 index",
                                            "PS 1c12:0 1B 1 '0x1 ' download pdo 0x1c12  count"};
    QTest::addRow("each sync manager is completed before the next one")
        << QStringList{"Tx 1a00 @3", "Rx 1600 @2", "Rx 1601 @2"}
        << QStringList{"PS 1c12:1 2B 1600 '0x1600' download pdo 0x1c12 index",
                       "PS 1c12:2 2B 1601 '0x1601' download pdo 0x1c12 index",
                       "PS 1c12:0 1B 2 '0x2 ' download pdo 0x1c12  count",
                       "PS 1c13:1 2B 1a00 '0x1a00' download pdo 0x1c13 index",
                       "PS 1c13:0 1B 1 '0x1 ' download pdo 0x1c13  count"};
    QTest::addRow("order of the lists") << onePdoOfEachList
                                        << QStringList{"PS 1c12:1 2B 1601 '0x1601' download pdo 0x1c12 index",
                                                       "PS 1c12:2 2B 1701 '0x1701' download pdo 0x1c12 index",
                                                       "PS 1c12:3 2B 1a01 '0x1a01' download pdo 0x1c12 index",
                                                       "PS 1c12:4 2B 1b01 '0x1b01' download pdo 0x1c12 index",
                                                       "PS 1c12:0 1B 4 '0x4 ' download pdo 0x1c12  count"};
    QTest::addRow("a module's PDO alone") << QStringList{"mTx 1a00 @3"}
                                          << QStringList{"PS 1c13:1 2B 1a00 '0x1a00' download pdo 0x1c13 index",
                                                         "PS 1c13:0 1B 1 '0x1 ' download pdo 0x1c13  count"};
    QTest::addRow("output PDO on the inputs") << QStringList{"Rx 1600 @3"}
                                              << QStringList{"PS 1c13:1 2B 1600 '0x1600' download pdo 0x1c13 index",
                                                             "PS 1c13:0 1B 1 '0x1 ' download pdo 0x1c13  count"};
}

void tst_StartupAssignment::singleCommands()
{
    QFETCH(QStringList, pdos);
    QFETCH(QStringList, expected);
    const struct_EtherCatDevice device = withStartup(deviceFrom(usualDevice("assign", pdos)));
    QCOMPARE(moduleLines(device), expected);
}

void tst_StartupAssignment::completeAccess_data()
{
    QTest::addColumn<QStringList>("pdos");
    QTest::addColumn<QStringList>("expected");
    const QString noOutputs = QStringLiteral("PS 1c12:0 0B 0 CA1{} '0x00 ' download mpdo 0x1c12 entries");
    const QString noInputs = QStringLiteral("PS 1c13:0 0B 0 CA1{} '0x00 ' download mpdo 0x1c13 entries");
    QTest::addRow("no PDOs: an empty list each") << QStringList{} << QStringList{noOutputs, noInputs};
    QTest::addRow("four bytes per PDO")
        << QStringList{"Rx 1600 @2", "Rx 1601 @2"}
        << QStringList{"PS 1c12:0 8B 0 CA1{1600,1601} '0x2 0x1600 0x1601 ' download mpdo 0x1c12 entries", noInputs};
    QTest::addRow("order of the lists, a fixed PDO left out")
        << onePdoOfEachList
        << QStringList{"PS 1c12:0 12B 0 CA1{1601,1701,1a01} '0x3 0x1601 0x1701 0x1a01 ' download mpdo 0x1c12 entries",
                       noInputs};
    QTest::addRow("fixed PDOs only: as without PDOs")
        << QStringList{"Rx 1600 @2 fixed", "mRx 1601 @2 fixed"} << QStringList{noOutputs, noInputs};
    QTest::addRow("entries play no part")
        << QStringList{"Tx 1a00 @3 6000:1:16", "mTx 1a01 @3 6000:1:1"}
        << QStringList{noOutputs, "PS 1c13:0 8B 0 CA1{1a00,1a01} '0x2 0x1a00 0x1a01 ' download mpdo 0x1c13 entries"};
    QTest::addRow("index 0") << QStringList{
        "Tx 0 @3"} << QStringList{noOutputs, "PS 1c13:0 4B 0 CA1{0} '0x1 0x00 ' download mpdo 0x1c13 entries"};
}

void tst_StartupAssignment::completeAccess()
{
    QFETCH(QStringList, pdos);
    QFETCH(QStringList, expected);
    const struct_EtherCatDevice device = withStartup(deviceFrom(usualDevice("assign complete", pdos)));
    QCOMPARE(moduleLines(device), expected);
    QCOMPARE(deviceLines(device), QStringList());
}

void tst_StartupAssignment::fixedPdos()
{
    // Not mapped, yet assigned by single commands; left out by a complete access.
    const QStringList pdos{"Rx 1600 @2 fixed 7000:1:8", "mRx 1700 @2 fixed", "Tx 1a00 @2 fixed", "mTx 1b00 @2 fixed"};
    QCOMPARE(moduleLines(withStartup(deviceFrom(usualDevice("assign config", pdos)))),
             singleAssignments({"1600", "1700", "1a00", "1b00"}));
    QCOMPARE(moduleLines(withStartup(deviceFrom(usualDevice("assign config complete", pdos)))),
             (QStringList{"PS 1c12:0 0B 0 CA1{} '0x00 ' download mpdo 0x1c12 entries",
                          "PS 1c13:0 0B 0 CA1{} '0x00 ' download mpdo 0x1c13 entries"}));
}

void tst_StartupAssignment::whatBelongs_data()
{
    QTest::addColumn<QString>("syncManager");
    QTest::addColumn<int>("namedByPdo");
    QTest::addColumn<bool>("isAssigned");
    QTest::addRow("same number") << "2 outputs" << 2 << true;
    QTest::addRow("another number") << "2 outputs" << 3 << false;
    QTest::addRow("the number counts, not the position") << "7 outputs" << 0 << false;
    QTest::addRow("a number beyond the list") << "7 outputs" << 7 << true;
    QTest::addRow("number 0") << "0 outputs" << 0 << true;
    QTest::addRow("a PDO on none") << "0 outputs" << -1 << false;
    QTest::addRow("on none is not number 255") << "255 outputs" << -1 << false;
    QTest::addRow("greatest number") << "255 inputs" << 255 << true;
    QTest::addRow("all 32 bits are compared") << "2 outputs" << 65538 << false;
    QTest::addRow("not its low 8 bits") << "2 outputs" << 258 << false;
}

void tst_StartupAssignment::whatBelongs()
{
    QFETCH(QString, syncManager);
    QFETCH(int, namedByPdo);
    QFETCH(bool, isAssigned);
    for (const char* kind : {"Rx", "Tx", "mRx", "mTx"}) {
        const QString pdo = QStringLiteral("%1 1600 @%2").arg(kind).arg(namedByPdo);
        const struct_EtherCatDevice single =
            withStartup(deviceFrom({"flags assign", "SM " + syncManager, pdo})); // without mapping: no look-up
        QCOMPARE(moduleLines(single).size(), isAssigned ? 2 : 0);
        const struct_EtherCatDevice whole =
            withStartup(deviceFrom({"flags assign complete", "SM " + syncManager, pdo}));
        QCOMPARE(whole.mMailbox.COE.vinitcmd.at(0).m_CADataList.size(), std::size_t{isAssigned ? 1U : 0U});
    }
}

void tst_StartupAssignment::syncManagers_data()
{
    QTest::addColumn<QStringList>("managers");
    QTest::addColumn<QStringList>("assignObjects"); // of the commands that set a count
    // There is a PDO on each of the sync managers 0 to 3.
    QTest::addRow("outputs and inputs, no mailboxes")
        << QStringList{"SM 0 mailboxOut", "SM 1 mailboxIn", "SM 2 outputs", "SM 3 inputs"}
        << QStringList{"1c12", "1c13"};
    QTest::addRow("in the order of the list")
        << QStringList{"SM 3 outputs", "SM 0 inputs"} << QStringList{"1c13", "1c10"};
    QTest::addRow("no other direction") << QStringList{"SM 0 0", "SM 1 5", "SM 2 6", "SM 3 7"} << QStringList{};
    QTest::addRow("no virtual one") << QStringList{"SM 2 outputs virtual", "SM 3 inputs"} << QStringList{"1c13"};
    QTest::addRow("the same number twice") << QStringList{"SM 2 outputs", "SM 2 inputs"} << QStringList{"1c12", "1c12"};
    QTest::addRow("none") << QStringList{} << QStringList{};
}

void tst_StartupAssignment::syncManagers()
{
    QFETCH(QStringList, managers);
    QFETCH(QStringList, assignObjects);
    const QStringList pdos{"Rx 1600 @0", "mRx 1601 @1", "Tx 1602 @2", "mTx 1603 @3"};
    for (const char* flags : {"flags assign", "flags assign complete"}) {
        QStringList found;
        for (const struct_moduleInitCmd& command :
             withStartup(deviceFrom(QStringList{flags} + managers + pdos)).mMailbox.COE.vinitcmd)
            if (command.SubIndex == 0)
                found << QString::number(command.indexAttributes.index, 16);
        QCOMPARE(found, assignObjects);
    }
    // A flag less, and there is no assignment.
    QCOMPARE(moduleLines(withStartup(deviceFrom(QStringList{"flags complete"} + managers + pdos))), QStringList());
}

void tst_StartupAssignment::afterTheMappings()
{
    const struct_EtherCatDevice device =
        withStartup(deviceFrom(usualDevice("assign config", {"Rx 1600 @2", "mRx 1601 @2", "mTx 1a00 @3"})));
    QCOMPARE(moduleLines(device), (QStringList{"PS 1601:0 1B 0 '0x00 ' download mpdo 0x1601 entries",
                                               "PS 1a00:0 1B 0 '0x00 ' download mpdo 0x1a00 entries",
                                               "PS 1c12:1 2B 1600 '0x1600' download pdo 0x1c12 index",
                                               "PS 1c12:2 2B 1601 '0x1601' download pdo 0x1c12 index",
                                               "PS 1c12:0 1B 2 '0x2 ' download pdo 0x1c12  count",
                                               "PS 1c13:1 2B 1a00 '0x1a00' download pdo 0x1c13 index",
                                               "PS 1c13:0 1B 1 '0x1 ' download pdo 0x1c13  count"}));
}

void tst_StartupAssignment::manyPdos_data()
{
    QTest::addColumn<int>("pdoCount");
    QTest::addColumn<int>("lastSubIndex");
    QTest::addColumn<QString>("count");
    QTest::addRow("sub-index beyond 8 bits") << 258 << 258 << "102";
    QTest::addRow("sub-index in 16 bits, the count in 32") << 65537 << 1 << "10001";
}

void tst_StartupAssignment::manyPdos()
{
    QFETCH(int, pdoCount);
    QFETCH(int, lastSubIndex);
    QFETCH(QString, count);
    const struct_EtherCatDevice device = withManyPdos("flags assign", pdoCount);
    const std::vector<struct_moduleInitCmd>& commands = device.mMailbox.COE.vinitcmd;
    QCOMPARE(commands.size(), static_cast<std::size_t>(pdoCount) + 1);
    QCOMPARE(lineOf(commands[commands.size() - 2]),
             QStringLiteral("PS 1c12:%1 2B 1600 '0x1600' download pdo 0x1c12 index").arg(lastSubIndex));
    QCOMPARE(lineOf(commands.back()), QStringLiteral("PS 1c12:0 1B %1 '0x%1 ' download pdo 0x1c12  count").arg(count));
}

void tst_StartupAssignment::manyPdosAtOnce_data()
{
    QTest::addColumn<int>("pdoCount");
    QTest::addColumn<int>("dataBytes");
    QTest::addColumn<QString>("textStart");
    QTest::addRow("bytes in 16 bits") << 16385 << 4 << "0x4001 0x1600 ";
    QTest::addRow("the count in 32 bits") << 65537 << 4 << "0x10001 0x1600 ";
}

void tst_StartupAssignment::manyPdosAtOnce()
{
    QFETCH(int, pdoCount);
    QFETCH(int, dataBytes);
    QFETCH(QString, textStart);
    const struct_EtherCatDevice device = withManyPdos("flags assign complete", pdoCount);
    const struct_moduleInitCmd& command = device.mMailbox.COE.vinitcmd.at(0);
    QCOMPARE(int{command.DataBytes}, dataBytes);
    QCOMPARE(command.m_CADataList, std::vector<unsigned int>(static_cast<std::size_t>(pdoCount), 0x1600));
    const QString text = QString::fromStdString(command.strData);
    QVERIFY2(text.startsWith(textStart), qPrintable(text.left(40)));
    QCOMPARE(text.count(' '), pdoCount + 1);
}

static const testMain::Registration<tst_StartupAssignment, QCoreApplication> registration;
#include "tst_StartupAssignment.moc"
