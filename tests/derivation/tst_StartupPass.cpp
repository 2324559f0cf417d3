// The pass that generates startup commands as a whole: what decides, in which order, and how it fails.
#include "derivation/startupBuilders.h"
#include "testMain.h"

#include <QtTest>

#include <cstddef>
#include <cstdint>
#include <stdexcept>

class tst_StartupPass : public QObject
{
    Q_OBJECT

private slots:
    static void usualSequence();
    static void noFlags();
    static void assignmentAlone();
    static void completeAccessAlone();
    static void eoe_data();
    static void eoe();
    static void declaredCommandsStayAhead();
    static void deviceTypeDoesNotMatter_data();
    static void deviceTypeDoesNotMatter();
    static void pdosAndSyncManagersStay();
    static void unknownSyncManager_data();
    static void unknownSyncManager();
    static void unknownSyncManagerWithoutMapping();
    static void secondRunAppendsAgain();
};

namespace {

const QString eoeCommand = QStringLiteral("IP_PS 0:0 1B 0 ' ' eoeinit");

/// A device that gets a command of each phase: cleared, mapped, EoE, mapped for a module, assigned.
QStringList eachPhase()
{
    return {"flags assign config ip", "SM 0 outputs", "Rx 1600 @0", "mRx 1700 @0"};
}

} // namespace

void tst_StartupPass::usualSequence()
{
    const struct_EtherCatDevice device = withStartup(
        deviceFrom(usualDevice("assign config", {"Rx 1600 @2 7040:0:16 7041:1:32", "Tx 1a00 @3 6041:0:16"})));
    QCOMPARE(deviceLines(device), (QStringList{"PS 1c12:0 1B 0 '0x00 ' clear pdo 0x1c12 entry",
                                               "PS 1c13:0 1B 0 '0x00 ' clear pdo 0x1c13 entry",
                                               "PS 1600:0 1B 0 '0x00 ' clear pdo 0x1600 entry",
                                               "PS 1600:1 4B 70400010 '0x70400010' download pdo 0x1600 entry",
                                               "PS 1600:2 4B 70410120 '0x70410120' download pdo 0x1600 entry",
                                               "PS 1600:0 1B 2 '0x2 ' download pdo 0x1600 entry count",
                                               "PS 1a00:0 1B 0 '0x00 ' clear pdo 0x1a00 entry",
                                               "PS 1a00:1 4B 60410010 '0x60410010' download pdo 0x1a00 entry",
                                               "PS 1a00:0 1B 1 '0x1 ' download pdo 0x1a00 entry count"}));
    QCOMPARE(moduleLines(device), (QStringList{"PS 1c12:1 2B 1600 '0x1600' download pdo 0x1c12 index",
                                               "PS 1c12:0 1B 1 '0x1 ' download pdo 0x1c12  count",
                                               "PS 1c13:1 2B 1a00 '0x1a00' download pdo 0x1c13 index",
                                               "PS 1c13:0 1B 1 '0x1 ' download pdo 0x1c13  count"}));
    QCOMPARE(eoeLines(device), QStringList());
}

void tst_StartupPass::noFlags()
{
    for (const char* flags : {"", "complete"}) {
        struct_EtherCatDevice device =
            deviceFrom(usualDevice(flags, {"Rx 1600 @2 7040:0:16", "Tx 1a00 @3", "mRx 1700 @2", "mTx 1b00 @3"}));
        device.Mailbox.COE.InitCmd.vinitcmd = {declaredCommand("declared")};
        device = withStartup(device);
        QCOMPARE(deviceLines(device), QStringList{"IP 8000:0 0B 0 '' declared"});
        QCOMPARE(moduleLines(device), QStringList());
        QCOMPARE(eoeLines(device), QStringList());
    }
}

void tst_StartupPass::assignmentAlone()
{
    const struct_EtherCatDevice device =
        withStartup(deviceFrom({"flags assign", "SM 0 outputs", "Rx 1600 @0 7040:0:16", "mRx 1700 @0"}));
    QCOMPARE(deviceLines(device), QStringList{"PS 1c10:0 1B 0 '0x00 ' clear pdo 0x1c10 entry"});
    QCOMPARE(moduleLines(device), (QStringList{"PS 1c10:1 2B 1600 '0x1600' download pdo 0x1c10 index",
                                               "PS 1c10:2 2B 1700 '0x1700' download pdo 0x1c10 index",
                                               "PS 1c10:0 1B 2 '0x2 ' download pdo 0x1c10  count"}));
}

void tst_StartupPass::completeAccessAlone()
{
    // No clearing, one command per PDO, one per sync manager; a PDO without entries is no complete access.
    const struct_EtherCatDevice device = withStartup(deviceFrom(
        usualDevice("assign config complete", {"Rx 1600 @2 7040:0:16", "Rx 1601 @2", "mTx 1a00 @3 6000:1:16"})));
    QCOMPARE(deviceLines(device),
             (QStringList{"PS 1600:0 4B 0 CA1{70400010} '0x1 0x70400010 ' download pdo 0x1600 entries",
                          "PS 1601:0 1B 0 '0x00 ' download pdo 0x1601 entries"}));
    QCOMPARE(moduleLines(device),
             (QStringList{"PS 1a00:0 2B 0 CA1{60000110} '0x1 0x60000110 ' download mpdo 0x1a00 entries",
                          "PS 1c12:0 8B 0 CA1{1600,1601} '0x2 0x1600 0x1601 ' download mpdo 0x1c12 entries",
                          "PS 1c13:0 4B 0 CA1{1a00} '0x1 0x1a00 ' download mpdo 0x1c13 entries"}));
}

void tst_StartupPass::eoe_data()
{
    QTest::addColumn<QString>("flags");
    QTest::addColumn<int>("commandCount");
    QTest::addRow("address") << "ip" << 1;
    QTest::addRow("hardware address") << "mac" << 1;
    QTest::addRow("both: one command") << "ip mac" << 1;
    QTest::addRow("neither, whatever CoE has") << "assign config complete" << 0;
    QTest::addRow("with CoE flags") << "ip assign config complete" << 1;
}

void tst_StartupPass::eoe()
{
    QFETCH(QString, flags);
    QFETCH(int, commandCount);
    struct_EtherCatDevice device = deviceFrom({"flags " + flags});
    device.Mailbox.EOE.InitCmd.vinitcmd = {declaredCommand("declared")};
    QStringList expected{"IP 8000:0 0B 0 '' declared"};
    if (commandCount > 0)
        expected << eoeCommand;
    QCOMPARE(eoeLines(withStartup(device)), expected);
}

void tst_StartupPass::declaredCommandsStayAhead()
{
    struct_EtherCatDevice device = deviceFrom(eachPhase());
    // One of them is what will be generated; it is not looked at.
    struct_InitCmd same;
    same.Transition = PS;
    same.Index = 0x1C10;
    same.DataBytes = 1;
    same.Comment = "clear pdo 0x1c10 entry";
    same.strData = "0x00 ";
    device.Mailbox.COE.InitCmd.vinitcmd = {same, declaredCommand("last declared")};
    device.mMailbox.COE.vinitcmd = {declaredModuleCommand("of a module")};
    device = withStartup(device);
    QCOMPARE(deviceLines(device),
             (QStringList{"PS 1c10:0 1B 0 '0x00 ' clear pdo 0x1c10 entry", "IP 8000:0 0B 0 '' last declared",
                          "PS 1c10:0 1B 0 '0x00 ' clear pdo 0x1c10 entry",
                          "PS 1600:0 1B 0 '0x00 ' download pdo 0x1600 entries"}));
    QCOMPARE(moduleLines(device),
             (QStringList{"IP 8000:0 0B 0 '' of a module", "PS 1700:0 1B 0 '0x00 ' download mpdo 0x1700 entries",
                          "PS 1c10:1 2B 1600 '0x1600' download pdo 0x1c10 index",
                          "PS 1c10:2 2B 1700 '0x1700' download pdo 0x1c10 index",
                          "PS 1c10:0 1B 2 '0x2 ' download pdo 0x1c10  count"}));
}

void tst_StartupPass::deviceTypeDoesNotMatter_data()
{
    QTest::addColumn<int>("deviceType");
    for (const int deviceType : {0, 1, 2, 3, 4, 5, 6})
        QTest::addRow("type %d", deviceType) << deviceType;
}

void tst_StartupPass::deviceTypeDoesNotMatter()
{
    QFETCH(int, deviceType);
    struct_EtherCatDevice device = deviceFrom(eachPhase());
    device.m_iDeviceType = static_cast<std::uint16_t>(deviceType);
    device.m_iDriveAxies = 3;
    device.RxPdo.vpdo[0].Attributes.SU = 2;
    // A module's PDO that was moved to its slot has no trace of it in its commands.
    device.mRxPdo.mpdo[0].Instances = 4;
    device.mRxPdo.mpdo[0].indexAttributes.DependOnSlot = true;
    device.mRxPdo.mpdo[0].indexAttributes.DependOnSlotGroup = true;
    device = withStartup(device);
    QCOMPARE(deviceLines(device), (QStringList{"PS 1c10:0 1B 0 '0x00 ' clear pdo 0x1c10 entry",
                                               "PS 1600:0 1B 0 '0x00 ' download pdo 0x1600 entries"}));
    QCOMPARE(moduleLines(device), (QStringList{"PS 1700:0 1B 0 '0x00 ' download mpdo 0x1700 entries",
                                               "PS 1c10:1 2B 1600 '0x1600' download pdo 0x1c10 index",
                                               "PS 1c10:2 2B 1700 '0x1700' download pdo 0x1c10 index",
                                               "PS 1c10:0 1B 2 '0x2 ' download pdo 0x1c10  count"}));
    QCOMPARE(eoeLines(device), QStringList{eoeCommand});
}

void tst_StartupPass::pdosAndSyncManagersStay()
{
    const struct_EtherCatDevice device = withStartup(deviceFrom(eachPhase()));
    QCOMPARE(device.RxPdo.vpdo.size(), std::size_t{1});
    QCOMPARE(device.mRxPdo.mpdo.size(), std::size_t{1});
    QCOMPARE(int{device.mRxPdo.mpdo[0].indexAttributes.index}, 0x1700);
    QCOMPARE(device.vSM.size(), std::size_t{1});
    QCOMPARE(device.vSM[0].Length, 0.0F);
}

void tst_StartupPass::unknownSyncManager_data()
{
    QTest::addColumn<QString>("pdo");
    QTest::addColumn<int>("position");
    QTest::addColumn<QString>("counts"); // of device, EoE and module commands that are there when the pass ends
    // One sync manager, and an output PDO of the device ahead of the one that fails.
    QTest::addRow("output PDO") << "Rx 1601 @1" << 1 << "2 0 0";
    QTest::addRow("input PDO") << "Tx 1601 @1" << 1 << "2 0 0";
    QTest::addRow("module's output PDO: after the EoE command") << "mRx 1601 @1" << 1 << "2 1 0";
    QTest::addRow("module's input PDO: after its output PDOs") << "mTx 1601 @1" << 1 << "2 1 1";
    QTest::addRow("of fixed content") << "Rx 1601 @1 fixed" << 1 << "2 0 0";
    QTest::addRow("module's, of fixed content") << "mRx 1601 @1 fixed" << 1 << "2 1 0";
    QTest::addRow("far beyond") << "Rx 1601 @1000" << 1000 << "2 0 0";
    QTest::addRow("position in 16 bits") << "Rx 1601 @131071" << 65535 << "2 0 0";
}

void tst_StartupPass::unknownSyncManager()
{
    QFETCH(QString, pdo);
    QFETCH(int, position);
    QFETCH(QString, counts);
    QStringList lines = eachPhase();
    if (pdo.startsWith("mRx"))
        lines.insert(lines.size() - 1, pdo);
    else
        lines << pdo;
    struct_EtherCatDevice device = deviceFrom(lines);
    QString reason;
    try {
        generateStartup(device);
    } catch (const std::out_of_range& error) {
        reason = QString::fromLatin1(error.what());
    }
    QCOMPARE(reason,
             QStringLiteral("vector::_M_range_check: __n (which is %1) >= this->size() (which is 1)").arg(position));
    QCOMPARE(QStringLiteral("%1 %2 %3")
                 .arg(deviceLines(device).size())
                 .arg(eoeLines(device).size())
                 .arg(moduleLines(device).size()),
             counts);
}

void tst_StartupPass::unknownSyncManagerWithoutMapping()
{
    const struct_EtherCatDevice device = withStartup(
        deviceFrom({"flags assign", "SM 0 outputs", "Rx 1600 @9", "Tx 1a00 @9", "mRx 1700 @9", "mTx 1b00 @9"}));
    QCOMPARE(deviceLines(device), QStringList{"PS 1c10:0 1B 0 '0x00 ' clear pdo 0x1c10 entry"});
    QCOMPARE(moduleLines(device), QStringList());
}

void tst_StartupPass::secondRunAppendsAgain()
{
    const struct_EtherCatDevice once = withStartup(deviceFrom(eachPhase()));
    const struct_EtherCatDevice twice = withStartup(once);
    // The list of a module's commands is no input of the pass, so the second half is what the first one is.
    QCOMPARE(deviceLines(once).size(), 2);
    QCOMPARE(moduleLines(once).size(), 4);
    QCOMPARE(deviceLines(twice), deviceLines(once) + deviceLines(once));
    QCOMPARE(moduleLines(twice), moduleLines(once) + moduleLines(once));
    QCOMPARE(eoeLines(twice), (QStringList{eoeCommand, eoeCommand}));
}

static const testMain::Registration<tst_StartupPass, QCoreApplication> registration;
#include "tst_StartupPass.moc"
