// Putting modules into slots and taking them out on the Module tab: what is refused, and what changes.
// Covers mainwindow_module.cpp.
#include "testMain.h"
#include "workbench/moduleTabFixture.h"

#include <QCheckBox>

class tst_ModuleTab : public ModuleTabFixture
{
    Q_OBJECT

private slots:
    void init() { begin(ModuleTab); }
    void cleanup() { end(); }
    void buttons();
    void insertAndDelete();
    void insertReplaces();
    void modulesAreSorted();
    static void typesThatRefuse_data();
    void typesThatRefuse();
    static void typesThatAllow_data();
    void typesThatAllow();
    void selectionRefusals();
    void deleteRefusals();
    void adviceDoesNotStop();
    void adviceComesBeforeTheSelection();
    void moduleThatDoesNotFit();
    void rowOfNoSlot();
    void deleteFromAnEmptyPlace();
    void deleteDefaultModule();
};

static QString refused(const QString& text)
{
    return QStringLiteral("操作警告|") + text;
}

static QString noModulesText()
{
    return QStringLiteral("当前设备配置成类型1或类型2，此设备类型不存在模块，请检查设备类型配置是否正确");
}

static QString powerOnText()
{
    return QStringLiteral("当前设备配置成类型4，不需要手动插入模块预配置，如果需要预配置模块信息，请配置成类型6");
}

void tst_ModuleTab::buttons()
{
    const auto* const insertButton = part<QPushButton>(window(), "InsertModule");
    const auto* const deleteButton = part<QPushButton>(window(), "DeleteModule");
    showCoupler();
    QVERIFY(!insertButton->isEnabled() && !deleteButton->isEnabled());
    clickModule(window(), 0); // a group is enough
    QVERIFY(insertButton->isEnabled() && !deleteButton->isEnabled());
    clickRow(view("ModuleView"), 0);
    QVERIFY(insertButton->isEnabled() && deleteButton->isEnabled());
    insert(0, 0);
    QVERIFY(insertButton->isEnabled() && deleteButton->isEnabled()); // not taken back
    clickItem(window(), treeItem(window(), 0, 0));
    QVERIFY(!insertButton->isEnabled() && !deleteButton->isEnabled());
}

void tst_ModuleTab::insertAndDelete()
{
    showCoupler();
    insert(1, 1);
    insert(2, 2);
    QCOMPARE(placedModules(), QStringLiteral("1 AX, 2 XX"));
    QCOMPARE(loadedDevice().Slots.vslot[0].slotmodule[0].module.RxPdo.vpdo.size(), std::size_t(1)); // a full copy
    QCOMPARE(column("ModuleView", 1), QStringList({noItem(), "AX", "XX"}));
    QCOMPARE(column("ModuleView", 2), QStringList({noItem(), "0x20", "0x30"}));
    clickRow(view("ModuleView"), 1);
    press(window(), "DeleteModule");
    QCOMPARE(placedModules(), QStringLiteral("2 XX"));
    QCOMPARE(column("ModuleView", 1), QStringList({noItem(), noItem(), "XX"}));
}

void tst_ModuleTab::insertReplaces()
{
    showCoupler();
    insert(0, 0);
    insert(0, 1); // no question is asked
    QCOMPARE(placedModules(), QStringLiteral("0 AX"));
    QCOMPARE(column("PdoListView", 2), QStringList({"AX out", "AX in"}));
}

void tst_ModuleTab::modulesAreSorted()
{
    showCoupler();
    insert(1, 0);
    insert(0, 1);
    QCOMPARE(placedModules(), QStringLiteral("0 AX, 1 IO"));
    QCOMPARE(column("PdoListView", 2), QStringList({"AX out", "IO out", "AX in", "IO in"}));
}

void tst_ModuleTab::typesThatRefuse_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("text");
    QTest::addRow("I/O block") << 0 << noModulesText();
    QTest::addRow("single drive") << 1 << noModulesText();
    QTest::addRow("finds its modules at power-on") << 3 << powerOnText();
}

void tst_ModuleTab::typesThatRefuse()
{
    QFETCH(int, type);
    QFETCH(QString, text);
    showCoupler(type);
    loadedDevice().Slots.vslot[0].slotmodule = {placedAt(0, moduleNamed("IO", 0x10))};
    loadedDevice().Slots.Attributes.DownloadModuleIdentList = true; // its advice is not given
    choose(0, 1);
    for (const char* button : {"InsertModule", "DeleteModule"})
        QCOMPARE(boxesDuring(1, [&] { press(window(), button); }), QStringList(refused(text)));
    QCOMPARE(placedModules(), QStringLiteral("0 IO"));
}

void tst_ModuleTab::typesThatAllow_data()
{
    QTest::addColumn<int>("type");
    QTest::addRow("multi-axis drive") << 2;
    QTest::addRow("special device") << 4;
    QTest::addRow("coupler set by hand") << 5;
}

void tst_ModuleTab::typesThatAllow()
{
    QFETCH(int, type);
    showCoupler(type);
    insert(0, 0);
    QCOMPARE(placedModules(), QStringLiteral("0 IO"));
    clickRow(view("ModuleView"), 0);
    press(window(), "DeleteModule");
    QCOMPARE(placedModules(), QString());
}

void tst_ModuleTab::selectionRefusals()
{
    const QStringList noSlot(selectionBox("Select valid slot\n"));
    const QStringList noModule(selectionBox("Select valid module\n"));
    showCoupler();
    const auto press = [this] { callSlot(window(), "on_InsertModule_clicked"); };
    QCOMPARE(boxesDuring(1, press), noSlot); // the slot comes first
    clickRow(view("ModuleView"), 0);
    QCOMPARE(boxesDuring(1, press), noModule);
    clickModule(window(), 0); // a group is no module
    QCOMPARE(boxesDuring(1, press), noModule);
    clickModule(window(), 0, 0);
    press();
    QCOMPARE(placedModules(), QStringLiteral("0 IO"));
    QCOMPARE(boxesDuring(1, press), noSlot); // the table is filled again, so no place is current
}

void tst_ModuleTab::deleteRefusals()
{
    const QStringList noSlot(selectionBox("Select valid slot\n"));
    showCoupler();
    const auto press = [this] { callSlot(window(), "on_DeleteModule_clicked"); };
    QCOMPARE(boxesDuring(1, press), noSlot);
    clickRow(view("ModuleView"), 0);
    loadedDevice().Slots.vslot.clear();
    QCOMPARE(boxesDuring(1, press), noSlot);
}

void tst_ModuleTab::adviceDoesNotStop()
{
    showCoupler();
    part<QCheckBox>(window(), "DownlaodCfg")->click();
    const QStringList advice(
        refused(QStringLiteral("当前设备支持写F030，建议配置设备类型为类型4。请谨慎操作 Coupler:\n")));
    QCOMPARE(boxesDuring(1, [this] { insert(0, 0); }), advice);
    QCOMPARE(placedModules(), QStringLiteral("0 IO"));
    clickRow(view("ModuleView"), 0);
    press(window(), "DeleteModule"); // no advice on this one
    QCOMPARE(placedModules(), QString());
}

void tst_ModuleTab::adviceComesBeforeTheSelection()
{
    showCoupler();
    part<QCheckBox>(window(), "DownlaodCfg")->click();
    const QStringList boxes = boxesDuring(2, [this] { callSlot(window(), "on_InsertModule_clicked"); });
    QVERIFY(boxes.first().startsWith(refused("当前设备支持写F030")));
    QCOMPARE(boxes.last(), selectionBox("Select valid slot\n"));
}

void tst_ModuleTab::moduleThatDoesNotFit()
{
    showCoupler();
    insert(1, 0);
    const QStringList refusal(refused(QStringLiteral("当前模块不能插入模块到当前槽 XX:\n")));
    QCOMPARE(boxesDuring(1, [this] { insert(1, 2); }), refusal);
    QCOMPARE(placedModules(), QStringLiteral("1 IO"));
    QCOMPARE(view("ModuleView").currentIndex().row(), 1); // nothing is filled again
    insert(2, 2); // the slot that names no ident takes it
    QCOMPARE(placedModules(), QStringLiteral("1 IO, 2 XX"));
}

void tst_ModuleTab::rowOfNoSlot()
{
    showCoupler();
    loadedDevice().Slots.vslot[1].slotmodule = {placedAt(4, moduleNamed("beside", 1))};
    callSlot(window(), "device_slots_display");
    insert(4, 2); // no slot has that row: nothing is put in, and nothing is said
    QCOMPARE(placedModules(), QStringLiteral("4 beside"));
    clickRow(view("ModuleView"), 4);
    press(window(), "DeleteModule");
    QCOMPARE(placedModules(), QStringLiteral("4 beside"));
}

void tst_ModuleTab::deleteFromAnEmptyPlace()
{
    showCoupler();
    insert(0, 0);
    clickRow(view("ModuleView"), 1);
    loadedDevice().mRxPdo.mpdo.clear();
    press(window(), "DeleteModule");
    QCOMPARE(placedModules(), QStringLiteral("0 IO"));
    QCOMPARE(loadedDevice().mRxPdo.mpdo.size(), std::size_t(1)); // the refresh runs all the same
    QVERIFY(!view("ModuleView").currentIndex().isValid());
}

void tst_ModuleTab::deleteDefaultModule()
{
    // A default module of the second slot carries 1, so it shows among the places of the first one, and the button
    // looks for it there.
    showCoupler();
    loadedDevice().Slots.vslot[1].slotmodule = {placedAt(1, moduleNamed("default", 0x30))};
    callSlot(window(), "device_slots_display");
    QCOMPARE(row("ModuleView", 1).at(1), QStringLiteral("default"));
    for (const int place : {1, 2}) {
        clickRow(view("ModuleView"), place);
        press(window(), "DeleteModule");
        QCOMPARE(placedModules(), QStringLiteral("1 default"));
    }
}

static const testMain::Registration<tst_ModuleTab, QApplication> registration;
#include "tst_ModuleTab.moc"
