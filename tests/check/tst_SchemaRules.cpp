// Where a file departs from the ESI schema: what is told, once for each kind, and what is right.
// Covers schemaFaults.cpp, schemaRowsFile.cpp, schemaRowsModular.cpp, treeFacts.cpp.
#include "checkParts.h"
#include "testMain.h"

#include "check/rules/report.h"

#include <QtTest>

class tst_SchemaRules : public QObject
{
    Q_OBJECT

private slots:
    static void element_data();
    static void element();
    static void attribute_data();
    static void attribute();
    static void order_data();
    static void order();
    static void rootElement_data();
    static void rootElement();
    static void manyKinds();
};

static void addColumns()
{
    QTest::addColumn<QByteArray>("parts");
    QTest::addColumn<QStringList>("findings");
}

void tst_SchemaRules::element_data()
{
    addColumns();
    QTest::addRow("unknown") << QByteArray("<Fmmu>Outputs</Fmmu>\n <SyncManager/>")
                             << QStringList{"4:2: element \"SyncManager\" is not known in \"Device\""};
    QTest::addRow("names are exact") << QByteArray("<fmmu>Outputs</fmmu>")
                                     << QStringList{"3:1: element \"fmmu\" is not known in \"Device\""};
    QTest::addRow("told once, with their number")
        << QByteArray("<Zu/><Zu/><Zu/>")
        << QStringList{"3:1: element \"Zu\" is not known in \"Device\"; it occurs 3 times"};
    QTest::addRow("in two parents, told for each") << QByteArray("<RxPdo><Zu/></RxPdo>\n<TxPdo><Zu/></TxPdo>")
                                                   << QStringList{"3:8: element \"Zu\" is not known in \"RxPdo\"",
                                                                  "4:8: element \"Zu\" is not known in \"TxPdo\""};
    QTest::addRow("known elsewhere") << QByteArray("<Slot/>")
                                     << QStringList{"3:1: element \"Slot\" is not known in \"Device\""};
    QTest::addRow("what is in an unknown one is not looked into")
        << QByteArray("<Zu><Zo/></Zu>") << QStringList{"3:1: element \"Zu\" is not known in \"Device\""};
    QTest::addRow("in a plain value") << QByteArray("<Dc><OpMode><Name>A<b/></Name></OpMode></Dc>")
                                      << QStringList{"3:20: element \"b\" is not known in \"Name\""};
    QTest::addRow("in a plain value without text") << QByteArray("<Dc><OpMode><Name><b/></Name></OpMode></Dc>")
                                                   << QStringList{"3:19: element \"b\" is not known in \"Name\""};
    QTest::addRow("twice where one is allowed")
        << QByteArray("<Mailbox/><Mailbox/>")
        << QStringList{"3:11: element \"Mailbox\" may be in \"Device\" only once"};
    QTest::addRow("of another branch of a choice")
        << QByteArray(
               "<Slots><Slot><ModuleIdent>1</ModuleIdent><ModuleClass><Class>A</Class></ModuleClass></Slot></Slots>")
        << QStringList{"3:42: element \"ModuleClass\" is not allowed in \"Slot\" together with \"ModuleIdent\""};
    QTest::addRow("the same backwards")
        << QByteArray(
               "<Slots><Slot><ModuleClass><Class>A</Class></ModuleClass><ModuleIdent>1</ModuleIdent></Slot></Slots>")
        << QStringList{"3:57: element \"ModuleIdent\" is not allowed in \"Slot\" together with \"ModuleClass\""};
    QTest::addRow("all right") << QByteArray(
        "<Fmmu>Outputs</Fmmu><Fmmu>Inputs</Fmmu><Sm>MBoxOut</Sm><RxPdo/><Mailbox/>")
                               << QStringList();
    QTest::addRow("the content of vendors is not looked into")
        << QByteArray("<Mailbox><VoE><Zu/></VoE></Mailbox><VendorSpecific><Zu a='1'><Zo/></Zu></VendorSpecific>")
        << QStringList();
    QTest::addRow("objects in objects, as deep as one likes")
        << QByteArray("<Profile><Dictionary><Objects><Object><Index>1</Index><Name/><Type/><BitSize>8</BitSize><Info>"
                      "<SubItem><Name/><Info><SubItem><Name/><Info><Zu/></Info></SubItem></Info></SubItem>"
                      "</Info></Object></Objects></Dictionary></Profile>")
        << QStringList{"3:139: element \"Zu\" is not known in \"Info\""};
}

void tst_SchemaRules::element()
{
    QFETCH(QByteArray, parts);
    QTEST(checkParts::findingsOf("schema-element", checkParts::deviceFile(parts)), "findings");
}

void tst_SchemaRules::attribute_data()
{
    addColumns();
    QTest::addRow("unknown") << QByteArray("\n  <RxPdo Sm='2' Channel='1'/>")
                             << QStringList{"4:3: attribute \"Channel\" is not known on \"RxPdo\""};
    QTest::addRow("names are exact") << QByteArray("<RxPdo sm='2'/>")
                                     << QStringList{"3:1: attribute \"sm\" is not known on \"RxPdo\""};
    QTest::addRow("told once, with their number")
        << QByteArray("<RxPdo a='2'/><RxPdo a='3' b='1'/>")
        << QStringList{"3:1: attribute \"a\" is not known on \"RxPdo\"; it occurs 2 times",
                       "3:15: attribute \"b\" is not known on \"RxPdo\""};
    QTest::addRow("on a plain value") << QByteArray("<Dc><OpMode><Name a='1'>A</Name></OpMode></Dc>")
                                      << QStringList{"3:13: attribute \"a\" is not known on \"Name\""};
    QTest::addRow("known, in any order") << QByteArray("<RxPdo Sm='2' Mandatory='1' Fixed='1'/>") << QStringList();
    QTest::addRow("those of XML") << QByteArray("<RxPdo xml:lang='en' xml:space='preserve' xml:base='.'/>")
                                  << QStringList();
}

void tst_SchemaRules::attribute()
{
    QFETCH(QByteArray, parts);
    QTEST(checkParts::findingsOf("schema-attribute", checkParts::deviceFile(parts)), "findings");
}

void tst_SchemaRules::order_data()
{
    addColumns();
    QTest::addRow("too late") << QByteArray("<RxPdo/><Sm>Outputs</Sm>")
                              << QStringList{"3:9: element \"Sm\" is after \"RxPdo\" in \"Device\", the schema has it "
                                             "before"};
    QTest::addRow("what follows one that is too late counts from there")
        << QByteArray("<Mailbox/><Fmmu>Outputs</Fmmu><Sm>Outputs</Sm><RxPdo/>")
        << QStringList{"3:11: element \"Fmmu\" is after \"Mailbox\" in \"Device\", the schema has it before"};
    QTest::addRow("told once, with their number")
        << QByteArray("<RxPdo><Entry><BitLen>8</BitLen><Index>1</Index></Entry>\n"
                      "<Entry><BitLen>8</BitLen><Index>1</Index></Entry></RxPdo>")
        << QStringList{"3:33: element \"Index\" is after \"BitLen\" in \"Entry\", the schema has it before; it occurs "
                       "2 times"};
    QTest::addRow("in order") << QByteArray("<Sm>Outputs</Sm><RxPdo/><TxPdo/><Mailbox/><Dc/>") << QStringList();
    QTest::addRow("an unknown one between is no matter")
        << QByteArray("<Sm>Outputs</Sm><Zu/><RxPdo/>") << QStringList();
}

void tst_SchemaRules::order()
{
    QFETCH(QByteArray, parts);
    QTEST(checkParts::findingsOf("schema-order", checkParts::deviceFile(parts)), "findings");
}

void tst_SchemaRules::rootElement_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QStringList>("elements");
    QTest::addColumn<QStringList>("attributes");
    QTest::addRow("of a description") << QByteArray(
        "<EtherCATInfo Version='1.17' Zo='1' xmlns:xsi='http://www.w3.org/2001/XMLSchema-instance' "
        "xsi:noNamespaceSchemaLocation='EtherCATInfo.xsd'><Zu/></EtherCATInfo>")
                                      << QStringList{"1:140: element \"Zu\" is not known in \"EtherCATInfo\""}
                                      << QStringList{"1:1: attribute \"Zo\" is not known on \"EtherCATInfo\""};
    QTest::addRow("of a dictionary") << QByteArray("<EtherCATDict><Dictionary><Zu/></Dictionary></EtherCATDict>")
                                     << QStringList{"1:27: element \"Zu\" is not known in \"Dictionary\""}
                                     << QStringList();
    QTest::addRow("of diagnosis messages")
        << QByteArray("<EtherCATDiag><Zu/></EtherCATDiag>")
        << QStringList{"1:15: element \"Zu\" is not known in \"EtherCATDiag\""} << QStringList();
    QTest::addRow("of something else") << QByteArray("<EtherCATModule Zo='1'><Zu/></EtherCATModule>") << QStringList()
                                       << QStringList();
}

void tst_SchemaRules::rootElement()
{
    QFETCH(QByteArray, file);
    QTEST(checkParts::findingsOf("schema-element", file), "elements");
    QTEST(checkParts::findingsOf("schema-attribute", file), "attributes");
}

// A file that is nothing but unknown names gives no more findings than others.
void tst_SchemaRules::manyKinds()
{
    QByteArray parts;
    constexpr int more = 5;
    for (int number = 0; number < static_cast<int>(check::Report::maxOfRule) + more; ++number)
        parts += "<Z" + QByteArray::number(number) + "/>";
    const check::Findings findings = checkParts::LoadedFile(checkParts::deviceFile(parts)).findings();
    QCOMPARE(checkParts::linesOf(findings, "schema-element").size(), static_cast<int>(check::Report::maxOfRule));
    QCOMPARE(static_cast<int>(check::omittedIn(findings)), more);
}

static const testMain::Registration<tst_SchemaRules, testMain::NoApplication> registration;
#include "tst_SchemaRules.moc"
