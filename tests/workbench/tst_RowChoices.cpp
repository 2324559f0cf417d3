// Keys and other mouse buttons that move the current row of a view show what a click on that row shows.
#include "testMain.h"
#include "workbench/moduleTab.h"
#include "workbench/tabFixture.h"

#include <QLineEdit>

class tst_RowChoices : public TabFixture
{
    Q_OBJECT

private slots:
    void init() { begin(ProcessDataTab); }
    void cleanup() { end(); }
    static void deviceTreeKey_data();
    void deviceTreeKey();
    void deviceTreeTakesTheFocus();
    void typedIndexesAreStoredByAKey();
    static void spaceOnACheckBox_data();
    void spaceOnACheckBox();
    static void tableKey_data();
    void tableKey();
    void otherCellOfTheRow();
    static void rightButton_data();
    void rightButton();
    static void drag_data();
    void drag();
    void dragInTheDeviceTree();
    void dragFromBesideTheRows();
    void clickOnACheckBoxCountsOnce();
    void arrowOfAnotherRow();
    static void moduleTreeKey_data();
    void moduleTreeKey();
    static void programHasNoEffect_data();
    void programHasNoEffect();

private:
    /// Loads the files "a.xml" with the devices A1, A2 and A3 and "b.xml" with B1, and clicks A2.
    void showTwoFiles();
    /// Shows a device with five sync managers, five PDOs 0x1600 to 0x1604, and five slots. Each slot takes one of the
    /// modules m0 to m4 of the file; m0 has five PDOs 0x1610 to 0x1614.
    void showFiveRows();
    /// Brings the tab of a table to the front and fills it.
    QTableView& openTable(const char* name);
    /// What tells which row of a table was chosen.
    [[nodiscard]] QString shownBy(const QString& name) const;
    [[nodiscard]] QString shownType() const { return part<QLineEdit>(window(), "TypeEdit")->text(); }
};

void tst_RowChoices::showTwoFiles()
{
    g_xmlfiledevices = {fileWith("a.xml", {"A1", "A2", "A3"}), fileWith("b.xml", {"B1"})};
    for (struct_FilenameDevice& file : g_xmlfiledevices)
        for (struct_EtherCatDevice& each : file.device)
            each.TypeAttributes.type = each.Name;
    window().DeviceDisplayUpdate();
    clickItem(window(), treeItem(window(), 0, 1));
    QCOMPARE(shownType(), QStringLiteral("A2"));
}

void tst_RowChoices::deviceTreeKey_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("file");
    QTest::addColumn<int>("device");
    QTest::addColumn<QString>("shown");
    QTest::addRow("Up") << int(Qt::Key_Up) << 0 << 0 << "A1";
    QTest::addRow("Down") << int(Qt::Key_Down) << 0 << 2 << "A3";
    QTest::addRow("Page Up") << int(Qt::Key_PageUp) << 0 << -1 << "";
    QTest::addRow("Page Down") << int(Qt::Key_PageDown) << 1 << 0 << "B1";
    QTest::addRow("Home") << int(Qt::Key_Home) << 0 << -1 << "";
    QTest::addRow("End") << int(Qt::Key_End) << 1 << 0 << "B1";
    QTest::addRow("Left: to the file") << int(Qt::Key_Left) << 0 << -1 << "";
    QTest::addRow("Right: stays") << int(Qt::Key_Right) << 0 << 1 << "A2";
    QTest::addRow("first letter of a name") << int(Qt::Key_B) << 1 << -1 << "";
}

void tst_RowChoices::deviceTreeKey()
{
    QFETCH(int, key);
    QFETCH(int, file);
    QFETCH(int, device);
    QFETCH(QString, shown);
    showTwoFiles();
    QTest::keyClick(deviceTree(window()), static_cast<Qt::Key>(key));
    QCOMPARE(deviceTree(window())->currentItem(), treeItem(window(), file, device));
    QCOMPARE(currentfileindex, file);
    QCOMPARE(currentdeviceindex, device);
    QCOMPARE(shownType(), shown);
}

/// The toolkit makes the first row current, which nobody has asked for; the first key is a choice.
void tst_RowChoices::deviceTreeTakesTheFocus()
{
    g_xmlfiledevices = {fileWith("a.xml", {"A1"})};
    g_xmlfiledevices[0].device[0].TypeAttributes.type = "A1";
    window().DeviceDisplayUpdate();
    QVERIFY(QTest::qWaitForWindowActive(&window()));
    part<QWidget>(window(), "tabWidget")->setFocus();
    deviceTree(window())->setFocus();
    QCOMPARE(deviceTree(window())->currentItem(), treeItem(window(), 0));
    QCOMPARE(currentfileindex, -1);
    QTest::keyClick(deviceTree(window()), Qt::Key_Down);
    QCOMPARE(currentdeviceindex, 0);
    QCOMPARE(shownType(), QStringLiteral("A1"));
}

void tst_RowChoices::typedIndexesAreStoredByAKey()
{
    showTwoFiles();
    part<QLineEdit>(window(), "ConfigModuleEdit")->setText(QStringLiteral("0xF030"));
    QTest::keyClick(deviceTree(window()), Qt::Key_Down);
    QCOMPARE(int(g_xmlfiledevices[0].device[1].configindex), 0xF030);
    QCOMPARE(int(g_xmlfiledevices[0].device[2].configindex), 0);
}

void tst_RowChoices::spaceOnACheckBox_data()
{
    QTest::addColumn<int>("device");
    QTest::addColumn<QVector<int>>("states"); // of the file and of its devices
    QTest::addColumn<QString>("shown");
    QTest::addRow("a device: its file is partial") << 1 << QVector<int>{1, 2, 0, 2} << "A2";
    QTest::addRow("a file: its devices follow") << -1 << QVector<int>{0, 0, 0, 0} << "";
}

/// The key that toggles a check box selects the item and spreads its state, as a click does.
void tst_RowChoices::spaceOnACheckBox()
{
    QFETCH(int, device);
    QFETCH(QVector<int>, states);
    QFETCH(QString, shown);
    showTwoFiles();
    clickItem(window(), treeItem(window(), 1, 0));
    deviceTree(window())->setCurrentItem(treeItem(window(), 0, device)); // not selected by that
    QCOMPARE(shownType(), QStringLiteral("B1"));
    QTest::keyClick(deviceTree(window()), Qt::Key_Space);
    QCOMPARE(QVector<int>({stateOf(treeItem(window(), 0)), stateOf(treeItem(window(), 0, 0)),
                           stateOf(treeItem(window(), 0, 1)), stateOf(treeItem(window(), 0, 2))}),
             states);
    QCOMPARE(currentfileindex, 0);
    QCOMPARE(currentdeviceindex, device);
    QCOMPARE(shownType(), shown);
}

void tst_RowChoices::showFiveRows()
{
    constexpr std::uint8_t rows = 5;
    struct_EtherCatDevice coupler = deviceOfType(5, "Coupler");
    std::vector<struct_module> modules;
    for (std::uint8_t number = 0; number < rows; ++number) {
        coupler.vSM.emplace_back();
        coupler.vSM.back().SM = number;
        coupler.RxPdo.vpdo.push_back(devicePdo(static_cast<std::uint16_t>(0x1600 + number)));
        coupler.RxPdo.vpdo.back().Attributes.SM = -1;
        coupler.Slots.vslot.push_back(slotNamed("slot", 1, {number}));
        modules.push_back(moduleNamed("m" + std::to_string(number), number));
        modules.front().RxPdo.vpdo.push_back(pdoOfModule(static_cast<std::uint16_t>(0x1610 + number)));
    }
    show(coupler, {groupOf("all", modules), groupOf("none", {})});
}

QTableView& tst_RowChoices::openTable(const char* name)
{
    const QStringList ofModuleTab{"ModuleView", "mPdoListView"};
    openTab(window(), ofModuleTab.contains(QLatin1String(name)) ? ModuleTab : ProcessDataTab);
    if (QLatin1String(name) == QLatin1String("mPdoListView"))
        clickModule(window(), 0, 0);
    return view(name);
}

QString tst_RowChoices::shownBy(const QString& name) const
{
    if (name == QLatin1String("ModuleView"))
        return fittingModules(window(), 0).join(QLatin1Char(' '));
    return labelText(window(), name == QLatin1String("SyncManagerView") ? "label_18" : "label_17");
}

namespace {

/// A table, and what it shows when one of its rows is chosen, with a place for the number of the row.
struct ChoosingTable
{
    const char* name;
    const char* shown;
};

const ChoosingTable choosingTables[] = {{"PdoListView", "(0x160%1)"},
                                        {"mPdoListView", "(0x161%1)"},
                                        {"SyncManagerView", "(0x1c1%1)"},
                                        {"ModuleView", "m%1"}};

/// A row for each table, with what it shows for a row of its own.
void addTables(int row)
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("shown");
    for (const ChoosingTable& table : choosingTables)
        QTest::addRow("%s", table.name) << QString(table.name) << QString(table.shown).arg(row);
}

} // namespace

void tst_RowChoices::tableKey_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("key");
    QTest::addColumn<bool>("withControl");
    QTest::addColumn<QString>("shown");
    const struct
    {
        const char* words;
        int key;
        bool withControl;
        int row;
    } keys[] = {{"Up", Qt::Key_Up, false, 1},          {"Down", Qt::Key_Down, false, 3},
                {"Page Up", Qt::Key_PageUp, false, 0}, {"Page Down", Qt::Key_PageDown, false, 4},
                {"Ctrl+Home", Qt::Key_Home, true, 0},  {"Ctrl+End", Qt::Key_End, true, 4},
                {"Ctrl+Down", Qt::Key_Down, true, 3}};
    for (const ChoosingTable& table : choosingTables)
        for (const auto& key : keys)
            QTest::addRow("%s: %s", table.name, key.words)
                << table.name << key.key << key.withControl << QString(table.shown).arg(key.row);
}

void tst_RowChoices::tableKey()
{
    QFETCH(QString, name);
    QFETCH(int, key);
    QFETCH(bool, withControl);
    QFETCH(QString, shown);
    showFiveRows();
    QTableView& rows = openTable(name.toLatin1().constData());
    clickRow(rows, 2);
    QTest::keyClick(&rows, static_cast<Qt::Key>(key), withControl ? Qt::ControlModifier : Qt::NoModifier);
    QCOMPARE(shownBy(name), shown);
}

void tst_RowChoices::otherCellOfTheRow()
{
    showFiveRows();
    QTableView& rows = openTable("PdoListView");
    clickRow(rows, 2);
    part<QLabel>(window(), "label_17")->setText(QStringLiteral("as it was"));
    QTest::keyClick(&rows, Qt::Key_Right);
    QCOMPARE(rows.currentIndex().column(), 1);
    QCOMPARE(labelText(window(), "label_17"), QStringLiteral("as it was"));
}

void tst_RowChoices::rightButton_data()
{
    addTables(0);
}

void tst_RowChoices::rightButton()
{
    QFETCH(QString, name);
    QFETCH(QString, shown);
    showFiveRows();
    QTableView& rows = openTable(name.toLatin1().constData());
    clickRow(rows, 2);
    clickIndex(rows, rows.model()->index(0, 0), {}, Qt::RightButton);
    QCOMPARE(rows.currentIndex().row(), 0);
    QCOMPARE(shownBy(name), shown);
    openTab(window(), ModuleTab);
    clickModule(window(), 0, 1);
    QCOMPARE(modelOf(view("mPdoListView")).rowCount(), 0);
    QTest::mouseClick(moduleTree(window()).viewport(), Qt::RightButton, {},
                      placeOfModule(window(), moduleItem(window(), 0, 0)));
    QCOMPARE(modelOf(view("mPdoListView")).rowCount(), 5);
}

void tst_RowChoices::drag_data()
{
    addTables(0);
}

/// What is current after the drag is what is shown.
void tst_RowChoices::drag()
{
    QFETCH(QString, name);
    QFETCH(QString, shown);
    showFiveRows();
    QTableView& rows = openTable(name.toLatin1().constData());
    clickRow(rows, 2);
    const auto placeOf = [&rows](int row) { return rows.visualRect(rows.model()->index(row, 0)).center(); };
    dragOver(rows, placeOf(2), placeOf(0));
    QCOMPARE(rows.currentIndex().row(), 0);
    QCOMPARE(shownBy(name), shown);
}

void tst_RowChoices::dragInTheDeviceTree()
{
    showTwoFiles();
    const auto placeOf = [this](int device) {
        return deviceTree(window())->visualItemRect(treeItem(window(), 0, device)).center();
    };
    dragOver(*deviceTree(window()), placeOf(1), placeOf(2));
    QCOMPARE(deviceTree(window())->currentItem(), treeItem(window(), 0, 2));
    QCOMPARE(currentdeviceindex, 2);
    QCOMPARE(shownType(), QStringLiteral("A3"));
}

void tst_RowChoices::dragFromBesideTheRows()
{
    showTwoFiles();
    QTreeWidget& tree = *deviceTree(window());
    dragOver(tree, QPoint(100, tree.viewport()->height() - 2), tree.visualItemRect(treeItem(window(), 0, 2)).center());
    QCOMPARE(tree.currentItem(), treeItem(window(), 0, 2));
    QCOMPARE(currentdeviceindex, 2);
    QCOMPARE(shownType(), QStringLiteral("A3"));
}

void tst_RowChoices::clickOnACheckBoxCountsOnce()
{
    showTwoFiles();
    QTreeWidget& tree = *deviceTree(window());
    const QSignalSpy clicks(&tree, &QTreeWidget::itemClicked);
    const QRect item = tree.visualItemRect(treeItem(window(), 0, 0));
    QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, QPoint(item.left() + 8, item.center().y()));
    QCoreApplication::processEvents();
    QCOMPARE(treeItem(window(), 0, 0)->checkState(0), Qt::Unchecked);
    QCOMPARE(clicks.count(), 1);
    QCOMPARE(shownType(), QStringLiteral("A1"));
}

/// It opens and closes the row, and chooses nothing.
void tst_RowChoices::arrowOfAnotherRow()
{
    showTwoFiles();
    QTreeWidget& tree = *deviceTree(window());
    const QSignalSpy clicks(&tree, &QTreeWidget::itemClicked);
    const QRect item = tree.visualItemRect(treeItem(window(), 1));
    const bool wasOpen = treeItem(window(), 1)->isExpanded();
    QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, QPoint(item.left() / 2, item.center().y()));
    QCoreApplication::processEvents();
    QCOMPARE(treeItem(window(), 1)->isExpanded(), !wasOpen);
    QCOMPARE(clicks.count(), 0);
    QCOMPARE(shownType(), QStringLiteral("A2"));
}

void tst_RowChoices::moduleTreeKey_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("group");
    QTest::addColumn<int>("module");
    QTest::addColumn<int>("pdos");
    QTest::addRow("Up") << int(Qt::Key_Up) << 0 << 0 << 5;
    QTest::addRow("Down") << int(Qt::Key_Down) << 0 << 2 << 0;
    QTest::addRow("Home") << int(Qt::Key_Home) << 0 << -1 << 0;
    QTest::addRow("End") << int(Qt::Key_End) << 1 << -1 << 0;
    QTest::addRow("Left: to the group") << int(Qt::Key_Left) << 0 << -1 << 0;
}

void tst_RowChoices::moduleTreeKey()
{
    QFETCH(int, key);
    QFETCH(int, group);
    QFETCH(int, module);
    QFETCH(int, pdos);
    showFiveRows();
    openTab(window(), ModuleTab);
    clickModule(window(), 0, 1);
    QStandardItemModel& shown = modelOf(view("mPdoListView"));
    QCOMPARE(shown.rowCount(), 0);
    for (int row = 0; row < 3; ++row)
        shown.appendRow(new QStandardItem(QStringLiteral("of the module before")));
    QTest::keyClick(&moduleTree(window()), static_cast<Qt::Key>(key));
    QCOMPARE(moduleTree(window()).currentItem(), moduleItem(window(), group, module));
    QCOMPARE(shown.rowCount(), pdos);
}

void tst_RowChoices::programHasNoEffect_data()
{
    addTables(2); // the row that was clicked
}

void tst_RowChoices::programHasNoEffect()
{
    QFETCH(QString, name);
    QFETCH(QString, shown);
    showFiveRows();
    QTableView& rows = openTable(name.toLatin1().constData());
    clickRow(rows, 2);
    rows.setCurrentIndex(rows.model()->index(0, 0));
    rows.selectRow(1);
    QCOMPARE(shownBy(name), shown);
    moduleTree(window()).setCurrentItem(moduleItem(window(), 0, 1));
    deviceTree(window())->setCurrentItem(treeItem(window(), 0));
    QCOMPARE(currentdeviceindex, 0);
    QCOMPARE(shownBy(name), shown);
}

static const testMain::Registration<tst_RowChoices, QApplication> registration;
#include "tst_RowChoices.moc"
