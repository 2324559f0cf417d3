// The ways to fill the places of a device with modules.
#include "retrace/moduleFillings.h"

#include "model/deviceType.h"
#include "retrace/choiceLines.h"
#include "retrace/moduleRetrace.h"
#include "retrace/retracedModules.h"
#include "testMain.h"

using namespace retracedDevices;

class tst_ModuleFillings : public QObject
{
    Q_OBJECT

private slots:
    static void fillings_data();
    static void fillings();
    static void moreWaysThanCanBeTried();
};

void tst_ModuleFillings::fillings_data()
{
    QTest::addColumn<Edit>("edit");
    QTest::addColumn<QStringList>("expected");
    const QString taken = "module place=0 ident=none";
    const QString output = "module place=0 ident=1";
    const QString input = "module place=0 ident=2";
    QTest::addRow("empty place") << Edit([](struct_EtherCatDevice&) {}) << QStringList{"", output, input};
    QTest::addRow("one module") << Edit([](struct_EtherCatDevice& device) {
        putDefault(device.Slots.vslot[0], 0, outputModule());
    }) << QStringList{"", output, input, taken};
    QTest::addRow("two modules") << Edit([](struct_EtherCatDevice& device) {
        putDefault(device.Slots.vslot[0], 0, outputModule());
        putDefault(device.Slots.vslot[0], 0, inputModule());
    }) << QStringList{"", output, input, taken, taken + ", " + output, taken + ", " + input, taken + ", " + taken};
    QTest::addRow("slot for inputs only")
        << Edit([](struct_EtherCatDevice& device) { device.Slots.vslot[0] = slot(1, {2}); }) << QStringList{"", input};
    QTest::addRow("slot for modules that there are not")
        << Edit([](struct_EtherCatDevice& device) { device.Slots.vslot[0] = slot(1, {9}); }) << QStringList("");
    QTest::addRow("default module with a number outside its slot") << Edit([](struct_EtherCatDevice& device) {
        device.Slots.vslot[0] = slot(0, {});
        putDefault(device.Slots.vslot[0], 0, outputModule());
    }) << QStringList("");
}

/// The ways to fill the first place.
void tst_ModuleFillings::fillings()
{
    QFETCH(Edit, edit);
    QFETCH(QStringList, expected);
    const struct_FilenameDevice file = fileWith({outputModule(), inputModule()});
    struct_EtherCatDevice device = deviceWithSlots(KTL_DEVICE_TYPE_Special);
    device.Slots.vslot.resize(1);
    edit(device);
    QStringList ways;
    QVERIFY(retrace::forEachFillablePlace(device, retrace::namedModulesOf(file), [&](const auto& place) {
        if (place.place == 0)
            for (const retrace::Filling& filling : place.fillings)
                ways += choiceLines::linesOf(filling.choices).join(", ");
    }));
    QCOMPARE(ways, expected);
}

/// 16 places in each of 100 slots and 200 modules are 321,600 ways, of which 300,000 are tried.
void tst_ModuleFillings::moreWaysThanCanBeTried()
{
    std::vector<struct_module> modules;
    for (std::uint32_t ident = 1; ident <= 200; ++ident)
        modules.push_back(module(ident, "M"));
    const struct_FilenameDevice file = fileWith(modules);
    struct_EtherCatDevice device = deviceWithSlots(KTL_DEVICE_TYPE_Special);
    device.Slots.vslot.assign(100, slot(16, {}));
    int calls = 0;
    const auto count = [&](const retrace::FillablePlace& /*place*/) { ++calls; };
    QVERIFY(!retrace::forEachFillablePlace(device, retrace::namedModulesOf(file), count));
    QCOMPARE(calls, 0);
    const auto found = retrace::likelyModules(device, retrace::namedModulesOf(file), exportOf(device, file).content);
    QCOMPARE(found.size(), std::size_t{1});
    QVERIFY(found[0].empty());
    device.Slots.vslot.resize(2);
    QVERIFY(retrace::forEachFillablePlace(device, retrace::namedModulesOf(file), count));
    QCOMPARE(calls, 32);
}

static const testMain::Registration<tst_ModuleFillings, testMain::NoApplication> registration;
#include "tst_ModuleFillings.moc"
