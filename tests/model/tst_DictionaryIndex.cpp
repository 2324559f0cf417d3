// Look-ups in a CoE dictionary.
#include "model/dictionaryBuilders.h"
#include "model/dictionaryIndex.h"
#include "testMain.h"

#include <QtTest>

class tst_DictionaryIndex : public QObject
{
    Q_OBJECT

private slots:
    static void sizeOfDataType_data();
    static void sizeOfDataType();
    static void allOfAName();
    static void objectInfo_data();
    static void objectInfo();
    static void emptyInfo();
};

void tst_DictionaryIndex::sizeOfDataType_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<int>("expected");
    QTest::addRow("only one") << QByteArray("BOOL") << 1;
    QTest::addRow("first of a name") << QByteArray("UINT") << 16;
    QTest::addRow("negative") << QByteArray("BAD") << -5;
    QTest::addRow("empty name") << QByteArray("") << 7;
    QTest::addRow("other case") << QByteArray("uint") << 0;
    QTest::addRow("part of a name") << QByteArray("UIN") << 0;
    QTest::addRow("more than a name") << QByteArray("UINT8") << 0;
    QTest::addRow("unknown") << QByteArray("REAL") << 0;
}

void tst_DictionaryIndex::sizeOfDataType()
{
    QFETCH(QByteArray, name);
    QFETCH(int, expected);
    const std::vector<struct_DataTypes> dataTypes{sized("UINT", 16), sized("BOOL", 1), sized("UINT", 17),
                                                  sized("BAD", -5), sized("", 7)};
    const std::vector<struct_Object> objects;
    QCOMPARE(DictionaryIndex(dataTypes, objects).sizeOfDataType(name.toStdString()), expected);
}

void tst_DictionaryIndex::allOfAName()
{
    const std::vector<struct_DataTypes> dataTypes{sized("DT1", 1), sized("DT2", 2), sized("DT1", 3), sized("DT1", 4)};
    const std::vector<struct_Object> objects;
    const DictionaryIndex index(dataTypes, objects);
    const DictionaryIndex::DataTypes expected{&dataTypes[0], &dataTypes[2], &dataTypes[3]};
    QCOMPARE(index.dataTypesNamed("DT1"), expected);
    QCOMPARE(index.dataTypesNamed("DT2"), DictionaryIndex::DataTypes{&dataTypes[1]});
    QVERIFY(index.dataTypesNamed("DT3").empty());
}

void tst_DictionaryIndex::objectInfo_data()
{
    QTest::addColumn<unsigned int>("objectIndex");
    QTest::addColumn<unsigned int>("subIndex");
    QTest::addColumn<unsigned int>("expected");
    QTest::addRow("first sub-item of the first object") << 0x1018U << 0U << 10U;
    QTest::addRow("last sub-item of the first object") << 0x1018U << 1U << 11U;
    QTest::addRow("the first object has too few") << 0x1018U << 2U << 32U;
    QTest::addRow("two objects have too few") << 0x1018U << 3U << 43U;
    QTest::addRow("all objects have too few") << 0x1018U << 4U << 0U;
    QTest::addRow("largest sub-index") << 0x1018U << 0xFFFFFFFFU << 0U;
    QTest::addRow("first object has none at all") << 0x1C12U << 0U << 60U;
    QTest::addRow("object 0") << 0U << 0U << 70U;
    QTest::addRow("unknown object") << 0x1019U << 0U << 0U;
    QTest::addRow("equal in the low 16 bits only") << 0x11018U << 0U << 0U;
}

void tst_DictionaryIndex::objectInfo()
{
    QFETCH(unsigned int, objectIndex);
    QFETCH(unsigned int, subIndex);
    QFETCH(unsigned int, expected);
    const std::vector<struct_DataTypes> dataTypes;
    const std::vector<struct_Object> objects{
        objectWithDefaults(0x1018, "DT1018", {10, 11}),
        object(0x1C12, "UINT"),
        objectWithDefaults(0x1018, "DT1018", {20}),
        objectWithDefaults(0x1018, "DT1018", {30, 31, 32}),
        objectWithDefaults(0x1018, "DT1018", {40, 41, 42, 43}),
        objectWithDefaults(0x1018, "DT1018", {50, 51, 52}),
        objectWithDefaults(0x1C12, "DT1C12", {60}),
        objectWithDefaults(0, "DT0", {70}),
    };
    QCOMPARE(DictionaryIndex(dataTypes, objects).objectInfo(objectIndex, subIndex).DefaultValue, expected);
}

void tst_DictionaryIndex::emptyInfo()
{
    const std::vector<struct_DataTypes> dataTypes;
    const std::vector<struct_Object> objects;
    const DictionaryIndex index(dataTypes, objects);
    const str_Info& info = index.objectInfo(0x1018, 0);
    QVERIFY(info.DefaultString.empty());
    QVERIFY(info.vsubitem.empty());
    QCOMPARE(info.DefaultValue, 0U);
    QCOMPARE(info.MinData, 0U);
    QCOMPARE(info.MaxData, 0U);
}

static const testMain::Registration<tst_DictionaryIndex, testMain::NoApplication> registration;
#include "tst_DictionaryIndex.moc"
