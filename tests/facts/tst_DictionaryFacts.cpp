// Look-ups in a CoE dictionary.
// Covers dictionaryContent.cpp.
#include "dictionaryParts.h"
#include "esi/esiFile.h"
#include "facts/dictionary/dictionaryFacts.h"
#include "testMain.h"

#include <QtTest>

using namespace dictionaryParts;

class tst_DictionaryFacts : public QObject
{
    Q_OBJECT

private slots:
    static void item_data();
    static void item();
    static void severalDictionaries();
    static void joinedTexts();
    static void namesOfObjects();
    static void enumerations();
    static void hugeArray();
    static void typesInACircle();
};

namespace {

/// The facts of the dictionaries of a file, with the tree that they refer to.
struct Read
{
    explicit Read(const QByteArray& file)
        : tree(*esiTreeOf(file.toStdString()).tree)
    {
        std::vector<xml::Element> dictionaries;
        for (const xml::Node node : tree.root().descendants())
            if (node.isElement() && node.characters() == "Dictionary")
                dictionaries.emplace_back(node);
        facts.emplace(dictionaries);
    }
    Read(const Read&) = delete;

    xml::Tree tree;
    std::optional<facts::DictionaryFacts> facts;
};

/// "16 UINT access mapping", or how the look-up ended.
QString textOf(const facts::LookedUpItem& found)
{
    static const QStringList ends{"found", "no object", "no sub-index", "cannot tell"};
    static const QStringList accesses{"?", "ro", "rw", "wo"};
    static const QStringList mappings{"?", "none", "R", "T", "RT"};
    if (found.result != facts::LookUp::Found)
        return ends.at(static_cast<int>(found.result));
    const facts::ItemFacts& item = found.item;
    return QStringLiteral("%1 %2 %3 %4")
        .arg(QString::number(item.bits), QString::fromUtf8(item.type.data(), static_cast<int>(item.type.size())),
             accesses.at(static_cast<int>(item.access)), mappings.at(static_cast<int>(item.mapping)));
}

QByteArray someDictionary()
{
    return dictionary(
        dataType("UINT", 16) + dataType("USINT", 8) + arrayType("DT2000ARR", 48, "UINT", 3)
            + recordType("DT2000", 64,
                         subItem("0", "Count", "USINT", 8, 0)
                             + subItem("", "Elements", "DT2000ARR", 48, 16, flags("wo", "RT")))
            + recordType("DT2001", 56,
                         subItem("0", "Count", "USINT", 8, 0, flags("ro"))
                             + subItem("#x10", "Gain", "UINT", 16, 16, flags("rw", "r"))
                             + subItem("2", "Byte", "USINT", 8, 32)
                             + subItem("3", "Block", "ARRAY [0..1] OF BYTE", 16, 40))
            + recordType("DT2002", 32, subItem("0", "Count", "USINT", 8, 0) + subItem("", "Inner", "DT2001", 16, 16))
            + dataType("ARRAY [0..1] OF BYTE", 16,
                       "<BaseType>BYTE</BaseType><ArrayInfo><LBound>0</LBound><Elements>2</Elements></ArrayInfo>")
            + recordType("DT2006", 48,
                         subItem("0", "Count", "USINT", 8, 0) + subItem("1", "Elements", "DT2000ARR", 48, 16))
            + dataType("DT2007EN08", 8, "<BaseType>USINT</BaseType>"),
        object("#x2001", "DT2001", 56, objectFlags("wo", "T")) + object("#x2000", "DT2000", 64, objectFlags("ro"))
            + object("#x2002", "DT2002", 32) + object("#x2003", "DT9999", 32)
            + object("#x2004", "UDINT", 32, objectFlags("rw", "")) + object("#x2005", "ARRAY [0..1] OF BYTE", 16)
            + object("#x2006", "DT2006", 64) + object("#x2007", "DT2007EN08", 8)
            + "<Object><Index>#x2008</Index><Type>UINT</Type></Object>\n");
}

} // namespace

void tst_DictionaryFacts::item_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<int>("subIndex");
    QTest::addColumn<QString>("found");
    QTest::addRow("no object") << 0x1FFF << 0 << "no object";
    QTest::addRow("above all objects") << 0x2FFF << 0 << "no object";
    QTest::addRow("count of an array") << 0x2000 << 0 << "8 USINT ro ?";
    QTest::addRow("first element") << 0x2000 << 1 << "16 UINT wo RT";
    QTest::addRow("last element") << 0x2000 << 3 << "16 UINT wo RT";
    QTest::addRow("after the last element") << 0x2000 << 4 << "no sub-index";
    QTest::addRow("count of a record: flags of the sub-item, else of the object") << 0x2001 << 0 << "8 USINT ro T";
    QTest::addRow("hexadecimal sub-index, out of order") << 0x2001 << 16 << "16 UINT rw R";
    QTest::addRow("sub-item") << 0x2001 << 2 << "8 USINT wo T";
    QTest::addRow("a block is one sub-item") << 0x2001 << 3 << "16 ARRAY [0..1] OF BYTE wo T";
    QTest::addRow("between sub-items") << 0x2001 << 4 << "no sub-index";
    QTest::addRow("record in a record") << 0x2002 << 1 << "cannot tell";
    QTest::addRow("known in spite of a record in the record") << 0x2002 << 0 << "8 USINT ? ?";
    QTest::addRow("unknown type") << 0x2003 << 0 << "cannot tell";
    QTest::addRow("standard type without declaration") << 0x2004 << 0 << "32 UDINT rw none";
    QTest::addRow("sub-index of a simple type") << 0x2004 << 1 << "no sub-index";
    QTest::addRow("block") << 0x2005 << 0 << "16 ARRAY [0..1] OF BYTE ? ?";
    QTest::addRow("sub-index of a block") << 0x2005 << 1 << "cannot tell";
    QTest::addRow("elements with a sub-index") << 0x2006 << 3 << "16 UINT ? ?";
    QTest::addRow("after elements with a sub-index") << 0x2006 << 4 << "no sub-index";
    QTest::addRow("enumeration") << 0x2007 << 0 << "8 DT2007EN08 ? ?";
    QTest::addRow("length of the type") << 0x2008 << 0 << "16 UINT ? ?";
}

void tst_DictionaryFacts::item()
{
    QFETCH(int, index);
    QFETCH(int, subIndex);
    const Read read(someDictionary());
    QTEST(textOf(read.facts->itemAt(static_cast<std::uint32_t>(index), static_cast<std::uint32_t>(subIndex))), "found");
}

void tst_DictionaryFacts::severalDictionaries()
{
    const Read read("<Device>" + dictionary(dataType("DT1", 24), object("#x2001", "DT1", 24))
                    + dictionary({}, object("#x2000", "DT1", 24)) + "</Device>");
    QCOMPARE(textOf(read.facts->itemAt(0x2000, 0)), QStringLiteral("24 DT1 ? ?"));
    QCOMPARE(textOf(read.facts->itemAt(0x2001, 0)), QStringLiteral("24 DT1 ? ?"));
    QCOMPARE(read.facts->objectAt(0x2002), nullptr);
}

void tst_DictionaryFacts::joinedTexts()
{
    const Read read(
        dictionary("<DataType><Name>DT<!-- a comment -->1</Name><BitSize>2<![CDATA[4]]></BitSize></DataType>",
                   "<Object><Index>#x2000</Index><Type>D<![CDATA[T1]]></Type></Object>"));
    QCOMPARE(textOf(read.facts->itemAt(0x2000, 0)), QStringLiteral("24 DT1 ? ?"));
}

void tst_DictionaryFacts::namesOfObjects()
{
    const Read read(dictionary({}, "<Object><Index>1</Index><Name LcId=\"1031\">Wert</Name><Name>Value</Name></Object>"
                                   "<Object><Index>2</Index></Object>"));
    QCOMPARE(read.facts->content().objects[0].name, std::string_view("Value"));
    QCOMPARE(read.facts->content().objects[1].name, std::string_view());
}

void tst_DictionaryFacts::enumerations()
{
    const Read read(dictionary("<DataType><Name>A</Name><EnumInfo><Text>Off</Text><Enum>7</Enum></EnumInfo></DataType>"
                               "<DataType><Name>B</Name><EnumInfo><Name>Off</Name><Enum>0</Enum></EnumInfo>"
                               "<EnumInfo><Enum>#x10</Enum><Name>Ein</Name><Name>On</Name></EnumInfo></DataType>"
                               "<DataType><Name>C</Name></DataType>",
                               {}));
    QStringList items;
    const facts::DictionaryContent& content = read.facts->content();
    for (const facts::DataType& type : content.types)
        for (const facts::EnumItem& item : content.enumItemsOf(type))
            items << QStringLiteral("%1 %2 %3")
                         .arg(QLatin1String(type.name.data(), 1))
                         .arg(item.value)
                         .arg(QString::fromUtf8(item.name.data(), static_cast<int>(item.name.size())));
    const QStringList expected{"A 7 Off", "B 0 Off", "B 16 On"};
    QCOMPARE(items, expected);
}

void tst_DictionaryFacts::hugeArray()
{
    const QByteArray bounds = "<ArrayInfo><LBound>0</LBound><Elements>4294967295</Elements></ArrayInfo>";
    const Read read(dictionary(dataType("DT1ARR", 8, "<BaseType>UINT</BaseType>" + bounds)
                                   + dataType("DT2ARR", 8, "<BaseType>UINT</BaseType>" + bounds + bounds + bounds)
                                   + recordType("DT1", 8, subItem("", "Elements", "DT1ARR", 8, 0))
                                   + recordType("DT2", 8, subItem("", "Elements", "DT2ARR", 8, 0)),
                               object("1", "DT1", 8) + object("2", "DT2", 8)));
    QCOMPARE(textOf(read.facts->itemAt(1, 0xFFFF'FFFE)), QStringLiteral("16 UINT ? ?"));
    QCOMPARE(textOf(read.facts->itemAt(1, 0xFFFF'FFFF)), QStringLiteral("no sub-index"));
    QCOMPARE(textOf(read.facts->itemAt(2, 5)), QStringLiteral("16 UINT ? ?"));
    QCOMPARE(read.facts->content().types[1].elements, std::numeric_limits<std::uint64_t>::max());
}

void tst_DictionaryFacts::typesInACircle()
{
    const Read read(dictionary(dataType("A", 8, "<BaseType>B</BaseType>") + dataType("B", 8, "<BaseType>A</BaseType>"),
                               object("1", "A", 8)));
    QCOMPARE(textOf(read.facts->itemAt(1, 0)), QStringLiteral("8 A ? ?"));
    QCOMPARE(read.facts->shapeOf(read.facts->typeNamed("A")).kind, facts::DataKind::Unknown);
}

static const testMain::Registration<tst_DictionaryFacts, testMain::NoApplication> registration;
#include "tst_DictionaryFacts.moc"
