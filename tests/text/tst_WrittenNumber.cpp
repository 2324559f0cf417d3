// Numbers that a user writes.
#include "testMain.h"
#include "text/writtenNumber.h"

#include <QtTest>

class tst_WrittenNumber : public QObject
{
    Q_OBJECT

private slots:
    static void numbers_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<quint32>("number");
        QTest::addRow("decimal") << "26" << 26U;
        QTest::addRow("zeros in front") << "0026" << 26U;
        QTest::addRow("hexadecimal as in C") << "0x1A" << 26U;
        QTest::addRow("hexadecimal as in ESI files") << "#x1a" << 26U;
        QTest::addRow("with a capital X") << "0X1A" << 26U;
        QTest::addRow("largest, decimal") << "4294967295" << 0xFFFFFFFFU;
        QTest::addRow("largest, hexadecimal") << "0xFFFFFFFF" << 0xFFFFFFFFU;
    }

    static void numbers()
    {
        QFETCH(QString, text);
        QFETCH(quint32, number);
        QVERIFY(numberIn(text).has_value());
        QCOMPARE(*numberIn(text), number);
    }

    static void noNumbers_data()
    {
        QTest::addColumn<QString>("text");
        for (const char* text : {"", "-1", "+1", " 1", "1 ", "1A", "1.0", "1e3", "0x", "#x", "0x0x1", "0xG", "x1",
                                 "4294967296", "0x100000000", "\u0661"})
            QTest::addRow("\"%s\"", text) << QString::fromUtf8(text);
    }

    static void noNumbers()
    {
        QFETCH(QString, text);
        QVERIFY(!numberIn(text).has_value());
    }

    /// Without a prefix, in the base that is given.
    static void digits()
    {
        QCOMPARE(numberOfDigits(QStringLiteral("10"), 16).value_or(0), 16U);
        QCOMPARE(numberOfDigits(QStringLiteral("10"), 10).value_or(0), 10U);
        QVERIFY(!numberOfDigits(QStringLiteral("a"), 10).has_value());
    }
};

static const testMain::Registration<tst_WrittenNumber, testMain::NoApplication> registration;
#include "tst_WrittenNumber.moc"
