// The data types of the CoE standard by their names.
#include "check/standardTypes.h"
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

using check::ValueKind;

void tst_StandardTypes::named_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<int>("bits");
    const auto row = [](const char* name, ValueKind kind, int bits) {
        QTest::addRow("%s", name) << static_cast<int>(kind) << bits;
    };
    row("BOOL", ValueKind::Bits, 1);
    row("BIT", ValueKind::Bits, 1);
    row("BIT2", ValueKind::Bits, 2);
    row("BIT16", ValueKind::Bits, 16);
    row("BITARR8", ValueKind::Bits, 8);
    row("BYTE", ValueKind::Bits, 8);
    row("WORD", ValueKind::Bits, 16);
    row("USINT", ValueKind::Unsigned, 8);
    row("UINT", ValueKind::Unsigned, 16);
    row("UINT24", ValueKind::Unsigned, 24);
    row("UDINT", ValueKind::Unsigned, 32);
    row("UNSIGNED32", ValueKind::Unsigned, 32);
    row("ULINT", ValueKind::Unsigned, 64);
    row("SINT", ValueKind::Signed, 8);
    row("INT", ValueKind::Signed, 16);
    row("INT24", ValueKind::Signed, 24);
    row("INTEGER8", ValueKind::Signed, 8);
    row("LINT", ValueKind::Signed, 64);
    row("REAL", ValueKind::Real, 32);
    row("LREAL", ValueKind::Real, 64);
    row("STRING(12)", ValueKind::Text, 96);
    row("UNICODE_STRING(2)", ValueKind::Text, 32);
    row("VISIBLE_STRING", ValueKind::Text, 0);
    row("OCTET_STRING(3)", ValueKind::Bytes, 24);
    row("ARRAY [0..29] OF BYTE", ValueKind::Bytes, 240);
    row("ARRAY [1..4] OF UINT", ValueKind::Bytes, 64);
    row("WSTRING", ValueKind::Text, 0);
}

void tst_StandardTypes::named()
{
    QFETCH(int, kind);
    QFETCH(int, bits);
    const auto type = check::standardTypeNamed(QTest::currentDataTag());
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
    QVERIFY(!check::standardTypeNamed(name.toStdString()).has_value());
}

void tst_StandardTypes::sameKinds_data()
{
    QTest::addColumn<int>("left");
    QTest::addColumn<int>("right");
    QTest::addColumn<bool>("same");
    const auto row = [](const char* name, ValueKind left, ValueKind right, bool same) {
        QTest::addRow("%s", name) << static_cast<int>(left) << static_cast<int>(right) << same;
    };
    row("signed and unsigned", ValueKind::Signed, ValueKind::Unsigned, false);
    row("real and unsigned", ValueKind::Real, ValueKind::Unsigned, false);
    row("text and unsigned", ValueKind::Text, ValueKind::Unsigned, false);
    row("unsigned twice", ValueKind::Unsigned, ValueKind::Unsigned, true);
    row("bits and signed", ValueKind::Bits, ValueKind::Signed, true);
    row("real and bytes", ValueKind::Real, ValueKind::Bytes, true);
    row("unknown and text", ValueKind::Unknown, ValueKind::Text, true);
}

void tst_StandardTypes::sameKinds()
{
    QFETCH(int, left);
    QFETCH(int, right);
    QTEST(check::canBeSame(static_cast<ValueKind>(left), static_cast<ValueKind>(right)), "same");
    QTEST(check::canBeSame(static_cast<ValueKind>(right), static_cast<ValueKind>(left)), "same");
}

static const testMain::Registration<tst_StandardTypes, testMain::NoApplication> registration;
#include "tst_StandardTypes.moc"
