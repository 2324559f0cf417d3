// Which row of the startup list is which command, and the changes of that list.
#include "editing/startupRows.h" // first, so that the header compiles on its own

#include "model/startupAccess.h"
#include "testMain.h"

#include <QtTest>

#include <cstdint>
#include <vector>

class tst_StartupRows : public QObject
{
    Q_OBJECT

private slots:
    static void listsInTheirOrder();
    static void commandOfRow_data();
    static void commandOfRow();
    static void countsHaveSixteenBits();
    static void rowsHaveSixteenBits();
    static void insert_data();
    static void insert();
    static void insertedCommandIsEmpty_data();
    static void insertedCommandIsEmpty();
    static void erase_data();
    static void erase();
    static void eraseAll();
};

namespace {

template<typename Command> std::vector<Command> commandsWith(const QString& indexes)
{
    std::vector<Command> commands;
    for (const QString& index : indexes.split(' ', Qt::SkipEmptyParts)) {
        commands.emplace_back();
        indexOf(commands.back()) = index.toUShort();
    }
    return commands;
}

/// A device with the lists "CoE|EoE|modules", each a row of indexes.
struct_EtherCatDevice deviceWith(const QString& lists)
{
    struct_EtherCatDevice device;
    device.Mailbox.COE.InitCmd.vinitcmd = commandsWith<struct_InitCmd>(lists.section('|', 0, 0));
    device.Mailbox.EOE.InitCmd.vinitcmd = commandsWith<struct_InitCmd>(lists.section('|', 1, 1));
    device.mMailbox.COE.vinitcmd = commandsWith<struct_moduleInitCmd>(lists.section('|', 2, 2));
    return device;
}

template<typename Command> QString indexesOf(const std::vector<Command>& commands)
{
    QStringList indexes;
    for (const Command& command : commands)
        indexes.append(QString::number(indexOf(command)));
    return indexes.join(' ');
}

QString listsOf(const struct_EtherCatDevice& device)
{
    return QStringList{indexesOf(device.Mailbox.COE.InitCmd.vinitcmd), indexesOf(device.Mailbox.EOE.InitCmd.vinitcmd),
                       indexesOf(device.mMailbox.COE.vinitcmd)}
        .join('|');
}

/// Index of the command at a row, -1 if there is none.
int indexAt(const struct_EtherCatDevice& device, int row)
{
    int index = -1;
    const bool isFound = visitStartupRow(
        device, row, [&](const auto& commands, std::size_t position) { index = indexOf(commands[position]); });
    return isFound == (index >= 0) ? index : -2;
}

} // namespace

void tst_StartupRows::listsInTheirOrder()
{
    const struct_EtherCatDevice device = deviceWith("1 2|3|4 5 6");
    QStringList seen;
    forEachStartupList(device, [&](const auto& commands, std::uint16_t count, StartupList list) {
        seen.append(QString("%1: %2 of %3").arg(int(list)).arg(count).arg(indexesOf(commands)));
    });
    QCOMPARE(seen, QStringList({"0: 2 of 1 2", "1: 1 of 3", "2: 3 of 4 5 6"}));
    QCOMPARE(int(StartupList::DeviceCoe), 0);
    QCOMPARE(int(StartupList::DeviceEoe), 1);
    QCOMPARE(int(StartupList::ModuleCoe), 2);
}

void tst_StartupRows::commandOfRow_data()
{
    QTest::addColumn<QString>("lists");
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("index");
    QTest::addRow("first CoE") << "11 12|21 22|31 32" << 0 << 11;
    QTest::addRow("last CoE") << "11 12|21 22|31 32" << 1 << 12;
    QTest::addRow("first EoE") << "11 12|21 22|31 32" << 2 << 21;
    QTest::addRow("last EoE") << "11 12|21 22|31 32" << 3 << 22;
    QTest::addRow("first of the modules") << "11 12|21 22|31 32" << 4 << 31;
    QTest::addRow("last of the modules") << "11 12|21 22|31 32" << 5 << 32;
    QTest::addRow("after the last") << "11 12|21 22|31 32" << 6 << -1;
    QTest::addRow("no row") << "11 12|21 22|31 32" << -1 << -1;
    QTest::addRow("only EoE") << "|21|" << 0 << 21;
    QTest::addRow("past the only EoE") << "|21|" << 1 << -1;
    QTest::addRow("only modules") << "||31" << 0 << 31;
    QTest::addRow("no EoE between") << "11||31" << 1 << 31;
    QTest::addRow("empty lists") << "||" << 0 << -1;
}

void tst_StartupRows::commandOfRow()
{
    QFETCH(QString, lists);
    QFETCH(int, row);
    QTEST(indexAt(deviceWith(lists), row), "index");
}

void tst_StartupRows::countsHaveSixteenBits()
{
    constexpr std::size_t beyond = 65536 + 2; // counts as 2
    struct_EtherCatDevice device = deviceWith("|21|31");
    device.Mailbox.COE.InitCmd.vinitcmd.resize(beyond);
    device.Mailbox.COE.InitCmd.vinitcmd[1].Index = 12;
    QCOMPARE(indexAt(device, 1), 12);
    QCOMPARE(indexAt(device, 2), 21);
    QCOMPARE(indexAt(device, 3), 31);
    QCOMPARE(indexAt(device, 4), -1);
    QVERIFY(!insertStartupCommand(device, 4));
    QCOMPARE(device.Mailbox.COE.InitCmd.vinitcmd.size(), beyond);
}

void tst_StartupRows::rowsHaveSixteenBits()
{
    QCOMPARE(indexAt(deviceWith("11 12|21|31"), 65536 + 2), 21);
}

void tst_StartupRows::insert_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<bool>("isInserted");
    QTest::addColumn<QString>("lists");
    QTest::addRow("after the first CoE") << 0 << true << "11 0 12|21|31 32";
    QTest::addRow("after the last CoE, still in that list") << 1 << true << "11 12 0|21|31 32";
    QTest::addRow("after the only EoE") << 2 << true << "11 12|21 0|31 32";
    QTest::addRow("after the first of the modules") << 3 << true << "11 12|21|31 0 32";
    QTest::addRow("after the last of all") << 4 << true << "11 12|21|31 32 0";
    QTest::addRow("past the lists") << 5 << false << "11 12|21|31 32";
    QTest::addRow("no row") << -1 << false << "11 12|21|31 32";
}

void tst_StartupRows::insert()
{
    QFETCH(int, row);
    struct_EtherCatDevice device = deviceWith("11 12|21|31 32");
    QTEST(insertStartupCommand(device, row), "isInserted");
    QTEST(listsOf(device), "lists");
}

void tst_StartupRows::insertedCommandIsEmpty_data()
{
    QTest::addColumn<int>("row");
    QTest::addRow("CoE") << 0;
    QTest::addRow("EoE") << 1;
    QTest::addRow("modules") << 2;
}

/// Fills a command, so that one that was copied from its neighbour would show.
template<typename Command> static void fill(Command& command)
{
    command.Transition = IP;
    command.SubIndex = 1;
    command.bIfCA = 1;
    command.DataBytes = 1;
    command.Data = 1;
    command.Comment = "comment";
    command.strData = "0x1";
    command.m_CADataList = {1};
}

void tst_StartupRows::insertedCommandIsEmpty()
{
    QFETCH(int, row);
    struct_EtherCatDevice device = deviceWith("1|2|3");
    fill(device.Mailbox.COE.InitCmd.vinitcmd[0]);
    fill(device.Mailbox.EOE.InitCmd.vinitcmd[0]);
    fill(device.mMailbox.COE.vinitcmd[0]);
    device.mMailbox.COE.vinitcmd[0].Instances = 1;
    device.mMailbox.COE.vinitcmd[0].indexAttributes.DependOnSlot = true;
    QVERIFY(insertStartupCommand(device, row));
    const bool isFound = visitStartupRow(device, row + 1, [](const auto& commands, std::size_t position) {
        const auto& command = commands[position];
        QCOMPARE(command.Transition, PS);
        QCOMPARE(int(indexOf(command)), 0);
        QCOMPARE(int(command.SubIndex), 0);
        QCOMPARE(int(command.bIfCA), 0);
        QCOMPARE(int(command.DataBytes), 0);
        QCOMPARE(command.Data, 0U);
        QCOMPARE(command.Comment, std::string());
        QCOMPARE(command.strData, std::string());
        QVERIFY(command.m_CADataList.empty());
    });
    QVERIFY(isFound);
    if (row == 2) {
        QCOMPARE(device.mMailbox.COE.vinitcmd[1].Instances, 0);
        QVERIFY(!device.mMailbox.COE.vinitcmd[1].indexAttributes.DependOnSlot);
    }
}

void tst_StartupRows::erase_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<QString>("lists");
    QTest::addRow("first CoE") << 0 << "12|21|31 32";
    QTest::addRow("last CoE") << 1 << "11|21|31 32";
    QTest::addRow("only EoE") << 2 << "11 12||31 32";
    QTest::addRow("first of the modules") << 3 << "11 12|21|32";
    QTest::addRow("last of all") << 4 << "11 12|21|31";
    QTest::addRow("past the lists") << 5 << "11 12|21|31 32";
    QTest::addRow("no row") << -1 << "11 12|21|31 32";
}

void tst_StartupRows::erase()
{
    QFETCH(int, row);
    struct_EtherCatDevice device = deviceWith("11 12|21|31 32");
    eraseStartupCommand(device, row);
    QTEST(listsOf(device), "lists");
}

void tst_StartupRows::eraseAll()
{
    struct_EtherCatDevice device = deviceWith("11 12|21|31 32");
    for (int count = 0; count < 5; ++count)
        eraseStartupCommand(device, 0);
    QCOMPARE(listsOf(device), QString("||"));
    eraseStartupCommand(device, 0);
    QCOMPARE(listsOf(device), QString("||"));
}

static const testMain::Registration<tst_StartupRows, testMain::NoApplication> registration;
#include "tst_StartupRows.moc"
