// Startup commands against the dictionary: each rule with the smallest file that it fires on, and its twin that is just
// right.
#include "checkParts.h"
#include "facts/dictionaryParts.h"
#include "testMain.h"

#include <QtTest>

using namespace dictionaryParts;

class tst_StartupDictionaryRules : public QObject
{
    Q_OBJECT

private slots:
    static void findings_data();
    static void findings();
    static void withoutDictionary();
    static void generated();
    static void inModule_data();
    static void inModule();
    static void withSlots();
};

namespace {

/// The objects are on lines 5 to 8 of the file.
QByteArray someDictionary()
{
    return dictionary({}, object("#x2000", "UINT", 16, objectFlags("rw"))
                              + object("#x2001", "BOOL", 1, objectFlags("ro"))
                              + object("#x2002", "DT9999", 16, objectFlags("ro")) + object("#x2003", "DT9998", 48));
}

QByteArray command(const QByteArray& index, int subIndex, const QByteArray& data)
{
    return "<InitCmd><Transition>PS</Transition><Index>" + index + "</Index><SubIndex>" + QByteArray::number(subIndex)
           + "</SubIndex><Data>" + data + "</Data></InitCmd>\n";
}

QByteArray wholeObject(QByteArray command)
{
    return command.replace("<InitCmd>", "<InitCmd CompleteAccess='1'>");
}

/// The command is on line 11 of the file, if the dictionary is before it.
QByteArray mailbox(const QByteArray& commands)
{
    return "<Mailbox><CoE>\n" + commands + "</CoE></Mailbox>\n";
}

void addRow(const char* code, const char* name, const QByteArray& commands, const QStringList& findings)
{
    QTest::addRow("%s: %s", code, name) << QByteArray(code) << someDictionary() + mailbox(commands) << findings;
}

QStringList allFindings(const QByteArray& file)
{
    return checkParts::findingsOf("startup-object", file) + checkParts::findingsOf("startup-value-length", file)
           + checkParts::findingsOf("startup-read-only", file);
}

} // namespace

void tst_StartupDictionaryRules::findings_data()
{
    QTest::addColumn<QByteArray>("code");
    QTest::addColumn<QByteArray>("parts");
    QTest::addColumn<QStringList>("findings");
    const char* const object = "startup-object";
    addRow(object, "missing", command("#x2009", 0, "0000"),
           {"11:1: the command for 0x2009:0: the dictionary has no object 0x2009"});
    addRow(object, "there", command("#x2000", 0, "0000"), {});
    addRow(object, "sub-index", command("#x2000", 2, "0000"),
           {"11:1: the command for 0x2000:2: object 0x2000 of the dictionary has no sub-index 2"});
    addRow(object, "sub-index of an unknown type", command("#x2002", 2, "0000"), {});
    addRow(object, "two", command("#x2009", 0, "00") + command("#x200A", 0, "00"),
           {"11:1: the command for 0x2009:0: the dictionary has no object 0x2009",
            "12:1: the command for 0x200a:0: the dictionary has no object 0x200a"});
    addRow(object, "the whole object is meant", wholeObject(command("#x2000", 2, "0000")), {});
    const char* const length = "startup-value-length";
    addRow(length, "longer", command("#x2000", 0, "000000"),
           {"11:1: the command for 0x2000:0 writes 3 bytes, in the dictionary it has 2 bytes"});
    addRow(length, "equal", command("#x2000", 0, "0000"), {});
    addRow(length, "shorter", command("#x2000", 0, "00"), {});
    addRow(length, "a bit takes a byte", command("#x2001", 0, "01"), {});
    addRow(length, "longer than a bit", command("#x2001", 0, "0100"),
           {"11:1: the command for 0x2001:0 writes 2 bytes, in the dictionary it has 1 byte"});
    addRow(length, "whole object", wholeObject(command("#x2003", 0, "020001000200")), {});
    addRow(length, "longer than the whole object", wholeObject(command("#x2003", 0, "02000100020000")),
           {"11:1: the command for 0x2003:0 writes 7 bytes, in the dictionary it has 6 bytes"});
    addRow(length, "from sub-index 1 on", wholeObject(command("#x2003", 1, "01000200")), {});
    addRow(length, "longer from sub-index 1 on", wholeObject(command("#x2003", 1, "0100020000")),
           {"11:1: the command for 0x2003:1 writes 5 bytes, in the dictionary it has 4 bytes"});
    const char* const readOnly = "startup-read-only";
    addRow(readOnly, "the whole object is meant", wholeObject(command("#x2001", 0, "01")), {});
    addRow(readOnly, "written", command("#x2001", 0, "01"),
           {"11:1: the command for 0x2001:0 writes what the dictionary calls read-only"});
    addRow(readOnly, "read and write", command("#x2000", 0, "0100"), {});
    addRow(readOnly, "of an unknown type", command("#x2002", 0, "01"), {});
}

void tst_StartupDictionaryRules::findings()
{
    QFETCH(QByteArray, code);
    QFETCH(QByteArray, parts);
    QTEST(checkParts::findingsOf(code.constData(), checkParts::deviceFile(parts)), "findings");
}

void tst_StartupDictionaryRules::withoutDictionary()
{
    QCOMPARE(allFindings(checkParts::deviceFile(mailbox(command("#x2009", 0, "0000")))), QStringList());
}

/// Mapping and assignment are written by commands that the file does not declare.
void tst_StartupDictionaryRules::generated()
{
    const QByteArray device = "<Sm StartAddress='#x1000' ControlByte='#x64' Enable='1'>Outputs</Sm>\n"
                              + someDictionary()
                              + "<RxPdo Sm='0'><Index>#x1600</Index><Name>O</Name><Entry><Index>#x2000</Index>"
                                "<SubIndex>0</SubIndex><BitLen>16</BitLen></Entry></RxPdo>\n"
                                "<Mailbox><CoE PdoAssign='1' PdoConfig='1'/></Mailbox>";
    QCOMPARE(allFindings(checkParts::deviceFile(device)), QStringList());
}

void tst_StartupDictionaryRules::inModule_data()
{
    QTest::addColumn<QByteArray>("index");
    QTest::addColumn<QStringList>("findings");
    QTest::addRow("missing") << QByteArray("#x8000")
                             << QStringList("13:1: the command for 0x8000:0: the dictionary has no object 0x8000");
    QTest::addRow("of the device") << QByteArray("#xF030") << QStringList();
    QTest::addRow("of communication") << QByteArray("#x1C12") << QStringList();
}

void tst_StartupDictionaryRules::inModule()
{
    QFETCH(QByteArray, index);
    const QByteArray module = "<Module><Type ModuleIdent='#x1'>M</Type><Name>Module</Name>\n" + someDictionary()
                              + mailbox(command(index, 0, "01")) + "</Module>";
    QTEST(allFindings(checkParts::deviceFile({}, module)), "findings");
}

void tst_StartupDictionaryRules::withSlots()
{
    const QByteArray slotList = "<Slots><Slot MinInstances='0' MaxInstances='1'><Name>Slot</Name></Slot></Slots>\n";
    const QByteArray commands = command("#x8000", 0, "01") + command("#xF800", 0, "01");
    QCOMPARE(allFindings(checkParts::deviceFile(someDictionary() + mailbox(commands) + slotList)),
             QStringList("12:1: the command for 0xf800:0: the dictionary has no object 0xf800"));
}

static const testMain::Registration<tst_StartupDictionaryRules, testMain::NoApplication> registration;
#include "tst_StartupDictionaryRules.moc"
