// Which objects map and assign PDOs.
#include "model/objectAreas.h"
#include "testMain.h"

#include <QtTest>

class tst_ObjectAreas : public QObject
{
    Q_OBJECT

private slots:
    static void kindOfAnObject_data();
    static void kindOfAnObject();
    static void assignObjectOfASyncManager_data();
    static void assignObjectOfASyncManager();
};

void tst_ObjectAreas::kindOfAnObject_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<bool>("maps");
    QTest::addColumn<bool>("assigns");
    QTest::addRow("before the outputs") << 0x15FF << false << false;
    QTest::addRow("first output") << 0x1600 << true << false;
    QTest::addRow("last output") << 0x17FF << true << false;
    QTest::addRow("after the outputs") << 0x1800 << false << false;
    QTest::addRow("before the inputs") << 0x19FF << false << false;
    QTest::addRow("first input") << 0x1A00 << true << false;
    QTest::addRow("last input") << 0x1BFF << true << false;
    QTest::addRow("after the inputs") << 0x1C00 << false << false;
    QTest::addRow("before the sync managers") << 0x1C0F << false << false;
    QTest::addRow("first sync manager") << 0x1C10 << false << true;
    QTest::addRow("last sync manager") << 0x1C2F << false << true;
    QTest::addRow("after the sync managers") << 0x1C30 << false << false;
}

void tst_ObjectAreas::kindOfAnObject()
{
    QFETCH(int, index);
    QFETCH(bool, maps);
    QFETCH(bool, assigns);
    QCOMPARE(isMappingObject(static_cast<std::uint16_t>(index)), maps);
    QCOMPARE(isAssignObject(static_cast<std::uint16_t>(index)), assigns);
}

void tst_ObjectAreas::assignObjectOfASyncManager_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<int>("expected");
    QTest::addRow("first") << 0 << 0x1C10;
    QTest::addRow("usual one of outputs") << 2 << 0x1C12;
    QTest::addRow("usual one of inputs") << 3 << 0x1C13;
    QTest::addRow("greatest number") << 255 << 0x1D0F;
}

void tst_ObjectAreas::assignObjectOfASyncManager()
{
    QFETCH(int, number);
    QFETCH(int, expected);
    QCOMPARE(int{assignObjectOf(static_cast<std::uint8_t>(number))}, expected);
}

static const testMain::Registration<tst_ObjectAreas, QCoreApplication> registration;
#include "tst_ObjectAreas.moc"
