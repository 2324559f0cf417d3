// The table of a device's slots without a window: the names of places, and the modules in their rows.
#include "editing/slotTable.h"
#include "testMain.h"
#include "workbench/pdoBuilders.h"

#include <QtTest>

class tst_SlotTable : public QObject
{
    Q_OBJECT

private slots:
    static void names_data();
    static void names();
    static void modulesAreInTheirRows();
    static void defaultModules();
    static void modulesBesideTheRows();
    static void tooManyPlaces_data();
    static void tooManyPlaces();
};

namespace {

DeviceSlots slotsOf(const std::vector<struct_Slot>& list)
{
    DeviceSlots all;
    all.vslot = list;
    return all;
}

/// One text per row, cells separated by bars; a cell without a text is empty.
QStringList rowsOf(const SlotTable& table)
{
    QStringList rows;
    for (const QStringList& row : table.rows)
        rows.append(row.join(QLatin1Char('|')));
    return rows;
}

} // namespace

void tst_SlotTable::names_data()
{
    QTest::addColumn<unsigned int>("places");
    QTest::addColumn<QStringList>("rows");
    QTest::addRow("no place, no row") << 0U << QStringList();
    QTest::addRow("one place has the name alone") << 1U << QStringList{"槽 A||"};
    QTest::addRow("two") << 2U << QStringList{"槽 A-0||", "槽 A-1||"};
    QTest::addRow("three") << 3U << QStringList{"槽 A-0||", "槽 A-1||", "槽 A-2||"};
}

void tst_SlotTable::names()
{
    QFETCH(unsigned int, places);
    QFETCH(QStringList, rows);
    const SlotTable table = slotTableOf(slotsOf({slotNamed("槽 A", places)}));
    QCOMPARE(rowsOf(table), rows);
    QCOMPARE(table.overflows, 0);
    for (const QStringList& row : table.rows)
        QVERIFY(row.at(1).isNull() && row.at(2).isNull()); // no items where there is no module
}

void tst_SlotTable::modulesAreInTheirRows()
{
    struct_Slot first = slotNamed("A", 2);
    first.slotmodule = {placedAt(1, moduleNamed("IO 模块", 0xABCD))};
    struct_Slot second = slotNamed("B", 1);
    second.slotmodule = {placedAt(2, moduleNamed("Drive", 0))};
    const SlotTable table = slotTableOf(slotsOf({first, second, slotNamed("C", 1)}));
    QCOMPARE(rowsOf(table), QStringList({"A-0||", "A-1|IO 模块|0xabcd", "B|Drive|0x00", "C||"}));
}

void tst_SlotTable::defaultModules()
{
    // The default module of the second slot carries the number of its slot, 1, and not that of its place, 3.
    struct_Slot second = slotNamed("B", 1);
    second.slotmodule = {placedAt(1, moduleNamed("default", 0x10))};
    const SlotTable table = slotTableOf(slotsOf({slotNamed("A", 3), second}));
    QCOMPARE(rowsOf(table), QStringList({"A-0||", "A-1|default|0x10", "A-2||", "B||"}));
}

void tst_SlotTable::modulesBesideTheRows()
{
    struct_Slot slot = slotNamed("A", 1);
    slot.slotmodule = {placedAt(-1, moduleNamed("before", 1)), placedAt(0, moduleNamed("first", 2)),
                       placedAt(0, moduleNamed("second", 3)), placedAt(3, moduleNamed("after", 4))};
    const SlotTable table = slotTableOf(slotsOf({slot, slotNamed("B", 1)}));
    // Of two in one row the last one shows; rows grow to hold a number past them, and later slots keep their rows.
    QCOMPARE(rowsOf(table), QStringList({"A|second|0x3", "B||", "||", "|after|0x4"}));
}

void tst_SlotTable::tooManyPlaces_data()
{
    QTest::addColumn<unsigned int>("places");
    QTest::addColumn<int>("rows");
    QTest::addColumn<int>("overflows");
    QTest::addRow("most that are shown") << 99U << 100 << 0;
    QTest::addRow("one more") << 100U << 1 << 1;
    QTest::addRow("largest number") << 0xFFFFFFFFU << 1 << 1;
}

void tst_SlotTable::tooManyPlaces()
{
    QFETCH(unsigned int, places);
    QFETCH(int, rows);
    QFETCH(int, overflows);
    struct_Slot big = slotNamed("big", places);
    big.slotmodule = {placedAt(0, moduleNamed("IO", 1))};
    const SlotTable table = slotTableOf(slotsOf({big, slotNamed("next", 1)}));
    QCOMPARE(int(table.rows.size()), rows);
    QCOMPARE(table.overflows, overflows);
    QCOMPARE(table.rows.back().at(0), QStringLiteral("next"));
    QCOMPARE(table.rows.front().at(1), overflows == 0 ? QStringLiteral("IO") : QString());
}

static const testMain::Registration<tst_SlotTable, testMain::NoApplication> registration;
#include "tst_SlotTable.moc"
