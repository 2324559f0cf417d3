// roundTripParts.h - the window in the hands of a user who opens files, edits a device and exports it.
#pragma once

#include "workbench/exportFixture.h"
#include "workbench/itemsByHand.h"
#include "workbench/pdoeditwin.h"
#include "workbench/startupeditwin.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTableView>
#include <QTreeWidget>

/// A startup command as it is typed into its editor.
struct TypedCommand
{
    QString index;
    QString subIndex;
    QString bytes;
    QString data;
};

/// Base of the tests that go the whole way from an ESI file to the bytes of its export, through the window only.
class RoundTripFixture : public ExportFixture
{
protected:
    enum Tab
    {
        GeneralTab,
        ProcessDataTab,
        StartupTab,
        ModuleTab,
    };

    static QString samplePath(const char* name)
    {
        return QStringLiteral(KINETRA_SOURCE_DIR "/samples/%1.xml").arg(QLatin1String(name));
    }

    void open(const QString& path)
    {
        DialogDriver dialogs({choosing(path)});
        dialogs.during([this] { part<QAction>(*m_window, "actionimport")->trigger(); });
        QCOMPARE(dialogs.problem(), QString());
    }

    /// Opens a file that is written for the purpose.
    void openText(const QString& name, const QString& esi) { open(writeFile(QDir(m_folder->path()), name, esi)); }

    /// Clicks a device at the start of its name; the rest of a long one may lie outside the tree.
    void select(int device, int file = 0)
    {
        constexpr QPoint intoTheName(3, 8);
        const QRect name = placeOf(*m_window, treeItem(*m_window, file, device), QStyle::SE_ItemViewItemText);
        QTest::mouseClick(deviceTree(*m_window)->viewport(), Qt::LeftButton, {}, name.topLeft() + intoTheName);
        QCOMPARE(currentfileindex, file);
        QCOMPARE(currentdeviceindex, device);
    }

    /// Chooses an entry of a list by a click into its popup.
    static void chooseEntry(QComboBox& box, int row)
    {
        box.showPopup();
        QAbstractItemView* const view = box.view();
        const QModelIndex entry = view->model()->index(row, box.modelColumn());
        view->scrollTo(entry);
        QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, view->visualRect(entry).center());
    }

    /// Chooses the type of the selected device.
    /// @param script  how the warnings are answered that come up
    void setDeviceType(int deviceType, const std::vector<DialogAnswer>& script = {})
    {
        part<QTabWidget>(*m_window, "tabWidget")->setCurrentIndex(GeneralTab);
        auto* const box = part<QComboBox>(*m_window, "comboBox_DeviceType");
        answering(script, [&] { chooseEntry(*box, box->findData(deviceType)); });
        QCOMPARE(box->currentData().toInt(), deviceType);
    }

    void setDriveAxes(const QString& text)
    {
        auto* const edit = part<QLineEdit>(*m_window, "DriveAxies");
        edit->clear();
        QTest::keyClicks(edit, text);
        QTest::keyClick(edit, Qt::Key_Return);
    }

    /// Chooses a mode by its place in the list; it becomes the first one.
    void setOperationMode(int position)
    {
        part<QTabWidget>(*m_window, "tabWidget")->setCurrentIndex(GeneralTab);
        auto* const box = part<QComboBox>(*m_window, "comboBox_Dc");
        const QString chosen = box->itemText(position);
        chooseEntry(*box, position);
        QCOMPARE(box->itemText(0), chosen);
        QCOMPARE(box->currentIndex(), 0);
    }

    /// Links one entry: a double click on it, a choice in the editor, Save.
    void setLink(int pdoRow, int entryRow, const QString& link)
    {
        QTableView& entries = entriesOfPdo(pdoRow);
        clickRow(entries, entryRow);
        doubleClickRow(entries, entryRow);
        saveLink(link);
    }

    /// Links several entries at once: they are marked, and "Modify" is chosen in their menu.
    void setLinks(int pdoRow, const QList<int>& entryRows, const QString& link)
    {
        QTableView& entries = entriesOfPdo(pdoRow);
        for (const int row : entryRows)
            clickRow(entries, row, row == entryRows.first() ? Qt::NoModifier : Qt::ControlModifier);
        chooseInMenuOf(entries, entryRows.last(), QStringLiteral("Modify"));
        saveLink(link);
    }

    /// Links an entry of a module of the file in the tables of the Module tab.
    void setModuleLink(int group, int position, int pdoRow, int entryRow, const QString& link)
    {
        part<QTabWidget>(*m_window, "tabWidget")->setCurrentIndex(ModuleTab);
        pickModule(group, position);
        clickRow(*part<QTableView>(*m_window, "mPdoListView"), pdoRow);
        auto& entries = *part<QTableView>(*m_window, "mPdoContentView");
        clickRow(entries, entryRow);
        doubleClickRow(entries, entryRow);
        saveLink(link);
    }

    QTableView& startupList()
    {
        part<QTabWidget>(*m_window, "tabWidget")->setCurrentIndex(StartupTab);
        return *part<QTableView>(*m_window, "StartupView");
    }

    void changeCommand(int row, const TypedCommand& typed)
    {
        QTableView& list = startupList();
        clickRow(list, row);
        doubleClickRow(list, row);
        saveCommand(typed);
    }

    /// The new command stands behind the row; its editor opens by itself.
    void addCommand(int row, const TypedCommand& typed)
    {
        QTableView& list = startupList();
        clickRow(list, row);
        chooseInMenuOf(list, row, QStringLiteral("add"));
        saveCommand(typed);
    }

    void deleteCommand(int row)
    {
        QTableView& list = startupList();
        clickRow(list, row);
        chooseInMenuOf(list, row, QStringLiteral("delete"));
    }

    /// An empty list has no row to add behind: no menu comes up, and the action itself only warns.
    void compareAddRefused()
    {
        QTableView& list = startupList();
        QCOMPARE(list.model()->rowCount(), 0);
        answering({}, [&] { askForMenu(list, QPoint(20, 20)); });
        DialogDriver dialogs({pressing(QMessageBox::Ok)});
        dialogs.during([this] { QVERIFY(callSlot(*m_window, "on_StartupView_add")); });
        QCOMPARE(dialogs.problem(), QString());
        compareWarning(dialogs.seen(0), QStringLiteral("Please select a startup\n"), QStringLiteral("warning"));
        QCOMPARE(list.model()->rowCount(), 0);
    }

    /// Puts a module of the file into a place of the device.
    /// @param script  how the warnings are answered that come up
    void insertModule(int place, int group, int position, const std::vector<DialogAnswer>& script = {})
    {
        part<QTabWidget>(*m_window, "tabWidget")->setCurrentIndex(ModuleTab);
        clickRow(*part<QTableView>(*m_window, "ModuleView"), place);
        pickModule(group, position);
        answering(script, [this] { pressButton(*m_window, "InsertModule"); });
    }

    void deleteModule(int place, const std::vector<DialogAnswer>& script = {})
    {
        part<QTabWidget>(*m_window, "tabWidget")->setCurrentIndex(ModuleTab);
        clickRow(*part<QTableView>(*m_window, "ModuleView"), place);
        answering(script, [this] { pressButton(*m_window, "DeleteModule"); });
    }

    /// Exports what is checked into a new file and compares the file with items that are written by hand.
    /// @param script  how the warnings are answered that come up before the file dialog
    void compareExport(const QByteArrayList& expected, std::vector<DialogAnswer> script = {})
    {
        const QString path = outPath(QStringLiteral("out%1.ktl").arg(outFiles().size()));
        script.push_back(choosing(path));
        DialogDriver dialogs(script);
        byHand::ClockSpan span;
        span.before = QDateTime::currentDateTime();
        runExport(dialogs);
        span.after = QDateTime::currentDateTime();
        const QString difference = byHand::differenceFrom(expected, contentOfFile(path), span);
        QVERIFY2(difference.isEmpty(), qPrintable(difference));
    }

    static void clickRow(QTableView& table, int row, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::mouseClick(table.viewport(), Qt::LeftButton, modifiers, placeOfRow(table, row));
        QCOMPARE(table.currentIndex().row(), row);
    }

private:
    /// Clicks a module in the tree of the file's modules.
    void pickModule(int group, int position)
    {
        auto* const modules = part<QTreeWidget>(*m_window, "ModuleTree");
        QTreeWidgetItem* const module = modules->topLevelItem(group)->child(position);
        modules->scrollToItem(module);
        QTest::mouseClick(modules->viewport(), Qt::LeftButton, {}, modules->visualItemRect(module).center());
        QCOMPARE(modules->currentItem(), module);
    }

    static QPoint placeOfRow(QTableView& table, int row)
    {
        const QModelIndex cell = table.model()->index(row, 0);
        table.scrollTo(cell);
        return table.visualRect(cell).center();
    }

    static void doubleClickRow(QTableView& table, int row)
    {
        QTest::mouseDClick(table.viewport(), Qt::LeftButton, {}, placeOfRow(table, row));
    }

    static void askForMenu(QTableView& table, const QPoint& position)
    {
        QContextMenuEvent event(QContextMenuEvent::Mouse, position, table.viewport()->mapToGlobal(position));
        QApplication::sendEvent(table.viewport(), &event);
    }

    static void chooseInMenuOf(QTableView& table, int row, const QString& entry)
    {
        answering({choosingEntry(entry)}, [&] { askForMenu(table, placeOfRow(table, row)); });
    }

    /// Runs an action whose dialogs must come as the script says.
    static void answering(const std::vector<DialogAnswer>& script, const std::function<void()>& action)
    {
        DialogDriver dialogs(script);
        dialogs.during(action);
        QCOMPARE(dialogs.problem(), QString());
    }

    static void pressButton(QWidget& window, const char* name)
    {
        auto* const button = part<QPushButton>(window, name);
        QVERIFY2(button->isEnabled(), name);
        QTest::mouseClick(button, Qt::LeftButton);
    }

    QTableView& entriesOfPdo(int pdoRow)
    {
        part<QTabWidget>(*m_window, "tabWidget")->setCurrentIndex(ProcessDataTab);
        clickRow(*part<QTableView>(*m_window, "PdoListView"), pdoRow);
        return *part<QTableView>(*m_window, "PdoContentView");
    }

    /// The editor that is open: closed ones stay behind as hidden children.
    template<typename Editor> Editor* openedEditor() const
    {
        const QList<Editor*> editors = m_window->findChildren<Editor*>();
        if (editors.isEmpty() || !editors.last()->isVisible())
            qFatal("no editor is open");
        return editors.last();
    }

    void saveLink(const QString& link)
    {
        auto* const editor = openedEditor<PdoEditWin>();
        auto* const box = part<QComboBox>(*editor, "LinkTo");
        QVERIFY2(box->findText(link) >= 0, qPrintable(link));
        chooseEntry(*box, box->findText(link));
        QCOMPARE(box->currentText(), link);
        pressButton(*editor, "PdoSavebutton");
        QVERIFY(!editor->isVisible());
    }

    void saveCommand(const TypedCommand& typed)
    {
        auto* const editor = openedEditor<Startupeditwin>();
        part<QLineEdit>(*editor, "Index")->setText(typed.index);
        part<QLineEdit>(*editor, "SubIndex")->setText(typed.subIndex);
        part<QLineEdit>(*editor, "Datalen")->setText(typed.bytes);
        part<QLineEdit>(*editor, "Data")->setText(typed.data);
        pressButton(*editor, "StartupSavebutton");
        QVERIFY(!editor->isVisible());
    }
};
