// What is said before an export, and the file name that it proposes.
#include "editing/exportChecks.h"
#include "editing/lostValues.h"
#include "testMain.h"
#include "workbench/modelBuilders.h"

#include <QtTest>

class tst_ExportChecks : public QObject
{
    Q_OBJECT

private slots:
    static void syncManagers_data();
    static void syncManagers();
    static void increments_data();
    static void increments();
    static void startupCommands_data();
    static void startupCommands();
    static void otherCommandsDoNotCount();
    static void order();
    static void kinds_data();
    static void kinds();
    static void lostValues_data();
    static void lostValues();
    static void lostValuesOfBothLists();
    static void lostValuesOfModules();
    static void nameInTheText_data();
    static void nameInTheText();
    static void proposedName_data();
    static void proposedName();
};

static const QString syncManagerText =
    QStringLiteral("存在设备sm通道大于4个，控制器不支持sm 大于4个以上。请谨慎操作 D:\n");
static const QString pdoIncrementText =
    QStringLiteral("存在设备多个slot的SlotPdoIncrement不一致，控制器不支持。请谨慎操作 D:\n");
static const QString indexIncrementText =
    QStringLiteral("存在设备多个slot的SlotIndexIncrement不一致，控制器不支持。请谨慎操作 D:\n");
static const QString startupText = QStringLiteral("设备的startup启动项超过254个。固件必须升级大于20240929 D:\n");

void tst_ExportChecks::syncManagers_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<bool>("warns");
    QTest::addRow("none") << 0 << false;
    QTest::addRow("4") << 4 << false;
    QTest::addRow("5") << 5 << true;
    QTest::addRow("300") << 300 << true;
}

void tst_ExportChecks::syncManagers()
{
    QFETCH(int, count);
    QFETCH(bool, warns);
    struct_EtherCatDevice device = deviceNamed("D");
    device.vSM.resize(static_cast<std::size_t>(count));
    QCOMPARE(exportWarnings(device), warns ? QStringList(syncManagerText) : QStringList());
}

/// Step of the PDO index and of the object index, of a device or of a slot.
using Steps = QPair<unsigned int, unsigned int>;

void tst_ExportChecks::increments_data()
{
    QTest::addColumn<Steps>("ofDevice");
    QTest::addColumn<QVector<Steps>>("ofSlots");
    QTest::addColumn<QString>("warning");
    using Slots = QVector<Steps>;
    QTest::addRow("no slots") << Steps(1, 16) << Slots{} << "";
    QTest::addRow("all alike") << Steps(1, 16) << Slots{{1, 16}, {1, 16}} << "";
    QTest::addRow("PDO step differs") << Steps(1, 16) << Slots{{2, 16}} << pdoIncrementText;
    QTest::addRow("index step differs") << Steps(1, 16) << Slots{{1, 8}} << indexIncrementText;
    QTest::addRow("both differ in one slot: only the PDO step") << Steps(1, 16) << Slots{{2, 8}} << pdoIncrementText;
    QTest::addRow("both differ, in two slots: only the first slot")
        << Steps(1, 16) << Slots{{1, 16}, {1, 8}, {2, 16}} << indexIncrementText;
    QTest::addRow("the last slot differs") << Steps(1, 16) << Slots{{1, 16}, {1, 16}, {3, 16}} << pdoIncrementText;
    QTest::addRow("two slots differ: one warning") << Steps(1, 16) << Slots{{2, 16}, {3, 16}} << pdoIncrementText;
    QTest::addRow("slot steps of 0 never warn") << Steps(1, 16) << Slots{{0, 0}} << "";
    QTest::addRow("device steps of 0 never warn") << Steps(0, 0) << Slots{{1, 16}, {2, 32}} << "";
    QTest::addRow("PDO step 0, index step differs") << Steps(1, 16) << Slots{{0, 8}} << indexIncrementText;
    QTest::addRow("differs beyond 16 bits") << Steps(1, 16) << Slots{{0x10001, 16}} << pdoIncrementText;
}

void tst_ExportChecks::increments()
{
    QFETCH(Steps, ofDevice);
    QFETCH(QVector<Steps>, ofSlots);
    QFETCH(QString, warning);
    struct_EtherCatDevice device = deviceNamed("D");
    device.Slots.Attributes.SlotPdoIncrement = ofDevice.first;
    device.Slots.Attributes.SlotIndexIncrement = ofDevice.second;
    for (const Steps& steps : ofSlots) {
        device.Slots.vslot.emplace_back();
        device.Slots.vslot.back().Attributes.SlotPdoIncrement = steps.first;
        device.Slots.vslot.back().Attributes.SlotIndexIncrement = steps.second;
    }
    QCOMPARE(exportWarnings(device), warning.isEmpty() ? QStringList() : QStringList(warning));
}

void tst_ExportChecks::startupCommands_data()
{
    QTest::addColumn<int>("ofDevice");
    QTest::addColumn<int>("ofModules");
    QTest::addColumn<bool>("warns");
    QTest::addRow("none") << 0 << 0 << false;
    QTest::addRow("254 of the device") << 254 << 0 << false;
    QTest::addRow("255 of the device") << 255 << 0 << true;
    QTest::addRow("256 of the device count as 0") << 256 << 0 << false;
    QTest::addRow("510 of the device count as 254") << 510 << 0 << false;
    QTest::addRow("511 of the device count as 255") << 511 << 0 << true;
    QTest::addRow("254 of modules") << 0 << 254 << false;
    QTest::addRow("255 of modules") << 0 << 255 << true;
    QTest::addRow("256 of modules are not reduced") << 0 << 256 << true;
    QTest::addRow("254 together") << 127 << 127 << false;
    QTest::addRow("255 together") << 128 << 127 << true;
    QTest::addRow("256 of the device, 254 of modules") << 256 << 254 << false;
    QTest::addRow("256 of the device, 255 of modules") << 256 << 255 << true;
    QTest::addRow("255 of the device, 1 of modules: the sum is not reduced") << 255 << 1 << true;
}

void tst_ExportChecks::startupCommands()
{
    QFETCH(int, ofDevice);
    QFETCH(int, ofModules);
    QFETCH(bool, warns);
    struct_EtherCatDevice device = deviceNamed("D");
    device.Mailbox.COE.InitCmd.vinitcmd.resize(static_cast<std::size_t>(ofDevice));
    device.mMailbox.COE.vinitcmd.resize(static_cast<std::size_t>(ofModules));
    QCOMPARE(exportWarnings(device), warns ? QStringList(startupText) : QStringList());
}

void tst_ExportChecks::otherCommandsDoNotCount()
{
    struct_EtherCatDevice device = deviceNamed("D");
    device.Mailbox.EOE.InitCmd.vinitcmd.resize(255);
    QCOMPARE(exportWarnings(device), QStringList());
}

void tst_ExportChecks::order()
{
    struct_EtherCatDevice device = deviceNamed("D");
    device.vSM.resize(5);
    device.Slots.Attributes.SlotPdoIncrement = 1;
    device.Slots.vslot.resize(1);
    device.Slots.vslot[0].Attributes.SlotPdoIncrement = 2;
    device.Mailbox.COE.InitCmd.vinitcmd.resize(255);
    QCOMPARE(exportWarnings(device), QStringList({syncManagerText, pdoIncrementText, startupText}));
}

using Kinds = std::vector<ExportWarning>;
Q_DECLARE_METATYPE(Kinds)

void tst_ExportChecks::kinds_data()
{
    QTest::addColumn<int>("syncManagers");
    QTest::addColumn<Steps>("ofSlot"); // the device has 1 and 16
    QTest::addColumn<int>("commands");
    QTest::addColumn<Kinds>("kinds");
    const auto row = [](const char* name, int syncManagers, const Steps& ofSlot, int commands, const Kinds& kinds) {
        QTest::addRow("%s", name) << syncManagers << ofSlot << commands << kinds;
    };
    row("nothing", 4, {1, 16}, 254, {});
    row("sync managers", 5, {1, 16}, 254, {ExportWarning::SyncManagers});
    row("PDO step", 4, {2, 16}, 254, {ExportWarning::SlotPdoIncrement});
    row("index step", 4, {1, 8}, 254, {ExportWarning::SlotIndexIncrement});
    row("commands", 4, {1, 16}, 255, {ExportWarning::StartupCommands});
    row("all, in the order of the window", 5, {2, 8}, 255,
        {ExportWarning::SyncManagers, ExportWarning::SlotPdoIncrement, ExportWarning::StartupCommands});
}

void tst_ExportChecks::kinds()
{
    QFETCH(int, syncManagers);
    QFETCH(Steps, ofSlot);
    QFETCH(int, commands);
    QFETCH(Kinds, kinds);
    struct_EtherCatDevice device = deviceNamed("D");
    device.vSM.resize(static_cast<std::size_t>(syncManagers));
    device.Slots.Attributes.SlotPdoIncrement = 1;
    device.Slots.Attributes.SlotIndexIncrement = 16;
    device.Slots.vslot.resize(1);
    device.Slots.vslot[0].Attributes.SlotPdoIncrement = ofSlot.first;
    device.Slots.vslot[0].Attributes.SlotIndexIncrement = ofSlot.second;
    device.Mailbox.COE.InitCmd.vinitcmd.resize(static_cast<std::size_t>(commands));
    QVERIFY(exportWarningsOf(device) == kinds);
}

/// A command that writes a number.
template<typename Command> static Command commandOf(int dataBytes, unsigned int data)
{
    Command command;
    command.DataBytes = static_cast<std::uint16_t>(dataBytes);
    command.Data = data;
    return command;
}

void tst_ExportChecks::lostValues_data()
{
    QTest::addColumn<int>("dataBytes");
    QTest::addColumn<unsigned int>("data");
    QTest::addColumn<bool>("isCompleteAccess");
    QTest::addColumn<bool>("isLost");
    QTest::addRow("no byte") << 0 << 0U << false << false;
    QTest::addRow("four bytes that are 0") << 4 << 0U << false << false;
    QTest::addRow("five bytes") << 5 << 0U << false << true;
    QTest::addRow("five bytes by the count, and a number") << 5 << 1U << false << false;
    QTest::addRow("256 bytes, of which a module block keeps a count of 0") << 256 << 0U << false << true;
    QTest::addRow("complete access") << 8 << 0U << true << false;
}

void tst_ExportChecks::lostValues()
{
    QFETCH(int, dataBytes);
    QFETCH(unsigned int, data);
    QFETCH(bool, isCompleteAccess);
    QFETCH(bool, isLost);
    struct_EtherCatDevice device = deviceNamed("D");
    struct_InitCmd command = commandOf<struct_InitCmd>(dataBytes, data);
    command.bIfCA = isCompleteAccess ? 1 : 0;
    device.Mailbox.COE.InitCmd.vinitcmd.push_back(command);
    const LostValues lost = lostValuesOf(device);
    QCOMPARE(lost.count, std::size_t(isLost ? 1 : 0));
    QCOMPARE(lost.first.has_value(), isLost);
}

/// The commands of the device come first in the file, then those of the modules in its slots.
void tst_ExportChecks::lostValuesOfBothLists()
{
    struct_EtherCatDevice device = deviceNamed("D");
    device.mMailbox.COE.vinitcmd.assign(2, commandOf<struct_moduleInitCmd>(6, 0));
    QCOMPARE(lostValuesOf(device).count, std::size_t(2));
    QCOMPARE(int(lostValuesOf(device).first->dataBytes), 6);
    struct_InitCmd command = commandOf<struct_InitCmd>(7, 0);
    command.Index = 0x2F10;
    command.SubIndex = 3;
    command.Comment = "Tag";
    device.Mailbox.COE.InitCmd.vinitcmd.push_back(command);
    const LostValues lost = lostValuesOf(device);
    QCOMPARE(lost.count, std::size_t(3));
    QCOMPARE(int(lost.first->index), 0x2F10);
    QCOMPARE(int(lost.first->subIndex), 3);
    QCOMPARE(int(lost.first->dataBytes), 7);
    QCOMPARE(lost.first->comment, std::string("Tag"));
}

/// All modules of all groups.
void tst_ExportChecks::lostValuesOfModules()
{
    struct_FilenameDevice file = fileWith("a.xml", {"D"});
    QCOMPARE(lostModuleValuesOf(file).count, std::size_t(0));
    file.vcommentmodule.resize(2);
    file.vcommentmodule[0].vmodule.resize(2);
    file.vcommentmodule[1].vmodule.resize(1);
    file.vcommentmodule[0].vmodule[1].Mailbox.COE.vinitcmd = {commandOf<struct_moduleInitCmd>(4, 0),
                                                              commandOf<struct_moduleInitCmd>(8, 0)};
    file.vcommentmodule[1].vmodule[0].Mailbox.COE.vinitcmd = {commandOf<struct_moduleInitCmd>(9, 0)};
    const LostValues lost = lostModuleValuesOf(file);
    QCOMPARE(lost.count, std::size_t(2));
    QCOMPARE(int(lost.first->dataBytes), 8);
}

void tst_ExportChecks::nameInTheText_data()
{
    QTest::addColumn<QString>("name");
    QTest::addRow("empty") << "";
    QTest::addRow("Chinese") << "伺服驱动器";
    QTest::addRow("percent sign") << "100 %1 of %2";
}

void tst_ExportChecks::nameInTheText()
{
    QFETCH(QString, name);
    struct_EtherCatDevice device = deviceNamed(name.toStdString());
    device.vSM.resize(5);
    QCOMPARE(exportWarnings(device),
             QStringList("存在设备sm通道大于4个，控制器不支持sm 大于4个以上。请谨慎操作 " + name + ":\n"));
}

void tst_ExportChecks::proposedName_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<unsigned int>("vendor");
    QTest::addColumn<QString>("name");
    QTest::addRow("up to the first of several dots") << "D:/esi/Servo.v2.xml" << 0x12U << "Servo-0x12";
    QTest::addRow("dots in a folder do not count") << "/esi.v2/Servo.xml" << 0x12U << "Servo-0x12";
    QTest::addRow("no dot") << "/esi/Servo" << 0x12U << "Servo-0x12";
    QTest::addRow("no folder") << "Servo.xml" << 0x12U << "Servo-0x12";
    QTest::addRow("vendor 0") << "Servo.xml" << 0U << "Servo-0x00";
    QTest::addRow("starts with a dot") << "/esi/.xml" << 1U << "-0x1";
    QTest::addRow("ends with a slash") << "/esi/" << 1U << "-0x1";
    QTest::addRow("empty path") << "" << 1U << "-0x1";
    QTest::addRow("backslashes are no separators") << "C:\\esi\\a.xml" << 1U << "C:\\esi\\a-0x1";
    QTest::addRow("15 characters stay") << "abcdefghijklmno.xml" << 1U << "abcdefghijklmno-0x1";
    QTest::addRow("16 characters become 15") << "abcdefghijklmnop.xml" << 1U << "abcdefghijklmno-0x1";
    QTest::addRow("20 characters with the vendor stay") << "abcdefghijklmno.xml" << 0x12U << "abcdefghijklmno-0x12";
    QTest::addRow("21 characters with the vendor become 20")
        << "abcdefghijklmno.xml" << 0x123U << "abcdefghijklmno-0x12";
    QTest::addRow("long name and long vendor id") << "abcdefghijklmnop.xml" << 0x7E570001U << "abcdefghijklmno-0x7e";
    QTest::addRow("characters count, not bytes")
        << "一二三四五六七八九十一二三四五六.xml" << 1U << "一二三四五六七八九十一二三四五-0x1";
}

void tst_ExportChecks::proposedName()
{
    QFETCH(QString, path);
    QFETCH(unsigned int, vendor);
    QFETCH(QString, name);
    struct_FilenameDevice file = fileWith(path.toStdString(), {"D"});
    file.Vendor_Id = vendor;
    QCOMPARE(proposedKtlName(file), name);
}

static const testMain::Registration<tst_ExportChecks, QCoreApplication> registration;
#include "tst_ExportChecks.moc"
