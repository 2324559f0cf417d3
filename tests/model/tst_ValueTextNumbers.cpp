// Texts to numbers: plain, signed, and as byte pairs.
#include "model/valueTexts.h"
#include "testMain.h"

#include <QtTest>

#include <cstdint>
#include <limits>
#include <optional>

class tst_ValueTextNumbers : public QObject
{
    Q_OBJECT

private slots:
    static void bothKinds_data();
    static void bothKinds();
    static void unsignedOnly_data();
    static void unsignedOnly();
    static void signedOnly_data();
    static void signedOnly();
    static void bytePairs_data();
    static void bytePairs();
    static void convertedOrNot();
};

/// Numbers with a mark, or a digit that is one.
static void addHexadecimalRows()
{
    QTest::addRow("#x mark") << "#x12" << 18;
    QTest::addRow("#X mark") << "#X1a" << 26;
    QTest::addRow("0x mark") << "0x1a" << 26;
    QTest::addRow("0X mark") << "0X1A" << 26;
    QTest::addRow("DT mark") << "DT0800" << 0x800;
    QTest::addRow("dt mark") << "dt0800" << 0x800;
    QTest::addRow("no mark but a digit from A to F") << "1a" << 26;
    QTest::addRow("a decimal exponent is a hexadecimal digit") << "1E" << 30;
    QTest::addRow("each of A to C alone marks") << "ABC" << 0xABC;
    QTest::addRow("each of D to F alone marks") << "def" << 0xDEF;
    QTest::addRow("A alone") << "a" << 10;
    QTest::addRow("B alone") << "b" << 11;
    QTest::addRow("C alone") << "c" << 12;
    QTest::addRow("D alone") << "d" << 13;
    QTest::addRow("E alone") << "e" << 14;
    QTest::addRow("F alone") << "f" << 15;
    QTest::addRow("DEAD without any mark") << "DEAD" << 0xDEAD;
    QTest::addRow("a binary mark is hexadecimal too") << "0b101" << 0xB101;
    QTest::addRow("x without 0 or # marks nothing") << "x12" << 0;
    QTest::addRow("the #x mark counts anywhere") << "1#x2" << 18;
    QTest::addRow("the DT mark counts anywhere") << "12DT34" << 0x1234;
    QTest::addRow("only the first #x is removed") << "#x#x12" << 0;
    QTest::addRow("#x is removed before 0x") << "0#xX1A" << 26;
    QTest::addRow("#x is not looked for again after 0x") << "#0xx12" << 0;
    QTest::addRow("0x is removed before DT") << "D0XT12" << 18;
    QTest::addRow("#x and 0x") << "#x0x12" << 18;
    QTest::addRow("0x and DT") << "0xDT12" << 18;
    QTest::addRow("a mark alone") << "0x" << 0;
    QTest::addRow("#x alone") << "#x" << 0;
    QTest::addRow("rubbish after the digits") << "DT0800EN8" << 0;
    QTest::addRow("name of a data type") << "UDINT" << 0;
    QTest::addRow("more digits than any number has, with leading zeros") << "000000000012" << 12;
    QTest::addRow("more hexadecimal digits than any number has, with leading zeros") << "#x000000012" << 18;
    QTest::addRow("rubbish after a mark and digits") << "#x1G" << 0;
    QTest::addRow("a second mark after digits") << "0x1#x2" << 0x12;
    QTest::addRow("digits of another script") << QStringLiteral("\u0661\u0662") << 0;
    QTest::addRow("greatest that both hold") << "2147483647" << std::numeric_limits<int>::max();
    QTest::addRow("greatest that both hold, hexadecimal") << "#x7FFFFFFF" << std::numeric_limits<int>::max();
}

/// Rows that hold for the unsigned and the signed conversion alike.
void tst_ValueTextNumbers::bothKinds_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("expected");
    QTest::addRow("decimal") << "12" << 12;
    QTest::addRow("decimal zero") << "0" << 0;
    QTest::addRow("leading zeros stay decimal") << "0012" << 12;
    QTest::addRow("blanks around a number do not matter") << " 12 " << 12;
    QTest::addRow("empty text") << "" << 0;
    QTest::addRow("no number") << "two" << 0;
    QTest::addRow("fraction") << "1.5" << 0;

    QTest::addRow("true") << "true" << 1;
    QTest::addRow("TRUE in mixed case") << "TrUe" << 1;
    QTest::addRow("true inside a word") << "untrue" << 1;
    QTest::addRow("false") << "false" << 0;
    QTest::addRow("false inside a word") << "falsely" << 0;
    QTest::addRow("true wins over a false before it") << "falsetrue" << 1;
    QTest::addRow("true wins over a number") << "5true" << 1;
    QTest::addRow("false wins over a number") << "5false" << 0;

    addHexadecimalRows();
}

void tst_ValueTextNumbers::bothKinds()
{
    QFETCH(QString, text);
    QFETCH(int, expected);
    QCOMPARE(toUint(text), static_cast<std::uint32_t>(expected));
    QCOMPARE(toUint(std::string_view(text.toStdString())), static_cast<std::uint32_t>(expected));
    QCOMPARE(toInt(text), expected);
    QCOMPARE(toInt(std::string_view(text.toStdString())), expected);
}

void tst_ValueTextNumbers::unsignedOnly_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<unsigned int>("expected");
    QTest::addRow("all bits") << "#xFFFFFFFF" << 0xFFFFFFFFU;
    QTest::addRow("all bits, decimal") << "4294967295" << 0xFFFFFFFFU;
    QTest::addRow("top bit") << "#x80000000" << 0x80000000U;
    QTest::addRow("one more than fits") << "4294967296" << 0U;
    QTest::addRow("one more than fits, hexadecimal") << "#x100000000" << 0U;
    QTest::addRow("negative") << "-5" << 0U;
    QTest::addRow("negative one") << "-1" << 0U;
}

void tst_ValueTextNumbers::unsignedOnly()
{
    QFETCH(QString, text);
    QFETCH(unsigned int, expected);
    QCOMPARE(toUint(text), expected);
    QCOMPARE(toUint(std::string_view(text.toStdString())), expected);
}

void tst_ValueTextNumbers::signedOnly_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("expected");
    QTest::addRow("negative") << "-5" << -5;
    QTest::addRow("negative shift time") << "-1000" << -1000;
    QTest::addRow("least") << "-2147483648" << std::numeric_limits<int>::min();
    QTest::addRow("negative hexadecimal") << "-A" << -10;
    QTest::addRow("hexadecimal above 31 bits") << "#x80000000" << 0;
    QTest::addRow("all bits") << "#xFFFFFFFF" << 0;
    QTest::addRow("decimal above 31 bits") << "2147483648" << 0;
}

void tst_ValueTextNumbers::signedOnly()
{
    QFETCH(QString, text);
    QFETCH(int, expected);
    QCOMPARE(toInt(text), expected);
    QCOMPARE(toInt(std::string_view(text.toStdString())), expected);
}

void tst_ValueTextNumbers::bytePairs_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<unsigned int>("expected");
    QTest::addRow("one byte") << "12" << 0x12U;
    QTest::addRow("a text ends at its first zero") << QString(QString("12") + QChar(QChar::Null) + "34") << 0x12U;
    QTest::addRow("two bytes, the least significant first") << "0A0B" << 0x0B0AU;
    QTest::addRow("two bytes of digits only") << "1234" << 0x3412U;
    QTest::addRow("lower case") << "0a0b" << 0x0B0AU;
    QTest::addRow("four bytes") << "01020304" << 0x04030201U;
    QTest::addRow("four bytes, all bits") << "ffffffff" << 0xFFFFFFFFU;
    QTest::addRow("an odd length drops the first character") << "ABC" << 0xBCU;
    QTest::addRow("an odd first character of another script") << QStringLiteral("\u00E9"
                                                                                "0A0B")
                                                              << 0x0B0AU;
    QTest::addRow("five characters") << "ABCDE" << 0xDEBCU;
    QTest::addRow("one character") << "A" << 0U;
    QTest::addRow("empty text") << "" << 0U;
    QTest::addRow("five bytes") << "0102030405" << 0U;
    QTest::addRow("five bytes of which the last is 0") << "0102030400" << 0x04030201U;
    QTest::addRow("#x is read as it is") << "#x0A0B" << 0x0A0BU;
    QTest::addRow("#X is read as it is") << "#X1234" << 0x1234U;
    QTest::addRow("#x counts anywhere") << "0A#x0B" << 0x0A0BU;
    QTest::addRow("only the first #x is removed") << "#x#x12" << 0U;
    QTest::addRow("#x alone") << "#x" << 0U;
    QTest::addRow("#x with more than four bytes") << "#x0102030405" << 0U;
    QTest::addRow("0x is no mark here") << "0x12" << 0U;
    QTest::addRow("no hexadecimal digits") << "zz" << 0U;
    QTest::addRow("TRUE is no number here") << "true" << 0U;
}

void tst_ValueTextNumbers::bytePairs()
{
    QFETCH(QString, text);
    QFETCH(unsigned int, expected);
    QCOMPARE(toUintFromBytes(text), expected);
    QCOMPARE(toUintFromBytes(std::string_view(text.toStdString())), expected);
}

// A text that does not convert is told from a 0.
void tst_ValueTextNumbers::convertedOrNot()
{
    using Unsigned = std::optional<std::uint32_t>;
    using Signed = std::optional<std::int32_t>;
    for (const char* const zero : {"0", "#x0", "000000000000", "false", " 0 "}) {
        QVERIFY(convertedUint(zero) == Unsigned(0));
        QVERIFY(convertedInt(zero) == Signed(0));
    }
    for (const char* const none : {"", "x", "1.5", "#x", "4294967296", "#x100000000"}) {
        QVERIFY(convertedUint(none) == Unsigned());
        QVERIFY(convertedInt(none) == Signed());
    }
    QVERIFY(convertedUint("-1") == Unsigned());
    QVERIFY(convertedInt("-1") == Signed(-1));
    QVERIFY(convertedUint("#x80000000") == Unsigned(0x80000000U));
    QVERIFY(convertedInt("#x80000000") == Signed());
}

static const testMain::Registration<tst_ValueTextNumbers, QCoreApplication> registration;
#include "tst_ValueTextNumbers.moc"
