// The `Mailbox` element of a device: flags of EoE and CoE, and the startup commands that a device declares.
#include "esi/readSection.h"
#include "esi/xmlparsing.h"
#include "testMain.h"

#include <QtTest>

class tst_MailboxSection : public QObject
{
    Q_OBJECT

private slots:
    static void flag_data();
    static void flag();
    static void flagValue_data();
    static void flagValue();
    static void completeAccessIsNeverRead();
    static void eoeCommandsAreNotRead();
    static void otherProtocolsArePassedOver();
    static void command();
    static void commandsInDocumentOrder();
    static void missingDataLeavesTheFields();
    static void data_data();
    static void data();
    static void dataLengthIsCut();
    static void lastTransitionWins();
    static void numbersAreCut();
    static void namesAreExact();
    static void secondMailboxAddsToTheFirst();
    static void nullPointers();
};

namespace {

/// The one command of a mailbox that declares one, from the children of its `InitCmd`.
struct_InitCmd commandOf(const QString& children)
{
    const struct_EtherCatDevice device = readSection(
        read_device_Mailboxinfo, QStringLiteral("<Mailbox><CoE><InitCmd>%1</InitCmd></CoE></Mailbox>").arg(children));
    return device.Mailbox.COE.InitCmd.vinitcmd.at(0);
}

/// Names of the flags that are set, in the order of the record.
QStringList flagsOf(const DeviceMailbox& mailbox)
{
    QStringList names;
    const auto add = [&names](bool isSet, const char* name) {
        if (isSet)
            names << QString::fromLatin1(name);
    };
    add(mailbox.EOE.Attributes.IP, "EoE IP");
    add(mailbox.EOE.Attributes.MAC, "EoE MAC");
    add(mailbox.COE.Attributes.SdoInfo, "SdoInfo");
    add(mailbox.COE.Attributes.PdoAssign, "PdoAssign");
    add(mailbox.COE.Attributes.PdoUpload, "PdoUpload");
    add(mailbox.COE.Attributes.PdoConfig, "PdoConfig");
    add(mailbox.COE.Attributes.SegmentedSdo, "SegmentedSdo");
    add(mailbox.COE.Attributes.CompleteAccess, "CompleteAccess");
    add(mailbox.COE.Attributes.DiagHistory, "DiagHistory");
    return names;
}

} // namespace

void tst_MailboxSection::flag_data()
{
    QTest::addColumn<QString>("xml");
    QTest::addColumn<QStringList>("expected");
    QTest::addRow("EoE without attributes") << "<EoE/>" << QStringList{};
    QTest::addRow("EoE IP") << R"(<EoE IP="1"/>)" << QStringList{"EoE IP"};
    QTest::addRow("EoE MAC") << R"(<EoE MAC="1"/>)" << QStringList{"EoE MAC"};
    QTest::addRow("EoE both") << R"(<EoE MAC="true" IP="true"/>)" << QStringList{"EoE IP", "EoE MAC"};
    QTest::addRow("CoE without attributes") << "<CoE/>" << QStringList{};
    QTest::addRow("SdoInfo") << R"(<CoE SdoInfo="1"/>)" << QStringList{"SdoInfo"};
    QTest::addRow("PdoAssign") << R"(<CoE PdoAssign="1"/>)" << QStringList{"PdoAssign"};
    QTest::addRow("PdoUpload") << R"(<CoE PdoUpload="1"/>)" << QStringList{"PdoUpload"};
    QTest::addRow("PdoConfig") << R"(<CoE PdoConfig="1"/>)" << QStringList{"PdoConfig"};
    QTest::addRow("SegmentedSdo") << R"(<CoE SegmentedSdo="1"/>)" << QStringList{"SegmentedSdo"};
    QTest::addRow("DiagHistory") << R"(<CoE DiagHistory="1"/>)" << QStringList{"DiagHistory"};
    QTest::addRow("both protocols") << R"(<EoE IP="1"/><CoE SdoInfo="1"/>)" << QStringList{"EoE IP", "SdoInfo"};
    QTest::addRow("the other protocol's names mean nothing")
        << R"(<EoE SdoInfo="1"/><CoE IP="1" MAC="1"/>)" << QStringList{};
    QTest::addRow("attribute in other case") << R"(<CoE sdoinfo="1" SDOINFO="1"/>)" << QStringList{};
    QTest::addRow("protocol in other case") << R"(<COE SdoInfo="1"/><eoe IP="1"/>)" << QStringList{};
    QTest::addRow("prefixed") << R"(<e:CoE xmlns:e="urn:example" e:SdoInfo="1"/>)" << QStringList{"SdoInfo"};
    QTest::addRow("only children of the mailbox count") << R"(<Other><CoE SdoInfo="1"/></Other>)" << QStringList{};
    QTest::addRow("a later element overrides") << R"(<CoE SdoInfo="1"/><CoE SdoInfo="0"/>)" << QStringList{};
}

void tst_MailboxSection::flag()
{
    QFETCH(QString, xml);
    QFETCH(QStringList, expected);
    const struct_EtherCatDevice device =
        readSection(read_device_Mailboxinfo, QStringLiteral("<Mailbox>%1</Mailbox>").arg(xml));
    QCOMPARE(flagsOf(device.Mailbox), expected);
}

void tst_MailboxSection::flagValue_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<bool>("expected");
    QTest::addRow("true") << "true" << true;
    QTest::addRow("one") << "1" << true;
    QTest::addRow("false") << "false" << false;
    QTest::addRow("zero") << "0" << false;
    QTest::addRow("a truth value, not a number: hexadecimal is false") << "#x1" << false;
}

void tst_MailboxSection::flagValue()
{
    QFETCH(QString, value);
    QFETCH(bool, expected);
    const struct_EtherCatDevice device =
        readSection(read_device_Mailboxinfo,
                    QStringLiteral(R"(<Mailbox><EoE IP="%1"/><CoE PdoConfig="%1"/></Mailbox>)").arg(value));
    QCOMPARE(device.Mailbox.EOE.Attributes.IP, expected);
    QCOMPARE(device.Mailbox.COE.Attributes.PdoConfig, expected);
}

void tst_MailboxSection::completeAccessIsNeverRead()
{
    const struct_EtherCatDevice device =
        readSection(read_device_Mailboxinfo, R"(<Mailbox><CoE CompleteAccess="1"/></Mailbox>)");
    QCOMPARE(device.Mailbox.COE.Attributes.CompleteAccess, false);
}

void tst_MailboxSection::eoeCommandsAreNotRead()
{
    const struct_EtherCatDevice device = readSection(
        read_device_Mailboxinfo, "<Mailbox><EoE><InitCmd><Transition>PS</Transition></InitCmd></EoE></Mailbox>");
    QVERIFY(device.Mailbox.EOE.InitCmd.vinitcmd.empty());
    QVERIFY(device.Mailbox.COE.InitCmd.vinitcmd.empty());
}

void tst_MailboxSection::otherProtocolsArePassedOver()
{
    const struct_EtherCatDevice device =
        readSection(read_device_Mailboxinfo,
                    R"(<Mailbox><FoE SdoInfo="1"><InitCmd/></FoE><SoE/>text<CoE PdoAssign="1"/></Mailbox>)");
    QCOMPARE(flagsOf(device.Mailbox), QStringList{"PdoAssign"});
    QVERIFY(device.Mailbox.COE.InitCmd.vinitcmd.empty());
}

void tst_MailboxSection::command()
{
    const struct_InitCmd command = commandOf("<Transition>PS</Transition><Index>#x6060</Index><SubIndex>3</SubIndex>"
                                             "<Data>0A0B</Data><Comment>mode of operation</Comment>");
    QCOMPARE(command.Transition, PS);
    QCOMPARE(int{command.Index}, 0x6060);
    QCOMPARE(int{command.SubIndex}, 3);
    QCOMPARE(int{command.DataBytes}, 2);
    QCOMPARE(command.Data, 0x0B0AU);
    QCOMPARE(text(command.strData), QStringLiteral("0xb0a"));
    QCOMPARE(text(command.Comment), QStringLiteral("mode of operation"));
    QCOMPARE(int{command.bIfCA}, 0);
    QVERIFY(command.m_CADataList.empty());
}

void tst_MailboxSection::commandsInDocumentOrder()
{
    const struct_EtherCatDevice device = readSection(
        read_device_Mailboxinfo, "<Mailbox><CoE><InitCmd Index='9' Fixed='1'><Index>1</Index><Comment>first</Comment>"
                                 "</InitCmd><Object/><InitCmd><Index>2</Index></InitCmd><InitCmd/></CoE></Mailbox>");
    const auto& commands = device.Mailbox.COE.InitCmd.vinitcmd;
    QCOMPARE(commands.size(), std::size_t{3});
    QCOMPARE(int{commands[0].Index}, 1);
    QCOMPARE(int{commands[1].Index}, 2);
    QVERIFY2(commands[1].Comment.empty(), "each command starts cleared");
    QCOMPARE(int{commands[2].Index}, 0);
    QCOMPARE(commands[2].Transition, UnknownType);
}

void tst_MailboxSection::missingDataLeavesTheFields()
{
    const struct_InitCmd command = commandOf("<Transition>PS</Transition>");
    QCOMPARE(int{command.DataBytes}, 0);
    QCOMPARE(command.Data, 0U);
    QVERIFY(command.strData.empty());
}

void tst_MailboxSection::data_data()
{
    QTest::addColumn<QString>("dataText");
    QTest::addColumn<int>("bytes");
    QTest::addColumn<unsigned int>("number");
    QTest::addColumn<QString>("shown");
    QTest::addRow("one byte") << "08" << 1 << 8U << "0x8";
    QTest::addRow("two bytes, the least significant first") << "0A0B" << 2 << 0x0B0AU << "0xb0a";
    QTest::addRow("four bytes") << "78563412" << 4 << 0x12345678U << "0x12345678";
    QTest::addRow("zero") << "0000" << 2 << 0U << "0x00";
    QTest::addRow("an empty element still sets the text") << "" << 0 << 0U << "0x00";
    QTest::addRow("an odd length counts whole bytes") << "ABC" << 1 << 0xBCU << "0xbc";
    QTest::addRow("one character is no byte") << "A" << 0 << 0U << "0x00";
    QTest::addRow("the mark counts as a byte") << "#x0A0B" << 3 << 0x0A0BU << "0xa0b";
    QTest::addRow("more than four bytes: the length stays, the number is lost") << "0102030405" << 5 << 0U << "0x00";
}

void tst_MailboxSection::data()
{
    QFETCH(QString, dataText);
    QFETCH(int, bytes);
    QFETCH(unsigned int, number);
    QFETCH(QString, shown);
    const struct_InitCmd command = commandOf(QStringLiteral("<Data>%1</Data>").arg(dataText));
    QCOMPARE(int{command.DataBytes}, bytes);
    QCOMPARE(command.Data, number);
    QCOMPARE(text(command.strData), shown);
}

void tst_MailboxSection::dataLengthIsCut()
{
    // 65537 bytes of text are 1 in 16 bits.
    const struct_InitCmd command =
        commandOf(QStringLiteral("<Data>%1</Data>").arg(QString(2 * 65537, QLatin1Char('0'))));
    QCOMPARE(int{command.DataBytes}, 1);
}

void tst_MailboxSection::lastTransitionWins()
{
    const struct_InitCmd command = commandOf("<Transition>PS</Transition><Transition>SP</Transition>");
    QCOMPARE(command.Transition, SP);
}

void tst_MailboxSection::numbersAreCut()
{
    const struct_InitCmd command = commandOf("<Index>#x12345</Index><SubIndex>256</SubIndex>");
    QCOMPARE(int{command.Index}, 0x2345);
    QCOMPARE(int{command.SubIndex}, 0);
}

void tst_MailboxSection::namesAreExact()
{
    const struct_InitCmd command = commandOf("<transition>PS</transition><INDEX>1</INDEX><Subindex>1</Subindex>"
                                             "<data>01</data><Comments>no</Comments>");
    QCOMPARE(command.Transition, UnknownType);
    QCOMPARE(int{command.Index}, 0);
    QCOMPARE(int{command.SubIndex}, 0);
    QCOMPARE(int{command.DataBytes}, 0);
    QVERIFY(command.strData.empty());
    QVERIFY(command.Comment.empty());
}

void tst_MailboxSection::secondMailboxAddsToTheFirst()
{
    const struct_EtherCatDevice first = readSection(
        read_device_Mailboxinfo, R"(<Mailbox><CoE SdoInfo="1"><InitCmd><Index>1</Index></InitCmd></CoE></Mailbox>)");
    const struct_EtherCatDevice both =
        readSection(read_device_Mailboxinfo,
                    R"(<Mailbox><CoE PdoAssign="1"><InitCmd><Index>2</Index></InitCmd></CoE></Mailbox>)", first);
    QCOMPARE(flagsOf(both.Mailbox), (QStringList{"SdoInfo", "PdoAssign"}));
    QCOMPARE(both.Mailbox.COE.InitCmd.vinitcmd.size(), std::size_t{2});
    QCOMPARE(int{both.Mailbox.COE.InitCmd.vinitcmd[1].Index}, 2);
}

void tst_MailboxSection::nullPointers()
{
    struct_EtherCatDevice device;
    QDomDocument document;
    QVERIFY(document.setContent(QStringLiteral(R"(<Mailbox><CoE SdoInfo="1"/></Mailbox>)"), true));
    QDomElement element = document.documentElement();
    read_device_Mailboxinfo(nullptr, &device);
    read_device_Mailboxinfo(&element, nullptr);
    QCOMPARE(flagsOf(device.Mailbox), QStringList{});
}

static const testMain::Registration<tst_MailboxSection, QCoreApplication> registration;
#include "tst_MailboxSection.moc"
