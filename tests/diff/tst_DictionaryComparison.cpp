// CoE dictionaries, by what differs.
// Covers dictionaryObjects.cpp.
// Covers dictionaryTypes.cpp.
// Covers typeMatch.cpp.
// Covers typeMeanings.cpp.
// Covers writtenValues.cpp.
#include "diff/sections.h"
#include "diffParts.h"
#include "facts/dictionaryParts.h"
#include "facts/unitParts.h"
#include "testMain.h"

#include <QtTest>

using namespace dictionaryParts;
using diff::Comparison;
using diff::Sides;

class tst_DictionaryComparison : public QObject
{
    Q_OBJECT

private slots:
    static void objects_data();
    static void objects();
    static void values_data();
    static void values();
    static void typeParts_data();
    static void typeParts();
    static void typesOfObjects_data();
    static void typesOfObjects();
    static void wholeDictionaries_data();
    static void wholeDictionaries();
    static void keys();
    static void places();
};

namespace {

/// The differences of the dictionaries of two files, which the parts of devices make.
std::vector<diff::Difference> differencesOf(const QByteArray& before, const QByteArray& after, Sides sides = Sides::Esi,
                                            bool isOfAll = false)
{
    const unitParts::LoadedUnits oldFile(unitParts::deviceFile(before));
    const unitParts::LoadedUnits newFile(unitParts::deviceFile(after));
    Comparison comparison(sides, isOfAll);
    compareDictionaries(oldFile.facts.units.at(0), newFile.facts.units.at(0), {}, comparison);
    return comparison.take();
}

/// Compares dictionaries, and looks whether they differ as much the other way around.
void lookBothWays(const QByteArray& before, const QByteArray& after, const QStringList& lines)
{
    const std::vector<diff::Difference> found = differencesOf(before, after);
    QCOMPARE(diffParts::linesOf(found), lines);
    QCOMPARE(diffParts::withoutDirection(differencesOf(after, before)), diffParts::withoutDirectionSwapped(found));
}

void addColumns()
{
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QByteArray>("after");
    QTest::addColumn<QStringList>("lines");
}

void addRow(const char* name, const QByteArray& before, const QByteArray& after, const QStringList& lines = {})
{
    QTest::addRow("%s", name) << before << after << lines;
}

/// A dictionary of objects without data types.
QByteArray only(const QByteArray& objects)
{
    return dictionary({}, objects);
}

QByteArray control(const QByteArray& more = {})
{
    return only(object("#x6040", "UINT", 16, more));
}

/// A dictionary whose object of 32 bits has a record, which is left out of the text.
QByteArray withRecord(const QByteArray& subItems)
{
    return dictionary(recordType("DT2000", 32, subItems), object("#x2000", "DT2000", 32));
}

/// A dictionary with one object of a data type.
QByteArray withType(const QByteArray& types, const QByteArray& name, int bits = 32)
{
    return dictionary(types, object("#x2000", name, bits));
}

QByteArray info(const QByteArray& parts)
{
    return "<Info>" + parts + "</Info>";
}

QByteArray infoOf(const QByteArray& name, const QByteArray& value)
{
    return info("<" + name + ">" + value + "</" + name + ">");
}

QByteArray infoSubItem(const QByteArray& name, const QByteArray& value)
{
    return "<SubItem><Name>" + name + "</Name><Info><DefaultValue>" + value + "</DefaultValue></Info></SubItem>";
}

} // namespace

void tst_DictionaryComparison::objects_data()
{
    addColumns();
    addRow("name", only("<Object><Index>#x6040</Index><Name>Control</Name></Object>"),
           only("<Object><Index>#x6040</Index><Name>Controlword</Name></Object>"),
           {"text changed object 0x6040 \"Control\" name Control -> Controlword"});
    addRow("white space around names", only("<Object><Index>#x6040</Index><Name>Control</Name></Object>"),
           only("<Object><Index>24640</Index><Name> Control\n</Name></Object>"));
    addRow("length", control(), only(object("#x6040", "UINT", 32)),
           {"breaking changed object 0x6040 \"Object\" length in bits 16 -> 32"});
    addRow("length of the type", control(),
           only("<Object><Index>#x6040</Index><Name>Object</Name><Type>UINT</Type>"
                "</Object>"));
    addRow("access", control(objectFlags("rw")), control(objectFlags("ro")),
           {"behaviour changed object 0x6040 \"Object\" access rw -> ro"});
    addRow("access is told", control(), control(objectFlags("WO")),
           {"behaviour changed object 0x6040 \"Object\" access - -> wo"});
    addRow("mapping", control(objectFlags("rw", "R")), control(objectFlags("rw", "RT")),
           {"behaviour changed object 0x6040 \"Object\" PDO mapping R -> RT"});
    addRow("mapping in other letters", control(objectFlags("rw", "R")), control(objectFlags("RW", "r")));
    addRow("mapping that is not told is none", control(objectFlags("rw", "")), control(objectFlags("rw")));
    addRow("no object", control(), only({}), {"breaking removed object 0x6040 \"Object\""});
    addRow("order of objects", only(object("1", "UINT", 16) + object("2", "UINT", 16)),
           only(object("2", "UINT", 16) + object("1", "UINT", 16)));
    addRow("second object of an index", only(object("1", "UINT", 16) + object("1", "INT", 16)),
           only(object("1", "UINT", 16) + object("1", "DINT", 32)),
           {"breaking changed object 0x1 \"Object\" length in bits 16 -> 32",
            "breaking changed object 0x1 \"Object\" type INT -> DINT"});
    addRow("one object of two", only(object("1", "UINT", 16) + object("1", "INT", 16)), only(object("1", "UINT", 16)),
           {"breaking removed object 0x1 \"Object\""});
}

void tst_DictionaryComparison::objects()
{
    QFETCH(QByteArray, before);
    QFETCH(QByteArray, after);
    QFETCH(QStringList, lines);
    lookBothWays(before, after, lines);
}

void tst_DictionaryComparison::values_data()
{
    addColumns();
    const auto row = [](const char* name, const QByteArray& before, const QByteArray& after, const char* words = "") {
        const QString line = QStringLiteral("behaviour changed object 0x6040 \"Object\" ") + words;
        addRow(name, control(before), control(after), *words == '\0' ? QStringList() : QStringList(line));
    };
    row("bytes", infoOf("DefaultData", "0A00"), infoOf("DefaultData", "0B00"), "default 0a00 -> 0b00");
    row("bytes in other letters", infoOf("DefaultData", "0A 0b"), infoOf("DefaultData", " 0a0B\n"));
    row("bytes of other lengths", infoOf("DefaultData", "0a"), infoOf("DefaultData", "0a00"), "default 0a -> 0a00");
    row("least", infoOf("MinData", "01"), infoOf("MinData", "02"), "minimum 01 -> 02");
    row("greatest", infoOf("MaxData", "01"), infoOf("MaxData", "02"), "maximum 01 -> 02");
    row("number", infoOf("DefaultValue", "10"), infoOf("DefaultValue", "11"), "default 10 -> 11");
    row("numbers by their values", infoOf("DefaultValue", "#x0A"), infoOf("DefaultValue", " 10 "));
    row("negative number", infoOf("MinValue", "-5"), infoOf("MinValue", "-6"), "minimum -5 -> -6");
    row("truth value", infoOf("DefaultValue", "true"), infoOf("DefaultValue", "1"));
    row("greatest number", infoOf("MaxValue", "0xffffffff"), infoOf("MaxValue", "4294967295"));
    row("fraction", infoOf("MaxValue", "1.5"), infoOf("MaxValue", "1.25"), "maximum 1.5 -> 1.25");
    row("power of ten", infoOf("MaxValue", "1E3"), infoOf("MaxValue", "483"), "maximum 1E3 -> 483");
    row("text", infoOf("DefaultString", "abc"), infoOf("DefaultString", "ABC"), "default abc -> ABC");
    row("trimmed text", infoOf("DefaultString", "abc"), infoOf("DefaultString", " abc "));
    row("default is told", "", infoOf("DefaultValue", "0"), "default - -> 0");
    row("bytes of a number", infoOf("DefaultData", "0A0B"), infoOf("DefaultValue", "#x0B0A"));
    row("bytes of another number", infoOf("DefaultData", "0A0B"), infoOf("DefaultValue", "#x0A0B"),
        "default 0a0b -> 2571");
    row("bytes of a negative number", infoOf("DefaultData", "FEFF"), infoOf("DefaultValue", "-2"));
    row("bytes of a positive number", infoOf("DefaultData", "FEFF"), infoOf("DefaultValue", "65534"));
    row("number that is too long", infoOf("DefaultData", "01"), infoOf("DefaultValue", "257"), "default 01 -> 257");
    row("negative number that is too long", infoOf("DefaultData", "7f"), infoOf("DefaultValue", "-129"),
        "default 7f -> -129");
    row("eight bytes of a negative number", infoOf("DefaultData", "FFFFFFFFFFFFFFFF"), infoOf("DefaultValue", "-1"));
    row("no bytes", infoOf("DefaultData", ""), infoOf("DefaultValue", "0"), "default '' -> 0");
    row("half a byte", infoOf("DefaultData", "010"), infoOf("DefaultValue", "1"), "default 010 -> 1");
    const QByteArray gain = infoSubItem("Count", "1") + infoSubItem("Gain", "5");
    addRow("value of a sub-item", control(info(gain)),
           control(info(infoSubItem("Count", "1") + infoSubItem("Gain", "6"))),
           {"behaviour changed object 0x6040 \"Object\", sub-item 1 \"Gain\" default 5 -> 6"});
    addRow("name of a sub-item", control(info(gain)), control(info(infoSubItem("Count", "1") + infoSubItem("G", "5"))),
           {"text changed object 0x6040 \"Object\", sub-item 1 \"Gain\" name Gain -> G"});
    addRow("missing sub-item", control(info(gain)), control(info(infoSubItem("Count", "1"))),
           {"behaviour changed object 0x6040 \"Object\", sub-item 1 \"Gain\" default 5 -> -"});
    addRow("missing sub-item that says nothing", control(info("<SubItem><Name>Count</Name></SubItem>")), control());
}

void tst_DictionaryComparison::values()
{
    objects();
}

void tst_DictionaryComparison::typeParts_data()
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

void tst_DictionaryComparison::typeParts()
{
    objects();
}

void tst_DictionaryComparison::typesOfObjects_data()
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

void tst_DictionaryComparison::typesOfObjects()
{
    objects();
}

Q_DECLARE_METATYPE(diff::Sides)

void tst_DictionaryComparison::wholeDictionaries_data()
{
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QByteArray>("after");
    QTest::addColumn<Sides>("sides");
    QTest::addColumn<bool>("isOfAll");
    QTest::addColumn<QStringList>("lines");
    const QStringList removed{"breaking removed dictionary"};
    const QStringList added{"behaviour added dictionary"};
    QTest::addRow("gone") << control() << QByteArray() << Sides::Esi << false << removed;
    QTest::addRow("has come") << QByteArray() << control() << Sides::Esi << false << added;
    QTest::addRow("none") << QByteArray() << QByteArray() << Sides::Esi << true << QStringList();
    QTest::addRow("a KTL file has none") << control() << QByteArray() << Sides::EsiAndKtl << false << QStringList();
    QTest::addRow("all of ESI and KTL") << control() << QByteArray() << Sides::EsiAndKtl << true << removed;
    QTest::addRow("all of KTL and ESI") << QByteArray() << control() << Sides::EsiAndKtl << true << added;
}

void tst_DictionaryComparison::wholeDictionaries()
{
    QFETCH(QByteArray, before);
    QFETCH(QByteArray, after);
    QFETCH(Sides, sides);
    QFETCH(bool, isOfAll);
    QTEST(diffParts::linesOf(differencesOf(before, after, sides, isOfAll)), "lines");
}

void tst_DictionaryComparison::keys()
{
    const QByteArray before = dictionary(recordType("DT1", 8, subItem("1", "A", "UINT", 16, 0))
                                             + dataType("ARR", 8,
                                                        "<BaseType>UINT</BaseType><ArrayInfo><LBound>0</LBound>"
                                                        "<Elements>1</Elements></ArrayInfo>"),
                                         object("1", "DT1", 8) + object("2", "ARR", 8)
                                             + object("3", "UINT", 16,
                                                      objectFlags("ro", "R")
                                                          + info("<MinValue>1</MinValue><MaxValue>1</MaxValue>"
                                                                 "<DefaultValue>1</DefaultValue>")));
    const QByteArray twice = "<ArrayInfo><LBound>1</LBound><Elements>2</Elements></ArrayInfo>";
    const QByteArray after = dictionary(recordType("DT1", 16, subItem("1", "B", "INT", 8, 8, flags("ro", "R")))
                                            + dataType("ARR", 8, "<BaseType>INT</BaseType>" + twice + twice),
                                        object("1", "DT1", 8) + object("2", "ARR", 8)
                                            + object("3", "INT", 8,
                                                     objectFlags("wo", "T")
                                                         + info("<MinValue>2</MinValue><MaxValue>2</MaxValue>"
                                                                "<DefaultValue>2</DefaultValue>")));
    const QStringList expected{"dictionary access",   "dictionary baseType",   "dictionary bitOffset",
                               "dictionary bitSize",  "dictionary default",    "dictionary dimensions",
                               "dictionary elements", "dictionary lowerBound", "dictionary maximum",
                               "dictionary minimum",  "dictionary name",       "dictionary pdoMapping",
                               "dictionary type"};
    QCOMPARE(diffParts::keysOf(differencesOf(before, after)), expected);
}

void tst_DictionaryComparison::places()
{
    const unitParts::LoadedUnits oldFile(unitParts::deviceFile(dictionary(
        recordType("DT1", 8, subItem("1", "A", "UINT", 16, 0)), object("1", "DT1", 8) + object("3", "UINT", 8))));
    const unitParts::LoadedUnits newFile(unitParts::deviceFile(dictionary(
        recordType("DT1", 8, subItem("1", "A", "UINT", 16, 8)), object("1", "DT1", 9) + object("2", "UINT", 8))));
    Comparison comparison(Sides::Esi, false);
    compareDictionaries(oldFile.facts.units.at(0), newFile.facts.units.at(0), "module 0x10, ", comparison);
    const std::vector<diff::Difference> found = comparison.take();
    const QStringList lines{"breaking changed module 0x10, object 0x1 \"Object\" length in bits 8 -> 9",
                            "breaking removed module 0x10, object 0x3 \"Object\"",
                            "behaviour added module 0x10, object 0x2 \"Object\"",
                            "breaking changed module 0x10, data type \"DT1\", sub-item 1 \"A\" offset in bits 0 -> 8"};
    QCOMPARE(diffParts::linesOf(found), lines);
    const facts::DictionaryContent& before = oldFile.facts.units.at(0).dictionary->content();
    const facts::DictionaryContent& after = newFile.facts.units.at(0).dictionary->content();
    using Places = std::pair<std::optional<facts::Where>, std::optional<facts::Where>>;
    std::vector<Places> places;
    for (const diff::Difference& difference : found)
        places.emplace_back(difference.spot.before, difference.spot.after);
    const std::vector<Places> expected{{before.objects[0].where, after.objects[0].where},
                                       {before.objects[1].where, std::nullopt},
                                       {std::nullopt, after.objects[1].where},
                                       {before.typeSubItems[0].where, after.typeSubItems[0].where}};
    QVERIFY(places == expected);
}

static const testMain::Registration<tst_DictionaryComparison, testMain::NoApplication> registration;
#include "tst_DictionaryComparison.moc"
