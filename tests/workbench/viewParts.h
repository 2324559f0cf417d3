// viewParts.h - the tabs and tables of the window as a test reads them, clicks them and asks them for their menus.
#pragma once

#include "workbench/dialogDriver.h"
#include "workbench/windowParts.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QLabel>
#include <QStandardItemModel>
#include <QTabBar>
#include <QTabWidget>
#include <QTableView>

/// The tabs of the window, in their order.
enum Tab
{
    GeneralTab,
    ProcessDataTab,
    StartupTab,
    ModuleTab,
    CoeTab,
};

/// Brings a tab to the front by a click on its title.
inline void openTab(const QWidget& window, Tab tab)
{
    const auto* const tabs = part<QTabWidget>(window, "tabWidget");
    QTest::mouseClick(tabs->tabBar(), Qt::LeftButton, {}, tabs->tabBar()->tabRect(tab).center());
    QCOMPARE(tabs->currentIndex(), int(tab));
}

inline QTableView& table(const QWidget& window, const char* name)
{
    return *part<QTableView>(window, name);
}

inline QStandardItemModel& modelOf(const QTableView& view)
{
    return static_cast<QStandardItemModel&>(*view.model());
}

/// Text of a cell that has no item at all, which is not the same as an empty one.
inline QString noItem()
{
    return QStringLiteral("(no item)");
}

/// Texts of a row, one per column.
inline QStringList rowTexts(const QTableView& view, int row)
{
    const QStandardItemModel& model = modelOf(view);
    QStringList texts;
    for (int column = 0; column < model.columnCount(); ++column) {
        const QStandardItem* const item = model.item(row, column);
        texts.append(item == nullptr ? noItem() : item->text());
    }
    return texts;
}

/// Texts of all rows.
inline QVector<QStringList> allTexts(const QTableView& view)
{
    QVector<QStringList> rows;
    for (int row = 0; row < modelOf(view).rowCount(); ++row)
        rows.append(rowTexts(view, row));
    return rows;
}

/// Texts of a column, one per row.
inline QStringList columnTexts(const QTableView& view, int column)
{
    QStringList texts;
    for (int row = 0; row < modelOf(view).rowCount(); ++row)
        texts.append(rowTexts(view, row).at(column));
    return texts;
}

/// Where a cell is shown; the view scrolls to it.
inline QPoint placeOfCell(QAbstractItemView& view, const QModelIndex& index)
{
    view.scrollTo(index);
    return view.visualRect(index).center();
}

inline void clickIndex(QAbstractItemView& view, const QModelIndex& index, Qt::KeyboardModifiers modifiers = {},
                       Qt::MouseButton button = Qt::LeftButton)
{
    QTest::mouseClick(view.viewport(), button, modifiers, placeOfCell(view, index));
}

inline void clickRow(QTableView& view, int row, Qt::KeyboardModifiers modifiers = {})
{
    clickIndex(view, view.model()->index(row, 0), modifiers);
}

/// A double click as the mouse gives it: the first press makes the row current.
inline void doubleClickRow(QTableView& view, int row)
{
    clickRow(view, row);
    QTest::mouseDClick(view.viewport(), Qt::LeftButton, {}, placeOfCell(view, view.model()->index(row, 0)));
}

/// A right click at a place of a view: the press comes first, then the system asks for the menu.
inline void rightClick(QAbstractItemView& view, const QPoint& place)
{
    QTest::mouseClick(view.viewport(), Qt::RightButton, {}, place);
    QContextMenuEvent event(QContextMenuEvent::Mouse, place, view.viewport()->mapToGlobal(place));
    QApplication::sendEvent(view.viewport(), &event);
}

inline void rightClickRow(QTableView& view, int row)
{
    rightClick(view, placeOfCell(view, view.model()->index(row, 0)));
}

/// A right click where the table has no row.
inline void rightClickBelowTheRows(QAbstractItemView& view)
{
    const QPoint corner = view.viewport()->rect().bottomRight();
    QVERIFY(!view.indexAt(corner).isValid());
    rightClick(view, corner);
}

/// Number of the current row, -1 if there is none.
inline int currentRowOf(const QTableView& view)
{
    return view.currentIndex().row();
}

/// Chooses an entry of the menu of a row; no box may come up.
inline void chooseFromMenu(QTableView& view, const QString& entry, int row)
{
    DialogDriver driver({choosingEntry(entry)});
    driver.during([&] { rightClickRow(view, row); });
    QCOMPARE(driver.problem(), QString());
}

/// Opens a list and clicks one of its entries.
inline void chooseFrom(QComboBox& box, int entry)
{
    box.showPopup();
    clickIndex(*box.view(), box.view()->model()->index(entry, box.modelColumn()));
}

/// Chooses an entry of a list while a script answers the boxes.
inline void choose(QComboBox& box, int entry, DialogDriver& driver)
{
    driver.during([&] { chooseFrom(box, entry); });
    QCOMPARE(driver.problem(), QString());
}

/// Chooses an entry of a list; boxes that come up are a failure.
inline void choose(QComboBox& box, int entry)
{
    DialogDriver driver({});
    choose(box, entry, driver);
}

/// Presses the left button at one place of a view, and releases it at another one.
inline void dragOver(QAbstractItemView& view, const QPoint& from, const QPoint& to)
{
    QTest::mousePress(view.viewport(), Qt::LeftButton, {}, from);
    QMouseEvent move(QEvent::MouseMove, to, view.viewport()->mapToGlobal(to), Qt::NoButton, Qt::LeftButton, {});
    QCoreApplication::sendEvent(view.viewport(), &move);
    QTest::mouseRelease(view.viewport(), Qt::LeftButton, {}, to);
    QCoreApplication::processEvents();
}

inline QString labelText(const QWidget& window, const char* name)
{
    return part<QLabel>(window, name)->text();
}

/// The boxes that an action brings up, each answered with Ok: title and text of each, or the problem that came.
inline QStringList boxesDuring(int count, const std::function<void()>& action)
{
    DialogDriver driver(std::vector<DialogAnswer>(std::size_t(count), pressing(QMessageBox::Ok)));
    driver.during(action);
    if (!driver.problem().isEmpty())
        return {driver.problem()};
    QStringList boxes;
    for (int step = 0; step < count; ++step) {
        const SeenDialog seen = driver.seen(std::size_t(step));
        const bool isWarning = seen.icon == QMessageBox::Warning && seen.buttons == QMessageBox::Ok;
        boxes.append(seen.title + QLatin1Char('|') + seen.text + QLatin1String(isWarning ? "" : " is no warning"));
    }
    return boxes;
}

/// A box on the selection as `boxesDuring` tells it.
inline QString selectionBox(const QString& text)
{
    return QStringLiteral("warning|") + text;
}
