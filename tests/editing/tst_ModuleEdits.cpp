// Modules put in and taken out by hand, why they are refused, and the coupler's own list of them, without a window.
#include "editing/moduleEdits.h"
#include "testMain.h"
#include "workbench/modelBuilders.h"
#include "workbench/pdoBuilders.h"

#include <QtTest>

class tst_ModuleEdits : public QObject
{
    Q_OBJECT

private slots:
    static void refusedTypes_data();
    static void refusedTypes();
    static void wordsOfTheWindow_data();
    static void wordsOfTheWindow();
    static void putIn_data();
    static void putIn();
    static void takenOut_data();
    static void takenOut();
    static void moduleListAdvised_data();
    static void moduleListAdvised();
};

using Refusal = std::optional<ModuleRefusal>;
Q_DECLARE_METATYPE(Refusal)

void tst_ModuleEdits::refusedTypes_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<Refusal>("refusal");
    QTest::addRow("block") << 0 << Refusal(ModuleRefusal::TypeWithoutModules);
    QTest::addRow("single drive") << 1 << Refusal(ModuleRefusal::TypeWithoutModules);
    QTest::addRow("multi-axis drive") << 2 << Refusal();
    QTest::addRow("coupler that finds its modules") << 3 << Refusal(ModuleRefusal::TypeFindsModules);
    QTest::addRow("special") << 4 << Refusal();
    QTest::addRow("preset coupler") << 5 << Refusal();
}

void tst_ModuleEdits::refusedTypes()
{
    QFETCH(int, type);
    QFETCH(Refusal, refusal);
    QVERIFY(moduleRefusal(static_cast<std::uint16_t>(type)) == refusal);
}

void tst_ModuleEdits::wordsOfTheWindow_data()
{
    QTest::addColumn<int>("refusal");
    QTest::addColumn<QString>("words");
    QTest::addRow("type without modules")
        << int(ModuleRefusal::TypeWithoutModules)
        << "当前设备配置成类型1或类型2，此设备类型不存在模块，请检查设备类型配置是否正确";
    QTest::addRow("type that finds its modules")
        << int(ModuleRefusal::TypeFindsModules)
        << "当前设备配置成类型4，不需要手动插入模块预配置，如果需要预配置模块信息，请配置成类型6";
    QTest::addRow("module that does not fit")
        << int(ModuleRefusal::ModuleDoesNotFit) << "当前模块不能插入模块到当前槽 new:\n";
}

void tst_ModuleEdits::wordsOfTheWindow()
{
    QFETCH(int, refusal);
    QFETCH(QString, words);
    QCOMPARE(moduleRefusalText(static_cast<ModuleRefusal>(refusal), "new"), words);
}

/// Two slots: "A" has places 0 and 1 and takes any module, "B" has place 2 and takes the ident 0x20 only.
static struct_EtherCatDevice deviceWithTwoSlots()
{
    struct_EtherCatDevice device = deviceOfType(4);
    device.Slots.vslot = {slotNamed("A", 2), slotNamed("B", 1, {0x20})};
    device.Slots.vslot[0].slotmodule = {placedAt(0, moduleNamed("old", 1))};
    device.Slots.vslot[1].slotmodule = {placedAt(0, moduleNamed("default by slot number", 2))};
    return device;
}

/// The modules of all slots as "slot place name".
static QStringList modulesOf(const struct_EtherCatDevice& device)
{
    QStringList modules;
    for (const struct_Slot& slot : device.Slots.vslot)
        for (const struct_slotmodule& placed : slot.slotmodule)
            modules += QStringLiteral("%1 %2 %3")
                           .arg(QString::fromStdString(slot.Name), QString::number(placed.Instances),
                                QString::fromStdString(placed.module.Name));
    return modules;
}

void tst_ModuleEdits::putIn_data()
{
    const QString unchanged = "A 0 old,B 0 default by slot number";
    QTest::addColumn<int>("place");
    QTest::addColumn<unsigned int>("ident");
    QTest::addColumn<Refusal>("refusal");
    QTest::addColumn<QString>("modules");
    QTest::addRow("into an empty place") << 1 << 5U << Refusal() << "A 0 old,A 1 new,B 0 default by slot number";
    QTest::addRow("in place of another") << 0 << 5U << Refusal() << "A 0 new,B 0 default by slot number";
    QTest::addRow("an ident that the slot names")
        << 2 << 0x20U << Refusal() << "A 0 old,B 0 default by slot number,B 2 new";
    QTest::addRow("one that it does not name") << 2 << 5U << Refusal(ModuleRefusal::ModuleDoesNotFit) << unchanged;
    QTest::addRow("after the last place") << 3 << 5U << Refusal() << unchanged;
}

void tst_ModuleEdits::putIn()
{
    QFETCH(int, place);
    QFETCH(unsigned int, ident);
    QFETCH(Refusal, refusal);
    QFETCH(QString, modules);
    struct_EtherCatDevice device = deviceWithTwoSlots();
    QVERIFY(insertModule(device, place, moduleNamed("new", ident)) == refusal);
    QCOMPARE(modulesOf(device).join(','), modules);
}

void tst_ModuleEdits::takenOut_data()
{
    QTest::addColumn<int>("place");
    QTest::addColumn<QString>("modules");
    QTest::addRow("module") << 0 << "B 0 default by slot number";
    QTest::addRow("empty place") << 1 << "A 0 old,B 0 default by slot number";
    QTest::addRow("a default module bears another number than its place") << 2 << "A 0 old,B 0 default by slot number";
    QTest::addRow("after the last place") << 3 << "A 0 old,B 0 default by slot number";
}

void tst_ModuleEdits::takenOut()
{
    QFETCH(int, place);
    QFETCH(QString, modules);
    struct_EtherCatDevice device = deviceWithTwoSlots();
    removeModule(device, place);
    QCOMPARE(modulesOf(device).join(','), modules);
}

void tst_ModuleEdits::moduleListAdvised_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<bool>("takesList");
    QTest::addColumn<bool>("byType");
    QTest::addColumn<bool>("byModule");
    QTest::addRow("preset coupler that takes its list") << 5 << true << true << true;
    QTest::addRow("preset coupler that does not") << 5 << false << false << false;
    QTest::addRow("special device that takes its list") << 4 << true << false << true;
    QTest::addRow("multi-axis drive that takes its list") << 2 << true << false << true;
    QTest::addRow("special device that does not") << 4 << false << false << false;
}

/// A chosen type counts only if it is that of preset couplers, a module that is put in with any type.
void tst_ModuleEdits::moduleListAdvised()
{
    QFETCH(int, type);
    QFETCH(bool, takesList);
    QFETCH(bool, byType);
    QFETCH(bool, byModule);
    struct_EtherCatDevice device = deviceOfType(type);
    setTakesModuleList(device, !takesList);
    setTakesModuleList(device, takesList);
    QCOMPARE(device.Slots.Attributes.DownloadModuleIdentList, takesList);
    QCOMPARE(isModuleListAdvised(device, ModulePreset::ChosenType), byType);
    QCOMPARE(isModuleListAdvised(device, ModulePreset::PutInModule), byModule);
}

static const testMain::Registration<tst_ModuleEdits, QCoreApplication> registration;
#include "tst_ModuleEdits.moc"
