// Rows of a CoE dictionary as `ktl show` has them: numbers are those of the records.
#include "model/dictionaryBuilders.h"
#include "show/showDictionary.h"
#include "testMain.h"

#include <QtTest>

class tst_ShowDictionary : public QObject
{
    Q_OBJECT

private slots:
    static void objectAlone();
    static void recordWithItsCount();
    static void array();
    static void signedValue_data();
    static void signedValue();
};

namespace {

/// An object with a default.
struct_Object withDefault(struct_Object made, std::uint32_t number, const std::string& text = {})
{
    made.Info.DefaultValue = number;
    made.Info.DefaultString = text;
    return made;
}

/// Sub-items of an object with these defaults.
std::vector<struct_Subitem> subItemsWith(const std::vector<std::uint32_t>& numbers)
{
    std::vector<struct_Subitem> subItems(numbers.size());
    for (std::size_t index = 0; index < numbers.size(); ++index)
        subItems[index].Info.Info.DefaultValue = numbers[index];
    return subItems;
}

} // namespace

void tst_ShowDictionary::objectAlone()
{
    const std::vector<struct_DataTypes> dataTypes;
    const std::vector<struct_Object> objects{withDefault(object(0x1000, "UDINT", "Type"), 402, "unused"),
                                             withDefault(object(0x1008, "STRING(3)", "Name"), 7, "12")};
    show::DictionaryRowList rows(dataTypes, objects);
    QCOMPARE(rows.size(), std::size_t{2});
    const show::ShownDictionaryRow number = rows.row(0);
    QCOMPARE(number.index, 0x1000U);
    QCOMPARE(number.subIndex, std::int64_t{0});
    QCOMPARE(number.name, std::string("Type"));
    QCOMPARE(number.access, std::string("ro"));
    QCOMPARE(number.bitSize, 32);
    QCOMPARE(number.dataType, std::string("UDINT"));
    QCOMPARE(number.value, std::string("402"));
    QVERIFY(!number.signedValue.has_value());
    QCOMPARE(rows.row(1).value, std::string("12"));
}

/// The first sub-item has no row: its default is the value of the object, which shows no type.
void tst_ShowDictionary::recordWithItsCount()
{
    const std::vector<struct_DataTypes> dataTypes{
        record("DT2000", {subItem(0, "USINT", "count"), subItem(1, "INT", "first")})};
    struct_Object made = object(0x2000, "DT2000", "Record");
    made.Info.vsubitem = subItemsWith({1, 0xFFFE});
    const std::vector<struct_Object> objects{made};
    show::DictionaryRowList rows(dataTypes, objects);
    QCOMPARE(rows.size(), std::size_t{2});
    QCOMPARE(rows.row(0).dataType, std::string());
    QCOMPARE(rows.row(0).value, std::string("1"));
    const show::ShownDictionaryRow first = rows.row(1);
    QCOMPARE(first.index, 0x2000U);
    QCOMPARE(first.subIndex, std::int64_t{1});
    QCOMPARE(first.name, std::string("first"));
    QCOMPARE(first.access, std::string("rw"));
    QCOMPARE(first.bitSize, 16);
    QCOMPARE(first.dataType, std::string("INT"));
    QCOMPARE(first.value, std::string("65534"));
    QCOMPARE(first.signedValue, std::make_optional(std::int64_t{-2}));
}

/// Its elements have the access of the object, the type and size of what the array rests on, and no value.
void tst_ShowDictionary::array()
{
    const std::vector<struct_DataTypes> dataTypes{::array("DT2001ARR", 1, 2, "DINT"), sized("DINT", 32)};
    const std::vector<struct_Object> objects{withDefault(object(0x2001, "DT2001ARR"), 5)};
    show::DictionaryRowList rows(dataTypes, objects);
    QCOMPARE(rows.size(), std::size_t{3});
    QCOMPARE(rows.row(0).value, std::string("5"));
    const show::ShownDictionaryRow second = rows.row(2);
    QCOMPARE(second.subIndex, std::int64_t{2});
    QCOMPARE(second.name, std::string("SubIndex 2"));
    QCOMPARE(second.access, std::string("ro"));
    QCOMPARE(second.bitSize, 32);
    QCOMPARE(second.dataType, std::string("DINT"));
    QCOMPARE(second.value, std::string());
    QVERIFY(!second.signedValue.has_value());
}

void tst_ShowDictionary::signedValue_data()
{
    QTest::addColumn<QByteArray>("type");
    QTest::addColumn<quint32>("number");
    QTest::addColumn<QVariant>("expected");
    const auto row = [](const char* name, const char* type, quint32 number, const QVariant& expected) {
        QTest::addRow("%s", name) << QByteArray(type) << number << expected;
    };
    row("largest of 8 bits", "SINT", 0x7F, 127);
    row("smallest of 8 bits", "SINT", 0x80, -128);
    row("beyond 8 bits", "SINT", 0x100, {});
    row("16 bits", "INT", 0xFFFF, -1);
    row("24 bits", "INT24", 0x800000, -8388608);
    row("32 bits", "DINT", 0xFFFFFFFF, -1);
    row("other name of 32 bits", "INT32", 0x80000000, -2147483648LL);
    row("type without a sign", "USINT", 0x80, {});
    row("type of 64 bits", "LINT", 0x80, {});
}

void tst_ShowDictionary::signedValue()
{
    QFETCH(QByteArray, type);
    QFETCH(quint32, number);
    QFETCH(QVariant, expected);
    const std::vector<struct_DataTypes> dataTypes;
    const std::vector<struct_Object> objects{withDefault(object(0x2000, type.toStdString()), number)};
    show::DictionaryRowList rows(dataTypes, objects);
    const std::optional<std::int64_t> shown = rows.row(0).signedValue;
    QCOMPARE(shown.has_value(), expected.isValid());
    QCOMPARE(shown.value_or(0), std::int64_t{expected.toLongLong()});
}

static const testMain::Registration<tst_ShowDictionary, testMain::NoApplication> registration;
#include "tst_ShowDictionary.moc"
