// Adding, modifying and deleting startup commands on the Startup tab.
// Covers mainwindow_editing.cpp.
#include "testMain.h"
#include "workbench/dialogDriver.h"
#include "workbench/editorParts.h"
#include "workbench/startupBuilders.h"
#include "workbench/startupeditwin.h"
#include "workbench/tabFixture.h"

#include <QMenu>

class tst_StartupEditing : public TabFixture
{
    Q_OBJECT

private slots:
    void init() { begin(StartupTab); }
    void cleanup() { end(); }
    void menuOfARow();
    void noMenuWithoutARow();
    static void add_data();
    void add();
    void addedCommandIsSaved();
    static void silentAdd_data();
    void silentAdd();
    static void modify_data();
    void modify();
    static void remove_data();
    void remove();
    void removeAll();
    static void silentRemove_data();
    void silentRemove();
    static void refusalWithoutARow_data();
    void refusalWithoutARow();
    void secondEditorClosesTheFirst();
    void savingRefillsTheTable();
    void replyWithoutARowShowsNothing();

private:
    QTableView& commands() { return table(window(), "StartupView"); }
    Startupeditwin* openEditor() { return openEditorIn<Startupeditwin>(window()); }
};

void tst_StartupEditing::menuOfARow()
{
    show({deviceWithCommands()});
    DialogDriver driver({leavingTheMenu()});
    driver.during([this] { rightClickRow(commands(), 2); });
    QCOMPARE(driver.problem(), QString());
    QCOMPARE(driver.seen(0).entries, QStringList({"add", "modify", "delete"}));
    QCOMPARE(driver.seen(0).parent, static_cast<QWidget*>(deviceTree(window())));
    QCOMPARE(deviceTree(window())->findChildren<QMenu*>().size(), 1); // it is kept
    QCOMPARE(startupLists(), QString("1 2|3|4 5"));
    QVERIFY(openEditor() == nullptr);
}

void tst_StartupEditing::noMenuWithoutARow()
{
    show({deviceWithCommands(), deviceNamed("Plain")});
    DialogDriver driver({});
    driver.during([this] {
        rightClickBelowTheRows(commands()); // rows, but none is current
        clickDevice(1);
        rightClickBelowTheRows(commands()); // an empty list
    });
    QCOMPARE(driver.problem(), QString());
    QCOMPARE(commands().model()->rowCount(), 0);
}

void tst_StartupEditing::add_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<QString>("after");
    QTest::addColumn<QString>("protocol");
    QTest::addColumn<QString>("index");
    QTest::addRow("after the first CoE") << 0 << "1 new 2|3|4 5"
                                         << "COE"
                                         << "0x00:0";
    QTest::addRow("after the last CoE") << 1 << "1 2 new|3|4 5"
                                        << "COE"
                                        << "0x00:0";
    QTest::addRow("after the EoE") << 2 << "1 2|3 new|4 5"
                                   << "EOE"
                                   << "0x00 C 0";
    QTest::addRow("after the first of the modules") << 3 << "1 2|3|4 new 5"
                                                    << "COE"
                                                    << "0x00:0";
    QTest::addRow("after the last of all") << 4 << "1 2|3|4 5 new"
                                           << "COE"
                                           << "0x00:0";
}

void tst_StartupEditing::add()
{
    QFETCH(int, row);
    QFETCH(QString, protocol);
    QFETCH(QString, index);
    show({deviceWithCommands()});
    chooseFromMenu(commands(), "add", row);
    QTEST(startupLists(), "after");
    QCOMPARE(commands().model()->rowCount(), 6);
    QCOMPARE(allTexts(commands())[row + 1], QStringList({"PS", protocol, index, "0x00", "", "", "0x00"}));
    QCOMPARE(currentRowOf(commands()), row + 1);
    QCOMPARE(commands().selectionModel()->selectedRows().size(), 1);
    QVERIFY(commands().selectionModel()->isRowSelected(row + 1, QModelIndex()));
    Startupeditwin* const editor = openEditor();
    QVERIFY(editor != nullptr);
    QCOMPARE(fieldText(*editor, "Transition"), QString("PS"));
    QCOMPARE(fieldText(*editor, "Index"), QString("0x00"));
    QCOMPARE(fieldText(*editor, "Datalen"), QString("0"));
    press(*editor, "StartupCancelButton");
    QTEST(startupLists(), "after"); // what was added stays
}

void tst_StartupEditing::addedCommandIsSaved()
{
    show({deviceWithCommands()});
    chooseFromMenu(commands(), "add", 1);
    Startupeditwin* const editor = openEditor();
    typeInto(*editor, "Index", "0x6060");
    typeInto(*editor, "Datalen", "1");
    typeInto(*editor, "Data", "8");
    press(*editor, "StartupSavebutton");
    QCOMPARE(startupLists(), QString("1 2 0x8|3|4 5"));
    QCOMPARE(allTexts(commands())[2], QStringList({"PS", "COE", "0x6060:0", "0x1", "0x8", "", "0x00"}));
}

void tst_StartupEditing::silentAdd_data()
{
    QTest::addColumn<QString>("what");
    QTest::addRow("nothing selected") << "nothing";
    QTest::addRow("a file selected") << "file";
    QTest::addRow("the device is gone") << "device";
    QTest::addRow("the row lies past the lists") << "row";
}

/// Takes away what the current row is.
static void takeAway(const QString& what)
{
    if (what == "nothing")
        currentfileindex = -1;
    else if (what == "file")
        currentdeviceindex = -1;
    else if (what == "device")
        currentdeviceindex = 1;
    else
        loadedDevice().mMailbox.COE.vinitcmd.pop_back();
}

void tst_StartupEditing::silentAdd()
{
    QFETCH(QString, what);
    show({deviceWithCommands()});
    clickRow(commands(), 4);
    takeAway(what);
    const QString before = startupLists();
    DialogDriver driver({});
    driver.during([this] { QVERIFY(callSlot(window(), "on_StartupView_add")); });
    QCOMPARE(driver.problem(), QString());
    QCOMPARE(startupLists(), before);
    QCOMPARE(commands().model()->rowCount(), 5); // nothing is shown again
    QCOMPARE(editorsOf<Startupeditwin>(window()), 0);
}

void tst_StartupEditing::modify_data()
{
    QTest::addColumn<bool>("byDoubleClick");
    QTest::addRow("from the menu") << false;
    QTest::addRow("by a double click") << true;
}

void tst_StartupEditing::modify()
{
    QFETCH(bool, byDoubleClick);
    struct_EtherCatDevice device = deviceWithCommands();
    device.mMailbox.COE.vinitcmd[0].Comment = "of the module";
    show({device});
    if (byDoubleClick)
        doubleClickRow(commands(), 3);
    else
        chooseFromMenu(commands(), "modify", 3);
    Startupeditwin* const editor = openEditor();
    QVERIFY(editor != nullptr);
    QCOMPARE(editorsOf<Startupeditwin>(window()), 1);
    QCOMPARE(fieldText(*editor, "Comment"), QString("of the module"));
    QCOMPARE(editor->windowTitle(), QString("startup editor"));
    QCOMPARE(editor->windowModality(), Qt::WindowModal);
    QCOMPARE(int(editor->windowFlags()), 0x803); // a dialog without a frame
    QCOMPARE(editor->parentWidget(), &window());
}

void tst_StartupEditing::remove_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<QString>("after");
    QTest::addRow("first CoE") << 0 << "2|3|4 5";
    QTest::addRow("last CoE") << 1 << "1|3|4 5";
    QTest::addRow("EoE") << 2 << "1 2||4 5";
    QTest::addRow("first of the modules") << 3 << "1 2|3|5";
    QTest::addRow("last row of the table") << 4 << "1 2|3|4";
}

void tst_StartupEditing::remove()
{
    QFETCH(int, row);
    show({deviceWithCommands()});
    chooseFromMenu(commands(), "delete", row); // no question is asked
    QTEST(startupLists(), "after");
    QStringList expected{"1", "2", "3", "4", "5"};
    expected.removeAt(row);
    QCOMPARE(columnTexts(commands(), 4), expected);
    QCOMPARE(currentRowOf(commands()), -1);
    QVERIFY(!commands().selectionModel()->hasSelection());
}

void tst_StartupEditing::removeAll()
{
    show({deviceWithCommands()});
    for (int count = 0; count < 5; ++count)
        chooseFromMenu(commands(), "delete", 0);
    QCOMPARE(startupLists(), QString("||"));
    DialogDriver driver({});
    driver.during([this] { rightClickBelowTheRows(commands()); });
    QCOMPARE(driver.problem(), QString());
}

void tst_StartupEditing::silentRemove_data()
{
    silentAdd_data();
}

void tst_StartupEditing::silentRemove()
{
    QFETCH(QString, what);
    show({deviceWithCommands()});
    clickRow(commands(), 4);
    takeAway(what);
    const QString before = startupLists();
    DialogDriver driver({});
    driver.during([this] { QVERIFY(callSlot(window(), "on_StartupView_delete")); });
    QCOMPARE(driver.problem(), QString());
    QCOMPARE(startupLists(), before);
    QCOMPARE(commands().model()->rowCount(), what == "row" ? 4 : 5); // the lists are shown again if there is a device
}

void tst_StartupEditing::refusalWithoutARow_data()
{
    QTest::addColumn<QByteArray>("slot");
    for (const char* slot :
         {"on_StartupView_add", "on_StartupView_modify", "on_StartupView_delete", "on_StartupView_doubleClicked"})
        QTest::addRow("%s", slot) << QByteArray(slot);
}

void tst_StartupEditing::refusalWithoutARow()
{
    QFETCH(QByteArray, slot);
    show({deviceWithCommands()});
    DialogDriver driver({pressing(QMessageBox::Ok)});
    driver.during([&] {
        // The argument of the double click does not count, the current row does.
        QVERIFY(slot.endsWith("doubleClicked")
                    ? callSlot(window(), slot.constData(), Q_ARG(QModelIndex, commands().model()->index(0, 0)))
                    : callSlot(window(), slot.constData()));
    });
    QCOMPARE(driver.problem(), QString());
    const SeenDialog box = driver.seen(0);
    QCOMPARE(box.title, QString("warning"));
    QCOMPARE(box.text, QString("Please select a startup\n"));
    QCOMPARE(box.icon, QMessageBox::Warning);
    QCOMPARE(box.buttons, QMessageBox::StandardButtons(QMessageBox::Ok));
    QCOMPARE(box.parent, &window());
    QCOMPARE(startupLists(), QString("1 2|3|4 5"));
    QCOMPARE(editorsOf<Startupeditwin>(window()), 0);
}

void tst_StartupEditing::secondEditorClosesTheFirst()
{
    show({deviceWithCommands()});
    doubleClickRow(commands(), 1);
    const Startupeditwin* const first = openEditor();
    QVERIFY(callSlot(window(), "on_StartupView_modify"));
    QVERIFY(!first->isVisible());
    Startupeditwin* const second = openEditor();
    QVERIFY(second != nullptr && second != first);
    // The first one's closing has refilled the table, so that no row is current any more.
    QCOMPARE(fieldText(*second, "Index"), QString());
    press(*second, "StartupSavebutton");
    QCOMPARE(startupLists(), QString("1 2|3|4 5"));
}

void tst_StartupEditing::savingRefillsTheTable()
{
    show({deviceWithCommands()});
    doubleClickRow(commands(), 1);
    typeInto(*openEditor(), "Data", "255");
    loadedDevice().Mailbox.EOE.InitCmd.vinitcmd.clear();
    press(*openEditor(), "StartupSavebutton");
    QVERIFY(openEditor() == nullptr);
    QCOMPARE(columnTexts(commands(), 4), QStringList({"1", "0xff", "4", "5"}));
    QCOMPARE(currentRowOf(commands()), -1);
}

void tst_StartupEditing::replyWithoutARowShowsNothing()
{
    show({deviceWithCommands()});
    loadedDevice().mMailbox.COE.vinitcmd.clear();
    QVERIFY(callSlot(window(), "StartupEditWindowSendMsg", Q_ARG(QString, "any words")));
    QCOMPARE(commands().model()->rowCount(), 5);
    clickRow(commands(), 0);
    QVERIFY(callSlot(window(), "StartupEditWindowSendMsg", Q_ARG(QString, "any words")));
    QCOMPARE(commands().model()->rowCount(), 3);
}

static const testMain::Registration<tst_StartupEditing, QApplication> registration;
#include "tst_StartupEditing.moc"
