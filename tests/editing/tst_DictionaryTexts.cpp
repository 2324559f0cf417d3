// The texts of the CoE tab's rows, without a window.
#include "editing/dictionaryTexts.h"
#include "model/dictionaryBuilders.h"
#include "testMain.h"

#include <QtTest>

class tst_DictionaryTexts : public QObject
{
    Q_OBJECT

private slots:
    static void objectRow_data();
    static void objectRow();
    static void access_data();
    static void access();
    static void subItemRow();
    static void subIndexOf32Bits();
    static void elementRow();
    static void valueOfTheObjectInTheTypeName_data();
    static void valueOfTheObjectInTheTypeName();
};

namespace {

/// A dictionary and its texts.
struct Dictionary
{
    std::vector<struct_DataTypes> dataTypes;
    std::vector<struct_Object> objects;
    DictionaryIndex index{dataTypes, objects};
    DictionaryTexts texts{index};
};

/// The row of an object, made from a dictionary without data types.
QStringList textsOf(const struct_Object& ofObject)
{
    Dictionary dictionary;
    return dictionary.texts.ofObject(ofObject, indexPatternOf(ofObject));
}

} // namespace

void tst_DictionaryTexts::objectRow_data()
{
    QTest::addColumn<unsigned int>("index");
    QTest::addColumn<QByteArray>("type");
    QTest::addColumn<int>("bitSize");
    QTest::addColumn<QStringList>("expected");
    QTest::addRow("number") << 0x1000U << QByteArray("UDINT") << 32
                            << QStringList{"0x1000:0", "对象", "ro", "32", "UDINT", "4294967295"};
    QTest::addRow("text") << 0x100AU << QByteArray("STRING(12)") << 96
                          << QStringList{"0x100a:0", "对象", "ro", "96", "STRING(12)", "文本 1.0"};
    QTest::addRow("record has no type") << 0x1018U << QByteArray("DT1018") << 144
                                        << QStringList{"0x1018:0", "对象", "ro", "144", "", "4294967295"};
    QTest::addRow("record named like a text")
        << 0xFFFFU << QByteArray("DTSTRING") << 8 << QStringList{"0xffff:0", "对象", "ro", "8", "", "文本 1.0"};
    QTest::addRow("index 0, negative size, no type")
        << 0U << QByteArray() << -1 << QStringList{"0x00:0", "对象", "ro", "-1", "", "4294967295"};
}

void tst_DictionaryTexts::objectRow()
{
    QFETCH(unsigned int, index);
    QFETCH(QByteArray, type);
    QFETCH(int, bitSize);
    QFETCH(QStringList, expected);
    struct_Object made = object(static_cast<std::uint16_t>(index), type.toStdString(), "对象");
    made.BitSize = bitSize;
    made.Info.DefaultValue = 0xFFFFFFFF;
    made.Info.DefaultString = "文本 1.0";
    QCOMPARE(textsOf(made), expected);
}

void tst_DictionaryTexts::access_data()
{
    QTest::addColumn<int>("token");
    QTest::addColumn<QString>("expected");
    QTest::addRow("read only") << int{ro} << "ro";
    QTest::addRow("read and write") << int{rw} << "rw";
    QTest::addRow("write only") << int{wo} << "wo";
    QTest::addRow("no token") << int{UnknownType} << "";
}

void tst_DictionaryTexts::access()
{
    QFETCH(int, token);
    QFETCH(QString, expected);
    struct_Object made = object(0x1000, "UINT");
    made.flags.Access = static_cast<NMTOKEN>(token);
    QCOMPARE(textsOf(made).at(FlagsColumn), expected);
}

void tst_DictionaryTexts::subItemRow()
{
    const Dictionary records{{record("DT1018", {subItem(0, "USINT"), subItem(1, "UDINT", "厂商"),
                                                subItem(2, "STRING(4)", "%1"), subItem(9, "UINT", "missing")})},
                             {objectWithDefaults(0x1018, "DT1018", {3, 11, 12})}};
    DictionaryTexts texts(records.index);
    const struct_DataTypes& dataType = records.dataTypes[0];
    const QString pattern = QStringLiteral("0x1018:%1");
    const auto textsOfPlace = [&](std::size_t place) {
        return texts.ofRow({&dataType, &dataType.vsubitem[place], 0}, pattern, QStringLiteral("flags of the object"));
    };
    QCOMPARE(textsOfPlace(1), QStringList({"0x1018:1", "厂商", "rw", "16", "UDINT", "11"}));
    QCOMPARE(textsOfPlace(2), QStringList({"0x1018:2", "%1", "rw", "16", "STRING(4)", "text 12"}));
    QCOMPARE(textsOfPlace(3), QStringList({"0x1018:9", "missing", "rw", "16", "UINT", "0"}));
}

void tst_DictionaryTexts::subIndexOf32Bits()
{
    const Dictionary records{{record("DT1", {subItem(0xFFFFFFFF, "UINT")})}, {}};
    DictionaryTexts texts(records.index);
    const struct_DataTypes& dataType = records.dataTypes[0];
    QCOMPARE(texts.ofRow({&dataType, &dataType.vsubitem[0], 0}, QStringLiteral("0x1:%1"), {}).at(IndexColumn),
             QStringLiteral("0x1:4294967295"));
}

void tst_DictionaryTexts::elementRow()
{
    const Dictionary arrays{
        {array("DT1", 1, 4, "UINT"), sized("UINT", 16), sized("UINT", 17), array("DT2", -1, 4, "未知")}, {}};
    DictionaryTexts texts(arrays.index);
    const QString pattern = QStringLiteral("0x1003:%1");
    const QString flags = QStringLiteral("rw");
    // No value, not even an empty one. The size is that of the first type of the name.
    QCOMPARE(texts.ofRow({&arrays.dataTypes[0], nullptr, 4}, pattern, flags),
             QStringList({"0x1003:4", "SubIndex 4", "rw", "16", "UINT"}));
    QCOMPARE(texts.ofRow({&arrays.dataTypes[3], nullptr, -1}, pattern, {}),
             QStringList({"0x1003:-1", "SubIndex -1", "", "0", "未知"}));
}

void tst_DictionaryTexts::valueOfTheObjectInTheTypeName_data()
{
    QTest::addColumn<QByteArray>("typeName");
    QTest::addColumn<QString>("expected");
    QTest::addRow("index of an object") << QByteArray("DT1C12") << "12";
    QTest::addRow("lower case digits") << QByteArray("DT1c12") << "12";
    QTest::addRow("word before the mark") << QByteArray("0xDT1C12") << "12";
    QTest::addRow("decimal digits are hexadecimal after the mark") << QByteArray("DT1018") << "18";
    QTest::addRow("object that is not there") << QByteArray("DT1C13") << "0";
    QTest::addRow("more than 16 bits") << QByteArray("DT11C12") << "0";
    QTest::addRow("more after the number gives object 0") << QByteArray("DT1C12EN8") << "100";
    QTest::addRow("no number gives object 0") << QByteArray("IdentityDT") << "100";
    QTest::addRow("mark alone gives object 0") << QByteArray("DT") << "100";
    QTest::addRow("part of a word that means 1") << QByteArray("TRUEDT") << "101";
}

void tst_DictionaryTexts::valueOfTheObjectInTheTypeName()
{
    QFETCH(QByteArray, typeName);
    QFETCH(QString, expected);
    const Dictionary records{{record(typeName.toStdString(), {subItem(1, "UINT")})},
                             {objectWithDefaults(0x1C12, "DT1C12", {0, 12}),
                              objectWithDefaults(0x1018, "DT1018", {0, 18}), objectWithDefaults(0, "DT0", {0, 100}),
                              objectWithDefaults(1, "DT1", {0, 101})}};
    DictionaryTexts texts(records.index);
    QCOMPARE(texts.valueOf(records.dataTypes[0], records.dataTypes[0].vsubitem[0]), expected);
}

static const testMain::Registration<tst_DictionaryTexts, testMain::NoApplication> registration;
#include "tst_DictionaryTexts.moc"
