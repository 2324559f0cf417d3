// roundTripParts.h - the window in the hands of a user who opens files, edits a device and exports it.
#pragma once

#include "workbench/editorParts.h"
#include "workbench/exportFixture.h"
#include "workbench/itemsByHand.h"
#include "workbench/pdoeditwin.h"
#include "workbench/smeditwin.h"
#include "workbench/startupeditwin.h"
#include "workbench/viewParts.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
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

    /// Chooses the type of the selected device.
    /// @param script  how the warnings are answered that come up
    void setDeviceType(int deviceType, const std::vector<DialogAnswer>& script = {})
    {
        openTab(*m_window, GeneralTab);
        auto* const box = part<QComboBox>(*m_window, "comboBox_DeviceType");
        answering(script, [&] { chooseFrom(*box, box->findData(deviceType)); });
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
        openTab(*m_window, GeneralTab);
        auto* const box = part<QComboBox>(*m_window, "comboBox_Dc");
        const QString chosen = box->itemText(position);
        chooseFrom(*box, position);
        QCOMPARE(box->itemText(0), chosen);
        QCOMPARE(box->currentIndex(), 0);
    }

    /// Links one entry: a double click on it, a choice in the editor, Save.
    void setLink(int pdoRow, int entryRow, const QString& link)
    {
        doubleClickRow(entriesOfPdo(pdoRow), entryRow);
        saveLink(link);
    }

    /// Links several entries at once: they are marked, and "Modify" is chosen in their menu.
    void setLinks(int pdoRow, const QList<int>& entryRows, const QString& link)
    {
        QTableView& entries = entriesOfPdo(pdoRow);
        for (const int row : entryRows)
            clickRow(entries, row, row == entryRows.first() ? Qt::NoModifier : Qt::ControlModifier);
        chooseFromMenu(entries, "Modify", entryRows.last());
        saveLink(link);
    }

    /// Links an entry of a module of the file in the tables of the Module tab.
    void setModuleLink(int group, int position, int pdoRow, int entryRow, const QString& link)
    {
        openTab(*m_window, ModuleTab);
        pickModule(group, position);
        clickRow(table(*m_window, "mPdoListView"), pdoRow);
        doubleClickRow(table(*m_window, "mPdoContentView"), entryRow);
        saveLink(link);
    }

    /// The new entry comes behind the row; its editor opens by itself.
    void addEntry(int pdoRow, int entryRow, const QString& link)
    {
        chooseFromMenu(entriesOfPdo(pdoRow), "Add", entryRow);
        saveLink(link);
    }

    void deleteEntry(int pdoRow, int entryRow) { chooseFromMenu(entriesOfPdo(pdoRow), "Delete", entryRow); }

    /// Types the minimum size of a sync manager into its editor.
    void setMinSize(int row, const QString& text)
    {
        openTab(*m_window, GeneralTab);
        doubleClickRow(table(*m_window, "SmView"), row);
        const auto* const editor = openEditorIn<Smeditwin>(*m_window);
        QVERIFY(editor != nullptr);
        typeInto(*editor, "MinSize", text);
        press(*editor, "SmSavebutton");
        QVERIFY(!editor->isVisible());
    }

    /// Ticks or unticks the box for the list of modules.
    void clickModuleList()
    {
        openTab(*m_window, ModuleTab);
        part<QCheckBox>(*m_window, "DownlaodCfg")->click();
    }

    QTableView& startupList()
    {
        openTab(*m_window, StartupTab);
        return table(*m_window, "StartupView");
    }

    void changeCommand(int row, const TypedCommand& typed)
    {
        doubleClickRow(startupList(), row);
        saveCommand(typed);
    }

    /// The new command comes after the row; its editor opens by itself.
    void addCommand(int row, const TypedCommand& typed)
    {
        chooseFromMenu(startupList(), "add", row);
        saveCommand(typed);
    }

    void deleteCommand(int row) { chooseFromMenu(startupList(), "delete", row); }

    /// An empty list has no row to add after: no menu comes up, and the action itself only warns.
    void compareAddRefused()
    {
        QTableView& list = startupList();
        QCOMPARE(list.model()->rowCount(), 0);
        answering({}, [&] { rightClick(list, QPoint(20, 20)); });
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
        openTab(*m_window, ModuleTab);
        clickRow(table(*m_window, "ModuleView"), place);
        pickModule(group, position);
        answering(script, [this] { press(*m_window, "InsertModule"); });
    }

    void deleteModule(int place, const std::vector<DialogAnswer>& script = {})
    {
        openTab(*m_window, ModuleTab);
        clickRow(table(*m_window, "ModuleView"), place);
        answering(script, [this] { press(*m_window, "DeleteModule"); });
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

    /// Runs an action whose dialogs must come as the script says.
    static void answering(const std::vector<DialogAnswer>& script, const std::function<void()>& action)
    {
        DialogDriver dialogs(script);
        dialogs.during(action);
        QCOMPARE(dialogs.problem(), QString());
    }

    QTableView& entriesOfPdo(int pdoRow)
    {
        openTab(*m_window, ProcessDataTab);
        clickRow(table(*m_window, "PdoListView"), pdoRow);
        return table(*m_window, "PdoContentView");
    }

    void saveLink(const QString& link)
    {
        auto* const editor = openEditorIn<PdoEditWin>(*m_window);
        QVERIFY(editor != nullptr);
        auto* const box = part<QComboBox>(*editor, "LinkTo");
        QVERIFY2(box->findText(link) >= 0, qPrintable(link));
        chooseFrom(*box, box->findText(link));
        QCOMPARE(box->currentText(), link);
        press(*editor, "PdoSavebutton");
        QVERIFY(!editor->isVisible());
    }

    void saveCommand(const TypedCommand& typed)
    {
        auto* const editor = openEditorIn<Startupeditwin>(*m_window);
        QVERIFY(editor != nullptr);
        part<QLineEdit>(*editor, "Index")->setText(typed.index);
        part<QLineEdit>(*editor, "SubIndex")->setText(typed.subIndex);
        part<QLineEdit>(*editor, "Datalen")->setText(typed.bytes);
        part<QLineEdit>(*editor, "Data")->setText(typed.data);
        press(*editor, "StartupSavebutton");
        QVERIFY(!editor->isVisible());
    }
};
