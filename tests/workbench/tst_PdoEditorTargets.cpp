// What the editor of PDO entries writes to: one row or all selected ones, of the device or of a module of the file, and
// nothing at all when the rows have become stale.
#include "testMain.h"
#include "workbench/moduleTab.h"
#include "workbench/pdoEditor.h"
#include "workbench/tabFixture.h"

class tst_PdoEditorTargets : public TabFixture
{
    Q_OBJECT

private slots:
    void init() { begin(ProcessDataTab); }
    void cleanup() { end(); }
    static void eachList_data();
    void eachList();
    void oneRow();
    void allSelectedRows();
    void closingRowIsSkipped();
    void closingRowFirst();
    void closingRowAlone();
    void selectionIsTakenAfreshOnSave();
    static void staleRows_data();
    void staleRows();
    void switchesCountOnSave();
    static void devicePositionsHaveEightBits_data();
    void devicePositionsHaveEightBits();
    void rowsOfTheDeviceHaveSixteenBits();
    static void moduleOfTheFileIsWritten_data();
    void moduleOfTheFileIsWritten();
    void allSelectedRowsOfAModule();
    void moduleFieldsAreShown();
    static void staleModules_data();
    void staleModules();
    void modulePositionsHaveEightBits();

private:
    [[nodiscard]] QTableView& entries() const { return view("PdoContentView"); }
    [[nodiscard]] QTableView& moduleEntries() const { return view("mPdoContentView"); }
    /// Links of the entries of the device's first output PDO.
    [[nodiscard]] static QVector<int> links();
    /// Shows a device without modules and the module, and the entries of one of its PDOs.
    void showModule(const struct_module& shown, int pdoRow);
};

template<typename Entries> static QVector<int> linksOf(const Entries& entries)
{
    QVector<int> links;
    for (const auto& entry : entries)
        links.append(entry.Linkto);
    return links;
}

QVector<int> tst_PdoEditorTargets::links()
{
    return linksOf(loadedDevice().RxPdo.vpdo.at(0).Entry.vPdo_c);
}

/// A device with an output PDO of that many entries.
static struct_EtherCatDevice deviceWithEntries(std::size_t count)
{
    struct_EtherCatDevice device = deviceNamed("Drive");
    device.RxPdo.vpdo = {devicePdo(0x1600, std::vector<struct_EntryPDOContent>(count, deviceEntry(0x7000, 8)))};
    return device;
}

void tst_PdoEditorTargets::eachList_data()
{
    QTest::addColumn<int>("pdoRow");
    QTest::addRow("own output") << 0;
    QTest::addRow("own input") << 1;
    QTest::addRow("output of a module") << 2;
    QTest::addRow("input of a module") << 3;
}

void tst_PdoEditorTargets::eachList()
{
    QFETCH(int, pdoRow);
    struct_EtherCatDevice shown = deviceWithEntries(2);
    shown.TxPdo.vpdo = {devicePdo(0x1A00, {deviceEntry(0x6000, 8), deviceEntry(0x6001, 8)})};
    shown.mRxPdo.mpdo = {pdoOfModule(0x1610, {moduleEntry(0x7010, 8), moduleEntry(0x7011, 8)})};
    shown.mTxPdo.mpdo = {pdoOfModule(0x1A10, {moduleEntry(0x6010, 8), moduleEntry(0x6011, 8)})};
    show(shown);
    clickRow(view("PdoListView"), pdoRow);
    doubleClickRow(entries(), 1);
    const PdoEditWin& editor = *openEditor(window());
    linkList(editor).setCurrentIndex(1); // a digital output or input
    press(editor, "PdoSavebutton");
    const QVector<int> none{0, 0};
    QCOMPARE(linksOf(loadedDevice().RxPdo.vpdo[0].Entry.vPdo_c), pdoRow == 0 ? QVector<int>({0, -2}) : none);
    QCOMPARE(linksOf(loadedDevice().TxPdo.vpdo[0].Entry.vPdo_c), pdoRow == 1 ? QVector<int>({0, -1}) : none);
    QCOMPARE(linksOf(loadedDevice().mRxPdo.mpdo[0].vEntry), pdoRow == 2 ? QVector<int>({0, -2}) : none);
    QCOMPARE(linksOf(loadedDevice().mTxPdo.mpdo[0].vEntry), pdoRow == 3 ? QVector<int>({0, -1}) : none);
}

void tst_PdoEditorTargets::oneRow()
{
    show(deviceWithEntries(3));
    clickRow(view("PdoListView"), 0);
    clickRow(entries(), 0);
    doubleClickRow(entries(), 1);
    entries().selectAll(); // a double click works on the current row, whatever is selected
    chooseLink(*openEditor(window()), "DOUT Type");
    press(*openEditor(window()), "PdoSavebutton");
    QCOMPARE(links(), QVector<int>({0, -2, 0}));
}

void tst_PdoEditorTargets::allSelectedRows()
{
    show(deviceWithEntries(4));
    clickRow(view("PdoListView"), 0);
    clickRow(entries(), 0);
    clickRow(entries(), 2, Qt::ControlModifier);
    chooseFromMenu(entries(), "Modify", 2);
    chooseLink(*openEditor(window()), "AOUT16 Type");
    press(*openEditor(window()), "PdoSavebutton");
    QCOMPARE(links(), QVector<int>({-7, 0, -7, 0}));
    QCOMPARE(column("PdoContentView", 5).mid(0, 3), QStringList({"AOUT16 Type", "NONE Type", "AOUT16 Type"}));
}

void tst_PdoEditorTargets::closingRowIsSkipped()
{
    show(deviceWithEntries(3));
    clickRow(view("PdoListView"), 0);
    clickRow(entries(), 1);
    clickRow(entries(), 3, Qt::ShiftModifier);
    chooseFromMenu(entries(), "Modify", 2);
    chooseLink(*openEditor(window()), "DOUT Type");
    press(*openEditor(window()), "PdoSavebutton");
    QCOMPARE(links(), QVector<int>({0, -2, -2}));
}

void tst_PdoEditorTargets::closingRowFirst()
{
    show(deviceWithEntries(2));
    clickRow(view("PdoListView"), 0);
    clickRow(entries(), 2);
    clickRow(entries(), 1, Qt::ControlModifier);
    chooseFromMenu(entries(), "Modify", 1);
    const PdoEditWin& editor = *openEditor(window());
    QCOMPARE(fieldText(editor, "Index"), QString()); // the first selected row is no entry
    QCOMPARE(linkList(editor).currentIndex(), -1);
    chooseLink(editor, "DOUT Type");
    press(editor, "PdoSavebutton");
    QCOMPARE(links(), QVector<int>({0, -2}));
}

void tst_PdoEditorTargets::closingRowAlone()
{
    show(deviceWithEntries(2));
    clickRow(view("PdoListView"), 0);
    doubleClickRow(entries(), 2);
    chooseLink(*openEditor(window()), "DOUT Type");
    press(*openEditor(window()), "PdoSavebutton");
    QCOMPARE(links(), QVector<int>({0, 0}));
}

void tst_PdoEditorTargets::selectionIsTakenAfreshOnSave()
{
    show(deviceWithEntries(3));
    clickRow(view("PdoListView"), 0);
    clickRow(entries(), 0);
    chooseFromMenu(entries(), "Modify", 0);
    entries().selectRow(2);
    chooseLink(*openEditor(window()), "DOUT Type");
    press(*openEditor(window()), "PdoSavebutton");
    QCOMPARE(links(), QVector<int>({0, 0, -2}));
}

void tst_PdoEditorTargets::staleRows_data()
{
    QTest::addColumn<bool>("byMenu");
    QTest::addColumn<QString>("gone");
    for (const char* gone : {"file", "device", "PDO", "entry"})
        for (const bool byMenu : {false, true})
            QTest::addRow("%s, %s", gone, byMenu ? "all selected" : "one row") << byMenu << gone;
}

void tst_PdoEditorTargets::staleRows()
{
    QFETCH(bool, byMenu);
    QFETCH(QString, gone);
    show(deviceWithEntries(2));
    clickRow(view("PdoListView"), 0);
    if (byMenu)
        chooseFromMenu(entries(), "Modify", 1);
    else
        doubleClickRow(entries(), 1);
    const PdoEditWin& editor = *openEditor(window());
    chooseLink(editor, "DOUT Type");
    struct_FilenameDevice& file = g_xmlfiledevices[0];
    if (gone == QLatin1String("file"))
        g_xmlfiledevices.clear();
    else if (gone == QLatin1String("device"))
        file.device.clear();
    else if (gone == QLatin1String("PDO"))
        file.device[0].RxPdo.vpdo.clear();
    else
        file.device[0].RxPdo.vpdo[0].Entry.vPdo_c.resize(1);
    press(editor, "PdoSavebutton");
    QVERIFY(!editor.isVisible());
    if (gone == QLatin1String("entry"))
        QCOMPARE(links(), QVector<int>({0}));
}

void tst_PdoEditorTargets::switchesCountOnSave()
{
    show(deviceWithEntries(2));
    clickRow(view("PdoListView"), 0);
    doubleClickRow(entries(), 1);
    chooseLink(*openEditor(window()), "DOUT Type");
    g_bpdoormodulepdo = true; // no module was selected when it opened
    press(*openEditor(window()), "PdoSavebutton");
    QCOMPARE(links(), QVector<int>({0, 0}));
}

void tst_PdoEditorTargets::devicePositionsHaveEightBits_data()
{
    QTest::addColumn<int>("file");
    QTest::addColumn<int>("position");
    QTest::addRow("file 256 is file 0") << 256 << 0;
    QTest::addRow("device 256 is device 0") << 0 << 256;
}

void tst_PdoEditorTargets::devicePositionsHaveEightBits()
{
    QFETCH(int, file);
    QFETCH(int, position);
    show(deviceWithEntries(1));
    g_xmlfiledevices[0].device.resize(std::size_t(position) + 1, loadedDevice());
    g_xmlfiledevices.resize(std::size_t(file) + 1, g_xmlfiledevices[0]);
    clickRow(view("PdoListView"), 0);
    clickRow(entries(), 0);
    currentfileindex = file;
    currentdeviceindex = position;
    doubleClickRow(entries(), 0);
    chooseLink(*openEditor(window()), "DOUT Type");
    press(*openEditor(window()), "PdoSavebutton");
    QCOMPARE(links(), QVector<int>({-2}));
    QCOMPARE(linksOf(deviceAt(file, position)->RxPdo.vpdo[0].Entry.vPdo_c), QVector<int>({0}));
}

void tst_PdoEditorTargets::rowsOfTheDeviceHaveSixteenBits()
{
    struct_EtherCatDevice shown = deviceNamed("Drive");
    shown.RxPdo.vpdo.resize(260, devicePdo(0x1600, std::vector<struct_EntryPDOContent>(260, deviceEntry(0x7000, 8))));
    show(shown);
    clickRow(view("PdoListView"), 258);
    doubleClickRow(entries(), 257);
    chooseLink(*openEditor(window()), "DOUT Type");
    press(*openEditor(window()), "PdoSavebutton");
    QCOMPARE(loadedDevice().RxPdo.vpdo[258].Entry.vPdo_c[257].Linkto, -2);
    QCOMPARE(linksOf(loadedDevice().RxPdo.vpdo[2].Entry.vPdo_c).count(0), 260);
}

void tst_PdoEditorTargets::showModule(const struct_module& shown, int pdoRow)
{
    struct_EtherCatDevice coupler = deviceNamed("Coupler");
    coupler.m_iDeviceType = 5;
    coupler.Slots.vslot = {slotNamed("Slot", 1)};
    coupler.Slots.vslot[0].slotmodule = {placedAt(0, shown)};
    show(coupler, {groupOf("first", {moduleNamed("other", 1)}), groupOf("second", {moduleNamed("other", 2), shown})});
    openTab(window(), ModuleTab);
    clickModule(window(), 1, 1);
    clickRow(view("mPdoListView"), pdoRow);
}

void tst_PdoEditorTargets::moduleOfTheFileIsWritten_data()
{
    QTest::addColumn<int>("pdoRow");
    QTest::addColumn<int>("entryRow");
    QTest::addColumn<QString>("words");
    QTest::addColumn<QVector<int>>("outputs");
    QTest::addColumn<QVector<int>>("inputs");
    QTest::addRow("output") << 0 << 1 << "FAOUT Type" << QVector<int>{0, -9} << QVector<int>{0};
    QTest::addRow("input") << 1 << 0 << "ENCODER32 Type" << QVector<int>{0, 0} << QVector<int>{-10};
}

void tst_PdoEditorTargets::moduleOfTheFileIsWritten()
{
    QFETCH(int, pdoRow);
    QFETCH(int, entryRow);
    QFETCH(QString, words);
    QFETCH(QVector<int>, outputs);
    QFETCH(QVector<int>, inputs);
    showModule(moduleWithPdos("IO", 3), pdoRow);
    doubleClickRow(moduleEntries(), entryRow);
    chooseLink(*openEditor(window()), words);
    press(*openEditor(window()), "PdoSavebutton");
    QCOMPARE(linksOf(module(1, 1).RxPdo.vpdo[0].vEntry), outputs);
    QCOMPARE(linksOf(module(1, 1).TxPdo.vpdo[0].vEntry), inputs);
    QCOMPARE(row("mPdoContentView", entryRow).at(5), words);
    // The copies in the slot, and in the device, keep their links.
    QCOMPARE(linksOf(loadedDevice().Slots.vslot[0].slotmodule[0].module.RxPdo.vpdo[0].vEntry), QVector<int>({0, 0}));
    QCOMPARE(linksOf(loadedDevice().mRxPdo.mpdo.at(0).vEntry), QVector<int>({0, 0}));
    QCOMPARE(linksOf(loadedDevice().mTxPdo.mpdo.at(0).vEntry), QVector<int>({0}));
}

void tst_PdoEditorTargets::allSelectedRowsOfAModule()
{
    struct_module shown = moduleWithPdos("IO", 3);
    shown.RxPdo.vpdo[0].vEntry.resize(4);
    showModule(shown, 0);
    clickRow(moduleEntries(), 1);
    clickRow(moduleEntries(), 4, Qt::ControlModifier); // the closing row
    clickRow(moduleEntries(), 3, Qt::ControlModifier);
    chooseFromMenu(moduleEntries(), "modify", 3);
    chooseLink(*openEditor(window()), "DOUT Type");
    press(*openEditor(window()), "PdoSavebutton");
    QCOMPARE(linksOf(module(1, 1).RxPdo.vpdo[0].vEntry), QVector<int>({0, -2, 0, -2}));
}

void tst_PdoEditorTargets::moduleFieldsAreShown()
{
    struct_module shown = moduleWithPdos("IO", 3);
    struct_moduleEntry& entry = shown.TxPdo.vpdo[0].vEntry[0];
    entry.SubIndex = 300;
    entry.Name = "Input 输入";
    entry.DataType = "BITARR12";
    entry.DefaultData = 5;
    entry.Linkto = -4;
    showModule(shown, 1);
    doubleClickRow(moduleEntries(), 0);
    const PdoEditWin& editor = *openEditor(window());
    QCOMPARE(fieldText(editor, "Index"), QStringLiteral("0x6000"));
    QCOMPARE(fieldText(editor, "Subindex"), QStringLiteral("300"));
    QCOMPARE(fieldText(editor, "Size"), QStringLiteral("1.40"));
    QCOMPARE(fieldText(editor, "Name"), QStringLiteral("Input 输入"));
    QCOMPARE(fieldText(editor, "Type"), QStringLiteral("BITARR12"));
    QCOMPARE(fieldText(editor, "Default"), QStringLiteral("5"));
    QCOMPARE(linkList(editor).currentText(), QStringLiteral("AIN16 Type"));
    QCOMPARE(linkList(editor).count(), 6);
}

void tst_PdoEditorTargets::staleModules_data()
{
    QTest::addColumn<QString>("gone");
    for (const char* gone : {"group", "module", "PDO", "entry"})
        QTest::addRow("%s", gone) << gone;
}

void tst_PdoEditorTargets::staleModules()
{
    QFETCH(QString, gone);
    showModule(moduleWithPdos("IO", 3), 0);
    doubleClickRow(moduleEntries(), 1);
    const PdoEditWin& editor = *openEditor(window());
    chooseLink(editor, "DOUT Type");
    std::vector<struct_commentmodule>& groups = g_xmlfiledevices[0].vcommentmodule;
    const struct_commentmodule before = groups[1];
    if (gone == QLatin1String("group"))
        groups.pop_back();
    else if (gone == QLatin1String("module"))
        groups[1].vmodule.pop_back();
    else if (gone == QLatin1String("PDO"))
        groups[1].vmodule[1].RxPdo.vpdo.clear();
    else
        groups[1].vmodule[1].RxPdo.vpdo[0].vEntry.pop_back();
    view("mPdoListView").setCurrentIndex(QModelIndex()); // so that nothing is read again when it closes
    press(editor, "PdoSavebutton");
    QVERIFY(!editor.isVisible());
    for (const struct_commentmodule& group : groups)
        for (const struct_module& left : group.vmodule)
            for (const modulePdo& pdo : left.RxPdo.vpdo)
                QCOMPARE(linksOf(pdo.vEntry).count(0), int(pdo.vEntry.size()));
    groups.resize(2);
    groups[1] = before; // the tree shows them
}

void tst_PdoEditorTargets::modulePositionsHaveEightBits()
{
    struct_module deep = moduleNamed("deep", 3);
    deep.RxPdo.vpdo.resize(258, pdoOfModule(0x1600, std::vector<struct_moduleEntry>(260, moduleEntry(0x7000, 8))));
    std::vector<struct_module> modules(257, moduleNamed("empty", 1));
    modules[0] = deep;
    modules[256] = deep;
    std::vector<struct_commentmodule> groups(257);
    groups[0] = groupOf("first", modules);
    groups[256] = groups[0];
    show(deviceNamed("Coupler"), groups);
    openTab(window(), ModuleTab);
    clickModule(window(), 256, 256);
    clickRow(view("mPdoListView"), 257);
    doubleClickRow(moduleEntries(), 259);
    chooseLink(*openEditor(window()), "DOUT Type");
    press(*openEditor(window()), "PdoSavebutton");
    // Group 256, module 256, PDO 257 and entry 259 address group 0, module 0, PDO 1 and entry 3.
    QCOMPARE(module(0, 0).RxPdo.vpdo[1].vEntry[3].Linkto, -2);
    QCOMPARE(linksOf(module(256, 256).RxPdo.vpdo[257].vEntry).count(0), 260);
}

static const testMain::Registration<tst_PdoEditorTargets, QApplication> registration;
#include "tst_PdoEditorTargets.moc"
