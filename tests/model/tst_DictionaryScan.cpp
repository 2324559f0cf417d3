// What is under an object of a CoE dictionary, and how far a scan goes.
#include "model/dictionaryBuilders.h"
#include "model/dictionaryScan.h"
#include "testMain.h"

#include <QtTest>

#include <limits>

class tst_DictionaryScan : public QObject
{
    Q_OBJECT

private slots:
    static void rowsOfARecord_data();
    static void rowsOfARecord();
    static void countOfTheLastRecord();
    static void elements_data();
    static void elements();
    static void circles_data();
    static void circles();
    static void longChain();
    static void growingChain();
    static void wholeDictionaryHasALimit();
    static void limitOfAnObjectLeavesTheNextOneAlone();
};

namespace {

using DataTypes = std::vector<struct_DataTypes>;

/// The rows under a type, one word per row: the name of a sub-item or the number of an element.
QStringList wordsUnder(const DataTypes& dataTypes, const std::string& type)
{
    const std::vector<struct_Object> objects;
    const DictionaryIndex index(dataTypes, objects);
    QStringList words;
    for (const DictionaryRow& row : DictionaryScanner(index).scan(type).rows)
        words << (row.subItem != nullptr ? QString::fromStdString(row.subItem->Name) : QString::number(row.element));
    return words;
}

/// A scan of one type alone.
DictionaryRows scanned(const DataTypes& dataTypes, const std::string& type)
{
    const std::vector<struct_Object> objects;
    const DictionaryIndex index(dataTypes, objects);
    return DictionaryScanner(index).scan(type);
}

} // namespace

Q_DECLARE_METATYPE(DataTypes)

void tst_DictionaryScan::rowsOfARecord_data()
{
    QTest::addColumn<DataTypes>("dataTypes");
    QTest::addColumn<QByteArray>("type");
    QTest::addColumn<QStringList>("expected");
    const DataTypeSubItem count = subItem(0, "USINT", "count");
    const DataTypes two{record("DT1", {count, subItem(1, "UINT", "a"), subItem(2, "UINT", "b")}),
                        record("UINT", {count, subItem(1, "UINT", "x")})};
    QTest::addRow("simple type") << two << QByteArray("UINT") << QStringList();
    QTest::addRow("unknown type") << two << QByteArray("DT2") << QStringList();
    QTest::addRow("empty type") << two << QByteArray() << QStringList();
    QTest::addRow("record") << two << QByteArray("DT1") << QStringList{"a", "b"};
    QTest::addRow("record without sub-items") << DataTypes{record("DT1", {})} << QByteArray("DT1") << QStringList();
    QTest::addRow("first sub-item is passed over whatever its sub-index")
        << DataTypes{record("DT1", {subItem(5, "UINT", "five"), subItem(0, "UINT", "zero")})} << QByteArray("DT1")
        << QStringList{"zero"};
    QTest::addRow("first sub-item that is a record is not entered")
        << DataTypes{record("DT1", {subItem(0, "DT2", "first")}), record("DT2", {count, subItem(1, "UINT", "a")})}
        << QByteArray("DT1") << QStringList();
    QTest::addRow("record within a record is in the place of its sub-item")
        << DataTypes{record("DT1",
                            {count, subItem(1, "UINT", "a"), subItem(2, "DT2", "inner"), subItem(3, "UINT", "d")}),
                     record("DT2", {count, subItem(1, "UINT", "b"), subItem(2, "UINT", "c")})}
        << QByteArray("DT1") << QStringList{"a", "b", "c", "d"};
    QTest::addRow("record within a record that is unknown leaves nothing")
        << DataTypes{record("DT1", {count, subItem(1, "DT2", "inner"), subItem(2, "UINT", "a")})} << QByteArray("DT1")
        << QStringList{"a"};
    QTest::addRow("same record twice in a record")
        << DataTypes{record("DT1", {count, subItem(1, "DT2"), subItem(2, "DT2")}),
                     record("DT2", {count, subItem(1, "UINT", "a")})}
        << QByteArray("DT1") << QStringList{"a", "a"};
    QTest::addRow("name that is there twice")
        << DataTypes{record("DT1", {count, subItem(1, "UINT", "a")}), record("DT2", {count, subItem(1, "UINT", "b")}),
                     record("DT1", {count, subItem(1, "UINT", "c")})}
        << QByteArray("DT1") << QStringList{"a", "c"};
}

void tst_DictionaryScan::rowsOfARecord()
{
    QFETCH(DataTypes, dataTypes);
    QFETCH(QByteArray, type);
    QFETCH(QStringList, expected);
    QCOMPARE(wordsUnder(dataTypes, type.toStdString()), expected);
}

void tst_DictionaryScan::countOfTheLastRecord()
{
    const DataTypes dataTypes{
        record("DT1", {subItem(0, "USINT", "outer"), subItem(1, "DT2")}),
        record("DT2", {subItem(7, "USINT", "inner"), subItem(1, "UINT")}),
        array("DT3", 1, 2),
    };
    const DictionaryRows outer = scanned(dataTypes, "DT1");
    QCOMPARE(outer.count->Name, std::string("inner"));
    QCOMPARE(outer.countedType->Name, std::string("DT2"));
    QCOMPARE(scanned(dataTypes, "DT2").count->Name, std::string("inner"));
    QVERIFY(scanned(dataTypes, "DT3").count == nullptr);
    QVERIFY(scanned(dataTypes, "UINT").count == nullptr);
}

void tst_DictionaryScan::elements_data()
{
    QTest::addColumn<int>("lowerBound");
    QTest::addColumn<int>("count");
    QTest::addColumn<QStringList>("expected");
    QTest::addRow("from 1") << 1 << 4 << QStringList{"1", "2", "3", "4"};
    QTest::addRow("from 0: one more") << 0 << 4 << QStringList{"0", "1", "2", "3", "4"};
    QTest::addRow("from 3: fewer") << 3 << 4 << QStringList{"3", "4"};
    QTest::addRow("one") << 4 << 4 << QStringList{"4"};
    QTest::addRow("lower bound above the number of elements") << 5 << 4 << QStringList();
    QTest::addRow("none") << 1 << 0 << QStringList();
    QTest::addRow("negative") << -2 << 0 << QStringList{"-2", "-1", "0"};
    const int largest = std::numeric_limits<int>::max();
    QTest::addRow("largest number") << largest - 1 << largest << QStringList{"2147483646", "2147483647"};
}

void tst_DictionaryScan::elements()
{
    QFETCH(int, lowerBound);
    QFETCH(int, count);
    QFETCH(QStringList, expected);
    struct_DataTypes dataType = array("DT1", lowerBound, count);
    dataType.varrayinfo.push_back({1, 9}); // only the first bounds count
    QCOMPARE(wordsUnder({dataType}, "DT1"), expected);
    dataType.vsubitem = {subItem(0, "USINT", "count"), subItem(1, "UINT", "a")};
    QCOMPARE(wordsUnder({dataType}, "DT1"), QStringList("a") + expected); // elements come after sub-items
}

void tst_DictionaryScan::circles_data()
{
    QTest::addColumn<DataTypes>("dataTypes");
    QTest::addColumn<QStringList>("expected");
    const DataTypeSubItem count = subItem(0, "USINT", "count");
    QTest::addRow("names itself") << DataTypes{record(
        "DT1", {count, subItem(1, "UINT", "a"), subItem(2, "DT1"), subItem(3, "UINT", "b")})}
                                  << QStringList{"a", "b"};
    QTest::addRow("two name each other")
        << DataTypes{record("DT1", {count, subItem(1, "DT2"), subItem(2, "UINT", "a")}),
                     record("DT2", {count, subItem(1, "UINT", "b"), subItem(2, "DT1"), subItem(3, "UINT", "c")})}
        << QStringList{"b", "c", "a"};
    QTest::addRow("circle after the first type")
        << DataTypes{record("DT1", {count, subItem(1, "DT2"), subItem(2, "DT3")}),
                     record("DT2", {count, subItem(1, "DT3"), subItem(2, "UINT", "a")}),
                     record("DT3", {count, subItem(1, "DT2"), subItem(2, "UINT", "b")})}
        << QStringList{"b", "a", "a", "b"}; // it is entered twice, and each time followed once around
    QTest::addRow("name that is there twice and names itself")
        << DataTypes{record("DT1", {count, subItem(1, "DT1"), subItem(2, "UINT", "a")}),
                     record("DT1", {count, subItem(1, "DT1"), subItem(2, "UINT", "b")})}
        << QStringList{"a", "b"};
}

void tst_DictionaryScan::circles()
{
    QFETCH(DataTypes, dataTypes);
    QFETCH(QStringList, expected);
    QCOMPARE(wordsUnder(dataTypes, "DT1"), expected);
}

void tst_DictionaryScan::longChain()
{
    constexpr int length = 100'000;
    DataTypes dataTypes;
    for (int number = 0; number < length; ++number)
        dataTypes.push_back(record("DT" + std::to_string(number),
                                   {subItem(0, "USINT"), subItem(1, "DT" + std::to_string(number + 1))}));
    dataTypes.push_back(record("DT" + std::to_string(length), {subItem(0, "USINT"), subItem(1, "UINT", "bottom")}));
    QCOMPARE(wordsUnder(dataTypes, "DT0"), QStringList{"bottom"});
}

/// Forty records of which each holds the next one twice: some 10^12 ways lead to the last one.
static DataTypes growingTypes(const std::vector<DataTypeSubItem>& last)
{
    constexpr int length = 40;
    DataTypes dataTypes;
    for (int number = 0; number < length; ++number) {
        const std::string next = "DT" + std::to_string(number + 1);
        dataTypes.push_back(
            record("DT" + std::to_string(number), {subItem(0, "USINT"), subItem(1, next), subItem(2, next)}));
    }
    dataTypes.push_back(record("DT" + std::to_string(length), last));
    return dataTypes;
}

void tst_DictionaryScan::growingChain()
{
    // Both ends of a scan: the rows are full, or there are none and the steps are used up.
    const DictionaryRows full = scanned(growingTypes({subItem(0, "USINT"), subItem(1, "UINT", "bottom")}), "DT0");
    QVERIFY(full.rows.size() <= limitsOfObject.rows);
    QVERIFY(full.rows.size() > 1000);
    QVERIFY(scanned(growingTypes({}), "DT0").rows.empty());
}

void tst_DictionaryScan::wholeDictionaryHasALimit()
{
    const DataTypes dataTypes{array("DT1", std::numeric_limits<int>::min(), std::numeric_limits<int>::max()),
                              record("DT2", {subItem(0, "USINT"), subItem(1, "UINT")})};
    const std::vector<struct_Object> objects;
    const DictionaryIndex index(dataTypes, objects);
    DictionaryScanner scanner(index);
    std::size_t rows = 0;
    for (int number = 0; number < 1000; ++number)
        rows += scanner.scan("DT1").rows.size();
    QCOMPARE(rows, limitsOfDictionary.rows);
    // Rows are left out, the count is still found.
    const DictionaryRows found = scanner.scan("DT2");
    QVERIFY(found.rows.empty());
    QVERIFY(found.count == &dataTypes[1].vsubitem[0]);
}

void tst_DictionaryScan::limitOfAnObjectLeavesTheNextOneAlone()
{
    DataTypes dataTypes = growingTypes({});
    dataTypes.push_back(array("DTA", 1, std::numeric_limits<int>::max()));
    dataTypes.push_back(record("DTB", {subItem(0, "USINT"), subItem(1, "UINT")}));
    const std::vector<struct_Object> objects;
    const DictionaryIndex index(dataTypes, objects);
    DictionaryScanner scanner(index);
    QVERIFY(scanner.scan("DT0").rows.empty());
    QCOMPARE(scanner.scan("DTA").rows.size(), limitsOfObject.rows);
    QCOMPARE(scanner.scan("DTB").rows.size(), std::size_t{1});
}

static const testMain::Registration<tst_DictionaryScan, testMain::NoApplication> registration;
#include "tst_DictionaryScan.moc"
