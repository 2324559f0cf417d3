// Data types of CoE dictionaries, by what differs.
// Covers typeMatch.cpp, typeMeanings.cpp.
#include "dictionaryDiffs.h"
#include "testMain.h"

#include <QtTest>

using namespace dictionaryDiffs;
using namespace dictionaryParts;

class tst_DictionaryTypes : public QObject
{
    Q_OBJECT

private slots:
    static void parts_data();
    static void parts();
    static void simpleTypesAndArrays_data();
    static void simpleTypesAndArrays();
    static void typesOfObjects_data();
    static void typesOfObjects();
};

namespace {

/// A dictionary whose object of 32 bits has a record, which is left out of the text.
QByteArray withRecord(const QByteArray& subItems)
{
    return dictionary(recordType("DT2000", 32, subItems), object("#x2000", "DT2000", 32));
}

} // namespace

void tst_DictionaryTypes::parts_data()
{
    addColumns();
    const QByteArray gain = subItem("1", "Gain", "UINT", 16, 0);
    const auto row = [&](const char* name, const QByteArray& other, const QStringList& lines) {
        addRow(name, withRecord(gain), withRecord(other), lines);
    };
    const QString part = "data type \"DT2000\", sub-item 1 \"Gain\"";
    row("name of a sub-item", subItem("1", "G", "UINT", 16, 0), {"text changed " + part + " name Gain -> G"});
    row("type of a sub-item", subItem("1", "Gain", "INT", 16, 0), {"breaking changed " + part + " type UINT -> INT"});
    row("the same bits", subItem("1", "Gain", "WORD", 16, 0), {"behaviour changed " + part + " type UINT -> WORD"});
    row("the same type", subItem("#x1", "Gain", "UNSIGNED16", 16, 0), {});
    row("length of a sub-item", subItem("1", "Gain", "UINT", 24, 0),
        {"breaking changed " + part + " length in bits 16 -> 24"});
    row("offset", subItem("1", "Gain", "UINT", 16, 8), {"breaking changed " + part + " offset in bits 0 -> 8"});
    row("access", subItem("1", "Gain", "UINT", 16, 0, flags("ro")), {"behaviour changed " + part + " access - -> ro"});
    row("mapping", subItem("1", "Gain", "UINT", 16, 0, "<PdoMapping>T</PdoMapping>"),
        {"behaviour changed " + part + " PDO mapping - -> T"});
    row("another sub-index", subItem("2", "Gain", "UINT", 16, 0),
        {"breaking removed " + part, "behaviour added data type \"DT2000\", sub-item 2 \"Gain\""});
    row("one more sub-item", gain + subItem("2", "Byte", "USINT", 8, 16),
        {"behaviour added data type \"DT2000\", sub-item 2 \"Byte\""});
    row("sub-item before", subItem("0", "Count", "USINT", 8, 16) + gain,
        {"behaviour added data type \"DT2000\", sub-item 0 \"Count\""});
    row("what is not told", "<SubItem><SubIdx>1</SubIdx><Name>Gain</Name><Type>UINT</Type></SubItem>", {});
    const QByteArray placed = subItem("", "A", "UINT", 16, 0);
    addRow("sub-items without sub-indexes by their places", withRecord(placed + subItem("", "B", "UINT", 16, 16)),
           withRecord(placed + subItem("", "B", "INT", 16, 16)),
           {"breaking changed data type \"DT2000\", sub-item \"B\" type UINT -> INT"});
}

void tst_DictionaryTypes::parts()
{
    lookBothWays();
}

void tst_DictionaryTypes::simpleTypesAndArrays_data()
{
    addColumns();
    const auto type = [](const QByteArray& more, int bits = 16) { return withType(dataType("MY", bits, more), "MY"); };
    addRow("length", type("<BaseType>UINT</BaseType>"), type("<BaseType>UINT</BaseType>", 32),
           {"breaking changed data type \"MY\" length in bits 16 -> 32"});
    addRow("base type", type("<BaseType>UINT</BaseType>"), type("<BaseType>INT</BaseType>"),
           {"breaking changed data type \"MY\" base type UINT -> INT"});
    addRow("base type of the same meaning", type("<BaseType>UINT</BaseType>"), type("<BaseType>UNSIGNED16</BaseType>"));
    addRow("base type of a standard type", withType(dataType("UINT", 16), "UINT"),
           withType(dataType("UINT", 16, "<BaseType>UNSIGNED16</BaseType>"), "UINT"));
    const auto array = [](const QByteArray& base, const QByteArray& bounds) {
        return withType(dataType("ARR", 32, "<BaseType>" + base + "</BaseType>" + bounds), "ARR");
    };
    const auto bounds = [](int lower, int elements) {
        return "<ArrayInfo><LBound>" + QByteArray::number(lower) + "</LBound><Elements>" + QByteArray::number(elements)
               + "</Elements></ArrayInfo>";
    };
    addRow("first element", array("UINT", bounds(0, 2)), array("UINT", bounds(1, 2)),
           {"breaking changed data type \"ARR\" first element 0 -> 1"});
    addRow("elements", array("UINT", bounds(0, 2)), array("UINT", bounds(0, 3)),
           {"breaking changed data type \"ARR\" number of elements 2 -> 3"});
    addRow("dimensions", array("UINT", bounds(0, 6)), array("UINT", bounds(0, 2) + bounds(0, 3)),
           {"breaking changed data type \"ARR\" dimensions - -> 2"});
    addRow("type of elements", array("UINT", bounds(0, 2)), array("INT", bounds(0, 2)),
           {"breaking changed data type \"ARR\" base type UINT -> INT"});
    const auto enumeration = [&](const QByteArray& items) { return type("<BaseType>UINT</BaseType>" + items); };
    const auto value = [](const QByteArray& name, const QByteArray& number) {
        return "<EnumInfo><Text>" + name + "</Text><Name>" + name + "</Name><Enum>" + number + "</Enum></EnumInfo>";
    };
    addRow("name of a value", enumeration(value("Off", "0")), enumeration(value("Idle", "0")),
           {"text changed data type \"MY\", value 0 \"Off\" name Off -> Idle"});
    addRow("one more value", enumeration(value("Off", "0")), enumeration(value("On", "1") + value("Off", "#x0")),
           {"text added data type \"MY\", value 1 \"On\""});
}

void tst_DictionaryTypes::simpleTypesAndArrays()
{
    lookBothWays();
}

void tst_DictionaryTypes::typesOfObjects_data()
{
    addColumns();
    const QByteArray gain = subItem("1", "Gain", "UINT", 16, 16);
    const QByteArray speed = subItem("1", "Speed", "DINT", 32, 16);
    addRow("other type", control(), only(object("#x6040", "INT", 16)),
           {"breaking changed object 0x6040 \"Object\" type UINT -> INT"});
    addRow("other length", control(), only(object("#x6040", "UDINT", 16)),
           {"breaking changed object 0x6040 \"Object\" type UINT -> UDINT"});
    addRow("no type", control(), only("<Object><Index>#x6040</Index><Name>Object</Name><BitSize>16</BitSize></Object>"),
           {"breaking changed object 0x6040 \"Object\" type UINT -> -"});
    addRow("bits of the same length", control(), only(object("#x6040", "WORD", 16)),
           {"behaviour changed object 0x6040 \"Object\" type UINT -> WORD"});
    addRow("other name of the same type", control(), only(object("#x6040", "UNSIGNED16", 16)));
    addRow("declared standard type", only(object("#x2000", "UINT", 16)), withType(dataType("UINT", 16), "UINT", 16),
           {"text added data type \"UINT\""});
    addRow("enumeration of a number", withType(dataType("EN", 8, "<BaseType>USINT</BaseType>"), "EN", 8),
           only(object("#x2000", "USINT", 8)), {"text removed data type \"EN\""});
    addRow("undeclared types", only(object("#x2000", "MY", 16)), only(object("#x2000", "YOUR", 16)),
           {"breaking changed object 0x2000 \"Object\" type MY (not declared) -> YOUR (not declared)"});
    addRow(
        "no declaration", withType(recordType("DT1", 32, gain), "DT1"), only(object("#x2000", "DT1", 32)),
        {"breaking changed object 0x2000 \"Object\" type DT1 -> DT1 (not declared)", "text removed data type \"DT1\""});
    addRow("renamed record", withType(recordType("DT1", 32, gain), "DT1"), withType(recordType("DT2", 32, gain), "DT2"),
           {"text changed data type \"DT1\" name DT1 -> DT2"});
    addRow("renamed record with another content", withType(recordType("DT1", 32, gain), "DT1"),
           withType(recordType("DT2", 32, speed), "DT2"),
           {"text changed data type \"DT1\" name DT1 -> DT2",
            "text changed data type \"DT1\", sub-item 1 \"Gain\" name Gain -> Speed",
            "breaking changed data type \"DT1\", sub-item 1 \"Gain\" length in bits 16 -> 32",
            "breaking changed data type \"DT1\", sub-item 1 \"Gain\" type UINT -> DINT"});
    addRow("renamed array in a record",
           withType(recordType("DT1", 32, subItem("", "E", "ARR1", 32, 0)) + arrayType("ARR1", 32, "UINT", 2), "DT1"),
           withType(recordType("DT1", 32, subItem("", "E", "ARR2", 32, 0)) + arrayType("ARR2", 32, "UINT", 2), "DT1"),
           {"text changed data type \"ARR1\" name ARR1 -> ARR2"});
    const QByteArray both = recordType("DT1", 32, gain) + recordType("DT2", 32, gain);
    addRow("one record for two", dictionary(both, object("1", "DT1", 32) + object("2", "DT2", 32)),
           dictionary(recordType("DT3", 32, gain), object("2", "DT3", 32) + object("1", "DT3", 32)),
           {"text changed data type \"DT1\" name DT1 -> DT3", "text removed data type \"DT2\""});
    addRow("another record of the same content", withType(both, "DT1"), withType(both, "DT2"));
    const QByteArray different = recordType("DT1", 32, gain) + recordType("DT2", 32, speed);
    addRow("another record", withType(different, "DT1"), withType(different, "DT2"),
           {"breaking changed object 0x2000 \"Object\" type DT1 -> DT2"});
    addRow("record for an array", withType(recordType("DT1", 32, gain), "DT1"),
           withType(arrayType("ARR", 32, "UINT", 2), "ARR"),
           {"breaking changed object 0x2000 \"Object\" type DT1 -> ARR", "text removed data type \"DT1\"",
            "text added data type \"ARR\""});
    const QByteArray circle = recordType("A", 32, subItem("1", "B", "B", 32, 0) + subItem("2", "B", "B", 32, 0))
                              + recordType("B", 32, subItem("1", "A", "A", 32, 0) + subItem("2", "A", "A", 32, 0));
    addRow("records in a circle", withType(circle, "A"), withType(circle, "B"),
           {"breaking changed object 0x2000 \"Object\" type A -> B"});
    addRow("what no object uses", dictionary(recordType("DT1", 32, gain), object("1", "UINT", 16)),
           dictionary(recordType("DT1", 32, speed), object("1", "UINT", 16)),
           {"text changed data type \"DT1\", sub-item 1 \"Gain\" name Gain -> Speed",
            "text changed data type \"DT1\", sub-item 1 \"Gain\" length in bits 16 -> 32",
            "text changed data type \"DT1\", sub-item 1 \"Gain\" type UINT -> DINT"});
    addRow("order of data types", withType(different, "DT1"),
           withType(recordType("DT2", 32, speed) + recordType("DT1", 32, gain), "DT1"));
}

void tst_DictionaryTypes::typesOfObjects()
{
    lookBothWays();
}

static const testMain::Registration<tst_DictionaryTypes, testMain::NoApplication> registration;
#include "tst_DictionaryTypes.moc"
