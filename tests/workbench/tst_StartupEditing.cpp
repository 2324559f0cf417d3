// Adding, modifying and deleting startup commands on the Startup tab.
#include "testMain.h"
#include "workbench/deviceWindow.h"
#include "workbench/dialogDriver.h"
#include "workbench/editorParts.h"
#include "workbench/startupBuilders.h"
#include "workbench/startupeditwin.h"

#include <QMenu>

#include <memory>

class tst_StartupEditing : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
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
    void replyWithoutARowShowsNothingAnew();

private:
    QTableView* view() { return m_window->find<QTableView>("StartupView"); }
    Startupeditwin* openEditor() { return openEditorIn<Startupeditwin>(m_window->window); }

    std::unique_ptr<DeviceWindow> m_window;
};

void tst_StartupEditing::init()
{
    m_window = std::make_unique<DeviceWindow>();
    showTab(m_window->window, 2);
}

void tst_StartupEditing::cleanup()
{
    m_window.reset();
}

void tst_StartupEditing::menuOfARow()
{
    m_window->show({deviceWithCommands()});
    DialogDriver driver({leavingTheMenu()});
    driver.during([this] { rightClickRow(view(), 2); });
    QCOMPARE(driver.problem(), QString());
    QCOMPARE(driver.seen(0).entries, QStringList({"add", "modify", "delete"}));
    QCOMPARE(driver.seen(0).parent, static_cast<QWidget*>(deviceTree(m_window->window)));
    QCOMPARE(deviceTree(m_window->window)->findChildren<QMenu*>().size(), 1); // it is kept
    QCOMPARE(startupLists(), QString("1 2|3|4 5"));
    QVERIFY(openEditor() == nullptr);
}

void tst_StartupEditing::noMenuWithoutARow()
{
    m_window->show({deviceWithCommands(), deviceNamed("Plain")});
    DialogDriver driver({});
    driver.during([this] {
        rightClickBelowTheRows(view()); // rows, but none is current
        m_window->click(1);
        rightClickBelowTheRows(view()); // an empty list
    });
    QCOMPARE(driver.problem(), QString());
    QCOMPARE(view()->model()->rowCount(), 0);
}

void tst_StartupEditing::add_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<QString>("after");
    QTest::addColumn<QString>("protocol");
    QTest::addColumn<QString>("index");
    QTest::addRow("behind the first CoE") << 0 << "1 new 2|3|4 5"
                                          << "COE"
                                          << "0x00:0";
    QTest::addRow("behind the last CoE") << 1 << "1 2 new|3|4 5"
                                         << "COE"
                                         << "0x00:0";
    QTest::addRow("behind the EoE") << 2 << "1 2|3 new|4 5"
                                    << "EOE"
                                    << "0x00 C 0";
    QTest::addRow("behind the first of the modules") << 3 << "1 2|3|4 new 5"
                                                     << "COE"
                                                     << "0x00:0";
    QTest::addRow("behind the last of all") << 4 << "1 2|3|4 5 new"
                                            << "COE"
                                            << "0x00:0";
}

void tst_StartupEditing::add()
{
    QFETCH(int, row);
    QFETCH(QString, protocol);
    QFETCH(QString, index);
    m_window->show({deviceWithCommands()});
    chooseFromMenu(view(), "add", row);
    QTEST(startupLists(), "after");
    QCOMPARE(view()->model()->rowCount(), 6);
    QCOMPARE(cellsOf(view())[row + 1], QStringList({"PS", protocol, index, "0x00", "", "", "0x00"}));
    QCOMPARE(currentRowOf(view()), row + 1);
    QCOMPARE(view()->selectionModel()->selectedRows().size(), 1);
    QVERIFY(view()->selectionModel()->isRowSelected(row + 1, QModelIndex()));
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
    m_window->show({deviceWithCommands()});
    chooseFromMenu(view(), "add", 1);
    Startupeditwin* const editor = openEditor();
    typeInto(*editor, "Index", "0x6060");
    typeInto(*editor, "Datalen", "1");
    typeInto(*editor, "Data", "8");
    press(*editor, "StartupSavebutton");
    QCOMPARE(startupLists(), QString("1 2 0x8|3|4 5"));
    QCOMPARE(cellsOf(view())[2], QStringList({"PS", "COE", "0x6060:0", "0x1", "0x8", "", "0x00"}));
}

void tst_StartupEditing::silentAdd_data()
{
    QTest::addColumn<QString>("what");
    QTest::addRow("nothing selected") << "nothing";
    QTest::addRow("a file selected") << "file";
    QTest::addRow("the device is gone") << "device";
    QTest::addRow("the row lies past the lists") << "row";
}

/// Takes away what the row that is current stands for.
static void takeAway(const QString& what)
{
    if (what == "nothing")
        currentfileindex = -1;
    else if (what == "file")
        currentdeviceindex = -1;
    else if (what == "device")
        currentdeviceindex = 1;
    else
        DeviceWindow::device().mMailbox.COE.vinitcmd.pop_back();
}

void tst_StartupEditing::silentAdd()
{
    QFETCH(QString, what);
    m_window->show({deviceWithCommands()});
    clickRow(view(), 4);
    takeAway(what);
    const QString before = startupLists();
    DialogDriver driver({});
    driver.during([this] { QVERIFY(callSlot(m_window->window, "on_StartupView_add")); });
    QCOMPARE(driver.problem(), QString());
    QCOMPARE(startupLists(), before);
    QCOMPARE(view()->model()->rowCount(), 5); // nothing is shown anew
    QCOMPARE(editorsOf<Startupeditwin>(m_window->window), 0);
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
    m_window->show({device});
    if (byDoubleClick)
        doubleClickRow(view(), 3);
    else
        chooseFromMenu(view(), "modify", 3);
    Startupeditwin* const editor = openEditor();
    QVERIFY(editor != nullptr);
    QCOMPARE(editorsOf<Startupeditwin>(m_window->window), 1);
    QCOMPARE(fieldText(*editor, "Comment"), QString("of the module"));
    QCOMPARE(editor->windowTitle(), QString("startup editor"));
    QCOMPARE(editor->windowModality(), Qt::WindowModal);
    QCOMPARE(int(editor->windowFlags()), 0x803); // a dialog without a frame
    QCOMPARE(editor->parentWidget(), m_window->widget());
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
    m_window->show({deviceWithCommands()});
    chooseFromMenu(view(), "delete", row); // no question is asked
    QTEST(startupLists(), "after");
    QStringList expected{"1", "2", "3", "4", "5"};
    expected.removeAt(row);
    QCOMPARE(columnOf(view(), 4), expected);
    QCOMPARE(currentRowOf(view()), -1);
    QVERIFY(!view()->selectionModel()->hasSelection());
}

void tst_StartupEditing::removeAll()
{
    m_window->show({deviceWithCommands()});
    for (int count = 0; count < 5; ++count)
        chooseFromMenu(view(), "delete", 0);
    QCOMPARE(startupLists(), QString("||"));
    DialogDriver driver({});
    driver.during([this] { rightClickBelowTheRows(view()); });
    QCOMPARE(driver.problem(), QString());
}

void tst_StartupEditing::silentRemove_data()
{
    silentAdd_data();
}

void tst_StartupEditing::silentRemove()
{
    QFETCH(QString, what);
    m_window->show({deviceWithCommands()});
    clickRow(view(), 4);
    takeAway(what);
    const QString before = startupLists();
    DialogDriver driver({});
    driver.during([this] { QVERIFY(callSlot(m_window->window, "on_StartupView_delete")); });
    QCOMPARE(driver.problem(), QString());
    QCOMPARE(startupLists(), before);
    QCOMPARE(view()->model()->rowCount(), what == "row" ? 4 : 5); // the lists are shown anew if there is a device
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
    m_window->show({deviceWithCommands()});
    DialogDriver driver({pressing(QMessageBox::Ok)});
    driver.during([&] {
        // The argument of the double click does not count, the current row does.
        QVERIFY(slot.endsWith("doubleClicked")
                    ? callSlot(m_window->window, slot.constData(), Q_ARG(QModelIndex, view()->model()->index(0, 0)))
                    : callSlot(m_window->window, slot.constData()));
    });
    QCOMPARE(driver.problem(), QString());
    const SeenDialog box = driver.seen(0);
    QCOMPARE(box.title, QString("warning"));
    QCOMPARE(box.text, QString("Please select a startup\n"));
    QCOMPARE(box.icon, QMessageBox::Warning);
    QCOMPARE(box.buttons, QMessageBox::StandardButtons(QMessageBox::Ok));
    QCOMPARE(box.parent, m_window->widget());
    QCOMPARE(startupLists(), QString("1 2|3|4 5"));
    QCOMPARE(editorsOf<Startupeditwin>(m_window->window), 0);
}

void tst_StartupEditing::secondEditorClosesTheFirst()
{
    m_window->show({deviceWithCommands()});
    doubleClickRow(view(), 1);
    const Startupeditwin* const first = openEditor();
    QVERIFY(callSlot(m_window->window, "on_StartupView_modify"));
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
    m_window->show({deviceWithCommands()});
    doubleClickRow(view(), 1);
    typeInto(*openEditor(), "Data", "255");
    DeviceWindow::device().Mailbox.EOE.InitCmd.vinitcmd.clear();
    press(*openEditor(), "StartupSavebutton");
    QVERIFY(openEditor() == nullptr);
    QCOMPARE(columnOf(view(), 4), QStringList({"1", "0xff", "4", "5"}));
    QCOMPARE(currentRowOf(view()), -1);
}

void tst_StartupEditing::replyWithoutARowShowsNothingAnew()
{
    m_window->show({deviceWithCommands()});
    DeviceWindow::device().mMailbox.COE.vinitcmd.clear();
    QVERIFY(callSlot(m_window->window, "StartupEditWindowSendMsg", Q_ARG(QString, "any words")));
    QCOMPARE(view()->model()->rowCount(), 5);
    clickRow(view(), 0);
    QVERIFY(callSlot(m_window->window, "StartupEditWindowSendMsg", Q_ARG(QString, "any words")));
    QCOMPARE(view()->model()->rowCount(), 3);
}

static const testMain::Registration<tst_StartupEditing, QApplication> registration;
#include "tst_StartupEditing.moc"
