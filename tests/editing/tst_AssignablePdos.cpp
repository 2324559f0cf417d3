// Which PDOs a sync manager could carry, by the index of the PDO.
#include "editing/assignablePdos.h"
#include "testMain.h"

#include <QtTest>

class tst_AssignablePdos : public QObject
{
    Q_OBJECT

private slots:
    static void byIndex_data();
    static void byIndex();
    static void otherTypesCarryNone_data();
    static void otherTypesCarryNone();
};

void tst_AssignablePdos::byIndex_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<bool>("isOutput");
    QTest::addColumn<bool>("isInput");
    QTest::addRow("below the outputs") << 0x13FF << false << false;
    QTest::addRow("first output") << 0x1400 << true << false;
    QTest::addRow("last output") << 0x17FF << true << false;
    QTest::addRow("first input") << 0x1800 << false << true;
    QTest::addRow("last input") << 0x1BFF << false << true;
    QTest::addRow("above the inputs") << 0x1C00 << false << false;
}

void tst_AssignablePdos::byIndex()
{
    QFETCH(int, index);
    QFETCH(bool, isOutput);
    QFETCH(bool, isInput);
    QCOMPARE(isAssignable(static_cast<std::uint16_t>(index), 3), isOutput);
    QCOMPARE(isAssignable(static_cast<std::uint16_t>(index), 4), isInput);
}

void tst_AssignablePdos::otherTypesCarryNone_data()
{
    QTest::addColumn<int>("type");
    for (const int type : {0, 1, 2, 5, 6, 7, 255})
        QTest::addRow("type %d", type) << type;
}

void tst_AssignablePdos::otherTypesCarryNone()
{
    QFETCH(int, type);
    for (const int index : {0x1400, 0x1600, 0x1800, 0x1A00})
        QVERIFY(!isAssignable(static_cast<std::uint16_t>(index), static_cast<std::uint8_t>(type)));
}

static const testMain::Registration<tst_AssignablePdos, testMain::NoApplication> registration;
#include "tst_AssignablePdos.moc"
