// The list of configured module idents of a slot, as text.
#include "editing/moduleIdentList.h"
#include "testMain.h"
#include "workbench/pdoBuilders.h"

#include <QtTest>

class tst_ModuleIdentList : public QObject
{
    Q_OBJECT

private slots:
    static void identList_data();
    static void identList();
};

void tst_ModuleIdentList::identList_data()
{
    QTest::addColumn<QVector<int>>("places");
    QTest::addColumn<QString>("list");
    // Modules have the idents 0x21, 0x22, ... in the order of the places below.
    QTest::addRow("no module, no text") << QVector<int>{} << "";
    QTest::addRow("first place") << QVector<int>{0} << "0x1 0x21 ";
    QTest::addRow("places between are 0") << QVector<int>{0, 3} << "0x4 0x21 0x00 0x00 0x22 ";
    QTest::addRow("first place empty") << QVector<int>{1, 2} << "0x3 0x00 0x21 0x22 ";
    QTest::addRow("ten places") << QVector<int>{9} << "0xa 0x00 0x00 0x00 0x00 0x00 0x00 0x00 0x00 0x00 0x21 ";
}

void tst_ModuleIdentList::identList()
{
    QFETCH(QVector<int>, places);
    QFETCH(QString, list);
    struct_Slot slot = slotNamed("A", 16);
    std::uint32_t ident = 0x21;
    for (const int place : places)
        slot.slotmodule.push_back(placedAt(place, moduleNamed("IO", ident++)));
    QCOMPARE(QString::fromStdString(moduleIdentList(slot)), list);
}

static const testMain::Registration<tst_ModuleIdentList, testMain::NoApplication> registration;
#include "tst_ModuleIdentList.moc"
