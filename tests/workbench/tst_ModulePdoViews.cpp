// The PDOs of a module as its file declares it: the two tables beside the module tree, their menus and refusals, and
// the ways into the editor.
// Covers mainwindow_modulepdo.cpp.
#include "testMain.h"
#include "workbench/moduleTab.h"
#include "workbench/pdoEditor.h"
#include "workbench/tabFixture.h"

class tst_ModulePdoViews : public TabFixture
{
    Q_OBJECT

private slots:
    void init() { begin(ModuleTab); }
    void cleanup() { end(); }
    static void pdoRow_data();
    void pdoRow();
    void indexOfTheDeclaredModule();
    void outputsBeforeInputs();
    void eachModuleHasItsOwn();
    void groupEmptiesBothTables();
    void moduleEmptiesTheEntries();
    static void entryRow_data();
    void entryRow();
    void linkTexts();
    void closingRow();
    void pdoWithoutEntries();
    void rowPastTheLists();
    static void listWithoutModule_data();
    void listWithoutModule();
    void withoutDevice();
    void anotherDeviceEmptiesTheTables();
    void menus();
    void noMenuWithoutCurrentRow();
    static void unsupportedEdits_data();
    void unsupportedEdits();
    static void refusals_data();
    void refusals();
    void doubleClickOpensTheEditor();
    void modifyOpensTheEditor();
    void editorBeforeIsClosed();
    void deviceEntriesAreRefusedAfterwards();

private:
    [[nodiscard]] QTableView& pdos() const { return view("mPdoListView"); }
    [[nodiscard]] QTableView& entries() const { return view("mPdoContentView"); }
    /// Shows a device, and a group of two modules of which the first one is given.
    void showModule(const struct_module& first);
};

void tst_ModulePdoViews::showModule(const struct_module& first)
{
    show(deviceNamed("Coupler"),
         {groupOf("group", {first, moduleWithPdos("second", 2)}), groupOf("other", {moduleNamed("third", 3)})});
    clickModule(window(), 0, 0);
}

void tst_ModulePdoViews::pdoRow_data()
{
    QTest::addColumn<bool>("fixed");
    QTest::addColumn<bool>("mandatory");
    QTest::addColumn<int>("syncManager");
    QTest::addColumn<QStringList>("shown");
    QTest::addRow("no flag, no sync manager") << false << false << -1 << QStringList{"", noItem()};
    QTest::addRow("fixed, first sync manager") << true << false << 0 << QStringList{"F", "0"};
    QTest::addRow("mandatory") << false << true << 3 << QStringList{"M", "3"};
    QTest::addRow("both, decimal") << true << true << 12 << QStringList{"FM", "12"};
}

void tst_ModulePdoViews::pdoRow()
{
    QFETCH(bool, fixed);
    QFETCH(bool, mandatory);
    QFETCH(int, syncManager);
    QFETCH(QStringList, shown);
    struct_module declared = moduleWithPdos("first", 1);
    for (modulePdo* pdo : {&declared.RxPdo.vpdo[0], &declared.TxPdo.vpdo[0]}) {
        pdo->Attributes = {fixed, mandatory, syncManager, 11};
        pdo->size = 1.4F;
    }
    showModule(declared);
    QCOMPARE(row("mPdoListView", 0), QStringList({"0x1600", "1.40", "first out", shown[0], shown[1], "11"}));
    QCOMPARE(row("mPdoListView", 1), QStringList({"0x1a00", "1.40", "first in", shown[0], shown[1], "11"}));
    const QVariant brush = pdos().model()->index(0, 0).data(Qt::ForegroundRole);
    QVERIFY(!brush.isValid()); // the colour of modules is for the list of the device
}

void tst_ModulePdoViews::indexOfTheDeclaredModule()
{
    struct_module declared = moduleWithPdos("first", 1); // its output PDO depends on the slot
    showModule(declared);
    QCOMPARE(column("mPdoListView", 0), QStringList({"0x1600", "0x1a00"}));
    module(0, 0).RxPdo.vpdo[0].Instances = 3; // no declared module has a number, but were there one, it counts
    module(0, 0).TxPdo.vpdo[0].Instances = 3;
    clickModule(window(), 0, 0);
    QCOMPARE(column("mPdoListView", 0), QStringList({"0x1603", "0x1a00"}));
}

void tst_ModulePdoViews::outputsBeforeInputs()
{
    struct_module declared = moduleNamed("first", 1);
    declared.TxPdo.vpdo = {pdoOfModule(0x1A00), pdoOfModule(0x1A01)};
    declared.RxPdo.vpdo = {pdoOfModule(0x1601), pdoOfModule(0x1600)};
    showModule(declared);
    QCOMPARE(column("mPdoListView", 0), QStringList({"0x1601", "0x1600", "0x1a00", "0x1a01"}));
}

void tst_ModulePdoViews::eachModuleHasItsOwn()
{
    showModule(moduleWithPdos("first", 1));
    clickModule(window(), 0, 1);
    QCOMPARE(column("mPdoListView", 2), QStringList({"second out", "second in"}));
    clickModule(window(), 1, 0);
    QCOMPARE(modelOf(pdos()).rowCount(), 0);
    clickModule(window(), 0, 0);
    QCOMPARE(column("mPdoListView", 2), QStringList({"first out", "first in"}));
}

void tst_ModulePdoViews::groupEmptiesBothTables()
{
    showModule(moduleWithPdos("first", 1));
    clickRow(pdos(), 0);
    QCOMPARE(modelOf(entries()).rowCount(), 3);
    clickModule(window(), 0);
    QCOMPARE(modelOf(pdos()).rowCount(), 0);
    QCOMPARE(modelOf(entries()).rowCount(), 0);
}

void tst_ModulePdoViews::moduleEmptiesTheEntries()
{
    showModule(moduleWithPdos("first", 1));
    clickRow(pdos(), 0);
    clickModule(window(), 0, 1);
    QCOMPARE(modelOf(pdos()).rowCount(), 2);
    QCOMPARE(modelOf(entries()).rowCount(), 0);
}

void tst_ModulePdoViews::entryRow_data()
{
    QTest::addColumn<int>("pdo");
    QTest::addColumn<QString>("label");
    QTest::addRow("output") << 0 << "(0x1600)";
    QTest::addRow("input") << 1 << "(0x1a00)";
}

void tst_ModulePdoViews::entryRow()
{
    QFETCH(int, pdo);
    QFETCH(QString, label);
    struct_moduleEntry entry = moduleEntry(0x60FF, 12, -4);
    entry.SubIndex = 65535;
    entry.Offs = 2.25F;
    entry.Name = "Torque 转矩";
    entry.DataType = "INT";
    entry.DefaultData = 4294967295U;
    struct_module declared = moduleWithPdos("first", 1);
    declared.RxPdo.vpdo[0].vEntry = {moduleEntry(0, 8), entry};
    declared.TxPdo.vpdo[0].vEntry = {moduleEntry(0, 8), entry};
    showModule(declared);
    clickRow(pdos(), pdo);
    QCOMPARE(labelText(window(), "label_17"), label);
    const QStringList expected{"0x60ff:65535", "1.40",       "2.25",      QStringLiteral("Torque 转矩"),
                               "INT",          "AIN16 Type", "4294967295"};
    QCOMPARE(row("mPdoContentView", 1), expected);
    QCOMPARE(row("mPdoContentView", 0), QStringList({"0x00:0", "1.00", "0.00", "", "", "NONE Type", "0"}));
}

void tst_ModulePdoViews::linkTexts()
{
    const QVector<int> links{0, -1, -2, -3, -4, -5, -6, -7, -8, -9, -10, -11, 7};
    struct_module declared = moduleNamed("first", 1);
    declared.RxPdo.vpdo = {pdoOfModule(0x1600)};
    for (const int link : links)
        declared.RxPdo.vpdo[0].vEntry.push_back(moduleEntry(0x7000, 8, link));
    showModule(declared);
    clickRow(pdos(), 0);
    QCOMPARE(column("mPdoContentView", 5),
             QStringList({"NONE Type", "DIN Type", "DOUT Type", "-3", "AIN16 Type", "AIN32 Type", "FAIN Type",
                          "AOUT16 Type", "AOUT32 Type", "FAOUT Type", "ENCODER32 Type", "-11", "7", noItem()}));
}

void tst_ModulePdoViews::closingRow()
{
    struct_module declared = moduleWithPdos("first", 1);
    declared.RxPdo.vpdo[0].vEntry = {moduleEntry(0, 8), moduleEntry(0, 7)};
    declared.RxPdo.vpdo[0].vEntry[1].Offs = 1.4F;
    showModule(declared);
    clickRow(pdos(), 0);
    QCOMPARE(modelOf(entries()).rowCount(), 3);
    QCOMPARE(row("mPdoContentView", 2),
             QStringList({noItem(), noItem(), "2.100000", noItem(), noItem(), noItem(), noItem()})); // no carry
}

void tst_ModulePdoViews::pdoWithoutEntries()
{
    struct_module declared = moduleWithPdos("first", 1);
    declared.TxPdo.vpdo[0].vEntry.clear();
    showModule(declared);
    clickRow(pdos(), 0);
    clickRow(pdos(), 1);
    QCOMPARE(modelOf(entries()).rowCount(), 0);
    QCOMPARE(labelText(window(), "label_17"), QStringLiteral("(0x1a00)"));
}

void tst_ModulePdoViews::rowPastTheLists()
{
    showModule(moduleWithPdos("first", 1));
    clickRow(pdos(), 0);
    module(0, 0).TxPdo.vpdo.clear(); // the second row is nothing any more
    clickRow(pdos(), 1);
    QCOMPARE(modelOf(entries()).rowCount(), 0);
    QCOMPARE(labelText(window(), "label_17"), QStringLiteral("(0x1600)"));
}

void tst_ModulePdoViews::listWithoutModule_data()
{
    QTest::addColumn<bool>("groupIsCurrent");
    QTest::addRow("a group of modules is current") << true;
    QTest::addRow("nothing is current") << false;
}

void tst_ModulePdoViews::listWithoutModule()
{
    QFETCH(bool, groupIsCurrent);
    showModule(moduleWithPdos("first", 1));
    clickRow(pdos(), 0);
    QCOMPARE(modelOf(entries()).rowCount(), 3);
    moduleTree(window()).setCurrentItem(groupIsCurrent ? moduleItem(window(), 0) : nullptr); // the tables stay
    clickRow(pdos(), 1);
    QCOMPARE(modelOf(entries()).rowCount(), 0);
    QCOMPARE(labelText(window(), "label_17"), QStringLiteral("(0x1600)"));
}

void tst_ModulePdoViews::withoutDevice()
{
    showModule(moduleWithPdos("first", 1));
    clickRow(pdos(), 0);
    currentdeviceindex = -1;
    clickModule(window(), 0, 1);
    clickRow(pdos(), 1);
    QCOMPARE(column("mPdoListView", 2), QStringList({"first out", "first in"}));
    QCOMPARE(labelText(window(), "label_17"), QStringLiteral("(0x1600)"));
}

void tst_ModulePdoViews::anotherDeviceEmptiesTheTables()
{
    showModule(moduleWithPdos("first", 1));
    clickRow(pdos(), 0);
    clickItem(window(), treeItem(window(), 0));
    QCOMPARE(modelOf(pdos()).rowCount(), 0);
    QCOMPARE(modelOf(entries()).rowCount(), 0);
    QCOMPARE(labelText(window(), "label_17"), QString());
}

void tst_ModulePdoViews::menus()
{
    showModule(moduleWithPdos("first", 1));
    clickRow(pdos(), 0);
    DialogDriver driver({leavingTheMenu(), leavingTheMenu()});
    driver.during([this] {
        rightClickRow(entries(), 0);
        rightClick(moduleTree(window()), placeOfModule(window(), moduleItem(window(), 0, 1)));
    });
    QCOMPARE(driver.problem(), QString());
    QCOMPARE(driver.seen(0).entries, QStringList({"modify", "Add", "Delete"}));
    QCOMPARE(driver.seen(1).entries, QStringList("Delete"));
}

void tst_ModulePdoViews::noMenuWithoutCurrentRow()
{
    showModule(moduleWithPdos("first", 1));
    clickRow(pdos(), 0);
    moduleTree(window()).setCurrentItem(nullptr);
    DialogDriver driver({});
    driver.during([this] {
        rightClickBelowTheRows(entries());
        callSlot(window(), "ModuleTreeCustomMenu", Q_ARG(QPoint, QPoint()));
    });
    QCOMPARE(driver.problem(), QString());
}

void tst_ModulePdoViews::unsupportedEdits_data()
{
    QTest::addColumn<QString>("entry");
    QTest::addColumn<bool>("inTheTree");
    QTest::addRow("add an entry") << "Add" << false;
    QTest::addRow("delete an entry") << "Delete" << false;
    QTest::addRow("delete a module") << "Delete" << true;
}

void tst_ModulePdoViews::unsupportedEdits()
{
    QFETCH(QString, entry);
    QFETCH(bool, inTheTree);
    showModule(moduleWithPdos("first", 1));
    clickRow(pdos(), 0);
    DialogDriver driver({choosingEntry(entry), pressing(QMessageBox::Ok)});
    driver.during([&] {
        if (inTheTree)
            rightClick(moduleTree(window()), placeOfModule(window(), moduleItem(window(), 0, 0)));
        else
            rightClickRow(entries(), 0);
    });
    QCOMPARE(driver.problem(), QString());
    QCOMPARE(driver.seen(1).title, QStringLiteral("warning"));
    QCOMPARE(driver.seen(1).text, QStringLiteral("This function is not supported temporarily\n"));
    QCOMPARE(module(0, 0).RxPdo.vpdo[0].vEntry.size(), std::size_t(2));
    QCOMPARE(g_xmlfiledevices[0].vcommentmodule[0].vmodule.size(), std::size_t(2));
    QCOMPARE(boxesDuring(1, [this] { callSlot(window(), "on_ModuleTree_delete"); }),
             QStringList(selectionBox("This function is not supported temporarily\n")));
}

void tst_ModulePdoViews::refusals_data()
{
    QTest::addColumn<bool>("byMenu");
    QTest::addRow("double click") << false;
    QTest::addRow("modify") << true;
}

void tst_ModulePdoViews::refusals()
{
    QFETCH(bool, byMenu);
    const auto run = [&] {
        if (byMenu)
            callSlot(window(), "on_mpdoContect_modify");
        else
            callSlot(window(), "on_mPdoContentView_doubleClicked", Q_ARG(QModelIndex, QModelIndex()));
    };
    const QStringList noModule(selectionBox("Please select a module\n"));
    QCOMPARE(boxesDuring(1, run), noModule);
    showModule(moduleWithPdos("first", 1));
    clickModule(window(), 0);
    QCOMPARE(boxesDuring(1, run), noModule); // a group is none
    clickModule(window(), 0, 0);
    QCOMPARE(boxesDuring(1, run), QStringList(selectionBox("Please select a module pdo\n")));
    clickRow(pdos(), 0);
    QCOMPARE(boxesDuring(1, run), QStringList(selectionBox("Please select a module pdo content\n")));
    QVERIFY(!g_bpdoormodulepdo && !g_bpdoMultiplechoice);
    QVERIFY(openEditor(window()) == nullptr);
}

void tst_ModulePdoViews::doubleClickOpensTheEditor()
{
    g_bpdoMultiplechoice = true;
    showModule(moduleWithPdos("first", 1));
    clickRow(pdos(), 0);
    doubleClickRow(entries(), 1);
    QVERIFY(g_bpdoormodulepdo);
    QVERIFY(!g_bpdoMultiplechoice); // the one current row
    QCOMPARE(openEditor(window())->windowTitle(), QStringLiteral("module Pdo editor"));
    QCOMPARE(fieldText(*openEditor(window()), "Index"), QStringLiteral("0x7001"));
}

void tst_ModulePdoViews::modifyOpensTheEditor()
{
    showModule(moduleWithPdos("first", 1));
    clickRow(pdos(), 0);
    clickRow(entries(), 0);
    clickRow(entries(), 1, Qt::ControlModifier);
    chooseFromMenu(entries(), "modify", 1);
    QVERIFY(g_bpdoormodulepdo && g_bpdoMultiplechoice);
    QCOMPARE(openEditor(window())->windowTitle(), QStringLiteral("module Pdo editor"));
    QCOMPARE(fieldText(*openEditor(window()), "Index"), QStringLiteral("0x7000")); // the first selected one
}

void tst_ModulePdoViews::editorBeforeIsClosed()
{
    showModule(moduleWithPdos("first", 1));
    clickRow(pdos(), 0);
    doubleClickRow(entries(), 0);
    const PdoEditWin* const first = openEditor(window());
    doubleClickRow(entries(), 1);
    QVERIFY(!first->isVisible());
    QVERIFY(openEditor(window()) != nullptr && openEditor(window()) != first);
}

void tst_ModulePdoViews::deviceEntriesAreRefusedAfterwards()
{
    showModule(moduleWithPdos("first", 1));
    clickRow(pdos(), 0);
    doubleClickRow(entries(), 0);
    loadedDevice().RxPdo.vpdo = {devicePdo(0x1600)};
    press(*openEditor(window()), "CancelButton");
    QVERIFY(g_bpdoormodulepdo); // stays
    QCOMPARE(boxesDuring(1, [this] { callSlot(window(), "on_pdoContect_add"); }),
             QStringList(selectionBox("Please select no modulepdo\n")));
}

static const testMain::Registration<tst_ModulePdoViews, QApplication> registration;
#include "tst_ModulePdoViews.moc"
