// Texts to truth values and tokens, tokens and numbers to texts.
#include "model/valueTexts.h"
#include "testMain.h"

#include <QtTest>

#include <cstdint>

class tst_ValueTexts : public QObject
{
    Q_OBJECT

private slots:
    static void truth_data();
    static void truth();
    static void token_data();
    static void token();
    static void tokenText_data();
    static void tokenText();
    static void numberText_data();
    static void numberText();
};

void tst_ValueTexts::truth_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("expected");
    QTest::addRow("true") << "true" << true;
    QTest::addRow("TRUE") << "TRUE" << true;
    QTest::addRow("mixed case") << "True" << true;
    QTest::addRow("one") << "1" << true;
    QTest::addRow("any number above 0") << "7" << true;
    QTest::addRow("false") << "false" << false;
    QTest::addRow("zero") << "0" << false;
    QTest::addRow("negative") << "-1" << false;
    QTest::addRow("yes") << "yes" << false;
    QTest::addRow("empty text") << "" << false;
    QTest::addRow("a blank before the word") << " TRUE" << false;
    QTest::addRow("a blank after the word") << "true " << false;
    QTest::addRow("the word inside another one") << "untrue" << false;
    QTest::addRow("hexadecimal is no decimal") << "#x1" << false;
    QTest::addRow("a hexadecimal digit is no decimal") << "A" << false;
    QTest::addRow("greatest int") << "2147483647" << true;
    QTest::addRow("more than an int holds") << "2147483648" << false;
}

void tst_ValueTexts::truth()
{
    QFETCH(QString, text);
    QFETCH(bool, expected);
    QCOMPARE(toBool(text), expected);
    QCOMPARE(toBool(std::string_view(text.toStdString())), expected);
}

void tst_ValueTexts::token_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<unsigned int>("expected");
    QTest::addRow("IP") << "IP" << 1U;
    QTest::addRow("PS") << "PS" << 2U;
    QTest::addRow("PI") << "PI" << 4U;
    QTest::addRow("SP") << "SP" << 5U;
    QTest::addRow("SO") << "SO" << 6U;
    QTest::addRow("SI") << "SI" << 7U;
    QTest::addRow("OS") << "OS" << 8U;
    QTest::addRow("OP") << "OP" << 9U;
    QTest::addRow("OI") << "OI" << 10U;
    QTest::addRow("IB") << "IB" << 11U;
    QTest::addRow("BI") << "BI" << 12U;
    QTest::addRow("M") << "M" << 13U;
    QTest::addRow("O") << "O" << 14U;
    QTest::addRow("C") << "C" << 15U;
    QTest::addRow("RO") << "RO" << 16U;
    QTest::addRow("RW") << "RW" << 17U;
    QTest::addRow("WO") << "WO" << 18U;
    QTest::addRow("T") << "T" << 19U;
    QTest::addRow("R") << "R" << 20U;
    QTest::addRow("TR") << "TR" << 21U;
    QTest::addRow("NONE") << "NONE" << 22U;
    QTest::addRow("EQ") << "EQ" << 23U;
    QTest::addRow("a transition in lower case") << "ps" << 2U;
    QTest::addRow("an access right in lower case") << "rw" << 17U;
    QTest::addRow("a category in lower case") << "m" << 13U;
    QTest::addRow("mixed case") << "Eq" << 23U;
    QTest::addRow("two transitions have no text") << "IP_PS" << 0U;
    QTest::addRow("a blank before") << " PS" << 0U;
    QTest::addRow("a token inside a word") << "OPS" << 0U;
    QTest::addRow("no token") << "XY" << 0U;
    QTest::addRow("empty text") << "" << 0U;
}

void tst_ValueTexts::token()
{
    QFETCH(QString, text);
    QFETCH(unsigned int, expected);
    QCOMPARE(unsigned{toToken(text)}, expected);
    QCOMPARE(unsigned{toToken(std::string_view(text.toStdString()))}, expected);
}

void tst_ValueTexts::tokenText_data()
{
    QTest::addColumn<unsigned int>("number");
    QTest::addColumn<QString>("expected");
    QTest::addRow("no token") << 0U << "";
    QTest::addRow("INIT to PREOP") << 1U << "IP";
    QTest::addRow("PREOP to SAFEOP") << 2U << "PS";
    QTest::addRow("both of them in one command") << 3U << "IP_PS";
    QTest::addRow("PREOP to INIT") << 4U << "PI";
    QTest::addRow("SAFEOP to PREOP") << 5U << "SP";
    QTest::addRow("SAFEOP to OP") << 6U << "SO";
    QTest::addRow("SAFEOP to INIT") << 7U << "SI";
    QTest::addRow("OP to SAFEOP") << 8U << "OS";
    QTest::addRow("OP to PREOP") << 9U << "OP";
    QTest::addRow("OP to INIT") << 10U << "OI";
    QTest::addRow("INIT to BOOT") << 11U << "IB";
    QTest::addRow("BOOT to INIT") << 12U << "BI";
    QTest::addRow("mandatory, in lower case") << 13U << "m";
    QTest::addRow("optional, in lower case") << 14U << "o";
    QTest::addRow("conditional, in lower case") << 15U << "c";
    QTest::addRow("read only, in lower case") << 16U << "ro";
    QTest::addRow("read and write, in lower case") << 17U << "rw";
    QTest::addRow("write only, in lower case") << 18U << "wo";
    QTest::addRow("mapping t, in lower case") << 19U << "t";
    QTest::addRow("mapping r, in lower case") << 20U << "r";
    QTest::addRow("mapping tr, in lower case") << 21U << "tr";
    QTest::addRow("product code not checked, in upper case") << 22U << "NONE";
    QTest::addRow("product code equal, in upper case") << 23U << "EQ";
    QTest::addRow("first number outside the list") << 24U << "";
    QTest::addRow("greatest number") << 0xFFFFFFFFU << "";
}

void tst_ValueTexts::tokenText()
{
    QFETCH(unsigned int, number);
    QFETCH(QString, expected);
    QCOMPARE(::tokenText(static_cast<NMTOKEN>(number)), expected);
}

void tst_ValueTexts::numberText_data()
{
    QTest::addColumn<unsigned int>("number");
    QTest::addColumn<QString>("expected");
    QTest::addRow("zero has two digits") << 0U << "0x00";
    QTest::addRow("one digit") << 5U << "0x5";
    QTest::addRow("ten is a letter in lower case") << 10U << "0xa";
    QTest::addRow("two digits") << 255U << "0xff";
    QTest::addRow("four digits") << 0x3412U << "0x3412";
    QTest::addRow("no leading zeros") << 0x0B0AU << "0xb0a";
    QTest::addRow("all bits") << 0xFFFFFFFFU << "0xffffffff";
}

void tst_ValueTexts::numberText()
{
    QFETCH(unsigned int, number);
    QFETCH(QString, expected);
    QCOMPARE(hexNumber(number), expected);
    QCOMPARE(QString::fromStdString(::numberText(number)), expected);
}

static const testMain::Registration<tst_ValueTexts, QCoreApplication> registration;
#include "tst_ValueTexts.moc"
