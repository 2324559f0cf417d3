// The slot table of the Module tab, the two check boxes beside it, and the marks on modules that do not fit.
#include "testMain.h"
#include "workbench/moduleTab.h"
#include "workbench/tabFixture.h"

#include <QCheckBox>
#include <QComboBox>

class tst_ModuleTabSlots : public TabFixture
{
    Q_OBJECT

private slots:
    void init() { begin(ModuleTab); }
    void cleanup() { end(); }
    void places();
    void defaultModules();
    void overflow();
    void moduleTreeShowsTheFile();
    void anotherDeviceEmptiesTheTab();
    static void configurationBoxes_data();
    void configurationBoxes();
    void downloadBoxIsWrittenBack();
    void downloadBoxFollowsTheDevice();
    void downloadBoxWithoutDevice();
    static void marks_data();
    void marks();
    void marksAreTakenBack();
    void marksWithoutCurrentRow();
    void marksExpandTheGroups();
    void marksWithoutDevice();
    void manySlotsAndModules();

private:
    [[nodiscard]] QTableView& slotPlaces() const { return view("ModuleView"); }
    [[nodiscard]] bool isChecked(const char* name) const { return part<QCheckBox>(window(), name)->isChecked(); }
    /// Names of the modules in the tree that are red and struck out in every column; any other look is a problem that
    /// is named instead.
    [[nodiscard]] QStringList marked() const;
};

/// A device that takes modules by hand.
static struct_EtherCatDevice coupler(const std::vector<struct_Slot>& list)
{
    struct_EtherCatDevice device = deviceNamed("Coupler");
    device.m_iDeviceType = 5;
    device.Slots.vslot = list;
    return device;
}

void tst_ModuleTabSlots::places()
{
    struct_Slot terminals = slotNamed("Terminals", 3);
    terminals.slotmodule = {placedAt(2, moduleNamed("IO 模块", 0x1234))};
    show(coupler({slotNamed("Head", 1), slotNamed("none", 0), terminals}));
    QCOMPARE(row("ModuleView", 0), QStringList({"Head", noItem(), noItem()}));
    QCOMPARE(column("ModuleView", 0), QStringList({"Head", "Terminals-0", "Terminals-1", "Terminals-2"}));
    QCOMPARE(row("ModuleView", 2), QStringList({"Terminals-1", QStringLiteral("IO 模块"), "0x1234"}));
    QCOMPARE(row("ModuleView", 3), QStringList({"Terminals-2", noItem(), noItem()}));
}

void tst_ModuleTabSlots::defaultModules()
{
    // Default modules carry the number of their slot. That is their row only while every slot has one place.
    struct_Slot last = slotNamed("Last", 1);
    last.slotmodule = {placedAt(1, moduleNamed("default", 0x20))};
    show(coupler({slotNamed("First", 1), last}));
    QCOMPARE(row("ModuleView", 1).at(1), QStringLiteral("default"));
    show(coupler({slotNamed("First", 2), last}));
    QCOMPARE(row("ModuleView", 1), QStringList({"First-1", "default", "0x20"}));
    QCOMPARE(row("ModuleView", 2), QStringList({"Last", noItem(), noItem()}));
}

void tst_ModuleTabSlots::overflow()
{
    const QString box = QStringLiteral("slot sum overflow|Please check xml file");
    struct_Slot big = slotNamed("Big", 100);
    big.slotmodule = {placedAt(0, moduleNamed("hidden", 1))};
    const struct_EtherCatDevice shown = coupler({slotNamed("First", 1), big, slotNamed("Last", 99)});
    // The first click on a device of another type fills the tab twice.
    part<QComboBox>(window(), "comboBox_DeviceType")->setCurrentIndex(5);
    QCOMPARE(boxesDuring(1, [&] { show(shown); }), QStringList(box));
    QCOMPARE(modelOf(slotPlaces()).rowCount(), 100);
    QCOMPARE(row("ModuleView", 0), QStringList({"First", noItem(), noItem()})); // its modules are not shown
    QCOMPARE(row("ModuleView", 1).at(0), QStringLiteral("Last-0"));
    QCOMPARE(boxesDuring(1, [&] { callSlot(window(), "device_slots_display"); }), QStringList(box)); // each time
    loadedDevice().Slots.vslot.push_back(big);
    QCOMPARE(boxesDuring(2, [&] { callSlot(window(), "device_slots_display"); }), QStringList({box, box}));
}

void tst_ModuleTabSlots::moduleTreeShowsTheFile()
{
    show(coupler({}), {groupOf("Digital 数字", {moduleNamed("DI8", 0x10), moduleNamed("DO8", 0xABCDEF01)}),
                       groupOf("", {}), groupOf("Drives", {moduleNamed("Axis", 0)})});
    const QTreeWidget& tree = moduleTree(window());
    QCOMPARE(tree.topLevelItemCount(), 3);
    QCOMPARE(tree.topLevelItem(0)->text(0), QStringLiteral("Digital 数字"));
    QCOMPARE(tree.topLevelItem(1)->text(0), QString());
    QCOMPARE(tree.topLevelItem(1)->childCount(), 0);
    QCOMPARE(tree.topLevelItem(0)->childCount(), 2);
    const QTreeWidgetItem* const item = tree.topLevelItem(0)->child(1);
    QCOMPARE(QStringList({item->text(0), item->text(1), item->text(2)}),
             QStringList({"DO8", "0xabcdef01", "DO8 type"}));
    QCOMPARE(tree.topLevelItem(2)->child(0)->text(1), QStringLiteral("0x00"));
    QVERIFY(tree.topLevelItem(0)->isExpanded());
    QVERIFY(!tree.topLevelItem(1)->isExpanded());
    QVERIFY(callSlot(window(), "device_module_display")); // filled again, not twice
    QCOMPARE(tree.topLevelItemCount(), 3);
}

void tst_ModuleTabSlots::anotherDeviceEmptiesTheTab()
{
    show(coupler({slotNamed("A", 2)}), {groupOf("", {moduleNamed("IO", 1)})});
    QCOMPARE(modelOf(slotPlaces()).rowCount(), 2);
    clickItem(window(), treeItem(window(), 0));
    QCOMPARE(modelOf(slotPlaces()).rowCount(), 0);
    QCOMPARE(moduleTree(window()).topLevelItemCount(), 0);
}

void tst_ModuleTabSlots::configurationBoxes_data()
{
    QTest::addColumn<bool>("downloads");
    QTest::addColumn<unsigned int>("transition");
    QTest::addColumn<bool>("isInitToPreop");
    QTest::addRow("no transition") << true << unsigned(UnknownType) << true;
    QTest::addRow("INIT to PREOP") << false << unsigned(IP) << true;
    QTest::addRow("PREOP to SAFEOP") << true << unsigned(PS) << false;
    QTest::addRow("SAFEOP to OP") << false << unsigned(SO) << false;
    QTest::addRow("the number is signed") << false << 0xFFFFFFFFU << true;
}

void tst_ModuleTabSlots::configurationBoxes()
{
    QFETCH(bool, downloads);
    QFETCH(unsigned int, transition);
    QFETCH(bool, isInitToPreop);
    part<QCheckBox>(window(), "CfgTransition")->setChecked(!isInitToPreop);
    part<QCheckBox>(window(), "DownlaodCfg")->setChecked(!downloads);
    struct_EtherCatDevice shown = deviceNamed("Coupler");
    shown.Slots.Attributes.DownloadModuleIdentList = downloads;
    shown.Slots.Attributes.m_DownloadModuleListTransition = static_cast<NMTOKEN>(transition);
    show(shown);
    QCOMPARE(isChecked("DownlaodCfg"), downloads);
    QCOMPARE(isChecked("CfgTransition"), isInitToPreop);
    QCOMPARE(loadedDevice().Slots.Attributes.DownloadModuleIdentList, downloads);
}

void tst_ModuleTabSlots::downloadBoxIsWrittenBack()
{
    show(coupler({slotNamed("A", 1)}));
    for (const bool expected : {true, false}) {
        QTest::mouseClick(part<QCheckBox>(window(), "DownlaodCfg"), Qt::LeftButton, {}, QPoint(8, 8));
        QCOMPARE(isChecked("DownlaodCfg"), expected);
        QCOMPARE(loadedDevice().Slots.Attributes.DownloadModuleIdentList, expected);
    }
}

void tst_ModuleTabSlots::downloadBoxFollowsTheDevice()
{
    g_xmlfiledevices = {fileWith("a.xml", {"first", "second"})};
    loadedDevice().Slots.Attributes.DownloadModuleIdentList = true;
    window().DeviceDisplayUpdate();
    for (const int position : {0, 1, 0}) {
        clickItem(window(), treeItem(window(), 0, position));
        QCOMPARE(isChecked("DownlaodCfg"), position == 0);
    }
    QVERIFY(loadedDevice().Slots.Attributes.DownloadModuleIdentList);
    QVERIFY(!g_xmlfiledevices[0].device[1].Slots.Attributes.DownloadModuleIdentList);
}

void tst_ModuleTabSlots::downloadBoxWithoutDevice()
{
    show(coupler({slotNamed("A", 1)}));
    clickItem(window(), treeItem(window(), 0)); // the file
    part<QCheckBox>(window(), "DownlaodCfg")->click();
    QVERIFY(!loadedDevice().Slots.Attributes.DownloadModuleIdentList);
}

QStringList tst_ModuleTabSlots::marked() const
{
    QStringList names;
    for (QTreeWidgetItem* item : moduleTree(window()).findItems(QString(), Qt::MatchContains | Qt::MatchRecursive)) {
        if (item->parent() == nullptr)
            continue;
        const bool isStruck = item->font(0).strikeOut();
        const QColor expected = isStruck ? QColor(255, 0, 0, 255) : QColor(0, 0, 0, 255);
        for (int cell = 0; cell < 3; ++cell)
            if (item->font(cell).strikeOut() != isStruck || item->foreground(cell) != QBrush(expected))
                return {QStringLiteral("mixed look of %1 in column %2").arg(item->text(0)).arg(cell)};
        if (isStruck)
            names.append(item->text(0));
    }
    return names;
}

/// Two groups of modules: "a" with ident 0x10 and "b" with 0x20, and "c" with 0x10.
static std::vector<struct_commentmodule> threeModules()
{
    return {groupOf("first", {moduleNamed("a", 0x10), moduleNamed("b", 0x20)}),
            groupOf("second", {moduleNamed("c", 0x10)})};
}

void tst_ModuleTabSlots::marks_data()
{
    QTest::addColumn<int>("place");
    QTest::addColumn<QStringList>("struck");
    QTest::addRow("a slot that names nothing marks nothing") << 0 << QStringList();
    QTest::addRow("first place of the slot of one ident") << 1 << QStringList{"b"};
    QTest::addRow("last place of that slot") << 2 << QStringList{"b"};
    QTest::addRow("slot of both idents") << 3 << QStringList();
    QTest::addRow("slot of an ident that no module has") << 4 << QStringList{"a", "b", "c"};
    QTest::addRow("row of no slot") << 5 << QStringList();
}

void tst_ModuleTabSlots::marks()
{
    QFETCH(int, place);
    QFETCH(QStringList, struck);
    struct_Slot last = slotNamed("E", 1, {0x30});
    last.slotmodule = {placedAt(5, moduleNamed("beside", 1))}; // its row belongs to no slot
    show(coupler({slotNamed("A", 1), slotNamed("B", 2, {0x10}), slotNamed("D", 1, {0x20, 0x10}), last}),
         threeModules());
    clickRow(slotPlaces(), place);
    QCOMPARE(marked(), struck);
}

void tst_ModuleTabSlots::marksAreTakenBack()
{
    show(coupler({slotNamed("A", 1), slotNamed("B", 1, {0x10}), slotNamed("C", 1, {0x20})}), threeModules());
    clickRow(slotPlaces(), 1);
    QCOMPARE(marked(), QStringList("b"));
    clickRow(slotPlaces(), 2);
    QCOMPARE(marked(), QStringList({"a", "c"}));
    clickRow(slotPlaces(), 0);
    QCOMPARE(marked(), QStringList());
}

void tst_ModuleTabSlots::marksWithoutCurrentRow()
{
    show(coupler({slotNamed("B", 1, {0x10})}), threeModules());
    clickRow(slotPlaces(), 0);
    const QModelIndex clicked = slotPlaces().model()->index(0, 0);
    slotPlaces().setCurrentIndex(QModelIndex());
    callSlot(window(), "device_slot_clicked", Q_ARG(QModelIndex, clicked)); // the current row counts
    QCOMPARE(marked(), QStringList());
}

void tst_ModuleTabSlots::marksExpandTheGroups()
{
    show(coupler({slotNamed("A", 1)}), threeModules());
    moduleTree(window()).collapseAll();
    clickRow(slotPlaces(), 0);
    QVERIFY(moduleItem(window(), 0)->isExpanded() && moduleItem(window(), 1)->isExpanded());
}

void tst_ModuleTabSlots::marksWithoutDevice()
{
    show(coupler({slotNamed("B", 1, {0x10})}), threeModules());
    clickRow(slotPlaces(), 0);
    currentdeviceindex = -1;
    loadedDevice().Slots.vslot.clear();
    clickRow(slotPlaces(), 0);
    QCOMPARE(marked(), QStringList("b"));
}

void tst_ModuleTabSlots::manySlotsAndModules()
{
    constexpr int slotCount = 300;
    constexpr int moduleCount = 1000;
    std::vector<struct_Slot> list;
    for (std::uint32_t slot = 0; slot < slotCount; ++slot)
        list.push_back(slotNamed("slot " + std::to_string(slot), 1, {slot}));
    std::vector<struct_module> modules;
    for (std::uint32_t ident = 0; ident < moduleCount; ++ident)
        modules.push_back(moduleNamed("module " + std::to_string(ident), ident));
    show(coupler(list), {groupOf("all", modules)});
    QCOMPARE(modelOf(slotPlaces()).rowCount(), slotCount);
    QCOMPARE(moduleItem(window(), 0)->childCount(), moduleCount);
    clickRow(slotPlaces(), slotCount - 1);
    const QStringList struck = marked();
    QCOMPARE(struck.size(), moduleCount - 1);
    QVERIFY(!struck.contains("module 299"));
}

static const testMain::Registration<tst_ModuleTabSlots, QApplication> registration;
#include "tst_ModuleTabSlots.moc"
