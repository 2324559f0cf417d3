// The places of slots without a window: names, which slot a place belongs to, what fits, putting in and taking out, and
// the list of configured idents.
#include "editing/slotPlaces.h"
#include "testMain.h"
#include "workbench/pdoBuilders.h"

#include <QtTest>

class tst_SlotPlaces : public QObject
{
    Q_OBJECT

private slots:
    static void names_data();
    static void names();
    static void modulesStandInTheirRows();
    static void defaultModules();
    static void modulesBesideTheRows();
    static void tooManyPlaces_data();
    static void tooManyPlaces();
    static void slotOfAPlace_data();
    static void slotOfAPlace();
    static void placesWrapAtSixteenBits();
    static void accepts_data();
    static void accepts();
    static void order();
    static void putModules();
    static void replacedModule();
    static void takeModules();
    static void identList_data();
    static void identList();
};

static DeviceSlots slotsOf(const std::vector<struct_Slot>& list)
{
    DeviceSlots all;
    all.vslot = list;
    return all;
}

/// One text per row, cells parted by bars; a cell without a text is empty.
static QStringList rowsOf(const SlotTable& table)
{
    QStringList rows;
    for (const QStringList& row : table.rows)
        rows.append(row.join(QLatin1Char('|')));
    return rows;
}

void tst_SlotPlaces::names_data()
{
    QTest::addColumn<unsigned int>("places");
    QTest::addColumn<QStringList>("rows");
    QTest::addRow("no place, no row") << 0U << QStringList();
    QTest::addRow("one place has the name alone") << 1U << QStringList{"槽 A||"};
    QTest::addRow("two") << 2U << QStringList{"槽 A-0||", "槽 A-1||"};
    QTest::addRow("three") << 3U << QStringList{"槽 A-0||", "槽 A-1||", "槽 A-2||"};
}

void tst_SlotPlaces::names()
{
    QFETCH(unsigned int, places);
    QFETCH(QStringList, rows);
    const SlotTable table = slotTableOf(slotsOf({slotNamed("槽 A", places)}));
    QCOMPARE(rowsOf(table), rows);
    QCOMPARE(table.overflows, 0);
    for (const QStringList& row : table.rows)
        QVERIFY(row.at(1).isNull() && row.at(2).isNull()); // no items where no module stands
}

void tst_SlotPlaces::modulesStandInTheirRows()
{
    struct_Slot first = slotNamed("A", 2);
    first.slotmodule = {standing(1, moduleNamed("IO 模块", 0xABCD))};
    struct_Slot second = slotNamed("B", 1);
    second.slotmodule = {standing(2, moduleNamed("Drive", 0))};
    const SlotTable table = slotTableOf(slotsOf({first, second, slotNamed("C", 1)}));
    QCOMPARE(rowsOf(table), QStringList({"A-0||", "A-1|IO 模块|0xabcd", "B|Drive|0x00", "C||"}));
}

void tst_SlotPlaces::defaultModules()
{
    // The default module of the second slot carries the number of its slot, 1, and not that of its place, 3.
    struct_Slot second = slotNamed("B", 1);
    second.slotmodule = {standing(1, moduleNamed("default", 0x10))};
    const SlotTable table = slotTableOf(slotsOf({slotNamed("A", 3), second}));
    QCOMPARE(rowsOf(table), QStringList({"A-0||", "A-1|default|0x10", "A-2||", "B||"}));
}

void tst_SlotPlaces::modulesBesideTheRows()
{
    struct_Slot slot = slotNamed("A", 1);
    slot.slotmodule = {standing(-1, moduleNamed("before", 1)), standing(0, moduleNamed("first", 2)),
                       standing(0, moduleNamed("second", 3)), standing(3, moduleNamed("behind", 4))};
    const SlotTable table = slotTableOf(slotsOf({slot, slotNamed("B", 1)}));
    // Of two in one row the last one shows; rows grow to hold a number past them, and later slots keep their rows.
    QCOMPARE(rowsOf(table), QStringList({"A|second|0x3", "B||", "||", "|behind|0x4"}));
}

void tst_SlotPlaces::tooManyPlaces_data()
{
    QTest::addColumn<unsigned int>("places");
    QTest::addColumn<int>("rows");
    QTest::addColumn<int>("overflows");
    QTest::addRow("most that are shown") << 99U << 100 << 0;
    QTest::addRow("one more") << 100U << 1 << 1;
    QTest::addRow("largest number") << 0xFFFFFFFFU << 1 << 1;
}

void tst_SlotPlaces::tooManyPlaces()
{
    QFETCH(unsigned int, places);
    QFETCH(int, rows);
    QFETCH(int, overflows);
    struct_Slot big = slotNamed("big", places);
    big.slotmodule = {standing(0, moduleNamed("IO", 1))};
    const SlotTable table = slotTableOf(slotsOf({big, slotNamed("next", 1)}));
    QCOMPARE(int(table.rows.size()), rows);
    QCOMPARE(table.overflows, overflows);
    QCOMPARE(table.rows.back().at(0), QStringLiteral("next"));
    QCOMPARE(table.rows.front().at(1), overflows == 0 ? QStringLiteral("IO") : QString());
}

void tst_SlotPlaces::slotOfAPlace_data()
{
    QTest::addColumn<int>("place");
    QTest::addColumn<QString>("slot");
    QTest::addRow("before all") << -1 << "";
    QTest::addRow("first") << 0 << "A";
    QTest::addRow("last of the first") << 1 << "A";
    QTest::addRow("a slot without places is passed over") << 2 << "C";
    QTest::addRow("places count that have no rows") << 102 << "D";
    QTest::addRow("in the slot without rows") << 101 << "C";
    QTest::addRow("behind all") << 103 << "";
}

void tst_SlotPlaces::slotOfAPlace()
{
    QFETCH(int, place);
    QFETCH(QString, slot);
    DeviceSlots all = slotsOf({slotNamed("A", 2), slotNamed("B", 0), slotNamed("C", 100), slotNamed("D", 1)});
    const struct_Slot* const found = slotAt(all, place);
    QCOMPARE(found == nullptr ? QString() : QString::fromStdString(found->Name), slot);
}

void tst_SlotPlaces::placesWrapAtSixteenBits()
{
    // The second slot ends at 65530 + 10, which is 4 in 16 bits: it holds no place. The third one starts there.
    DeviceSlots all = slotsOf({slotNamed("A", 65530), slotNamed("B", 10), slotNamed("C", 2)});
    all.vslot[0].Attributes.MaxInstances = 65536 + 65530; // the number itself has more bits
    QCOMPARE(slotAt(all, 65529), &all.vslot[0]);
    QVERIFY(slotAt(all, 65532) == nullptr);
    QCOMPARE(slotAt(all, 4), &all.vslot[0]); // the first slot that holds a place counts
    all.vslot[0].Attributes.MaxInstances = 0;
    all.vslot[1].Attributes.MaxInstances = 65536 + 4;
    QCOMPARE(slotAt(all, 3), &all.vslot[1]);
    QCOMPARE(slotAt(all, 5), &all.vslot[2]);
}

void tst_SlotPlaces::accepts_data()
{
    QTest::addColumn<QVector<unsigned int>>("idents");
    QTest::addColumn<bool>("fits");
    QTest::addRow("no list takes every module") << QVector<unsigned int>{} << true;
    QTest::addRow("named") << QVector<unsigned int>{0x20} << true;
    QTest::addRow("named last") << QVector<unsigned int>{0x10, 0x20} << true;
    QTest::addRow("not named") << QVector<unsigned int>{0x10, 0x21} << false;
}

void tst_SlotPlaces::accepts()
{
    QFETCH(QVector<unsigned int>, idents);
    QFETCH(bool, fits);
    struct_Slot slot = slotNamed("A", 1, {idents.begin(), idents.end()});
    QCOMPARE(acceptsModule(slot, 0x20), fits);
    slot.ModuleClass.resize(1); // classes, defaults and least numbers are not looked at
    slot.Attributes.MinInstances = 1;
    for (struct_ModuleIdent& ident : slot.ModuleIdent)
        ident.Attributes.Default = 1;
    QCOMPARE(acceptsModule(slot, 0x20), fits);
}

void tst_SlotPlaces::order()
{
    const struct_module any;
    QVERIFY(SortByInstances(standing(-1, any), standing(0, any))); // signed
    QVERIFY(!SortByInstances(standing(1, any), standing(1, any)));
    QVERIFY(!SortByInstances(standing(2, any), standing(1, any)));
}

static QStringList modulesIn(const struct_Slot& slot)
{
    QStringList modules;
    for (const struct_slotmodule& placed : slot.slotmodule)
        modules.append(QStringLiteral("%1 %2").arg(placed.Instances).arg(QString::fromStdString(placed.module.Name)));
    return modules;
}

void tst_SlotPlaces::putModules()
{
    struct_Slot slot = slotNamed("A", 4);
    putModule(slot, 2, moduleNamed("c", 3));
    putModule(slot, 0, moduleNamed("a", 1));
    putModule(slot, 1, moduleNamed("b", 2));
    QCOMPARE(modulesIn(slot), QStringList({"0 a", "1 b", "2 c"}));
}

void tst_SlotPlaces::replacedModule()
{
    struct_Slot slot = slotNamed("A", 4);
    slot.slotmodule = {standing(0, moduleNamed("a", 1)), standing(1, moduleWithPdos("b", 2)),
                       standing(1, moduleNamed("twin", 3))};
    putModule(slot, 1, moduleNamed("new", 4));
    QCOMPARE(modulesIn(slot), QStringList({"0 a", "1 new", "1 twin"}));
    QCOMPARE(slot.slotmodule[1].module.TypeAttributes.ModuleIdent, 4U);
    QVERIFY(slot.slotmodule[1].module.RxPdo.vpdo.empty());
}

void tst_SlotPlaces::takeModules()
{
    struct_Slot slot = slotNamed("A", 4);
    slot.slotmodule = {standing(0, moduleNamed("a", 1)), standing(1, moduleNamed("b", 2)),
                       standing(1, moduleNamed("twin", 3)), standing(2, moduleNamed("c", 4))};
    takeModule(slot, 3); // an empty place
    QCOMPARE(slot.slotmodule.size(), std::size_t(4));
    takeModule(slot, 1);
    QCOMPARE(modulesIn(slot), QStringList({"0 a", "1 twin", "2 c"}));
}

void tst_SlotPlaces::identList_data()
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

void tst_SlotPlaces::identList()
{
    QFETCH(QVector<int>, places);
    QFETCH(QString, list);
    struct_Slot slot = slotNamed("A", 16);
    std::uint32_t ident = 0x21;
    for (const int place : places)
        slot.slotmodule.push_back(standing(place, moduleNamed("IO", ident++)));
    QCOMPARE(QString::fromStdString(moduleIdentList(slot)), list);
}

static const testMain::Registration<tst_SlotPlaces, testMain::NoApplication> registration;
#include "tst_SlotPlaces.moc"
