// Bit counts in the byte.bit form, and bit totals.
#include "model/byteBit.h"
#include "testMain.h"

#include <QtTest>

#include <cstdint>
#include <limits>

class tst_ByteBit : public QObject
{
    Q_OBJECT

private slots:
    static void form_data();
    static void form();
    static void sumsCarryNothing();
    static void total_data();
    static void total();
};

void tst_ByteBit::form_data()
{
    QTest::addColumn<int>("bits");
    QTest::addColumn<float>("expected");
    QTest::addRow("nothing") << 0 << 0.0F;
    QTest::addRow("one bit") << 1 << 0.1F;
    QTest::addRow("seven bits are the most after the point") << 7 << 0.7F;
    QTest::addRow("one byte") << 8 << 1.0F;
    QTest::addRow("a byte and a half") << 12 << 1.4F;
    QTest::addRow("two bytes") << 16 << 2.0F;
    QTest::addRow("two bytes and three bits") << 19 << 2.3F;
    QTest::addRow("a long PDO") << 8 * 1486 + 6 << 1486.6F;
    QTest::addRow("negative, left-over bits only") << -1 << -0.1F;
    QTest::addRow("negative, divides towards 0") << -12 << -1.4F;
    QTest::addRow("greatest") << std::numeric_limits<int>::max() << 268435455.7F;
    QTest::addRow("least") << std::numeric_limits<int>::min() << -268435456.0F;
}

void tst_ByteBit::form()
{
    QFETCH(int, bits);
    QFETCH(float, expected);
    const float form = byteBitForm(bits);
    // Equal to the last bit, not nearly: files hold the bytes of this number.
    QVERIFY2(form == expected, qPrintable(QString::number(static_cast<double>(form), 'g', 9)));
}

void tst_ByteBit::sumsCarryNothing()
{
    QCOMPARE(byteBitForm(12) + byteBitForm(12), 2.8F);
}

void tst_ByteBit::total_data()
{
    QTest::addColumn<int>("sum");
    QTest::addColumn<int>("bits");
    QTest::addColumn<int>("expected");
    QTest::addRow("plain") << 16 << 3 << 19;
    QTest::addRow("wraps at the top") << std::numeric_limits<int>::max() << 1 << std::numeric_limits<int>::min();
    QTest::addRow("wraps at the bottom") << std::numeric_limits<int>::min() << -1 << std::numeric_limits<int>::max();
    QTest::addRow("all bits set takes one away") << 9 << -1 << 8;
}

void tst_ByteBit::total()
{
    QFETCH(int, sum);
    QFETCH(int, bits);
    QFETCH(int, expected);
    QCOMPARE(addBits(sum, bits), expected);
}

static const testMain::Registration<tst_ByteBit, QCoreApplication> registration;
#include "tst_ByteBit.moc"
