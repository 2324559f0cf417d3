// Startup commands that were changed, removed and added.
#include "editing/startupRows.h"
#include "model/startupAccess.h"
#include "retrace/choiceLines.h"
#include "retrace/retracedDevices.h"
#include "retrace/startupRetrace.h"
#include "testMain.h"

using namespace retracedDevices;

namespace {

/// Rows 0 to 2 are CoE commands, of which 2 is a complete access, row 3 is an EoE command, and row 4 is of a module.
struct_EtherCatDevice deviceWithCommands()
{
    struct_EtherCatDevice device = deviceWithSyncManagers();
    device.Mailbox.COE.InitCmd.vinitcmd = {command<struct_InitCmd>(0x2000, 1, 5, "c0"),
                                           command<struct_InitCmd>(0x2000, 2, 6, "c1"),
                                           command<struct_InitCmd>(0x1600, 0, 0, "c2")};
    struct_InitCmd& access = device.Mailbox.COE.InitCmd.vinitcmd[2];
    access.bIfCA = 1;
    access.DataBytes = 4;
    access.m_CADataList = {0x70000108};
    device.Mailbox.EOE.InitCmd.vinitcmd = {command<struct_InitCmd>(0x3000, 1, 7, "e0")};
    device.mMailbox.COE.vinitcmd = {command<struct_moduleInitCmd>(0x4000, 1, 8, "m0")};
    return device;
}

struct_InitCmd& coeOf(struct_EtherCatDevice& device, std::size_t position)
{
    return device.Mailbox.COE.InitCmd.vinitcmd.at(position);
}

/// Adds a command for object 0x5000:1 behind a row.
void addBehind(struct_EtherCatDevice& device, int row, std::uint16_t dataBytes, std::uint32_t data)
{
    QVERIFY(insertStartupCommand(device, row));
    visitStartupRow(device, row + 1, [&](auto& commands, std::size_t position) {
        auto& command = commands[position];
        indexOf(command) = 0x5000;
        command.SubIndex = 1;
        command.DataBytes = dataBytes;
        command.Data = data;
    });
}

/// Compares what is found for a device after an edit, and what an export after these choices gives.
void compareRetraced(const struct_EtherCatDevice& device, Edit edit, const QStringList& expected, bool isMade)
{
    struct_EtherCatDevice edited = clicked(device);
    edit(edited);
    const retrace::ExportedBlock block = exportOf(edited, {});
    choices::DeviceChoices choices;
    retrace::retraceStartup(clicked(device), block.content, choices);
    QCOMPARE(choiceLines::linesOf(choices), expected);
    QCOMPARE(bytesAfter(choices, device, {}) == block.bytes, isMade);
}

void addColumns()
{
    QTest::addColumn<Edit>("edit");
    QTest::addColumn<QStringList>("expected");
}

} // namespace

class tst_StartupRetrace : public QObject
{
    Q_OBJECT

private slots:
    static void changed_data();
    static void changed();
    static void removed_data();
    static void removed();
    static void added_data();
    static void added();
    static void impossibleEdits_data();
    static void impossibleEdits();
    static void wideSubIndexOfAModule();
    static void noCommands();
};

void tst_StartupRetrace::changed_data()
{
    addColumns();
    QTest::addRow("nothing") << Edit([](struct_EtherCatDevice&) {}) << QStringList();
    QTest::addRow("value") << Edit([](struct_EtherCatDevice& device) { coeOf(device, 0).Data = 9; })
                           << QStringList("changeCommand row=0 was=2000 sub=1 comment=c0 bytes=2 data=9");
    QTest::addRow("bytes") << Edit([](struct_EtherCatDevice& device) { coeOf(device, 1).DataBytes = 4; })
                           << QStringList("changeCommand row=1 was=2000 sub=2 comment=c1 bytes=4 data=6");
    QTest::addRow("index") << Edit([](struct_EtherCatDevice& device) { coeOf(device, 0).Index = 0x2001; })
                           << QStringList("changeCommand row=0 was=2000 sub=1 comment=c0 index=2001");
    QTest::addRow("sub-index") << Edit([](struct_EtherCatDevice& device) { coeOf(device, 0).SubIndex = 9; })
                               << QStringList("changeCommand row=0 was=2000 sub=1 comment=c0 subIndex=9");
    QTest::addRow("all of it") << Edit([](struct_EtherCatDevice& device) {
        coeOf(device, 0) = command<struct_InitCmd>(0x2001, 3, 9, "c0");
        coeOf(device, 0).DataBytes = 1;
    }) << QStringList("changeCommand row=0 was=2000 sub=1 comment=c0 index=2001 subIndex=3 bytes=1 data=9");
    QTest::addRow("object of a complete access")
        << Edit([](struct_EtherCatDevice& device) { coeOf(device, 2).Index = 0x1601; })
        << QStringList("changeCommand row=2 was=1600 sub=0 comment=c2 index=1601");
    QTest::addRow("EoE") << Edit([](struct_EtherCatDevice& device) { device.Mailbox.EOE.InitCmd.vinitcmd[0].Data = 9; })
                         << QStringList("changeCommand row=3 was=3000 sub=1 comment=e0 bytes=2 data=9");
    QTest::addRow("of a module") << Edit([](struct_EtherCatDevice& device) {
        device.mMailbox.COE.vinitcmd[0].Data = 9;
    }) << QStringList("changeCommand row=4 was=4000 sub=1 comment=m0 bytes=2 data=9");
    QTest::addRow("value of 4 bytes") << Edit([](struct_EtherCatDevice& device) {
        coeOf(device, 0).DataBytes = 4;
        coeOf(device, 0).Data = 0xFFFFFFFF;
    }) << QStringList("changeCommand row=0 was=2000 sub=1 comment=c0 bytes=4 data=4294967295");
    QTest::addRow("value that just fits")
        << Edit([](struct_EtherCatDevice& device) { coeOf(device, 0).Data = 0xFFFF; })
        << QStringList("changeCommand row=0 was=2000 sub=1 comment=c0 bytes=2 data=65535");
    QTest::addRow("value that the bus cuts")
        << Edit([](struct_EtherCatDevice& device) { coeOf(device, 0).Data = 0x10000; })
        << QStringList("changeCommand row=0 was=2000 sub=1 comment=c0 bytes=2 data=65536 unchecked");
    QTest::addRow("more bytes than a value has")
        << Edit([](struct_EtherCatDevice& device) { coeOf(device, 0).DataBytes = 5; })
        << QStringList("changeCommand row=0 was=2000 sub=1 comment=c0 bytes=5 data=5 unchecked");
    QTest::addRow("nothing of 0 bytes") << Edit([](struct_EtherCatDevice& device) {
        coeOf(device, 0).DataBytes = 0;
        coeOf(device, 0).Data = 0;
    }) << QStringList("changeCommand row=0 was=2000 sub=1 comment=c0 bytes=0 data=0");
}

void tst_StartupRetrace::changed()
{
    QFETCH(Edit, edit);
    QFETCH(QStringList, expected);
    compareRetraced(deviceWithCommands(), edit, expected, true);
}

void tst_StartupRetrace::removed_data()
{
    addColumns();
    const QStringList rows{
        "removeCommand row=0 was=2000 sub=1 comment=c0", "removeCommand row=1 was=2000 sub=2 comment=c1",
        "removeCommand row=2 was=1600 sub=0 comment=c2", "removeCommand row=3 was=3000 sub=1 comment=e0",
        "removeCommand row=4 was=4000 sub=1 comment=m0"};
    QTest::addRow("first") << Edit([](struct_EtherCatDevice& device) { eraseStartupCommand(device, 0); })
                           << QStringList(rows[0]);
    QTest::addRow("middle") << Edit([](struct_EtherCatDevice& device) { eraseStartupCommand(device, 1); })
                            << QStringList(rows[1]);
    QTest::addRow("complete access") << Edit([](struct_EtherCatDevice& device) { eraseStartupCommand(device, 2); })
                                     << QStringList(rows[2]);
    QTest::addRow("EoE") << Edit([](struct_EtherCatDevice& device) { eraseStartupCommand(device, 3); })
                         << QStringList(rows[3]);
    QTest::addRow("of a module") << Edit([](struct_EtherCatDevice& device) { eraseStartupCommand(device, 4); })
                                 << QStringList(rows[4]);
    QTest::addRow("all") << Edit([](struct_EtherCatDevice& device) {
        for (int row = 4; row >= 0; --row)
            eraseStartupCommand(device, row);
    }) << QStringList{rows[0], rows[1], rows[2], rows[4], rows[3]}; // those of modules go out with the device's
}

void tst_StartupRetrace::removed()
{
    QFETCH(Edit, edit);
    QFETCH(QStringList, expected);
    compareRetraced(deviceWithCommands(), edit, expected, true);
}

void tst_StartupRetrace::added_data()
{
    addColumns();
    const QString command = " index=5000 subIndex=1 bytes=4 data=3";
    QTest::addRow("behind the first") << Edit([](struct_EtherCatDevice& device) { addBehind(device, 0, 4, 3); })
                                      << QStringList("addCommand row=0 was=2000 sub=1 comment=c0" + command);
    QTest::addRow("behind the second") << Edit([](struct_EtherCatDevice& device) { addBehind(device, 1, 4, 3); })
                                       << QStringList("addCommand row=1 was=2000 sub=2 comment=c1" + command);
    QTest::addRow("behind the last of the device")
        << Edit([](struct_EtherCatDevice& device) { addBehind(device, 2, 4, 3); })
        << QStringList("addCommand row=2 was=1600 sub=0 comment=c2" + command);
    QTest::addRow("EoE") << Edit([](struct_EtherCatDevice& device) { addBehind(device, 3, 4, 3); })
                         << QStringList("addCommand row=3 was=3000 sub=1 comment=e0" + command);
    QTest::addRow("of a module") << Edit([](struct_EtherCatDevice& device) { addBehind(device, 4, 4, 3); })
                                 << QStringList("addCommand row=4 was=4000 sub=1 comment=m0" + command);
    QTest::addRow("two behind one")
        << Edit([](struct_EtherCatDevice& device) {
               addBehind(device, 0, 4, 3);
               addBehind(device, 1, 1, 2);
           })
        << QStringList{"addCommand row=0 was=2000 sub=1 comment=c0" + command,
                       "addCommand row=0 was=2000 sub=1 comment=c0 index=5000 subIndex=1 bytes=1 data=2"};
    QTest::addRow("value that the bus cuts")
        << Edit([](struct_EtherCatDevice& device) { addBehind(device, 0, 1, 0x100); })
        << QStringList("addCommand row=0 was=2000 sub=1 comment=c0 index=5000 subIndex=1 bytes=1 data=256 unchecked");
    // None can be added before the first one: that one becomes the new one, and is added behind itself.
    QTest::addRow("before the first")
        << Edit([](struct_EtherCatDevice& device) {
               auto& commands = device.Mailbox.COE.InitCmd.vinitcmd;
               commands.insert(commands.begin(), retracedDevices::command<struct_InitCmd>(0x5000, 1, 3, ""));
           })
        << QStringList{"changeCommand row=0 was=2000 sub=1 comment=c0 index=5000 bytes=2 data=3",
                       "addCommand row=0 was=2000 sub=1 comment=c0 index=2000 subIndex=1 bytes=2 data=5"};
    QTest::addRow("in the place of a complete access")
        << Edit([](struct_EtherCatDevice& device) { coeOf(device, 2).bIfCA = 0; })
        << QStringList{"removeCommand row=2 was=1600 sub=0 comment=c2",
                       "addCommand row=2 was=1600 sub=0 comment=c2 index=1600 subIndex=0 bytes=4 data=0"};
}

void tst_StartupRetrace::added()
{
    QFETCH(Edit, edit);
    QFETCH(QStringList, expected);
    compareRetraced(deviceWithCommands(), edit, expected, true);
}

/// What is left is not chosen.
void tst_StartupRetrace::impossibleEdits_data()
{
    addColumns();
    QTest::addRow("complete access added") << Edit([](struct_EtherCatDevice& device) {
        auto& commands = device.Mailbox.COE.InitCmd.vinitcmd;
        commands.insert(commands.begin() + 1, commands[2]);
    }) << QStringList();
    QTest::addRow("other values of a complete access")
        << Edit([](struct_EtherCatDevice& device) { coeOf(device, 2).m_CADataList[0] = 1; }) << QStringList();
    QTest::addRow("other transition") << Edit([](struct_EtherCatDevice& device) { coeOf(device, 0).Transition = IP; })
                                      << QStringList();
    QTest::addRow("added for another transition") << Edit([](struct_EtherCatDevice& device) {
        addBehind(device, 0, 4, 3);
        coeOf(device, 1).Transition = IP;
    }) << QStringList();
    QTest::addRow("other transition, with a value elsewhere") << Edit([](struct_EtherCatDevice& device) {
        coeOf(device, 0).Transition = IP;
        coeOf(device, 1).Data = 9;
    }) << QStringList("changeCommand row=1 was=2000 sub=2 comment=c1 bytes=2 data=9");
}

void tst_StartupRetrace::impossibleEdits()
{
    QFETCH(Edit, edit);
    QFETCH(QStringList, expected);
    compareRetraced(deviceWithCommands(), edit, expected, false);
}

/// The record has 8 bits for the sub-index, a module's command 16.
void tst_StartupRetrace::wideSubIndexOfAModule()
{
    struct_EtherCatDevice device = deviceWithCommands();
    device.mMailbox.COE.vinitcmd[0].SubIndex = 300;
    const Edit edit = [](struct_EtherCatDevice& edited) { edited.mMailbox.COE.vinitcmd[0].Data = 9; };
    compareRetraced(device, edit, QStringList("changeCommand row=4 was=4000 sub=300 comment=m0 bytes=2 data=9"), true);
}

/// A list without commands has none behind which one could be added.
void tst_StartupRetrace::noCommands()
{
    const Edit edit = [](struct_EtherCatDevice& edited) {
        edited.Mailbox.COE.InitCmd.vinitcmd.push_back(command<struct_InitCmd>(0x5000, 1, 3, ""));
    };
    compareRetraced(deviceWithSyncManagers(), edit, QStringList(), false);
}

static const testMain::Registration<tst_StartupRetrace, testMain::NoApplication> registration;
#include "tst_StartupRetrace.moc"
