// The editor of PDO entries: its form, the links that it offers, and the ways out of it.
// Covers pdoeditwin.cpp.
#include "testMain.h"
#include "workbench/pdoEditor.h"
#include "workbench/tabFixture.h"

#include <QGroupBox>
#include <QSignalSpy>

class tst_PdoEditor : public TabFixture
{
    Q_OBJECT

private slots:
    void init() { begin(ProcessDataTab); }
    void cleanup() { end(); }
    void lookOfTheWindow();
    static void texts_data();
    void texts();
    void onlyTheLinkIsEnabled();
    static void fieldsOfAnEntry_data();
    void fieldsOfAnEntry();
    static void offeredLinks_data();
    void offeredLinks();
    static void linkIsWritten_data();
    void linkIsWritten();
    static void saveWithoutChange_data();
    void saveWithoutChange();
    void cancelWritesNothing();
    static void keys_data();
    void keys();
    static void enterInTheList_data();
    void enterInTheList();
    void otherKeysDoNothing();
    void closingByTheSystem();
    void replyTellsAndRefreshes();
    void closedEditorStaysWithoutItsForm();
    void withoutParent();
    void withoutSelection();

private:
    [[nodiscard]] QTableView& entries() const { return view("PdoContentView"); }
    /// Opens the editor on the first entry of the PDO at a row, by a double click.
    PdoEditWin& open(int pdoRow = 0);
    [[nodiscard]] static std::int32_t& link() { return loadedDevice().RxPdo.vpdo.at(0).Entry.vPdo_c.at(0).Linkto; }
};

/// A device with a PDO of one entry in each list; the entries have the same fields.
static struct_EtherCatDevice deviceWithLinks(std::int32_t link)
{
    struct_EntryPDOContent own = deviceEntry(0x60FF, 12, link);
    own.SubIndex = 17;
    own.Name = "Velocity 速度";
    own.DataType = "BITARR12";
    own.DefaultData = 4294967295U;
    own.Offs = 3.0F;
    struct_moduleEntry ofModule = moduleEntry(0x60FF, 12, link);
    ofModule.SubIndex = 17;
    ofModule.Name = own.Name;
    ofModule.DataType = own.DataType;
    ofModule.DefaultData = own.DefaultData;
    struct_EtherCatDevice device = deviceNamed("Coupler");
    device.RxPdo.vpdo = {devicePdo(0x1600, {own})};
    device.TxPdo.vpdo = {devicePdo(0x1A00, {own})};
    device.mRxPdo.mpdo = {pdoOfModule(0x1610, {ofModule})};
    device.mTxPdo.mpdo = {pdoOfModule(0x1A10, {ofModule})};
    return device;
}

PdoEditWin& tst_PdoEditor::open(int pdoRow)
{
    clickRow(view("PdoListView"), pdoRow);
    doubleClickRow(entries(), 0);
    return *openEditor(window());
}

void tst_PdoEditor::lookOfTheWindow()
{
    show(deviceWithLinks(0));
    const PdoEditWin& editor = open();
    QCOMPARE(editor.windowFlags() & (Qt::WindowType_Mask | Qt::FramelessWindowHint),
             Qt::WindowFlags(Qt::Dialog | Qt::FramelessWindowHint));
    QCOMPARE(editor.windowModality(), Qt::WindowModal);
    QCOMPARE(editor.parentWidget(), &window());
    QCOMPARE(editor.pos(), window().mapToGlobal(QPoint(0, 0)) + QPoint(500, 150));
}

void tst_PdoEditor::texts_data()
{
    QTest::addColumn<QString>("text");
    for (const char* text : {"Index:", "SubIndex:", "Size:", "Name:", "Type:", "LinkTo:", "Default:"})
        QTest::addRow("%s", text) << text;
}

void tst_PdoEditor::texts()
{
    QFETCH(QString, text);
    show(deviceWithLinks(0));
    const PdoEditWin& editor = open();
    QStringList labels;
    for (const QLabel* label : editor.findChildren<QLabel*>())
        labels.append(label->text());
    QCOMPARE(labels.count(text), 1);
    QCOMPARE(editor.findChild<QGroupBox*>()->title(), QStringLiteral("PDO "));
    QCOMPARE(part<QPushButton>(editor, "PdoSavebutton")->text(), QStringLiteral("Save"));
    QCOMPARE(part<QPushButton>(editor, "CancelButton")->text(), QStringLiteral("Cancel"));
}

void tst_PdoEditor::onlyTheLinkIsEnabled()
{
    show(deviceWithLinks(0));
    const PdoEditWin& editor = open();
    for (const char* name : {"Index", "Subindex", "Size", "Name", "Type", "Default"})
        QVERIFY2(!part<QLineEdit>(editor, name)->isEnabled(), name);
    QVERIFY(linkList(editor).isEnabled());
    QVERIFY(linkList(editor).isEditable());
}

void tst_PdoEditor::fieldsOfAnEntry_data()
{
    QTest::addColumn<int>("pdoRow");
    QTest::addRow("own output") << 0;
    QTest::addRow("own input") << 1;
    QTest::addRow("output of a module") << 2;
    QTest::addRow("input of a module") << 3;
}

void tst_PdoEditor::fieldsOfAnEntry()
{
    QFETCH(int, pdoRow);
    show(deviceWithLinks(0));
    const PdoEditWin& editor = open(pdoRow);
    QCOMPARE(fieldText(editor, "Index"), QStringLiteral("0x60ff"));
    QCOMPARE(fieldText(editor, "Subindex"), QStringLiteral("17"));
    QCOMPARE(fieldText(editor, "Size"), QStringLiteral("1.40"));
    QCOMPARE(fieldText(editor, "Name"), QStringLiteral("Velocity 速度"));
    QCOMPARE(fieldText(editor, "Type"), QStringLiteral("BITARR12"));
    QCOMPARE(fieldText(editor, "Default"), QStringLiteral("4294967295"));
    QCOMPARE(linkList(editor).currentText(), QStringLiteral("NONE Type"));
}

static const QStringList& outputLinks()
{
    static const QStringList words{"NONE Type", "DOUT Type", "AOUT16 Type", "AOUT32 Type", "FAOUT Type"};
    return words;
}

static const QStringList& inputLinks()
{
    static const QStringList words{"NONE Type", "DIN Type", "AIN16 Type", "AIN32 Type", "FAIN Type", "ENCODER32 Type"};
    return words;
}

void tst_PdoEditor::offeredLinks_data()
{
    QTest::addColumn<int>("pdoRow");
    QTest::addColumn<QStringList>("words");
    QTest::addColumn<QVector<int>>("links");
    const QVector<int> outputs{0, -2, -7, -8, -9};
    const QVector<int> inputs{0, -1, -4, -5, -6, -10};
    QTest::addRow("own output") << 0 << outputLinks() << outputs;
    QTest::addRow("own input") << 1 << inputLinks() << inputs;
    QTest::addRow("output of a module") << 2 << outputLinks() << outputs;
    QTest::addRow("input of a module") << 3 << inputLinks() << inputs;
}

void tst_PdoEditor::offeredLinks()
{
    QFETCH(int, pdoRow);
    QFETCH(QStringList, words);
    QFETCH(QVector<int>, links);
    show(deviceWithLinks(0));
    const PdoEditWin& editor = open(pdoRow);
    QCOMPARE(::offeredLinks(editor), words);
    for (int index = 0; index < links.size(); ++index)
        QCOMPARE(linkList(editor).itemData(index, Qt::UserRole), QVariant(links.at(index)));
}

void tst_PdoEditor::linkIsWritten_data()
{
    QTest::addColumn<int>("pdoRow");
    QTest::addColumn<QString>("words");
    QTest::addColumn<int>("link");
    const struct
    {
        const char* words;
        int link;
        bool isOutput;
    } links[] = {{"DOUT Type", -2, true},   {"AOUT16 Type", -7, true}, {"AOUT32 Type", -8, true},
                 {"FAOUT Type", -9, true},  {"DIN Type", -1, false},   {"AIN16 Type", -4, false},
                 {"AIN32 Type", -5, false}, {"FAIN Type", -6, false},  {"ENCODER32 Type", -10, false}};
    for (const auto& entry : links)
        QTest::addRow("%s", entry.words) << (entry.isOutput ? 0 : 1) << entry.words << entry.link;
    QTest::addRow("none again") << 0 << "NONE Type" << 0;
}

void tst_PdoEditor::linkIsWritten()
{
    QFETCH(int, pdoRow);
    QFETCH(QString, words);
    QFETCH(int, link);
    show(deviceWithLinks(pdoRow == 0 ? -2 : -1));
    const PdoEditWin& editor = open(pdoRow);
    chooseLink(editor, words);
    press(editor, "PdoSavebutton");
    QVERIFY(!editor.isVisible());
    const std::vector<struct_PDOList>& pdos = pdoRow == 0 ? loadedDevice().RxPdo.vpdo : loadedDevice().TxPdo.vpdo;
    const struct_EntryPDOContent& entry = pdos.at(0).Entry.vPdo_c.at(0);
    QCOMPARE(entry.Linkto, link);
    QCOMPARE(row("PdoContentView", 0).at(5), words);
    // Nothing but the link is ever written.
    QCOMPARE(int(entry.Index), 0x60FF);
    QCOMPARE(entry.SubIndex, 17U);
    QCOMPARE(entry.Bitlen, 12);
    QCOMPARE(entry.Name, std::string("Velocity 速度"));
    QCOMPARE(entry.DataType, std::string("BITARR12"));
    QCOMPARE(entry.DefaultData, 4294967295U);
    QCOMPARE(entry.Offs, 3.0F);
}

void tst_PdoEditor::saveWithoutChange_data()
{
    QTest::addColumn<int>("before");
    QTest::addColumn<int>("current");
    QTest::addColumn<int>("after");
    QTest::addRow("none") << 0 << 0 << 0;
    QTest::addRow("in the list") << -2 << 1 << -2;
    QTest::addRow("last of the list") << -9 << 4 << -9;
    QTest::addRow("link of the other direction is not in the list") << -1 << -1 << 0;
    QTest::addRow("without words") << -3 << -1 << 0;
    QTest::addRow("positive") << 7 << -1 << 0;
}

void tst_PdoEditor::saveWithoutChange()
{
    QFETCH(int, before);
    QFETCH(int, current);
    QFETCH(int, after);
    show(deviceWithLinks(before));
    const PdoEditWin& editor = open();
    QCOMPARE(linkList(editor).currentIndex(), current);
    QCOMPARE(linkList(editor).count(), 5);
    press(editor, "PdoSavebutton");
    QCOMPARE(link(), after);
}

void tst_PdoEditor::cancelWritesNothing()
{
    show(deviceWithLinks(-2));
    const PdoEditWin& editor = open();
    chooseLink(editor, "FAOUT Type");
    loadedDevice().RxPdo.vpdo[0].Entry.vPdo_c[0].Name = "renamed"; // to be seen by the refresh
    press(editor, "CancelButton");
    QVERIFY(!editor.isVisible());
    QCOMPARE(link(), -2);
    QCOMPARE(row("PdoContentView", 0).at(3), QStringLiteral("renamed"));
}

void tst_PdoEditor::keys_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<QString>("focused");
    QTest::addColumn<int>("after");
    QTest::addRow("Esc in the list cancels") << int(Qt::Key_Escape) << "LinkTo" << -2;
    QTest::addRow("Esc on Save cancels") << int(Qt::Key_Escape) << "PdoSavebutton" << -2;
    QTest::addRow("Return in the list saves") << int(Qt::Key_Return) << "LinkTo" << -9;
    QTest::addRow("Enter in the list saves") << int(Qt::Key_Enter) << "LinkTo" << -9;
    QTest::addRow("Return on Save saves") << int(Qt::Key_Return) << "PdoSavebutton" << -9;
    QTest::addRow("Enter on Save saves") << int(Qt::Key_Enter) << "PdoSavebutton" << -9;
    QTest::addRow("Return on Cancel cancels") << int(Qt::Key_Return) << "CancelButton" << -2;
    QTest::addRow("Enter on Cancel cancels") << int(Qt::Key_Enter) << "CancelButton" << -2;
}

void tst_PdoEditor::keys()
{
    QFETCH(int, key);
    QFETCH(QString, focused);
    QFETCH(int, after);
    show(deviceWithLinks(-2));
    const PdoEditWin& editor = open();
    chooseLink(editor, "FAOUT Type");
    auto* const focus = part<QWidget>(editor, focused.toLatin1().constData());
    focus->setFocus();
    QTest::keyClick(editor.focusWidget(), Qt::Key(key)); // where the keyboard would send it
    QVERIFY(!editor.isVisible());
    QCOMPARE(link(), after);
}

void tst_PdoEditor::enterInTheList_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<int>("after");
    QTest::addRow("words of a link choose it") << "AOUT32 Type" << -8;
    QTest::addRow("other words choose nothing") << "something" << -2;
}

void tst_PdoEditor::enterInTheList()
{
    QFETCH(QString, typed);
    QFETCH(int, after);
    show(deviceWithLinks(-2));
    const PdoEditWin& editor = open();
    linkList(editor).setFocus();
    linkList(editor).lineEdit()->selectAll();
    QTest::keyClicks(editor.focusWidget(), typed);
    QTest::keyClick(editor.focusWidget(), Qt::Key_Return);
    QVERIFY(!editor.isVisible());
    QCOMPARE(linkList(editor).count(), 5); // nothing is added to the list
    QCOMPARE(link(), after);
}

void tst_PdoEditor::otherKeysDoNothing()
{
    show(deviceWithLinks(-2));
    const PdoEditWin& editor = open();
    part<QPushButton>(editor, "PdoSavebutton")->setFocus();
    QTest::keyClick(editor.focusWidget(), Qt::Key_A);
    QVERIFY(editor.isVisible());
}

void tst_PdoEditor::closingByTheSystem()
{
    show(deviceWithLinks(-2));
    PdoEditWin& editor = open();
    chooseLink(editor, "FAOUT Type");
    QVERIFY(editor.close());
    QCOMPARE(link(), -2);
}

void tst_PdoEditor::replyTellsAndRefreshes()
{
    show(deviceWithLinks(0));
    const PdoEditWin& editor = open();
    const QSignalSpy replies(&editor, &PdoEditWin::sendTextToParent);
    press(editor, "PdoSavebutton");
    QCOMPARE(replies.count(), 1);
    QCOMPARE(replies.at(0).at(0).toString(), QStringLiteral("Hello parent"));
    QVERIFY(!entries().currentIndex().isValid()); // refilled
}

void tst_PdoEditor::closedEditorStaysWithoutItsForm()
{
    show(deviceWithLinks(0));
    const PdoEditWin& editor = open();
    press(editor, "CancelButton");
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCOMPARE(window().findChildren<PdoEditWin*>(), QList<PdoEditWin*>{const_cast<PdoEditWin*>(&editor)});
    QVERIFY(editor.findChildren<QWidget*>().isEmpty());
    open();
    QCOMPARE(window().findChildren<PdoEditWin*>().size(), 2); // a new one for each use
}

void tst_PdoEditor::withoutParent()
{
    show(deviceWithLinks(-2));
    PdoEditWin editor(nullptr);
    editor.show();
    const QSignalSpy replies(&editor, &PdoEditWin::sendTextToParent);
    QCOMPARE(fieldText(editor, "Index"), QString());
    QCOMPARE(linkList(editor).count(), 0);
    press(editor, "PdoSavebutton");
    QCOMPARE(replies.count(), 1);
    QCOMPARE(link(), -2);
}

void tst_PdoEditor::withoutSelection()
{
    show(deviceWithLinks(-2));
    clickRow(view("PdoListView"), 0);
    clickRow(entries(), 0);
    currentdeviceindex = -1;
    PdoEditWin editor(&window());
    editor.show();
    QCOMPARE(editor.windowModality(), Qt::WindowModal);
    QCOMPARE(fieldText(editor, "Index"), QString());
    currentdeviceindex = 0; // the selection at the time of the opening counts
    press(editor, "PdoSavebutton");
    QCOMPARE(link(), -2);
}

static const testMain::Registration<tst_PdoEditor, QApplication> registration;
#include "tst_PdoEditor.moc"
