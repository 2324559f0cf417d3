// Generated startup commands: clearing of the assign objects, and the mapping of device and module PDOs.
#include "derivation/startupBuilders.h"
#include "testMain.h"

#include <QtTest>

#include <cstddef>
#include <cstdint>
#include <vector>

class tst_StartupCommands : public QObject
{
    Q_OBJECT

private slots:
    static void clearedAssignments_data();
    static void clearedAssignments();
    static void deviceMapping_data();
    static void deviceMapping();
    static void moduleMapping_data();
    static void moduleMapping();
    static void wholeMappingOfModules_data();
    static void wholeMappingOfModules();
    static void longEntry_data();
    static void longEntry();
    static void unmappedPdos_data();
    static void unmappedPdos();
    static void manyEntries_data();
    static void manyEntries();
    static void manyEntriesAtOnce_data();
    static void manyEntriesAtOnce();
};

namespace {

const QString outputsCleared = QStringLiteral("PS 1c12:0 1B 0 '0x00 ' clear pdo 0x1c12 entry");
const QString inputsCleared = QStringLiteral("PS 1c13:0 1B 0 '0x00 ' clear pdo 0x1c13 entry");

/// A device with one output PDO, its own or a module's, that has entries 7000:00 of 8 bits.
template<typename Pdo> Pdo pdoWithEntries(int count)
{
    Pdo pdo = pdoFrom<Pdo>("1600");
    for (int number = 0; number < count; ++number)
        addEntry(pdo, 0x7000, 0, 8);
    return pdo;
}

/// Adds an output PDO to the device itself or to its modules, and generates the commands.
struct_EtherCatDevice withManyEntries(const char* flags, int count, bool ofModule)
{
    struct_EtherCatDevice device = deviceFrom(usualDevice(flags));
    if (ofModule)
        device.mRxPdo.mpdo.push_back(pdoWithEntries<modulePdo>(count));
    else
        device.RxPdo.vpdo.push_back(pdoWithEntries<struct_PDOList>(count));
    return withStartup(device);
}

} // namespace

void tst_StartupCommands::clearedAssignments_data()
{
    QTest::addColumn<QStringList>("device");
    QTest::addColumn<QStringList>("expected");
    QTest::addRow("outputs and inputs, no mailboxes")
        << usualDevice("assign") << QStringList{outputsCleared, inputsCleared};
    QTest::addRow("in the order of the list")
        << QStringList{"flags assign", "SM 3 inputs", "SM 2 outputs"} << QStringList{inputsCleared, outputsCleared};
    QTest::addRow("the number counts, not the position")
        << QStringList{"flags assign", "SM 11 outputs"} << QStringList{"PS 1c1b:0 1B 0 '0x00 ' clear pdo 0x1c1b entry"};
    QTest::addRow("greatest number") << QStringList{"flags assign", "SM 255 inputs"}
                                     << QStringList{"PS 1d0f:0 1B 0 '0x00 ' clear pdo 0x1d0f entry"};
    QTest::addRow("no other direction") << QStringList{"flags assign", "SM 2 0", "SM 2 5", "SM 2 6", "SM 2 7"}
                                        << QStringList{};
    QTest::addRow("no virtual one") << QStringList{"flags assign", "SM 2 outputs virtual", "SM 3 inputs"}
                                    << QStringList{inputsCleared};
    QTest::addRow("a complete access needs no clearing") << usualDevice("assign complete") << QStringList{};
    QTest::addRow("without PdoAssign") << usualDevice("config") << QStringList{};
    QTest::addRow("PDOs or not") << usualDevice("assign", {"Rx 1600 @2 7000:1:16"})
                                 << QStringList{outputsCleared, inputsCleared};
    QTest::addRow("with mapping: ahead of it")
        << usualDevice("assign config", {"Rx 1600 @2"})
        << QStringList{outputsCleared, inputsCleared, "PS 1600:0 1B 0 '0x00 ' download pdo 0x1600 entries"};
}

void tst_StartupCommands::clearedAssignments()
{
    QFETCH(QStringList, device);
    QFETCH(QStringList, expected);
    QCOMPARE(deviceLines(withStartup(deviceFrom(device))), expected);
}

void tst_StartupCommands::deviceMapping_data()
{
    QTest::addColumn<QString>("flags");
    QTest::addColumn<QStringList>("pdos");
    QTest::addColumn<QStringList>("expected");
    const QString empty = QStringLiteral("PS 1600:0 1B 0 '0x00 ' download pdo 0x1600 entries");

    QTest::addRow("no entries") << "config" << QStringList{"Rx 1600 @2"} << QStringList{empty};
    QTest::addRow("no entries, complete access")
        << "config complete" << QStringList{"Rx 1600 @2"} << QStringList{empty};
    QTest::addRow("single commands") << "config" << QStringList{"Rx 1aFf @2 7040:1:16 7041:0a:8"}
                                     << QStringList{"PS 1aff:0 1B 0 '0x00 ' clear pdo 0x1aff entry",
                                                    "PS 1aff:1 4B 70400110 '0x70400110' download pdo 0x1aff entry",
                                                    "PS 1aff:2 4B 70410a08 '0x70410a08' download pdo 0x1aff entry",
                                                    "PS 1aff:0 1B 2 '0x2 ' download pdo 0x1aff entry count"};
    QTest::addRow("complete access") << "config complete" << QStringList{"Rx 1600 @2 7040:1:16 7041:0a:8"}
                                     << QStringList{"PS 1600:0 8B 0 CA1{70400110,70410a08} "
                                                    "'0x2 0x70400110 0x70410a08 ' download pdo 0x1600 entries"};
    QTest::addRow("a gap gives its length") << "config" << QStringList{"Tx 1a00 @3 0:0:12"}
                                            << QStringList{"PS 1a00:0 1B 0 '0x00 ' clear pdo 0x1a00 entry",
                                                           "PS 1a00:1 4B c '0xc' download pdo 0x1a00 entry",
                                                           "PS 1a00:0 1B 1 '0x1 ' download pdo 0x1a00 entry count"};
    QTest::addRow("an entry of nothing") << "config complete" << QStringList{"Tx 1a00 @3 0:0:0"}
                                         << QStringList{
                                                "PS 1a00:0 4B 0 CA1{0} '0x1 0x00 ' download pdo 0x1a00 entries"};
    QTest::addRow("output PDOs, then input PDOs, each in order")
        << "config" << QStringList{"Tx 1a01 @3", "Rx 1601 @2", "Tx 1a00 @3", "Rx 1600 @2"}
        << QStringList{"PS 1601:0 1B 0 '0x00 ' download pdo 0x1601 entries",
                       "PS 1600:0 1B 0 '0x00 ' download pdo 0x1600 entries",
                       "PS 1a01:0 1B 0 '0x00 ' download pdo 0x1a01 entries",
                       "PS 1a00:0 1B 0 '0x00 ' download pdo 0x1a00 entries"};
    QTest::addRow("input PDOs count four bytes per entry too")
        << "config complete" << QStringList{"Tx 1a00 @3 6040:1:1 6040:2:64"}
        << QStringList{"PS 1a00:0 8B 0 CA1{60400101,60400240} '0x2 0x60400101 0x60400240 ' download pdo 0x1a00 "
                       "entries"};
    QTest::addRow("without PdoConfig") << "" << QStringList{"Rx 1600 @2 7040:1:16", "Tx 1a00 @3"} << QStringList{};
    QTest::addRow("complete access without PdoConfig")
        << "complete" << QStringList{"Rx 1600 @2 7040:1:16"} << QStringList{};
}

void tst_StartupCommands::deviceMapping()
{
    QFETCH(QString, flags);
    QFETCH(QStringList, pdos);
    QFETCH(QStringList, expected);
    const struct_EtherCatDevice device = withStartup(deviceFrom(usualDevice(flags, pdos)));
    QCOMPARE(deviceLines(device), expected);
    QCOMPARE(moduleLines(device), QStringList());
}

void tst_StartupCommands::moduleMapping_data()
{
    QTest::addColumn<QString>("flags");
    QTest::addColumn<QStringList>("pdos");
    QTest::addColumn<QStringList>("expected");
    const QString empty = QStringLiteral("PS 1600:0 1B 0 '0x00 ' download mpdo 0x1600 entries");

    QTest::addRow("no entries") << "config" << QStringList{"mRx 1600 @2"} << QStringList{empty};
    QTest::addRow("no entries, complete access")
        << "config complete" << QStringList{"mRx 1600 @2"} << QStringList{empty};
    QTest::addRow("single commands, outputs")
        << "config" << QStringList{"mRx 1600 @2 7040:1:16 7041:0a:8"}
        << QStringList{"PS 1600:0 1B 0 '0x00 ' clear mpdo 0x1600 entry",
                       "PS 1600:1 4B 70400110 '0x70400110' download mpdo 0x1600 entry",
                       "PS 1600:2 4B 70410a08 '0x70410a08' download mpdo 0x1600 entry",
                       "PS 1600:0 1B 2 '0x2 ' download mpdo 0x1600 entry count"};
    QTest::addRow("single commands, inputs: four bytes for any length")
        << "config" << QStringList{"mTx 1a00 @3 6000:1:1"}
        << QStringList{"PS 1a00:0 1B 0 '0x00 ' clear mpdo 0x1a00 entry",
                       "PS 1a00:1 4B 60000101 '0x60000101' download mpdo 0x1a00 entry",
                       "PS 1a00:0 1B 1 '0x1 ' download mpdo 0x1a00 entry count"};
    QTest::addRow("output PDOs, then input PDOs, each in order")
        << "config" << QStringList{"mTx 1a01 @3", "mRx 1601 @2", "mTx 1a00 @3", "mRx 1600 @2"}
        << QStringList{"PS 1601:0 1B 0 '0x00 ' download mpdo 0x1601 entries",
                       "PS 1600:0 1B 0 '0x00 ' download mpdo 0x1600 entries",
                       "PS 1a01:0 1B 0 '0x00 ' download mpdo 0x1a01 entries",
                       "PS 1a00:0 1B 0 '0x00 ' download mpdo 0x1a00 entries"};
    QTest::addRow("without PdoConfig") << "complete" << QStringList{"mRx 1600 @2 7040:1:16", "mTx 1a00 @3"}
                                       << QStringList{};
}

void tst_StartupCommands::moduleMapping()
{
    QFETCH(QString, flags);
    QFETCH(QStringList, pdos);
    QFETCH(QStringList, expected);
    const struct_EtherCatDevice device = withStartup(deviceFrom(usualDevice(flags, pdos)));
    QCOMPARE(moduleLines(device), expected);
    QCOMPARE(deviceLines(device), QStringList());
}

void tst_StartupCommands::wholeMappingOfModules_data()
{
    QTest::addColumn<QString>("pdo");
    QTest::addColumn<QString>("expected");
    QTest::addRow("outputs: four bytes per entry")
        << "mRx 1600 @2 7040:1:16 7041:2:1"
        << "PS 1600:0 8B 0 CA1{70400110,70410201} '0x2 0x70400110 0x70410201 ' download mpdo 0x1600 entries";
    QTest::addRow("inputs: the bytes of the data, an entry below a byte is none")
        << "mTx 1a00 @3 6040:1:16 6041:2:1"
        << "PS 1a00:0 2B 0 CA1{60400110,60410201} '0x2 0x60400110 0x60410201 ' download mpdo 0x1a00 entries";
    QTest::addRow("inputs: each entry is rounded by itself")
        << "mTx 1a00 @3 6040:1:12 6040:2:12"
        << "PS 1a00:0 2B 0 CA1{6040010c,6040020c} '0x2 0x6040010c 0x6040020c ' download mpdo 0x1a00 entries";
    QTest::addRow("inputs: bits only") << "mTx 1a00 @3 6040:1:7"
                                       << "PS 1a00:0 0B 0 CA1{60400107} '0x1 0x60400107 ' download mpdo 0x1a00 entries";
    // A length below 0 takes from the value: 60400100 - f and - 7. Its bytes are -1, in 16 bits 65535, and 0.
    QTest::addRow("inputs: a length below 0 is rounded toward 0")
        << "mTx 1a00 @3 6040:1:-15"
        << "PS 1a00:0 65535B 0 CA1{604000f1} '0x1 0x604000f1 ' download mpdo 0x1a00 entries";
    QTest::addRow("inputs: a length little below 0")
        << "mTx 1a00 @3 6040:1:-7"
        << "PS 1a00:0 0B 0 CA1{604000f9} '0x1 0x604000f9 ' download mpdo 0x1a00 entries";
    // 524296 bits are 65537 bytes, in 16 bits 1. As a value 80008 is added: 0 + 6040'0000 + 0008'0008.
    QTest::addRow("inputs: bytes in 16 bits")
        << "mTx 1a00 @3 6040:0:524296"
        << "PS 1a00:0 1B 0 CA1{60480008} '0x1 0x60480008 ' download mpdo 0x1a00 entries";
}

void tst_StartupCommands::wholeMappingOfModules()
{
    QFETCH(QString, pdo);
    QFETCH(QString, expected);
    QCOMPARE(moduleLines(withStartup(deviceFrom(usualDevice("config complete", {pdo})))), QStringList{expected});
}

void tst_StartupCommands::longEntry_data()
{
    QTest::addColumn<QString>("entry");
    QTest::addColumn<QString>("expected");
    QTest::addRow("longest without a carry") << "7000:1:255"
                                             << "700001ff";
    QTest::addRow("256 bits carry into the sub-index") << "7000:1:256"
                                                       << "70000200";
    QTest::addRow("the sub-index may carry on") << "7000:ff:256"
                                                << "70010000";
    QTest::addRow("65536 bits carry into the index") << "7000:1:65536"
                                                     << "70010100";
    QTest::addRow("a sub-index above 255 carries into the index") << "7000:102:8"
                                                                  << "70010208";
    QTest::addRow("highest index") << "ffff:ff:32"
                                   << "ffffff20";
    QTest::addRow("the number wraps") << "ffff:ff:256"
                                      << "0";
    QTest::addRow("a length below 0 is taken off") << "7000:1:-1"
                                                   << "700000ff";
}

void tst_StartupCommands::longEntry()
{
    QFETCH(QString, entry);
    QFETCH(QString, expected);
    const std::uint32_t value = expected.toUInt(nullptr, 16);
    const struct_EtherCatDevice single =
        withStartup(deviceFrom(usualDevice("config", {"Rx 1600 @2 " + entry, "mRx 1600 @2 " + entry})));
    QCOMPARE(single.Mailbox.COE.InitCmd.vinitcmd.at(1).Data, value);
    QCOMPARE(single.mMailbox.COE.vinitcmd.at(1).Data, value);
    const struct_EtherCatDevice whole =
        withStartup(deviceFrom(usualDevice("config complete", {"Rx 1600 @2 " + entry, "mRx 1600 @2 " + entry})));
    QCOMPARE(whole.Mailbox.COE.InitCmd.vinitcmd.at(0).m_CADataList, std::vector<unsigned int>{value});
    QCOMPARE(whole.mMailbox.COE.vinitcmd.at(0).m_CADataList, std::vector<unsigned int>{value});
}

void tst_StartupCommands::unmappedPdos_data()
{
    QTest::addColumn<QStringList>("syncManagers");
    QTest::addColumn<QString>("pdo");
    QTest::addColumn<bool>("isMapped");
    const QStringList outputsVirtual{"SM 0 mailboxOut", "SM 1 outputs virtual", "SM 2 inputs"};
    QTest::addRow("fixed content") << outputsVirtual << "1600 @2 fixed" << false;
    QTest::addRow("fixed, with entries") << outputsVirtual << "1600 @2 fixed 7000:1:8" << false;
    QTest::addRow("on a virtual sync manager") << outputsVirtual << "1600 @1" << false;
    QTest::addRow("on another one") << outputsVirtual << "1600 @2" << true;
    QTest::addRow("on a mailbox") << outputsVirtual << "1600 @0" << true;
    QTest::addRow("on none") << outputsVirtual << "1600" << true;
    QTest::addRow("on none, fixed") << outputsVirtual << "1600 fixed" << false;
    QTest::addRow("any negative number is none") << outputsVirtual << "1600 @-65535" << true;
    QTest::addRow("on none, and there is none") << QStringList{} << "1600" << true;
    QTest::addRow("the position counts, not the number: virtual")
        << QStringList{"SM 7 outputs virtual", "SM 0 inputs"} << "1600 @0" << false;
    QTest::addRow("the position counts, not the number: not virtual")
        << QStringList{"SM 7 inputs", "SM 0 outputs virtual"} << "1600 @0" << true;
    QTest::addRow("the low 16 bits are the position: virtual") << outputsVirtual << "1600 @65537" << false;
    QTest::addRow("the low 16 bits are the position: not virtual") << outputsVirtual << "1600 @65538" << true;
}

void tst_StartupCommands::unmappedPdos()
{
    QFETCH(QStringList, syncManagers);
    QFETCH(QString, pdo);
    QFETCH(bool, isMapped);
    for (const char* flags : {"flags config", "flags config complete"})
        for (const QString kind : {"Rx ", "Tx ", "mRx ", "mTx "}) {
            const struct_EtherCatDevice device =
                withStartup(deviceFrom(QStringList{flags} + syncManagers + QStringList{kind + pdo}));
            const QStringList commands = deviceLines(device) + moduleLines(device);
            QVERIFY2(commands.size() == (isMapped ? 1 : 0), qPrintable(kind + commands.join('\n')));
        }
}

void tst_StartupCommands::manyEntries_data()
{
    QTest::addColumn<bool>("ofModule");
    QTest::addColumn<int>("entryCount");
    QTest::addColumn<int>("lastSubIndex");
    QTest::addColumn<QString>("countText");
    QTest::addRow("device, greatest sub-index") << false << 255 << 255 << "0xff ";
    QTest::addRow("device, sub-index in 8 bits") << false << 256 << 0 << "0x100 ";
    QTest::addRow("device, counting on") << false << 258 << 2 << "0x102 ";
    QTest::addRow("device, count in 16 bits") << false << 65539 << 3 << "0x3 ";
    QTest::addRow("device, count of 0 in 16 bits") << false << 65536 << 0 << "0x00 ";
    QTest::addRow("module, sub-index beyond 8 bits") << true << 258 << 258 << "0x102 ";
    QTest::addRow("module, greatest sub-index") << true << 65535 << 65535 << "0xffff ";
    QTest::addRow("module, sub-index and count in 16 bits") << true << 65539 << 3 << "0x3 ";
}

void tst_StartupCommands::manyEntries()
{
    QFETCH(bool, ofModule);
    QFETCH(int, entryCount);
    QFETCH(int, lastSubIndex);
    QFETCH(QString, countText);
    const struct_EtherCatDevice device = withManyEntries("config", entryCount, ofModule);
    const QString word = ofModule ? "mpdo" : "pdo";
    const QString number = countText.trimmed() == "0x00" ? QStringLiteral("0") : countText.trimmed().mid(2);
    const auto check = [&](const auto& commands) {
        QCOMPARE(commands.size(), static_cast<std::size_t>(entryCount) + 2);
        QCOMPARE(
            lineOf(commands[commands.size() - 2]),
            QStringLiteral("PS 1600:%1 4B 70000008 '0x70000008' download %2 0x1600 entry").arg(lastSubIndex).arg(word));
        QCOMPARE(lineOf(commands.back()),
                 QStringLiteral("PS 1600:0 1B %1 '%2' download %3 0x1600 entry count").arg(number, countText, word));
    };
    if (ofModule)
        check(device.mMailbox.COE.vinitcmd);
    else
        check(device.Mailbox.COE.InitCmd.vinitcmd);
}

void tst_StartupCommands::manyEntriesAtOnce_data()
{
    QTest::addColumn<bool>("ofModule");
    QTest::addColumn<int>("entryCount");
    QTest::addColumn<int>("dataBytes");
    QTest::addColumn<QString>("textStart");
    for (const bool ofModule : {false, true}) {
        const char* const kind = ofModule ? "module" : "device";
        QTest::addRow("%s, greatest count of bytes", kind) << ofModule << 16383 << 65532 << "0x3fff 0x70000008 ";
        QTest::addRow("%s, bytes in 16 bits", kind) << ofModule << 16386 << 8 << "0x4002 0x70000008 ";
        QTest::addRow("%s, count in 16 bits", kind) << ofModule << 65537 << 4 << "0x1 0x70000008 ";
    }
}

void tst_StartupCommands::manyEntriesAtOnce()
{
    QFETCH(bool, ofModule);
    QFETCH(int, entryCount);
    QFETCH(int, dataBytes);
    QFETCH(QString, textStart);
    const struct_EtherCatDevice device = withManyEntries("config complete", entryCount, ofModule);
    const auto check = [&](const auto& commands) {
        QCOMPARE(commands.size(), std::size_t{1});
        QCOMPARE(int{commands[0].DataBytes}, dataBytes);
        QCOMPARE(commands[0].m_CADataList, std::vector<unsigned int>(static_cast<std::size_t>(entryCount), 0x70000008));
        const QString text = QString::fromStdString(commands[0].strData);
        QVERIFY2(text.startsWith(textStart), qPrintable(text.left(40)));
        QCOMPARE(text.count(' '), entryCount + 1);
    };
    if (ofModule)
        check(device.mMailbox.COE.vinitcmd);
    else
        check(device.Mailbox.COE.InitCmd.vinitcmd);
}

static const testMain::Registration<tst_StartupCommands, QCoreApplication> registration;
#include "tst_StartupCommands.moc"
