// CoE dictionaries and their objects, by what differs.
// Covers dictionaryObjects.cpp, writtenValues.cpp.
#include "dictionaryDiffs.h"
#include "testMain.h"

#include <QtTest>

using namespace dictionaryDiffs;
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
    static void wholeDictionaries_data();
    static void wholeDictionaries();
    static void formsOfValues();
    static void keys();
    static void places();
};

namespace {

QByteArray infoOf(const QByteArray& name, const QByteArray& value)
{
    return info("<" + name + ">" + value + "</" + name + ">");
}

QByteArray infoSubItem(const QByteArray& name, const QByteArray& value)
{
    return "<SubItem><Name>" + name + "</Name><Info><DefaultValue>" + value + "</DefaultValue></Info></SubItem>";
}

} // namespace

Q_DECLARE_METATYPE(diff::Sides)

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
    lookBothWays();
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
    row("bytes that are none", infoOf("DefaultData", "0X 0G"), infoOf("DefaultData", "0a"), "default 0X 0G -> 0a");
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
    lookBothWays();
}

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
    QTest::addRow("all of ESI and KTL") << control() << QByteArray() << Sides::EsiAndKtl << true
                                        << QStringList{"text removed dictionary"};
    QTest::addRow("all of KTL and ESI") << QByteArray() << control() << Sides::EsiAndKtl << true
                                        << QStringList{"text added dictionary"};
}

void tst_DictionaryComparison::wholeDictionaries()
{
    QFETCH(QByteArray, before);
    QFETCH(QByteArray, after);
    QFETCH(Sides, sides);
    QFETCH(bool, isOfAll);
    QTEST(diffParts::linesOf(differencesOf(before, after, sides, isOfAll)), "lines");
}

void tst_DictionaryComparison::formsOfValues()
{
    const QByteArray bytes = infoOf("DefaultData", "0A");
    const QByteArray other = infoOf("DefaultData", "other");
    const QByteArray number = infoOf("DefaultValue", "11");
    const auto formsOf = [](const QByteArray& before, const QByteArray& after) {
        const std::vector<diff::Difference> found = differencesOf(control(before), control(after));
        return std::pair(found.at(0).before.kind, found.at(0).after.kind);
    };
    QCOMPARE(formsOf(bytes, other), std::pair(diff::ValueKind::Words, diff::ValueKind::Text));
    QCOMPARE(formsOf(number, {}), std::pair(diff::ValueKind::Number, diff::ValueKind::None));
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
