// Values that are not what they have to be: each rule with values that it fires on, and others that are just right.
// Covers valueFaults.cpp, valueKind.cpp.
#include "checkParts.h"
#include "testMain.h"

#include "check/rules/report.h"

#include <QtTest>

class tst_ValueRules : public QObject
{
    Q_OBJECT

private slots:
    static void number_data();
    static void number();
    static void cut_data();
    static void cut();
    static void boolean_data();
    static void boolean();
    static void token_data();
    static void token();
    static void dataType_data();
    static void dataType();
    static void dataTypeOfModule();
    static void owners();
    static void many();
};

static void addColumns()
{
    QTest::addColumn<QByteArray>("parts");
    QTest::addColumn<QStringList>("findings");
}

static QByteArray command(const QByteArray& parts)
{
    return "<Mailbox><CoE><InitCmd>" + parts + "</InitCmd></CoE></Mailbox>";
}

static QByteArray entry(const QByteArray& parts)
{
    return "<RxPdo><Entry>" + parts + "</Entry></RxPdo>";
}

void tst_ValueRules::number_data()
{
    addColumns();
    const auto unread = [](const char* place, const char* value) {
        return QStringList{QStringLiteral("%1: BitLen is \"%2\", which is no number from 0 on and is read as 0")
                               .arg(QLatin1String(place), QLatin1String(value))};
    };
    QTest::addRow("word") << entry("<BitLen>eight</BitLen>") << unread("3:15", "eight");
    QTest::addRow("negative") << entry("\n <BitLen>-8</BitLen>") << unread("4:2", "-8");
    QTest::addRow("with a unit") << entry("<BitLen>8 bit</BitLen>") << unread("3:15", "8 bit");
    QTest::addRow("mark of another language") << entry("<BitLen>16#8</BitLen>") << unread("3:15", "16#8");
    QTest::addRow("attribute") << QByteArray("<RxPdo Sm='two'/>")
                               << QStringList{
                                      "3:1: Sm of RxPdo is \"two\", which is no number from 0 on and is read as "
                                      "0"};
    QTest::addRow("signed") << QByteArray("<Dc><OpMode><ShiftTimeSync0>1.5</ShiftTimeSync0></OpMode></Dc>")
                            << QStringList{"3:13: ShiftTimeSync0 is \"1.5\", which is no number and is read as 0"};
    QTest::addRow("that nothing reads") << QByteArray("<RxPdo PdoOrder='first'/>")
                                        << QStringList{"3:1: PdoOrder of RxPdo is \"first\", which is no whole number"};
    QTest::addRow("bytes") << command("<Data>0G</Data>")
                           << QStringList{"3:24: Data is \"0G\", which is not made of hexadecimal digits alone"};
    QTest::addRow("bytes with a blank") << command(
        "<Data>0A 0B</Data>") << QStringList{"3:24: Data is \"0A 0B\", which is not made of hexadecimal digits alone"};
    QTest::addRow("bytes after 0x") << command(
        "<Data>0x0A</Data>") << QStringList{"3:24: Data is \"0x0A\", which is not made of hexadecimal digits alone"};
    QTest::addRow("bytes that nothing reads")
        << QByteArray("<ImageData16x14>0G</ImageData16x14>")
        << QStringList{"3:1: ImageData16x14 is \"0G\", which is not made of hexadecimal digits alone"};
    QTest::addRow("right: unread bytes in lines")
        << QByteArray("<ImageData16x14>\n0A 0B\n0C</ImageData16x14>") << QStringList();
    QTest::addRow("a mark alone") << command("<Data>#x</Data>")
                                  << QStringList{"3:24: Data is \"#x\", which is not made of hexadecimal digits alone"};
    for (const char* const right : {"8", "#x8", "0x8", "#X8", " 8 ", "", "0", "#x0", "08", "#x0x8", "1A", "true", "+8"})
        QTest::addRow("right: '%s'", right) << entry("<BitLen>" + QByteArray(right) + "</BitLen>") << QStringList();
    for (const char* const right : {"-5", "+5", "0", "#x10", "", "2147483647"})
        QTest::addRow("right signed: '%s'", right)
            << "<Dc><OpMode><ShiftTimeSync0>" + QByteArray(right) + "</ShiftTimeSync0></OpMode></Dc>" << QStringList();
    for (const char* const right : {"-1", "18446744073709551615", "#xFFFFFFFFFFFFFFFF", ""})
        QTest::addRow("right unread: '%s'", right) << "<RxPdo PdoOrder='" + QByteArray(right) + "'/>" << QStringList();
    for (const char* const right : {"0A0B", "#x0a0b", "00112233445566778899", "", "#xA"})
        QTest::addRow("right bytes: '%s'", right) << command("<Data>" + QByteArray(right) + "</Data>") << QStringList();
    QTest::addRow("right: beside a comment") << entry("<BitLen>1<!-- -->6</BitLen>") << QStringList();
    QTest::addRow("beside a comment") << entry("<BitLen>1<!-- -->z</BitLen>") << unread("3:15", "1z");
}

void tst_ValueRules::number()
{
    QFETCH(QByteArray, parts);
    QTEST(checkParts::findingsOf("value-number", checkParts::deviceFile(parts)), "findings");
}

void tst_ValueRules::cut_data()
{
    addColumns();
    QTest::addRow("index") << command("<Index>#x1C120</Index>")
                           << QStringList{"3:24: Index is \"#x1C120\", which is more than the 16 bits of its field "
                                          "hold; 0xc120 is left of it"};
    QTest::addRow("sub-index") << command("<SubIndex>256</SubIndex>")
                               << QStringList{"3:24: SubIndex is \"256\", which is more than the 8 bits of its field "
                                              "hold; 0x00 is left of it"};
    QTest::addRow("sub-index of an entry") << entry("<SubIndex>256</SubIndex>")
                                           << QStringList{"3:15: SubIndex is \"256\", which is more than the 8 bits of "
                                                          "a sub-index"};
    QTest::addRow("address") << QByteArray("<Sm StartAddress='65536'>Outputs</Sm>")
                             << QStringList{"3:1: StartAddress of Sm is \"65536\", which is more than the 16 bits of "
                                            "its field hold; 0x00 is left of it"};
    QTest::addRow("more than 32 bits") << entry("<BitLen>4294967296</BitLen>")
                                       << QStringList{
                                              "3:15: BitLen is \"4294967296\", which is more than 32 bits hold, "
                                              "and is read as 0"};
    QTest::addRow("signed") << QByteArray("<Dc><OpMode><CycleTimeSync0>#x80000000</CycleTimeSync0></OpMode></Dc>")
                            << QStringList{"3:13: CycleTimeSync0 is \"#x80000000\", which does not fit a signed number "
                                           "of 32 bits, and is read as 0"};
    QTest::addRow("half a byte") << command("<Data>ABC</Data>")
                                 << QStringList{"3:24: Data is \"ABC\", an odd number of hexadecimal digits; two make "
                                                "a byte"};
    QTest::addRow("right: all that fits")
        << command("<Index>#xFFFF</Index><SubIndex>255</SubIndex><Data>ABCD</Data>") << QStringList();
    QTest::addRow("right: sub-index of an entry") << entry("<SubIndex>255</SubIndex>") << QStringList();
    QTest::addRow("right: 32 bits") << entry("<BitLen>4294967295</BitLen>") << QStringList();
    QTest::addRow("right: signed") << QByteArray(
        "<Dc><OpMode><CycleTimeSync0>-2147483648</CycleTimeSync0></OpMode></Dc>")
                                   << QStringList();
}

void tst_ValueRules::cut()
{
    QFETCH(QByteArray, parts);
    QTEST(checkParts::findingsOf("value-cut", checkParts::deviceFile(parts)), "findings");
}

void tst_ValueRules::boolean_data()
{
    addColumns();
    const auto counts = [](const char* value, const char* as) {
        return QStringList{
            QStringLiteral("3:1: Fixed of RxPdo is \"%1\", which is neither true nor false and counts as %2")
                .arg(QLatin1String(value), QLatin1String(as))};
    };
    const std::array<std::pair<const char*, const char*>, 6> wrong{
        {{"yes", "false"}, {"2", "true"}, {"#x1", "false"}, {" true", "false"}, {"-1", "false"}, {"01", "true"}}};
    for (const auto& [value, as] : wrong)
        QTest::addRow("'%s'", value) << "<RxPdo Fixed='" + QByteArray(value) + "'/>" << counts(value, as);
    for (const char* const right : {"true", "false", "1", "0", "TRUE", "False", ""})
        QTest::addRow("right: '%s'", right) << "<RxPdo Fixed='" + QByteArray(right) + "'/>" << QStringList();
}

void tst_ValueRules::boolean()
{
    QFETCH(QByteArray, parts);
    QTEST(checkParts::findingsOf("value-boolean", checkParts::deviceFile(parts)), "findings");
}

void tst_ValueRules::token_data()
{
    addColumns();
    QTest::addRow("transition") << command("<Transition>PREOP</Transition>")
                                << QStringList{
                                       "3:24: Transition is \"PREOP\", which is none of IP, PS, SO, SP, OP, OS, "
                                       "PI, SI, OI, IB, BI"};
    QTest::addRow("access") << QByteArray(
        "<Profile><Dictionary><Objects><Object><Flags>\n<Access>r</Access></Flags></Object>"
        "</Objects></Dictionary></Profile>")
                            << QStringList{"4:1: Access is \"r\", which is none of RO, RW, WO"};
    QTest::addRow("part of a list") << command("<Transition>IP PS</Transition>")
                                    << QStringList{
                                           "3:24: Transition is \"IP PS\", which is none of IP, PS, SO, SP, OP, "
                                           "OS, PI, SI, OI, IB, BI"};
    QTest::addRow("attribute") << QByteArray("<Slots DownloadModuleListTransition='OP'/>")
                               << QStringList{"3:1: DownloadModuleListTransition of Slots is \"OP\", which is none of "
                                              "IP, PS, SO"};
    for (const char* const right : {"PS", "ps", "IB", ""})
        QTest::addRow("right: '%s'", right)
            << command("<Transition>" + QByteArray(right) + "</Transition>") << QStringList();
    QTest::addRow("right: scale") << entry(
        "<DataType DScale='0.1\302\260'>INT</DataType><DataType DScale='4-20(16)'>INT</DataType>")
                                  << QStringList();
}

void tst_ValueRules::token()
{
    QFETCH(QByteArray, parts);
    QTEST(checkParts::findingsOf("value-token", checkParts::deviceFile(parts)), "findings");
}

void tst_ValueRules::dataType_data()
{
    addColumns();
    const auto unknown = [](const char* name) {
        return QStringList{QStringLiteral("3:15: DataType is \"%1\", which is no base type, and no dictionary of the "
                                          "device or module declares it")
                               .arg(QLatin1String(name))};
    };
    for (const char* const name : {"UINT16", "uint", "STRING()", "STRING(a)", "BITS", "ARRAY [0..3] OF", "DT1A00",
                                   "ARRAY [0..3] OF UINT16", "ARRAY", "INT12"})
        QTest::addRow("unknown: %s", name) << entry("<DataType>" + QByteArray(name) + "</DataType>") << unknown(name);
    for (const char* const name : {"BOOL",
                                   "SINT",
                                   "USINT",
                                   "INT",
                                   "UINT",
                                   "DINT",
                                   "UDINT",
                                   "LINT",
                                   "ULINT",
                                   "REAL",
                                   "LREAL",
                                   "BYTE",
                                   "WORD",
                                   "DWORD",
                                   "INT24",
                                   "UINT56",
                                   "BIT3",
                                   "BIT",
                                   "BITARR8",
                                   "STRING(12)",
                                   "UNICODE_STRING(4)",
                                   "OCTET_STRING(2)",
                                   "TIME_OF_DAY",
                                   "GUID",
                                   "ARRAY [0..3] OF BYTE",
                                   "ARRAY [0..1] OF ARRAY [0..1] OF INT",
                                   "",
                                   "STRING[3]"})
        QTest::addRow("base: '%s'", name) << entry("<DataType>" + QByteArray(name) + "</DataType>") << QStringList();
    const QByteArray declaration =
        "<Profile><Dictionary><DataTypes><DataType><Name>ENUM0800</Name></DataType></DataTypes>"
        "</Dictionary></Profile>";
    for (const char* const name : {"ENUM0800", "ARRAY [0..1] OF ENUM0800"})
        QTest::addRow("declared: %s", name)
            << declaration + entry("<DataType>" + QByteArray(name) + "</DataType>") << QStringList();
    QTest::addRow("declared after it") << entry("<DataType>ENUM0800</DataType>") + declaration << QStringList();
    QTest::addRow("in a file of its own")
        << "<Profile><DictionaryFile>d.xml</DictionaryFile></Profile>" + entry("<DataType>ENUM0800</DataType>")
        << QStringList();
    QTest::addRow("declared by another device")
        << entry("<DataType>ENUM0800</DataType>") + "</Device><Device>" + declaration << unknown("ENUM0800");
}

void tst_ValueRules::dataType()
{
    QFETCH(QByteArray, parts);
    QTEST(checkParts::findingsOf("value-data-type", checkParts::deviceFile(parts)), "findings");
}

// A module has the types of its own dictionary and of the devices whose slots it goes into.
void tst_ValueRules::dataTypeOfModule()
{
    const QByteArray device = "<Profile><Dictionary><DataTypes><DataType><Name>ENUM0800</Name></DataType></DataTypes>"
                              "</Dictionary></Profile>\n";
    const QByteArray modules = "<Module>" + entry("<DataType>ENUM0800</DataType>") + "</Module>\n<Module>"
                               + entry("<DataType>ENUM0801</DataType>") + "</Module>";
    QCOMPARE(checkParts::findingsOf("value-data-type", checkParts::deviceFile(device, modules)),
             QStringList{"6:23: DataType is \"ENUM0801\", which is no base type, and no dictionary of the device or "
                         "module declares it"});
}

void tst_ValueRules::owners()
{
    const QByteArray wrong = "<RxPdo Sm='x'/>";
    QByteArray file = checkParts::deviceFile("</Device><Device>" + wrong, "<Module/><Module>" + wrong + "</Module>");
    file.replace("#x7e57", "x");
    const check::Findings findings = checkParts::LoadedFile(file).findings();
    QStringList owners;
    for (const check::Finding& finding : findings.list)
        if (finding.rule->code == "value-number")
            owners += QStringLiteral("%1 %2").arg(static_cast<int>(finding.owner.kind)).arg(finding.owner.index);
    QCOMPARE(owners, (QStringList{"0 0", "1 1", "2 1"})); // the file, its second device, its second module
}

// Of one mistake that is made again and again a thousand places are told.
void tst_ValueRules::many()
{
    constexpr int more = 7;
    const QByteArray wrong = QByteArray("<URL LcId='x'/>").repeated(static_cast<int>(check::Report::maxOfRule) + more);
    const check::Findings findings = checkParts::LoadedFile(checkParts::deviceFile(wrong)).findings();
    QCOMPARE(checkParts::linesOf(findings, "value-number").size(), static_cast<int>(check::Report::maxOfRule));
    QCOMPARE(static_cast<int>(check::omittedIn(findings)), more);
    QCOMPARE(findings.omissions.at(0).rule->code, std::string_view("value-number"));
}

static const testMain::Registration<tst_ValueRules, testMain::NoApplication> registration;
#include "tst_ValueRules.moc"
