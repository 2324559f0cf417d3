// Entries of PDOs against the dictionary: each rule with the smallest file that it fires on, and its twin that is just
// right.
#include "checkParts.h"
#include "facts/dictionaryParts.h"
#include "testMain.h"

#include <QtTest>

using namespace dictionaryParts;

class tst_PdoDictionaryRules : public QObject
{
    Q_OBJECT

private slots:
    static void findings_data();
    static void findings();
    static void withoutDictionary();
    static void withoutMappings();
    static void inModule_data();
    static void inModule();
    static void withSlots_data();
    static void withSlots();
    static void copies();
};

namespace {

/// The types are on lines 4 to 11 of the file, the objects on lines 13 to 18, the first PDO begins on line 20.
QByteArray someDictionary()
{
    return dictionary(dataType("DT2003EN16", 16, "<BaseType>INT</BaseType>") + arrayType("DT2001ARR", 32, "UINT", 2)
                          + recordType("DT2001", 48,
                                       subItem("0", "Count", "USINT", 8, 0)
                                           + subItem("", "Elements", "DT2001ARR", 32, 16, flags("rw", "R")))
                          + "<DataType/>\n<DataType/>\n",
                      object("#x2000", "UINT", 16, objectFlags("rw", "RT")) + object("#x2001", "DT2001", 48)
                          + object("#x2002", "UINT", 16, objectFlags("rw"))
                          + object("#x2003", "DT2003EN16", 16, objectFlags("rw", "TR"))
                          + object("#x2004", "INT", 16, objectFlags("ro", "t"))
                          + object("#x2005", "DT9999", 16, objectFlags("ro", "T")));
}

/// An entry on a line of its own.
QByteArray entry(const QByteArray& index, int subIndex, int bits, const QByteArray& type = {})
{
    return "<Entry><Index>" + index + "</Index><SubIndex>" + QByteArray::number(subIndex) + "</SubIndex><BitLen>"
           + QByteArray::number(bits) + "</BitLen><Name>Entry</Name>"
           + (type.isEmpty() ? QByteArray() : "<DataType>" + type + "</DataType>") + "</Entry>\n";
}

QByteArray rxPdo(const QByteArray& entries)
{
    return "<RxPdo><Index>#x1600</Index><Name>Outputs</Name>\n" + entries + "</RxPdo>\n";
}

QByteArray txPdo(const QByteArray& entries)
{
    return "<TxPdo><Index>#x1A00</Index><Name>Inputs</Name>\n" + entries + "</TxPdo>\n";
}

/// The entries begin on line 21.
void addRow(const char* code, const char* name, const QByteArray& pdo, const QStringList& findings)
{
    QTest::addRow("%s: %s", code, name) << QByteArray(code) << someDictionary() + pdo << findings;
}

void addPlaces()
{
    const char* const code = "pdo-entry-object";
    addRow(code, "missing", rxPdo(entry("#x2009", 0, 16)),
           {"21:1: entry 0x2009:0 of PDO 0x1600: the dictionary has no object 0x2009"});
    addRow(code, "there", rxPdo(entry("#x2000", 0, 16)), {});
    addRow(code, "the first of several",
           txPdo(entry("#x2009", 1, 16) + entry("#x2009", 2, 16) + entry("#x200A", 0, 16) + entry("#x2009", 3, 16)),
           {"21:1: entry 0x2009:1 of PDO 0x1a00: the dictionary has no object 0x2009",
            "23:1: entry 0x200a:0 of PDO 0x1a00: the dictionary has no object 0x200a",
            "24:1: entry 0x2009:3 of PDO 0x1a00: the dictionary has no object 0x2009"});
    addRow(code, "gap", rxPdo(entry("#x0", 0, 16)), {});
    addRow(code, "dummies", rxPdo(entry("#x5", 0, 8) + entry("#x1F", 0, 8)), {});
    addRow(code, "after the last dummy", rxPdo(entry("#x20", 0, 8)),
           {"21:1: entry 0x20:0 of PDO 0x1600: the dictionary has no object 0x20"});
    const char* const subIndex = "pdo-entry-sub-index";
    addRow(subIndex, "missing", rxPdo(entry("#x2001", 3, 16)),
           {"21:1: entry 0x2001:3 of PDO 0x1600: object 0x2001 of the dictionary has no sub-index 3"});
    addRow(subIndex, "there", rxPdo(entry("#x2001", 2, 16)), {});
    addRow(subIndex, "of a simple object", rxPdo(entry("#x2000", 1, 16)),
           {"21:1: entry 0x2000:1 of PDO 0x1600: object 0x2000 of the dictionary has no sub-index 1"});
    addRow(subIndex, "of an object that is missing", rxPdo(entry("#x2009", 1, 16)), {});
    addRow(subIndex, "of an unknown type", txPdo(entry("#x2005", 1, 16)), {});
}

void addValues()
{
    const char* const length = "pdo-entry-length";
    addRow(length, "shorter", rxPdo(entry("#x2000", 0, 8)),
           {"21:1: entry 0x2000:0 of PDO 0x1600 has 8 bits, in the dictionary it has 16 bits"});
    addRow(length, "a bit", rxPdo(entry("#x2001", 1, 1)),
           {"21:1: entry 0x2001:1 of PDO 0x1600 has 1 bit, in the dictionary it has 16 bits"});
    addRow(length, "equal", rxPdo(entry("#x2000", 0, 16)), {});
    addRow(length, "of an unknown type", txPdo(entry("#x2005", 0, 8)), {});
    const char* const type = "pdo-entry-type";
    addRow(type, "kind", rxPdo(entry("#x2000", 0, 16, "INT")),
           {"21:1: entry 0x2000:0 of PDO 0x1600 is of type \"INT\", in the dictionary it is of type \"UINT\""});
    addRow(type, "equal", rxPdo(entry("#x2000", 0, 16, "UINT")), {});
    addRow(type, "other names for it", rxPdo(entry("#x2000", 0, 16, "UNSIGNED16") + entry("#x2000", 0, 16, "WORD")),
           {});
    addRow(type, "enumeration", rxPdo(entry("#x2003", 0, 16, "INT")), {});
    addRow(type, "kind of an enumeration", rxPdo(entry("#x2003", 0, 16, "UINT")),
           {"21:1: entry 0x2003:0 of PDO 0x1600 is of type \"UINT\", in the dictionary it is of type \"DT2003EN16\""});
    addRow(type, "declared type", txPdo(entry("#x2004", 0, 16, "DT2003EN16")), {});
    addRow(type, "length of the type alone", rxPdo(entry("#x2000", 0, 16, "UDINT")),
           {"21:1: entry 0x2000:0 of PDO 0x1600 is of type \"UDINT\", in the dictionary it is of type \"UINT\""});
    addRow(type, "length that is told already", rxPdo(entry("#x2000", 0, 32, "UDINT")), {});
    addRow(type, "none", rxPdo(entry("#x2000", 0, 16)), {});
    addRow(type, "unknown", rxPdo(entry("#x2000", 0, 16, "DT77")), {});
}

void addMappings()
{
    const char* const mapping = "pdo-entry-mapping";
    addRow(mapping, "none", rxPdo(entry("#x2002", 0, 16)),
           {"21:1: entry 0x2002:0 of PDO 0x1600: the dictionary does not let the object be mapped"});
    addRow(mapping, "both", rxPdo(entry("#x2000", 0, 16)), {});
    addRow(mapping, "of an element", rxPdo(entry("#x2001", 1, 16)), {});
    addRow(mapping, "the first of several", rxPdo(entry("#x2002", 0, 16) + entry("#x2002", 0, 16)),
           {"21:1: entry 0x2002:0 of PDO 0x1600: the dictionary does not let the object be mapped"});
    const char* const direction = "pdo-entry-direction";
    addRow(direction, "output", txPdo(entry("#x2001", 1, 16)),
           {"21:1: entry 0x2001:1 of PDO 0x1a00, a TxPdo: the dictionary lets the object be mapped into RxPdos only"});
    addRow(direction, "input", rxPdo(entry("#x2004", 0, 16)),
           {"21:1: entry 0x2004:0 of PDO 0x1600, an RxPdo: the dictionary lets the object be mapped into TxPdos only"});
    addRow(direction, "right output", rxPdo(entry("#x2001", 1, 16)), {});
    addRow(direction, "right input", txPdo(entry("#x2004", 0, 16)), {});
    addRow(direction, "both", rxPdo(entry("#x2000", 0, 16)) + txPdo(entry("#x2003", 0, 16)), {});
    addRow(direction, "none", txPdo(entry("#x2002", 0, 16)), {});
}

const QStringList codes{QStringLiteral("pdo-entry-object"),  QStringLiteral("pdo-entry-sub-index"),
                        QStringLiteral("pdo-entry-length"),  QStringLiteral("pdo-entry-type"),
                        QStringLiteral("pdo-entry-mapping"), QStringLiteral("pdo-entry-direction")};

/// The findings of all rules of the family.
QStringList allFindings(const QByteArray& file)
{
    QStringList lines;
    for (const QString& code : codes)
        lines += checkParts::findingsOf(code.toLatin1().constData(), file);
    return lines;
}

} // namespace

void tst_PdoDictionaryRules::findings_data()
{
    QTest::addColumn<QByteArray>("code");
    QTest::addColumn<QByteArray>("parts");
    QTest::addColumn<QStringList>("findings");
    addPlaces();
    addValues();
    addMappings();
}

void tst_PdoDictionaryRules::findings()
{
    QFETCH(QByteArray, code);
    QFETCH(QByteArray, parts);
    QTEST(checkParts::findingsOf(code.constData(), checkParts::deviceFile(parts)), "findings");
}

void tst_PdoDictionaryRules::withoutDictionary()
{
    const QByteArray pdo = rxPdo(entry("#x2009", 0, 16, "INT"));
    QCOMPARE(allFindings(checkParts::deviceFile(pdo)), QStringList());
    QCOMPARE(allFindings(checkParts::deviceFile(dictionary(dataType("UINT", 16), {}) + pdo)), QStringList());
}

/// A dictionary in which nothing can be mapped tells nothing about mapping.
void tst_PdoDictionaryRules::withoutMappings()
{
    const QByteArray parts =
        dictionary({}, object("#x2002", "UINT", 16, objectFlags("rw"))) + rxPdo(entry("#x2002", 0, 16));
    QCOMPARE(allFindings(checkParts::deviceFile(parts)), QStringList());
}

void tst_PdoDictionaryRules::inModule_data()
{
    QTest::addColumn<QByteArray>("index");
    QTest::addColumn<QStringList>("findings");
    QTest::addRow("its own object") << QByteArray("#x2000") << QStringList();
    QTest::addRow("missing") << QByteArray("#xEFFF")
                             << QStringList("14:1: entry 0xefff:0 of PDO 0x1600: the dictionary has no object 0xefff");
    QTest::addRow("the least that is its own")
        << QByteArray("#x2009")
        << QStringList("14:1: entry 0x2009:0 of PDO 0x1600: the dictionary has no object 0x2009");
    QTest::addRow("of the device") << QByteArray("#xF000") << QStringList();
    QTest::addRow("of communication") << QByteArray("#x1FFF") << QStringList();
}

void tst_PdoDictionaryRules::inModule()
{
    QFETCH(QByteArray, index);
    QByteArray pdo = rxPdo(entry(index, 0, 16));
    pdo.replace("<Index>", "<Index DependOnSlot='1'>");
    const QByteArray own = dictionary(dataType("A", 1) + dataType("B", 1) + dataType("C", 1) + dataType("D", 1),
                                      object("#x2000", "UINT", 16, objectFlags("rw", "R")));
    const QByteArray module = "<Module><Type ModuleIdent='#x1'>M</Type><Name>Module</Name>\n" + own + pdo + "</Module>";
    QTEST(allFindings(checkParts::deviceFile({}, module)), "findings");
}

void tst_PdoDictionaryRules::withSlots_data()
{
    QTest::addColumn<QByteArray>("index");
    QTest::addColumn<QStringList>("findings");
    QTest::addRow("perhaps of a module") << QByteArray("#x6000") << QStringList();
    QTest::addRow("of the device") << QByteArray(
        "#xF000") << QStringList("21:1: entry 0xf000:0 of PDO 0x1600: the dictionary has no object 0xf000");
}

void tst_PdoDictionaryRules::withSlots()
{
    QFETCH(QByteArray, index);
    const QByteArray slotList =
        "<Slots SlotPdoIncrement='1' SlotIndexIncrement='16'><Slot MinInstances='0' MaxInstances='1'>"
        "<Name>Slot</Name><ModuleIdent>#x1</ModuleIdent></Slot></Slots>\n";
    QTEST(allFindings(checkParts::deviceFile(someDictionary() + rxPdo(entry(index, 0, 16)) + slotList)), "findings");
}

/// Copies of a PDO for further samples have indexes of their own, which no dictionary lists.
void tst_PdoDictionaryRules::copies()
{
    QByteArray pdo = txPdo(entry("#x2004", 0, 16, "INT"));
    pdo.replace("<TxPdo>", "<TxPdo Sm='0' OSFac='4' OSMin='1' OSMax='4' OSIndexInc='16'>");
    const QByteArray syncManager = "<Sm StartAddress='#x1000' ControlByte='#x20' Enable='1'>Inputs</Sm>\n";
    QCOMPARE(allFindings(checkParts::deviceFile(syncManager + someDictionary() + pdo)), QStringList());
}

static const testMain::Registration<tst_PdoDictionaryRules, testMain::NoApplication> registration;
#include "tst_PdoDictionaryRules.moc"
