// The places of slots: which slot a place belongs to, what fits, putting in and taking out.
#include "editing/slotPlaces.h"
#include "testMain.h"
#include "workbench/pdoBuilders.h"

#include <QtTest>

class tst_SlotPlaces : public QObject
{
    Q_OBJECT

private slots:
    static void slotOfAPlace_data();
    static void slotOfAPlace();
    static void placesWrapAtSixteenBits();
    static void accepts_data();
    static void accepts();
    static void order();
    static void putModules();
    static void replacedModule();
    static void takeModules();
};

static DeviceSlots slotsOf(const std::vector<struct_Slot>& list)
{
    DeviceSlots all;
    all.vslot = list;
    return all;
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
    QTest::addRow("after all") << 103 << "";
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
    slot.ModuleClass.resize(1); // classes, defaults and minimum numbers are not looked at
    slot.Attributes.MinInstances = 1;
    for (struct_ModuleIdent& ident : slot.ModuleIdent)
        ident.Attributes.Default = 1;
    QCOMPARE(acceptsModule(slot, 0x20), fits);
}

void tst_SlotPlaces::order()
{
    const struct_module any;
    QVERIFY(SortByInstances(placedAt(-1, any), placedAt(0, any))); // signed
    QVERIFY(!SortByInstances(placedAt(1, any), placedAt(1, any)));
    QVERIFY(!SortByInstances(placedAt(2, any), placedAt(1, any)));
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
    slot.slotmodule = {placedAt(0, moduleNamed("a", 1)), placedAt(1, moduleWithPdos("b", 2)),
                       placedAt(1, moduleNamed("twin", 3))};
    putModule(slot, 1, moduleNamed("new", 4));
    QCOMPARE(modulesIn(slot), QStringList({"0 a", "1 new", "1 twin"}));
    QCOMPARE(slot.slotmodule[1].module.TypeAttributes.ModuleIdent, 4U);
    QVERIFY(slot.slotmodule[1].module.RxPdo.vpdo.empty());
}

void tst_SlotPlaces::takeModules()
{
    struct_Slot slot = slotNamed("A", 4);
    slot.slotmodule = {placedAt(0, moduleNamed("a", 1)), placedAt(1, moduleNamed("b", 2)),
                       placedAt(1, moduleNamed("twin", 3)), placedAt(2, moduleNamed("c", 4))};
    takeModule(slot, 3); // an empty place
    QCOMPARE(slot.slotmodule.size(), std::size_t(4));
    takeModule(slot, 1);
    QCOMPARE(modulesIn(slot), QStringList({"0 a", "1 twin", "2 c"}));
}

static const testMain::Registration<tst_SlotPlaces, testMain::NoApplication> registration;
#include "tst_SlotPlaces.moc"
