// The edits of PDO entries from the Process Data tab: the menu, what is refused and in which order, adding, deleting,
// and the ways into the editor.
#include "testMain.h"
#include "workbench/pdoEditor.h"
#include "workbench/tabFixture.h"

class tst_PdoEntryEdits : public TabFixture
{
    Q_OBJECT

private slots:
    void init() { begin(ProcessDataTab); }
    void cleanup() { end(); }
    void menuOfAnEntry();
    void noMenuWithoutEntry();
    static void refusals_data();
    void refusals();
    void doubleClickRefusals();
    static void moduleEntriesRefuseFirst_data();
    void moduleEntriesRefuseFirst();
    static void moduleUseEndsWithModifyOrDoubleClick_data();
    void moduleUseEndsWithModifyOrDoubleClick();
    static void addAfterTheFirstSelected_data();
    void addAfterTheFirstSelected();
    void addedEntryOpensInTheEditor();
    void addOnTheClosingRow();
    static void deleteInEachList_data();
    void deleteInEachList();
    void deleteTheOnlyEntry();
    void deleteOnTheClosingRow();
    static void staleRowsChangeNothing_data();
    void staleRowsChangeNothing();
    void modifyWorksOnAllSelected();
    void doubleClickWorksOnTheCurrentRow();
    void editorBeforeIsClosed();
    void replyRefreshesTheTableOfItsSwitch();
    void replyWithoutCurrentRow();

private:
    [[nodiscard]] QTableView& pdos() const { return view("PdoListView"); }
    [[nodiscard]] QTableView& entries() const { return view("PdoContentView"); }
    /// Shows the device and clicks a PDO.
    void showEntriesOf(int pdoRow);
    /// Entry indexes of the PDO at a row, from the records.
    [[nodiscard]] static QStringList recorded(int pdoRow);
};

/// A device with one PDO in each list. Each has two entries, whose indexes tell the list, and a size that fits them.
static struct_EtherCatDevice deviceWithEntries()
{
    struct_EtherCatDevice device = deviceNamed("Coupler");
    device.RxPdo.vpdo = {devicePdo(0x1600, {deviceEntry(0x7000, 8), deviceEntry(0x7001, 8)})};
    device.TxPdo.vpdo = {devicePdo(0x1A00, {deviceEntry(0x6000, 8), deviceEntry(0x6001, 8)})};
    device.mRxPdo.mpdo = {pdoOfModule(0x1610, {moduleEntry(0x7010, 8), moduleEntry(0x7011, 8)})};
    device.mTxPdo.mpdo = {pdoOfModule(0x1A10, {moduleEntry(0x6010, 8), moduleEntry(0x6011, 8)})};
    for (auto* pdo : {&device.RxPdo.vpdo[0], &device.TxPdo.vpdo[0]}) {
        pdo->Size = 2.0F;
        pdo->Entry.vPdo_c[1].Offs = 1.0F;
    }
    for (auto* pdo : {&device.mRxPdo.mpdo[0], &device.mTxPdo.mpdo[0]}) {
        pdo->size = 2.0F;
        pdo->vEntry[1].Offs = 1.0F;
    }
    return device;
}

void tst_PdoEntryEdits::showEntriesOf(int pdoRow)
{
    show(deviceWithEntries());
    clickRow(pdos(), pdoRow);
}

template<typename Entries> static QStringList indexesOf(const Entries& entries)
{
    QStringList indexes;
    for (const auto& entry : entries)
        if constexpr (std::is_same_v<std::decay_t<decltype(entry)>, struct_moduleEntry>)
            indexes.append(QString::number(entry.indexAttributes.index, 16));
        else
            indexes.append(QString::number(entry.Index, 16));
    return indexes;
}

QStringList tst_PdoEntryEdits::recorded(int pdoRow)
{
    switch (pdoRow) {
    case 0:
        return indexesOf(loadedDevice().RxPdo.vpdo.at(0).Entry.vPdo_c);
    case 1:
        return indexesOf(loadedDevice().TxPdo.vpdo.at(0).Entry.vPdo_c);
    case 2:
        return indexesOf(loadedDevice().mRxPdo.mpdo.at(0).vEntry);
    default:
        return indexesOf(loadedDevice().mTxPdo.mpdo.at(0).vEntry);
    }
}

void tst_PdoEntryEdits::menuOfAnEntry()
{
    showEntriesOf(0);
    DialogDriver driver({leavingTheMenu()});
    driver.during([this] { rightClickRow(entries(), 1); });
    QCOMPARE(driver.problem(), QString());
    QCOMPARE(driver.seen(0).entries, QStringList({"Modify", "Add", "Delete"}));
    QCOMPARE(driver.seen(0).parent, deviceTree(window()));
    QCOMPARE(recorded(0), QStringList({"7000", "7001"}));
    QVERIFY(openEditor(window()) == nullptr);
}

void tst_PdoEntryEdits::noMenuWithoutEntry()
{
    showEntriesOf(0);
    DialogDriver driver({});
    driver.during([this] { rightClickBelowTheRows(entries()); });
    QCOMPARE(driver.problem(), QString());
}

void tst_PdoEntryEdits::refusals_data()
{
    QTest::addColumn<QByteArray>("edit");
    for (const char* edit : {"on_pdoContect_modify", "on_pdoContect_add", "on_pdoContect_delete"})
        QTest::addRow("%s", edit) << QByteArray(edit);
}

void tst_PdoEntryEdits::refusals()
{
    QFETCH(QByteArray, edit);
    g_bpdoMultiplechoice = true;
    show(deviceWithEntries());
    const auto run = [&] { callSlot(window(), edit.constData()); };
    QCOMPARE(boxesDuring(1, run), QStringList(selectionBox("Please select a pdo\n")));
    clickRow(pdos(), 0);
    QCOMPARE(boxesDuring(1, run), QStringList(selectionBox("Please select a  pdo content\n"))); // two blanks
    // A current entry is not enough: it has to be selected.
    clickRow(entries(), 0);
    entries().clearSelection();
    entries().setCurrentIndex(entries().model()->index(1, 0));
    entries().clearSelection();
    QCOMPARE(boxesDuring(1, run), QStringList(selectionBox("Please select a  pdo content\n")));
    QCOMPARE(recorded(0), QStringList({"7000", "7001"}));
    QVERIFY(openEditor(window()) == nullptr);
    QVERIFY(g_bpdoMultiplechoice); // a refused edit leaves the switches alone
}

void tst_PdoEntryEdits::doubleClickRefusals()
{
    g_bpdoMultiplechoice = true;
    g_bpdoormodulepdo = true;
    show(deviceWithEntries());
    const auto run = [&] { callSlot(window(), "on_PdoContentView_doubleClicked", Q_ARG(QModelIndex, QModelIndex())); };
    QCOMPARE(boxesDuring(1, run), QStringList(selectionBox("Please select a pdo\n")));
    clickRow(pdos(), 0);
    QCOMPARE(boxesDuring(1, run), QStringList(selectionBox("Please select a pdo content\n"))); // one blank
    QVERIFY(openEditor(window()) == nullptr);
    QVERIFY(g_bpdoMultiplechoice && g_bpdoormodulepdo);
}

void tst_PdoEntryEdits::moduleEntriesRefuseFirst_data()
{
    QTest::addColumn<QString>("entry");
    QTest::addColumn<QByteArray>("edit");
    QTest::addRow("add") << "Add" << QByteArray("on_pdoContect_add");
    QTest::addRow("delete") << "Delete" << QByteArray("on_pdoContect_delete");
}

void tst_PdoEntryEdits::moduleEntriesRefuseFirst()
{
    QFETCH(QString, entry);
    QFETCH(QByteArray, edit);
    const QStringList refusal(selectionBox("Please select no modulepdo\n"));
    g_bpdoormodulepdo = true;
    show(deviceWithEntries());
    QCOMPARE(boxesDuring(1, [&] { callSlot(window(), edit.constData()); }), refusal); // before the missing PDO
    clickRow(pdos(), 0);
    for (int time = 0; time < 2; ++time) { // the switch stays as it is
        DialogDriver driver({choosingEntry(entry), pressing(QMessageBox::Ok)});
        driver.during([this] { rightClickRow(entries(), 0); });
        QCOMPARE(driver.problem(), QString());
        QCOMPARE(QStringList(selectionBox(driver.seen(1).text)), refusal);
        QVERIFY(g_bpdoormodulepdo);
    }
    QCOMPARE(recorded(0), QStringList({"7000", "7001"}));
}

void tst_PdoEntryEdits::moduleUseEndsWithModifyOrDoubleClick_data()
{
    QTest::addColumn<bool>("byMenu");
    QTest::addRow("modify") << true;
    QTest::addRow("double click") << false;
}

void tst_PdoEntryEdits::moduleUseEndsWithModifyOrDoubleClick()
{
    QFETCH(bool, byMenu);
    g_bpdoormodulepdo = true;
    showEntriesOf(0);
    if (byMenu)
        chooseFromMenu(entries(), "Modify", 0);
    else
        doubleClickRow(entries(), 0);
    QVERIFY(!g_bpdoormodulepdo);
    press(*openEditor(window()), "CancelButton");
    chooseFromMenu(entries(), "Delete", 0);
    QCOMPARE(recorded(0), QStringList("7001"));
}

void tst_PdoEntryEdits::addAfterTheFirstSelected_data()
{
    QTest::addColumn<int>("pdoRow");
    QTest::addColumn<int>("entryRow");
    QTest::addColumn<QStringList>("expected");
    QTest::addRow("own output, in between") << 0 << 0 << QStringList{"7000", "0", "7001"};
    QTest::addRow("own output, after the last") << 0 << 1 << QStringList{"7000", "7001", "0"};
    QTest::addRow("own input") << 1 << 0 << QStringList{"6000", "0", "6001"};
    QTest::addRow("output of a module") << 2 << 1 << QStringList{"7010", "7011", "0"};
    QTest::addRow("input of a module") << 3 << 0 << QStringList{"6010", "0", "6011"};
}

void tst_PdoEntryEdits::addAfterTheFirstSelected()
{
    QFETCH(int, pdoRow);
    QFETCH(int, entryRow);
    QFETCH(QStringList, expected);
    showEntriesOf(pdoRow);
    g_bpdoMultiplechoice = true;
    chooseFromMenu(entries(), "Add", entryRow);
    QCOMPARE(recorded(pdoRow), expected);
    QCOMPARE(row("PdoContentView", entryRow + 1),
             QStringList({"0x00:0", "0.00", "0.00", "", "", "NONE Type", "0"})); // all fields zero and empty
    QCOMPARE(modelOf(entries()).rowCount(), 4); // three entries and the closing row
    QCOMPARE(row("PdoListView", pdoRow).at(1), QStringLiteral("2.00")); // the size stays
    QVERIFY(!g_bpdoMultiplechoice && !g_bpdoormodulepdo);
}

void tst_PdoEntryEdits::addedEntryOpensInTheEditor()
{
    showEntriesOf(0);
    chooseFromMenu(entries(), "Add", 0);
    QCOMPARE(pdos().currentIndex().row(), 0);
    QVERIFY(pdos().selectionModel()->isRowSelected(0, QModelIndex()));
    QCOMPARE(entries().currentIndex().row(), 1);
    const PdoEditWin* const editor = openEditor(window());
    QVERIFY(editor != nullptr);
    QCOMPARE(fieldText(*editor, "Index"), QStringLiteral("0x00"));
    chooseLink(*editor, "DOUT Type");
    press(*editor, "PdoSavebutton");
    const std::vector<struct_EntryPDOContent>& kept = loadedDevice().RxPdo.vpdo[0].Entry.vPdo_c;
    QCOMPARE(kept[0].Linkto, 0);
    QCOMPARE(kept[1].Linkto, -2);
    QCOMPARE(kept[2].Linkto, 0);
    QCOMPARE(kept[2].Offs, 1.0F); // the places of the others stay
}

void tst_PdoEntryEdits::addOnTheClosingRow()
{
    showEntriesOf(0);
    g_bpdoMultiplechoice = true;
    DialogDriver driver({choosingEntry("Add"), pressing(QMessageBox::Ok)});
    driver.during([this] { rightClickRow(entries(), 2); });
    QCOMPARE(driver.problem(), QString());
    QCOMPARE(driver.seen(1).title, QStringLiteral("warning"));
    QCOMPARE(driver.seen(1).text, QStringLiteral("Please select a pdo content\n"));
    QCOMPARE(recorded(0), QStringList({"7000", "7001"}));
    QVERIFY(entries().selectionModel()->selectedIndexes().isEmpty());
    QVERIFY(openEditor(window()) == nullptr);
    QVERIFY(!g_bpdoMultiplechoice);
}

void tst_PdoEntryEdits::deleteInEachList_data()
{
    QTest::addColumn<int>("pdoRow");
    QTest::addColumn<int>("entryRow");
    QTest::addColumn<QStringList>("left");
    QTest::addRow("own output, first") << 0 << 0 << QStringList{"7001"};
    QTest::addRow("own output, last") << 0 << 1 << QStringList{"7000"};
    QTest::addRow("own input") << 1 << 0 << QStringList{"6001"};
    QTest::addRow("output of a module") << 2 << 1 << QStringList{"7010"};
    QTest::addRow("input of a module") << 3 << 0 << QStringList{"6011"};
}

void tst_PdoEntryEdits::deleteInEachList()
{
    QFETCH(int, pdoRow);
    QFETCH(int, entryRow);
    QFETCH(QStringList, left);
    showEntriesOf(pdoRow);
    g_bpdoMultiplechoice = true;
    chooseFromMenu(entries(), "Delete", entryRow);
    QCOMPARE(recorded(pdoRow), left);
    QCOMPARE(modelOf(entries()).rowCount(), 2);
    QCOMPARE(row("PdoContentView", 0).at(0), QStringLiteral("0x%1:0").arg(left.first()));
    QCOMPARE(row("PdoContentView", 0).at(2), entryRow == 0 ? QStringLiteral("1.00") : QStringLiteral("0.00"));
    QCOMPARE(row("PdoListView", pdoRow).at(1), QStringLiteral("2.00")); // the size stays
    QCOMPARE(pdos().currentIndex().row(), pdoRow);
    for (int other = 0; other < 4; ++other)
        QCOMPARE(recorded(other).size(), other == pdoRow ? 1 : 2);
    QVERIFY(!g_bpdoMultiplechoice && !g_bpdoormodulepdo);
    QVERIFY(openEditor(window()) == nullptr);
}

void tst_PdoEntryEdits::deleteTheOnlyEntry()
{
    showEntriesOf(0);
    chooseFromMenu(entries(), "Delete", 0);
    chooseFromMenu(entries(), "Delete", 0);
    QCOMPARE(recorded(0), QStringList());
    QCOMPARE(modelOf(entries()).rowCount(), 0); // no closing row without entries
}

void tst_PdoEntryEdits::deleteOnTheClosingRow()
{
    showEntriesOf(0);
    chooseFromMenu(entries(), "Delete", 2);
    QCOMPARE(recorded(0), QStringList({"7000", "7001"}));
}

void tst_PdoEntryEdits::staleRowsChangeNothing_data()
{
    QTest::addColumn<QString>("edit");
    QTest::addRow("add") << "Add";
    QTest::addRow("delete") << "Delete";
}

void tst_PdoEntryEdits::staleRowsChangeNothing()
{
    QFETCH(QString, edit);
    showEntriesOf(3);
    clickRow(entries(), 0);
    loadedDevice().mTxPdo.mpdo.clear(); // the row of the list is no PDO any more
    std::vector<DialogAnswer> script{choosingEntry(edit)};
    if (edit == QLatin1String("Add"))
        script.push_back(pressing(QMessageBox::Ok)); // there is no entry to open
    DialogDriver driver(script);
    driver.during([this] { rightClickRow(entries(), 0); });
    QCOMPARE(driver.problem(), QString());
    QCOMPARE(modelOf(entries()).rowCount(), 0);
    for (int other = 0; other < 3; ++other)
        QCOMPARE(recorded(other).size(), 2);
}

void tst_PdoEntryEdits::modifyWorksOnAllSelected()
{
    showEntriesOf(0);
    clickRow(entries(), 0);
    clickRow(entries(), 1, Qt::ControlModifier);
    chooseFromMenu(entries(), "Modify", 1);
    QVERIFY(g_bpdoMultiplechoice && !g_bpdoormodulepdo);
    QCOMPARE(openEditor(window())->windowTitle(), QStringLiteral("Pdo editor"));
    QCOMPARE(fieldText(*openEditor(window()), "Index"), QStringLiteral("0x7000")); // the first of the selected ones
}

void tst_PdoEntryEdits::doubleClickWorksOnTheCurrentRow()
{
    g_bpdoMultiplechoice = true;
    showEntriesOf(0);
    doubleClickRow(entries(), 1);
    QVERIFY(!g_bpdoMultiplechoice && !g_bpdoormodulepdo);
    QCOMPARE(openEditor(window())->windowTitle(), QStringLiteral("Pdo editor"));
    QCOMPARE(fieldText(*openEditor(window()), "Index"), QStringLiteral("0x7001"));
}

void tst_PdoEntryEdits::editorBeforeIsClosed()
{
    showEntriesOf(0);
    doubleClickRow(entries(), 0);
    const PdoEditWin* const first = openEditor(window());
    doubleClickRow(entries(), 1);
    QVERIFY(!first->isVisible());
    QVERIFY(openEditor(window()) != nullptr && openEditor(window()) != first);
}

void tst_PdoEntryEdits::replyRefreshesTheTableOfItsSwitch()
{
    showEntriesOf(0);
    loadedDevice().RxPdo.vpdo[0].Entry.vPdo_c[0].Linkto = -2;
    g_bpdoormodulepdo = true; // the module views are meant, and they have no current row
    callSlot(window(), "PdoEditWindowSendMsg", Q_ARG(QString, QString()));
    QCOMPARE(row("PdoContentView", 0).at(5), QStringLiteral("NONE Type"));
    g_bpdoormodulepdo = false;
    callSlot(window(), "PdoEditWindowSendMsg", Q_ARG(QString, QString()));
    QCOMPARE(row("PdoContentView", 0).at(5), QStringLiteral("DOUT Type"));
}

void tst_PdoEntryEdits::replyWithoutCurrentRow()
{
    show(deviceWithEntries());
    callSlot(window(), "PdoEditWindowSendMsg", Q_ARG(QString, QStringLiteral("hello")));
    QCOMPARE(modelOf(entries()).rowCount(), 0);
    QCOMPARE(labelText(window(), "label_17"), QString());
}

static const testMain::Registration<tst_PdoEntryEdits, QApplication> registration;
#include "tst_PdoEntryEdits.moc"
