// Data types, objects and defaults of a dictionary: each rule with the smallest file that it fires on, and its twin
// Covers dictionaryDefaultRules.cpp, dictionarySizeRules.cpp.
// that is just right.
#include "checkParts.h"
#include "facts/dictionaryParts.h"
#include "testMain.h"

#include <QtTest>

using namespace dictionaryParts;

class tst_DictionaryRules : public QObject
{
    Q_OBJECT

private slots:
    static void findings_data();
    static void findings();
    static void namesWithMarks();
    static void inModule();
    static void manyOfOneName();
    static void longCircle();
    static void manyObjectsOfALongType();
};

namespace {

/// Begins a row: data types begin on line 4 of the file, objects two lines after the last of them.
void addRow(const char* code, const char* name, const QByteArray& types, const QByteArray& objects,
            const QStringList& findings)
{
    QTest::addRow("%s: %s", code, name) << QByteArray(code) << dictionary(types, objects) << findings;
}

void addUnknownTypes()
{
    const char* const code = "dictionary-type-unknown";
    addRow(code, "object", {}, object("#x2000", "DT2000", 16),
           {"5:1: object 0x2000 is of type \"DT2000\", which is not declared"});
    addRow(code, "declared", dataType("DT2000", 16), object("#x2000", "DT2000", 16), {});
    addRow(code, "standard", {}, object("#x2000", "UINT", 16) + object("#x2001", "STRING(4)", 32), {});
    addRow(code, "capital letters count", {}, object("#x2000", "uint", 16),
           {"5:1: object 0x2000 is of type \"uint\", which is not declared"});
    addRow(code, "no type", {}, "<Object><Index>#x2000</Index></Object>\n", {});
    addRow(code, "empty type", {}, object("#x2000", "", 16),
           {"5:1: object 0x2000 is of type \"\", which is not declared"});
    addRow(code, "sub-item", recordType("DT1", 16, subItem("1", "Gain", "DT2", 16, 0)), {},
           {"5:1: sub-item \"Gain\" of data type \"DT1\" is of type \"DT2\", which is not declared"});
    addRow(code, "base type", arrayType("DT1", 32, "DT2", 2), {},
           {"4:1: data type \"DT1\" rests on \"DT2\", which is not declared"});
    addRow(code, "declared later", arrayType("DT1", 32, "DT2", 2) + dataType("DT2", 16), {}, {});
}

void addCircles()
{
    const char* const code = "dictionary-type-recursive";
    addRow(code, "itself", recordType("DT1", 16, subItem("1", "Gain", "DT1", 16, 0)), {},
           {"5:1: data type \"DT1\" contains itself through sub-item \"Gain\" of data type \"DT1\""});
    addRow(code, "another", recordType("DT1", 16, subItem("1", "Gain", "DT2", 16, 0)) + dataType("DT2", 16), {}, {});
    addRow(code, "through another",
           recordType("DT1", 16, subItem("1", "Gain", "DT2", 16, 0)) + arrayType("DT2", 16, "DT1", 1), {},
           {"7:1: data type \"DT1\" contains itself through the base type of data type \"DT2\""});
    addRow(code, "twice the same is no circle",
           recordType("DT1", 16, subItem("1", "Gain", "DT2", 8, 0) + subItem("2", "Limit", "DT2", 8, 8))
               + arrayType("DT2", 8, "DT3", 1) + dataType("DT3", 8),
           {}, {});
    addRow(code, "two circles", arrayType("DT1", 8, "DT1", 1) + arrayType("DT2", 8, "DT2", 1), {},
           {"4:1: data type \"DT1\" contains itself through the base type of data type \"DT1\"",
            "5:1: data type \"DT2\" contains itself through the base type of data type \"DT2\""});
}

void addTwins()
{
    addRow("dictionary-type-twice", "length", dataType("DT1", 8) + dataType("DT1", 16), {},
           {"5:1: there is another data type \"DT1\" before, which differs from this one"});
    addRow("dictionary-type-twice", "no name", "<DataType/>\n<DataType><BitSize>1</BitSize></DataType>\n", {}, {});
    addRow("dictionary-type-twice", "equal", dataType("DT1", 8) + dataType("DT1", 8), {}, {});
    addRow("dictionary-type-twice", "sub-item",
           recordType("DT1", 8, subItem("1", "Gain", "USINT", 8, 0))
               + recordType("DT1", 8, subItem("1", "Limit", "USINT", 8, 0)),
           {}, {"7:1: there is another data type \"DT1\" before, which differs from this one"});
    addRow("dictionary-type-twice", "equal sub-items",
           recordType("DT1", 8, subItem("1", "Gain", "USINT", 8, 0))
               + recordType("DT1", 8, subItem("1", "Gain", "USINT", 8, 0)),
           {}, {});
    addRow("dictionary-type-twice", "elements", arrayType("DT1", 8, "USINT", 1) + arrayType("DT1", 8, "USINT", 2), {},
           {"5:1: there is another data type \"DT1\" before, which differs from this one"});
    addRow("dictionary-object-twice", "same index", {}, object("#x2000", "UINT", 16) + object("8192", "UINT", 16),
           {"6:1: object 0x2000 is in the dictionary twice"});
    addRow("dictionary-object-twice", "three in any order", {},
           object("#x2001", "UINT", 16) + object("#x2000", "UINT", 16) + object("#x2001", "UINT", 16)
               + object("#x2001", "UINT", 16),
           {"7:1: object 0x2001 is in the dictionary twice", "8:1: object 0x2001 is in the dictionary twice"});
    addRow("dictionary-object-twice", "two indexes", {}, object("#x2000", "UINT", 16) + object("#x2001", "UINT", 16),
           {});
    const char* const code = "dictionary-sub-index-twice";
    addRow(code, "same",
           recordType("DT1", 16, subItem("1", "Gain", "USINT", 8, 0) + subItem("1", "Limit", "USINT", 8, 8)), {},
           {"6:1: sub-index 1 of data type \"DT1\" is that of sub-item \"Gain\" and of sub-item \"Limit\""});
    addRow(code, "different",
           recordType("DT1", 16, subItem("1", "Gain", "USINT", 8, 0) + subItem("2", "Limit", "USINT", 8, 8)), {}, {});
    const QByteArray array = arrayType("DT1ARR", 24, "USINT", 3);
    addRow(
        code, "element",
        array + recordType("DT1", 32, subItem("", "Elements", "DT1ARR", 24, 0) + subItem("3", "Limit", "USINT", 8, 24)),
        {}, {"7:1: sub-index 3 of data type \"DT1\" is that of sub-item \"Elements\" and of sub-item \"Limit\""});
    addRow(
        code, "after the elements",
        array + recordType("DT1", 32, subItem("", "Elements", "DT1ARR", 24, 0) + subItem("4", "Limit", "USINT", 8, 24)),
        {}, {});
}

void addOverlaps()
{
    const char* const code = "dictionary-overlap";
    const auto record = [](int offset) {
        return recordType("DT1", 64, subItem("1", "Gain", "UINT", 16, 16) + subItem("2", "Limit", "UINT", 16, offset));
    };
    addRow(code, "one bit", record(31), {},
           {"6:1: sub-item \"Limit\" of data type \"DT1\" begins at bit 31, within \"Gain\", which has bits 16 to 31"});
    addRow(code, "side by side", record(32), {}, {});
    addRow(code, "with a gap", record(40), {}, {});
    addRow(code, "before", record(0), {}, {});
    addRow(code, "out of order", record(1), {},
           {"5:1: sub-item \"Gain\" of data type \"DT1\" begins at bit 16, within \"Limit\", which has bits 1 to 16"});
    addRow(code, "only the first",
           recordType("DT1", 64,
                      subItem("1", "A", "UINT", 16, 0) + subItem("2", "B", "UINT", 16, 0)
                          + subItem("3", "C", "UINT", 16, 0)),
           {}, {"6:1: sub-item \"B\" of data type \"DT1\" begins at bit 0, within \"A\", which has bits 0 to 15"});
    addRow(code, "no length", recordType("DT1", 64, subItem("1", "A", "UINT", 16, 0) + subItem("2", "B", "DT2", 0, 0)),
           {}, {});
}

void addSizes()
{
    const char* const code = "dictionary-bit-size";
    addRow(code, "object", {}, object("#x2000", "UDINT", 16),
           {"5:1: object 0x2000 has 16 bits, its type \"UDINT\" has 32 bits"});
    addRow(code, "object as its type", {}, object("#x2000", "UDINT", 32), {});
    addRow(code, "object without length", {}, "<Object><Index>#x2000</Index><Type>UDINT</Type></Object>\n", {});
    addRow(code, "standard type", dataType("UINT", 32), {},
           {"4:1: data type \"UINT\" has 32 bits, by its name it has 16 bits"});
    addRow(code, "standard type of its length", dataType("UINT", 16), {}, {});
    addRow(code, "text", dataType("STRING(4)", 40), {}, {});
    addRow(code, "enumeration", dataType("DT1EN16", 16, "<BaseType>USINT</BaseType>"), {},
           {"4:1: data type \"DT1EN16\" has 16 bits, its base type \"USINT\" has 8 bits"});
    addRow(code, "enumeration of few bits", dataType("DT1EN02", 2, "<BaseType>USINT</BaseType>"), {}, {});
    addRow(code, "sub-item", recordType("DT1", 16, subItem("1", "Gain", "UINT", 8, 0)), {},
           {"5:1: sub-item \"Gain\" of data type \"DT1\" has 8 bits, its type \"UINT\" has 16 bits"});
    addRow(code, "sub-item as its type", recordType("DT1", 16, subItem("1", "Gain", "UINT", 16, 0)), {}, {});
    addRow(code, "array", arrayType("DT1", 64, "UINT", 3), {},
           {"4:1: data type \"DT1\" has 64 bits for 3 elements of type \"UINT\", which has 16 bits"});
    addRow(code, "array of one", arrayType("DT1", 1, "UINT", 1), {},
           {"4:1: data type \"DT1\" has 1 bit for 1 element of type \"UINT\", which has 16 bits"});
    addRow(code, "array as its elements", arrayType("DT1", 48, "UINT", 3), {}, {});
    addRow(code, "bits packed", arrayType("DT1", 12, "BOOL", 12), {}, {});
    addRow(code, "bits filled up", arrayType("DT1", 16, "BOOL", 12), {}, {});
    addRow(code, "bits in bytes", arrayType("DT1", 96, "BOOL", 12), {}, {});
    addRow(code, "bits filled up too far", arrayType("DT1", 32, "BOOL", 12), {},
           {"4:1: data type \"DT1\" has 32 bits for 12 elements of type \"BOOL\", which has 1 bit"});
    addRow(code, "record", recordType("DT1", 24, subItem("1", "Gain", "UINT", 16, 16)), {},
           {"4:1: data type \"DT1\" has 24 bits, its sub-item \"Gain\" ends after 32 bits"});
    addRow(code, "record as its end", recordType("DT1", 32, subItem("1", "Gain", "UINT", 16, 16)), {}, {});
    addRow(code, "record that is longer", recordType("DT1", 200, subItem("1", "Gain", "UINT", 16, 16)), {}, {});
    const char* const unused = "dictionary-unused-bits";
    addRow(unused, "one bit more than filling up", recordType("DT1", 65, subItem("1", "Gain", "UINT", 16, 16)), {},
           {"4:1: data type \"DT1\" has 65 bits, its last sub-item \"Gain\" ends after 32 bits"});
    addRow(unused, "filled up", recordType("DT1", 64, subItem("1", "Gain", "UINT", 16, 16)), {}, {});
    addRow(unused, "array", arrayType("DT1", 640, "UINT", 3), {}, {});
}

/// An object on line 5, or 11 if it is of the record "DT1", whose default is on the next line.
QByteArray objectWithInfo(const QByteArray& type, int bits, const QByteArray& info)
{
    return object("#x2000", type, bits, "<Info>\n" + info + "\n</Info>");
}

QByteArray record()
{
    return arrayType("DT1ARR", 16, "SINT", 2)
           + recordType("DT1", 64,
                        subItem("0", "Count", "USINT", 8, 0) + subItem("1", "Gain", "UINT", 16, 16)
                            + subItem("2", "Limit", "INT", 16, 32))
           + recordType("DT2", 32, subItem("0", "Count", "USINT", 8, 0) + subItem("", "Elements", "DT1ARR", 16, 16));
}

QByteArray infoOf(const QByteArray& name, const QByteArray& values)
{
    return "<SubItem><Name>" + name + "</Name><Info>" + values + "</Info></SubItem>\n";
}

void addDefaults()
{
    const char* const code = "dictionary-default-length";
    addRow(code, "data", {}, objectWithInfo("UINT", 16, "<DefaultData>000000</DefaultData>"),
           {"6:1: object 0x2000 has a default of 3 bytes, its type has 2 bytes"});
    addRow(code, "data that fits", {}, objectWithInfo("UINT", 16, "<DefaultData>0000</DefaultData>"), {});
    addRow(code, "shorter data", {}, objectWithInfo("UINT", 16, "<DefaultData>00</DefaultData>"), {});
    addRow(code, "a bit takes a byte", {}, objectWithInfo("BOOL", 1, "<DefaultData>01</DefaultData>"), {});
    addRow(code, "text", {}, objectWithInfo("STRING(3)", 24, "<DefaultString>SX1-</DefaultString>"),
           {"6:1: object 0x2000 has a default of 4 bytes, its type has 3 bytes"});
    addRow(code, "text that fits", {}, objectWithInfo("STRING(3)", 24, "<DefaultString>SX1</DefaultString>"), {});
    addRow(code, "number", {}, objectWithInfo("USINT", 8, "<DefaultValue>1000000</DefaultValue>"), {});
    addRow(code, "sub-items", record(),
           object("#x2000", "DT1", 64,
                  "<Info>\n" + infoOf("SubIndex 000", "<DefaultData>0200</DefaultData>")
                      + infoOf("Limit", "<DefaultData>000000</DefaultData>") + "</Info>"),
           {"16:41: sub-item \"SubIndex 000\" of object 0x2000 has a default of 2 bytes, its type has 1 byte",
            "17:34: sub-item \"Limit\" of object 0x2000 has a default of 3 bytes, its type has 2 bytes"});
    addRow(code, "elements", record(),
           object("#x2000", "DT2", 32,
                  "<Info>\n" + infoOf("SubIndex 000", "<DefaultData>02</DefaultData>")
                      + infoOf("SubIndex 001", "<DefaultData>00</DefaultData>")
                      + infoOf("SubIndex 002", "<DefaultData>0000</DefaultData>") + "</Info>"),
           {"18:41: sub-item \"SubIndex 002\" of object 0x2000 has a default of 2 bytes, its type has 1 byte"});
    addRow(code, "sub-items of an unknown type", {},
           object("#x2000", "DT1", 64, "<Info>\n" + infoOf("Gain", "<DefaultData>000000</DefaultData>") + "</Info>"),
           {});
    const char* const names = "dictionary-default-name";
    addRow(names, "unknown", record(),
           object("#x2000", "DT1", 64,
                  "<Info>\n" + infoOf("Any", {}) + infoOf("Gian", {}) + infoOf("Limit", {}) + "</Info>"),
           {"17:1: object 0x2000 has a default for \"Gian\", its type \"DT1\" has no such sub-item"});
    addRow(names, "known, in any order", record(),
           object("#x2000", "DT1", 64,
                  "<Info>\n" + infoOf("Limit", {}) + infoOf("Gain", {}) + infoOf("Count", {}) + "</Info>"),
           {});
    addRow(names, "elements", record(),
           object("#x2000", "DT2", 64, "<Info>\n" + infoOf("Any", {}) + infoOf("Other", {}) + "</Info>"), {});
}

QByteArray limits(const QByteArray& least, const QByteArray& greatest, const QByteArray& initial)
{
    return "<MinData>" + least + "</MinData><MaxData>" + greatest + "</MaxData>\n<DefaultData>" + initial
           + "</DefaultData>";
}

void addRanges()
{
    const char* const code = "dictionary-default-range";
    addRow(code, "below", {}, objectWithInfo("UINT", 16, limits("0A00", "6400", "0900")),
           {"7:1: object 0x2000 has the default 9, its minimum is 10"});
    addRow(code, "minimum", {}, objectWithInfo("UINT", 16, limits("0A00", "6400", "0A00")), {});
    addRow(code, "maximum", {}, objectWithInfo("UINT", 16, limits("0A00", "6400", "6400")), {});
    addRow(code, "above", {}, objectWithInfo("UINT", 16, limits("0A00", "6400", "6500")),
           {"7:1: object 0x2000 has the default 101, its maximum is 100"});
    addRow(code, "the least significant byte is first", {}, objectWithInfo("UINT", 16, limits("0000", "0100", "0001")),
           {"7:1: object 0x2000 has the default 256, its maximum is 1"});
    addRow(code, "signed", {}, objectWithInfo("INT", 16, limits("F6FF", "0A00", "FFFF")), {});
    addRow(code, "below a negative minimum", {}, objectWithInfo("INT", 16, limits("F6FF", "0A00", "F5FF")),
           {"7:1: object 0x2000 has the default -11, its minimum is -10"});
    addRow(code, "real", {}, objectWithInfo("REAL", 32, limits("000080BF", "0000803F", "0000C03F")),
           {"7:1: object 0x2000 has the default 1.5, its maximum is 1"});
    addRow(code, "type that rests on another", dataType("DT1EN08", 8, "<BaseType>SINT</BaseType>"),
           objectWithInfo("DT1EN08", 8, limits("FE", "02", "FF")), {});
    addRow(
        code, "numbers", {},
        objectWithInfo("INT", 16, "<MinValue>-10</MinValue><MaxValue>#xA</MaxValue>\n<DefaultValue>11</DefaultValue>"),
        {"7:1: object 0x2000 has the default 11, its maximum is 10"});
    addRow(code, "only a maximum", {},
           objectWithInfo("INT", 16, "<MaxValue>10</MaxValue><DefaultValue>-5</DefaultValue>"), {});
    addRow(code, "no default", {}, objectWithInfo("INT", 16, "<MinValue>1</MinValue><MaxValue>10</MaxValue>"), {});
    addRow(code, "text", {}, objectWithInfo("STRING(2)", 16, limits("0A00", "6400", "0900")), {});
    addRow(code, "sub-item", record(),
           object("#x2000", "DT1", 64, "<Info>\n" + infoOf("Limit", limits("0000", "0100", "FFFF")) + "</Info>"),
           {"17:1: sub-item \"Limit\" of object 0x2000 has the default -1, its minimum is 0"});
}

} // namespace

void tst_DictionaryRules::findings_data()
{
    QTest::addColumn<QByteArray>("code");
    QTest::addColumn<QByteArray>("parts");
    QTest::addColumn<QStringList>("findings");
    addUnknownTypes();
    addCircles();
    addTwins();
    addOverlaps();
    addSizes();
    addDefaults();
    addRanges();
}

void tst_DictionaryRules::findings()
{
    QFETCH(QByteArray, code);
    QFETCH(QByteArray, parts);
    QTEST(checkParts::findingsOf(code.constData(), checkParts::deviceFile(parts)), "findings");
}

/// What looks like a place for a value in a name stays as it is.
void tst_DictionaryRules::namesWithMarks()
{
    const QByteArray types = recordType("%5%2", 8, subItem("1", "%4%1", "UINT", 16, 16));
    QCOMPARE(checkParts::findingsOf("dictionary-bit-size", checkParts::deviceFile(dictionary(types, {}))),
             QStringList("4:1: data type \"%5%2\" has 8 bits, its sub-item \"%4%1\" ends after 32 bits"));
}

void tst_DictionaryRules::inModule()
{
    const QByteArray module = "<Module><Type ModuleIdent='#x1'>M</Type><Name>Module</Name>\n"
                              + dictionary({}, object("#x2000", "UDINT", 16)) + "</Module>";
    QCOMPARE(checkParts::findingsOf("dictionary-bit-size", checkParts::deviceFile({}, module)),
             QStringList("7:1: object 0x2000 has 16 bits, its type \"UDINT\" has 32 bits"));
}

/// None of these may take longer than a moment, whatever a file holds.
void tst_DictionaryRules::manyOfOneName()
{
    constexpr int count = 20000;
    const QByteArray types = dataType("DT1", 16).repeated(count);
    const QByteArray objects = object("#x2000", "DT1", 16).repeated(count);
    const check::Findings findings =
        checkParts::LoadedFile(checkParts::deviceFile(dictionary(types, objects))).findings();
    QCOMPARE(checkParts::linesOf(findings, "dictionary-object-twice").size(), 1000);
    QCOMPARE(check::omittedIn(findings), std::size_t{count - 1 - 1000});
    QCOMPARE(checkParts::linesOf(findings, "dictionary-type-twice"), QStringList());
}

void tst_DictionaryRules::longCircle()
{
    constexpr int count = 20000;
    QByteArray types;
    for (int type = 0; type < count; ++type)
        types += arrayType("DT" + QByteArray::number(type), 16, "DT" + QByteArray::number((type + 1) % count), 1);
    QCOMPARE(checkParts::findingsOf("dictionary-type-recursive", checkParts::deviceFile(dictionary(types, {}))),
             QStringList("20003:1: data type \"DT0\" contains itself through the base type of data type \"DT19999\""));
}

void tst_DictionaryRules::manyObjectsOfALongType()
{
    constexpr int count = 5000;
    QByteArray subItems;
    for (int subIndex = 0; subIndex < count; ++subIndex)
        subItems += subItem(QByteArray::number(subIndex), "Item " + QByteArray::number(subIndex), "BOOL", 1, subIndex);
    QByteArray objects;
    for (int index = 0; index < count; ++index)
        objects += object(QByteArray::number(index), "DT1", count, "<Info>" + infoOf("Item 4999", {}) + "</Info>");
    const check::Findings findings =
        checkParts::LoadedFile(checkParts::deviceFile(dictionary(recordType("DT1", count, subItems), objects)))
            .findings();
    QStringList lines;
    for (const check::Finding& finding : findings.list)
        if (finding.rule->code.substr(0, 10) == "dictionary")
            lines += finding.text;
    QCOMPARE(lines, QStringList());
}

static const testMain::Registration<tst_DictionaryRules, testMain::NoApplication> registration;
#include "tst_DictionaryRules.moc"
