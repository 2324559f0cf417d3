// The startup commands that a module declares.
#include "esi/readSection.h"
#include "esi/xmlparsing.h"
#include "testMain.h"

#include <QtTest>

#include <cstddef>

class tst_ModuleInitCmds : public QObject
{
    Q_OBJECT

private slots:
    static void command();
    static void emptyCommandIsAppendedCleared();
    static void index_data();
    static void index();
    static void subIndex_data();
    static void subIndex();
    static void data_data();
    static void data();
    static void lastTransitionWins();
    static void namesAreExact();
    static void otherPartsOfTheMailbox_data();
    static void otherPartsOfTheMailbox();
    static void commandsInDocumentOrder();
};

namespace {

struct_module moduleWithMailbox(const QString& children)
{
    return readSection(read_device_Module, QStringLiteral("<Module><Mailbox>%1</Mailbox></Module>").arg(children));
}

/// The one command with these children.
struct_moduleInitCmd commandOf(const QString& children)
{
    return moduleWithMailbox(QStringLiteral("<CoE><InitCmd>%1</InitCmd></CoE>").arg(children))
        .Mailbox.COE.vinitcmd.at(0);
}

} // namespace

void tst_ModuleInitCmds::command()
{
    const struct_moduleInitCmd command =
        commandOf("<Transition>PS</Transition><Index DependOnSlot='1'>#x8000</Index><SubIndex>#x12</SubIndex>"
                  "<Data>0100</Data><Comment>filter</Comment><Timeout>5</Timeout>");
    QCOMPARE(command.Transition, PS);
    QCOMPARE(int{command.indexAttributes.index}, 0x8000);
    QCOMPARE(command.indexAttributes.DependOnSlot, true);
    QCOMPARE(command.indexAttributes.DependOnSlotGroup, false);
    QCOMPARE(int{command.SubIndex}, 18);
    QCOMPARE(int{command.DataBytes}, 2);
    QCOMPARE(command.Data, 1U);
    QCOMPARE(text(command.strData), QStringLiteral("0x1"));
    QCOMPARE(text(command.Comment), QStringLiteral("filter"));
}

void tst_ModuleInitCmds::emptyCommandIsAppendedCleared()
{
    const struct_module module =
        moduleWithMailbox("<CoE><InitCmd><Transition>PS</Transition><Index DependOnSlot='1'>1</Index><Data>01</Data>"
                          "</InitCmd><InitCmd CompleteAccess='1' Fixed='1'/></CoE>");
    QCOMPARE(module.Mailbox.COE.vinitcmd.size(), std::size_t{2});
    const struct_moduleInitCmd& command = module.Mailbox.COE.vinitcmd[1];
    QCOMPARE(command.Transition, UnknownType);
    QCOMPARE(int{command.indexAttributes.index}, 0);
    QCOMPARE(command.indexAttributes.DependOnSlot, false);
    QCOMPARE(int{command.SubIndex}, 0);
    QCOMPARE(int{command.DataBytes}, 0);
    QCOMPARE(command.Data, 0U);
    QVERIFY2(command.strData.empty(), "a command without data has no text for it");
    QVERIFY(command.Comment.empty());
    QCOMPARE(command.Instances, 0);
    QVERIFY2(command.bIfCA == 0 && command.m_CADataList.empty(), "complete access is never read");
}

void tst_ModuleInitCmds::index_data()
{
    QTest::addColumn<QString>("xml");
    QTest::addColumn<int>("expected");
    QTest::addColumn<bool>("withSlot");
    QTest::addColumn<bool>("withSlotGroup");
    QTest::addRow("plain") << "<Index>#x8000</Index>" << 0x8000 << false << false;
    QTest::addRow("with the slot") << "<Index DependOnSlot='1'>#x8000</Index>" << 0x8000 << true << false;
    QTest::addRow("with the slot group") << "<Index DependOnSlotGroup='true'>#x8000</Index>" << 0x8000 << false << true;
    QTest::addRow("declared as fixed") << "<Index DependOnSlot='0' DependOnSlotGroup='false'>1</Index>" << 1 << false
                                       << false;
    QTest::addRow("a truth value, not a number")
        << "<Index DependOnSlot='#x1' DependOnSlotGroup='#x1'>1</Index>" << 1 << false << false;
    QTest::addRow("cut to 16 bits") << "<Index>#x18000</Index>" << 0x8000 << false << false;
    QTest::addRow("no number") << "<Index DependOnSlot='1'>none</Index>" << 0 << true << false;
    QTest::addRow("the last number counts, a flag stays")
        << "<Index DependOnSlot='1'>1</Index><Index>2</Index>" << 2 << true << false;
    QTest::addRow("automatic adaption is not read")
        << "<Index AdaptAutomatically='1' dependOnSlot='1'>1</Index>" << 1 << false << false;
}

void tst_ModuleInitCmds::index()
{
    QFETCH(QString, xml);
    QFETCH(int, expected);
    QFETCH(bool, withSlot);
    QFETCH(bool, withSlotGroup);
    const ModuleInitCmdIndex index = commandOf(xml).indexAttributes;
    QCOMPARE(int{index.index}, expected);
    QCOMPARE(index.DependOnSlot, withSlot);
    QCOMPARE(index.DependOnSlotGroup, withSlotGroup);
    QCOMPARE(index.AdaptAutomatically, false);
}

void tst_ModuleInitCmds::subIndex_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<int>("expected");
    QTest::addRow("decimal") << "12" << 12;
    QTest::addRow("wider than in a device") << "#x101" << 0x101;
    QTest::addRow("cut to 16 bits") << "#x12345" << 0x2345;
    QTest::addRow("no number") << "none" << 0;
}

void tst_ModuleInitCmds::subIndex()
{
    QFETCH(QString, value);
    QFETCH(int, expected);
    QCOMPARE(int{commandOf(QStringLiteral("<SubIndex>%1</SubIndex>").arg(value)).SubIndex}, expected);
}

void tst_ModuleInitCmds::data_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<int>("bytes");
    QTest::addColumn<unsigned int>("number");
    QTest::addColumn<QString>("shown");
    QTest::addRow("two bytes") << "0100" << 2 << 1U << "0x1";
    QTest::addRow("four bytes") << "78563412" << 4 << 0x12345678U << "0x12345678";
    QTest::addRow("a mark stops the swap and counts as a byte") << "#x0A0B" << 3 << 0x0A0BU << "0xa0b";
    QTest::addRow("half a byte is not counted") << "ABC" << 1 << 0xBCU << "0xbc";
    QTest::addRow("more than four bytes keep their count") << "0102030405" << 5 << 0U << "0x00";
    QTest::addRow("empty") << "" << 0 << 0U << "0x00";
}

void tst_ModuleInitCmds::data()
{
    QFETCH(QString, value);
    QFETCH(int, bytes);
    QFETCH(unsigned int, number);
    QFETCH(QString, shown);
    const struct_moduleInitCmd command = commandOf(QStringLiteral("<Data>%1</Data>").arg(value));
    QCOMPARE(int{command.DataBytes}, bytes);
    QCOMPARE(command.Data, number);
    QCOMPARE(text(command.strData), shown);
}

void tst_ModuleInitCmds::lastTransitionWins()
{
    QCOMPARE(commandOf("<Transition>IP</Transition><Transition>ps</Transition>").Transition, PS);
    QCOMPARE(commandOf("<Transition>IP</Transition><Transition>XY</Transition>").Transition, UnknownType);
}

void tst_ModuleInitCmds::namesAreExact()
{
    const struct_moduleInitCmd command = commandOf("<transition>PS</transition><index>1</index><Subindex>1</Subindex>"
                                                   "<data>01</data><comment>x</comment>");
    QCOMPARE(command.Transition, UnknownType);
    QCOMPARE(int{command.indexAttributes.index}, 0);
    QCOMPARE(int{command.SubIndex}, 0);
    QCOMPARE(int{command.DataBytes}, 0);
    QVERIFY(command.Comment.empty());
}

void tst_ModuleInitCmds::otherPartsOfTheMailbox_data()
{
    QTest::addColumn<QString>("xml");
    QTest::addColumn<int>("commands");
    QTest::addRow("none") << "" << 0;
    QTest::addRow("CoE alone") << "<CoE SdoInfo='1'/>" << 0;
    QTest::addRow("another child of CoE") << "<CoE><Object/><initcmd/></CoE>" << 0;
    QTest::addRow("another protocol") << "<EoE><InitCmd/></EoE><SoE><InitCmd/></SoE>" << 0;
    QTest::addRow("in other case") << "<COE><InitCmd/></COE>" << 0;
    QTest::addRow("directly in the mailbox") << "<InitCmd/>" << 0;
    QTest::addRow("two CoE elements") << "<CoE><InitCmd/></CoE><CoE><InitCmd/></CoE>" << 2;
    QTest::addRow("a second mailbox") << "<CoE><InitCmd/></CoE></Mailbox><Mailbox><CoE><InitCmd/></CoE>" << 2;
}

void tst_ModuleInitCmds::otherPartsOfTheMailbox()
{
    QFETCH(QString, xml);
    QFETCH(int, commands);
    QCOMPARE(static_cast<int>(moduleWithMailbox(xml).Mailbox.COE.vinitcmd.size()), commands);
}

void tst_ModuleInitCmds::commandsInDocumentOrder()
{
    const struct_module module = moduleWithMailbox("<CoE><InitCmd><Index>2</Index></InitCmd><!-- x --><InitCmd><Index>1"
                                                   "</Index></InitCmd></CoE>");
    QCOMPARE(module.Mailbox.COE.vinitcmd.size(), std::size_t{2});
    QCOMPARE(int{module.Mailbox.COE.vinitcmd[0].indexAttributes.index}, 2);
    QCOMPARE(int{module.Mailbox.COE.vinitcmd[1].indexAttributes.index}, 1);
}

static const testMain::Registration<tst_ModuleInitCmds, QCoreApplication> registration;
#include "tst_ModuleInitCmds.moc"
