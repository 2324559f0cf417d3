// Startup commands whose value an export does not carry.
#include "editing/lostValues.h"
#include "testMain.h"

#include <QtTest>

class tst_LostValues : public QObject
{
    Q_OBJECT

private slots:
    static void oneCommand_data();
    static void oneCommand();
    static void bothListsOfADevice();
    static void listsThatDoNotCount();
    static void modulesOfAFile();
    static void noneIsFirst();
};

namespace {

/// A command of a device or of a module.
template<typename Command> Command commandOf(std::uint16_t dataBytes, std::uint32_t data, const char* comment = "")
{
    Command command;
    command.DataBytes = dataBytes;
    command.Data = data;
    command.Comment = comment;
    return command;
}

} // namespace

void tst_LostValues::oneCommand_data()
{
    QTest::addColumn<int>("dataBytes");
    QTest::addColumn<unsigned int>("data");
    QTest::addColumn<int>("completeAccess");
    QTest::addColumn<int>("lost");
    QTest::addRow("four bytes have room") << 4 << 0U << 0 << 0;
    QTest::addRow("five bytes do not") << 5 << 0U << 0 << 1;
    QTest::addRow("a number that is not 0 is the value, whatever its length") << 5 << 1U << 0 << 0;
    QTest::addRow("the values of a complete access have room elsewhere") << 5 << 0U << 1 << 0;
}

void tst_LostValues::oneCommand()
{
    QFETCH(int, dataBytes);
    QFETCH(unsigned int, data);
    QFETCH(int, completeAccess);
    QFETCH(int, lost);
    struct_EtherCatDevice device;
    device.Mailbox.COE.InitCmd.vinitcmd = {commandOf<struct_InitCmd>(static_cast<std::uint16_t>(dataBytes), data)};
    device.Mailbox.COE.InitCmd.vinitcmd[0].bIfCA = static_cast<std::uint8_t>(completeAccess);
    QCOMPARE(int(lostValuesOf(device).count), lost);
}

void tst_LostValues::bothListsOfADevice()
{
    struct_EtherCatDevice device;
    device.mMailbox.COE.vinitcmd = {commandOf<struct_moduleInitCmd>(6, 0, "of a module")};
    device.mMailbox.COE.vinitcmd[0].indexAttributes.index = 0x8000;
    QCOMPARE(lostValuesOf(device).first->comment, std::string("of a module"));
    device.Mailbox.COE.InitCmd.vinitcmd = {commandOf<struct_InitCmd>(2, 0), commandOf<struct_InitCmd>(8, 0, "own"),
                                           commandOf<struct_InitCmd>(9, 0, "next")};
    device.Mailbox.COE.InitCmd.vinitcmd[1].Index = 0x2010;
    device.Mailbox.COE.InitCmd.vinitcmd[1].SubIndex = 7;
    const LostValues lost = lostValuesOf(device);
    QCOMPARE(int(lost.count), 3);
    QCOMPARE(int(lost.first->index), 0x2010);
    QCOMPARE(int(lost.first->subIndex), 7);
    QCOMPARE(int(lost.first->dataBytes), 8);
    QCOMPARE(lost.first->comment, std::string("own"));
}

/// The generated EoE command carries all, and what modules declare counts in the blocks of their file.
void tst_LostValues::listsThatDoNotCount()
{
    struct_EtherCatDevice device;
    device.Mailbox.EOE.InitCmd.vinitcmd = {commandOf<struct_InitCmd>(16, 0)};
    device.Slots.vslot.resize(1);
    device.Slots.vslot[0].slotmodule.resize(1);
    device.Slots.vslot[0].slotmodule[0].module.Mailbox.COE.vinitcmd = {commandOf<struct_moduleInitCmd>(6, 0)};
    QCOMPARE(int(lostValuesOf(device).count), 0);
}

void tst_LostValues::modulesOfAFile()
{
    struct_FilenameDevice file;
    file.vcommentmodule.resize(2);
    file.vcommentmodule[0].vmodule.resize(2);
    file.vcommentmodule[0].vmodule[1].Mailbox.COE.vinitcmd = {commandOf<struct_moduleInitCmd>(6, 0, "first")};
    file.vcommentmodule[1].vmodule.resize(1);
    file.vcommentmodule[1].vmodule[0].Mailbox.COE.vinitcmd = {commandOf<struct_moduleInitCmd>(4, 0),
                                                              commandOf<struct_moduleInitCmd>(7, 0, "second")};
    const LostValues lost = lostModuleValuesOf(file);
    QCOMPARE(int(lost.count), 2);
    QCOMPARE(lost.first->comment, std::string("first"));
}

void tst_LostValues::noneIsFirst()
{
    QVERIFY(!lostValuesOf({}).first.has_value());
    QVERIFY(!lostModuleValuesOf({}).first.has_value());
}

static const testMain::Registration<tst_LostValues, testMain::NoApplication> registration;
#include "tst_LostValues.moc"
