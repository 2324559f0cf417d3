// The data types of the CoE standard by their names.
#include "facts/dictionary/standardTypes.h"
#include "testMain.h"

#include <QtTest>

class tst_StandardTypes : public QObject
{
    Q_OBJECT

private slots:
    static void named_data();
    static void named();
    static void unknown_data();
    static void unknown();
    static void sameKinds_data();
    static void sameKinds();
};

using facts::DataKind;

void tst_StandardTypes::named_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<int>("bits");
    const auto row = [](const char* name, DataKind kind, int bits) {
        QTest::addRow("%s", name) << static_cast<int>(kind) << bits;
    };
    row("BOOL", DataKind::Bits, 1);
    row("BIT", DataKind::Bits, 1);
    row("BIT2", DataKind::Bits, 2);
    row("BIT16", DataKind::Bits, 16);
    row("BITARR8", DataKind::Bits, 8);
    row("BYTE", DataKind::Bits, 8);
    row("WORD", DataKind::Bits, 16);
    row("USINT", DataKind::Unsigned, 8);
    row("UINT", DataKind::Unsigned, 16);
    row("UINT24", DataKind::Unsigned, 24);
    row("UDINT", DataKind::Unsigned, 32);
    row("UNSIGNED32", DataKind::Unsigned, 32);
    row("ULINT", DataKind::Unsigned, 64);
    row("SINT", DataKind::Signed, 8);
    row("INT", DataKind::Signed, 16);
    row("INT24", DataKind::Signed, 24);
    row("INTEGER8", DataKind::Signed, 8);
    row("LINT", DataKind::Signed, 64);
    row("REAL", DataKind::Real, 32);
    row("LREAL", DataKind::Real, 64);
    row("STRING(12)", DataKind::Text, 96);
    row("UNICODE_STRING(2)", DataKind::Text, 32);
    row("VISIBLE_STRING", DataKind::Text, 0);
    row("OCTET_STRING(3)", DataKind::Bytes, 24);
    row("ARRAY [0..29] OF BYTE", DataKind::Bytes, 240);
    row("ARRAY [1..4] OF UINT", DataKind::Bytes, 64);
    row("WSTRING", DataKind::Text, 0);
}

void tst_StandardTypes::named()
{
    QFETCH(int, kind);
    QFETCH(int, bits);
    const auto type = facts::standardTypeNamed(QTest::currentDataTag());
    QVERIFY(type.has_value());
    QCOMPARE(static_cast<int>(type->kind), kind);
    QCOMPARE(static_cast<int>(type->bits), bits);
}

void tst_StandardTypes::unknown_data()
{
    QTest::addColumn<QByteArray>("name");
    for (const char* const name :
         {"", "uint", "UINT ", "DT2000", "UINT0", "UINT65", "BIT17", "UINT9999999999", "INTX", "STRING()", "STRING(1",
          "STRING(1x)", "ARRAY [0..3] OF", "ARRAY [0..3] OF DT2000", "ARRAY [3..0] OF BYTE", "ARRAY [..] OF BYTE"})
        QTest::addRow("'%s'", name) << QByteArray(name);
    QTest::addRow("longer than any") << QByteArray("ARRAY [0..3] OF BYTE").repeated(10);
}

void tst_StandardTypes::unknown()
{
    QFETCH(QByteArray, name);
    QVERIFY(!facts::standardTypeNamed(name.toStdString()).has_value());
}

void tst_StandardTypes::sameKinds_data()
{
    QTest::addColumn<int>("left");
    QTest::addColumn<int>("right");
    QTest::addColumn<bool>("same");
    const auto row = [](const char* name, DataKind left, DataKind right, bool same) {
        QTest::addRow("%s", name) << static_cast<int>(left) << static_cast<int>(right) << same;
    };
    row("signed and unsigned", DataKind::Signed, DataKind::Unsigned, false);
    row("real and unsigned", DataKind::Real, DataKind::Unsigned, false);
    row("text and unsigned", DataKind::Text, DataKind::Unsigned, false);
    row("unsigned twice", DataKind::Unsigned, DataKind::Unsigned, true);
    row("bits and signed", DataKind::Bits, DataKind::Signed, true);
    row("real and bytes", DataKind::Real, DataKind::Bytes, true);
    row("unknown and text", DataKind::Unknown, DataKind::Text, true);
}

void tst_StandardTypes::sameKinds()
{
    QFETCH(int, left);
    QFETCH(int, right);
    QTEST(facts::canBeSame(static_cast<DataKind>(left), static_cast<DataKind>(right)), "same");
    QTEST(facts::canBeSame(static_cast<DataKind>(right), static_cast<DataKind>(left)), "same");
}

static const testMain::Registration<tst_StandardTypes, testMain::NoApplication> registration;
#include "tst_StandardTypes.moc"
