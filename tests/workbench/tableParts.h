// tableParts.h - the tabs, tables and lists of the main window as a user works on them.
#pragma once

#include "workbench/dialogDriver.h"
#include "workbench/windowParts.h"

#include <QComboBox>
#include <QStandardItemModel>
#include <QTabBar>
#include <QTabWidget>
#include <QTableView>

/// Brings a tab to the front by a click on its title.
inline void showTab(const QWidget& window, int index)
{
    const auto* const tabs = part<QTabWidget>(window, "tabWidget");
    QTest::mouseClick(tabs->tabBar(), Qt::LeftButton, {}, tabs->tabBar()->tabRect(index).center());
    QCOMPARE(tabs->currentIndex(), index);
}

/// Where a row of a table shows the middle of its first cell.
inline QPoint placeOfRow(QTableView* view, int row)
{
    const QModelIndex index = view->model()->index(row, 0);
    view->scrollTo(index);
    return view->visualRect(index).center();
}

inline void clickRow(QTableView* view, int row)
{
    QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, placeOfRow(view, row));
}

inline void doubleClickRow(QTableView* view, int row)
{
    clickRow(view, row);
    QTest::mouseDClick(view->viewport(), Qt::LeftButton, {}, placeOfRow(view, row));
}

/// A right click at a place: the press makes the row under it the current one, then the system asks for the menu.
inline void rightClickAt(QTableView* view, const QPoint& place)
{
    QTest::mouseClick(view->viewport(), Qt::RightButton, {}, place);
    QContextMenuEvent event(QContextMenuEvent::Mouse, place, view->viewport()->mapToGlobal(place));
    QApplication::sendEvent(view->viewport(), &event);
}

inline void rightClickRow(QTableView* view, int row)
{
    rightClickAt(view, placeOfRow(view, row));
}

/// A right click where the table has no row.
inline void rightClickBelowTheRows(QTableView* view)
{
    const QPoint corner = view->viewport()->rect().bottomRight();
    QVERIFY(!view->indexAt(corner).isValid());
    rightClickAt(view, corner);
}

/// Number of the current row, -1 if there is none.
inline int currentRowOf(const QTableView* view)
{
    return view->currentIndex().row();
}

/// Text of each cell; a cell without an item is a null text.
inline QVector<QStringList> cellsOf(const QTableView* view)
{
    const auto* const model = qobject_cast<const QStandardItemModel*>(view->model());
    QVector<QStringList> cells;
    for (int row = 0; row < model->rowCount(); ++row) {
        QStringList texts;
        for (int column = 0; column < model->columnCount(); ++column) {
            const QStandardItem* const item = model->item(row, column);
            texts.append(item == nullptr ? QString() : item->text());
        }
        cells.append(texts);
    }
    return cells;
}

/// Cells of a column; a cell without an item is a null text.
inline QStringList columnOf(const QTableView* view, int column)
{
    QStringList cells;
    for (const QStringList& row : cellsOf(view))
        cells.append(row[column]);
    return cells;
}

/// Chooses an entry of the menu of a row.
inline void chooseFromMenu(QTableView* view, const QString& entry, int row)
{
    DialogDriver driver({choosingEntry(entry)});
    driver.during([&] { rightClickRow(view, row); });
    QCOMPARE(driver.problem(), QString());
}

/// Opens a list and clicks one of its entries.
inline void chooseFrom(QComboBox* box, int entry)
{
    box->showPopup();
    QAbstractItemView* const list = box->view();
    const QModelIndex index = list->model()->index(entry, 0);
    list->scrollTo(index);
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualRect(index).center());
}

/// Chooses an entry of a list while a script answers the boxes.
inline void choose(QComboBox* box, int entry, DialogDriver& driver)
{
    driver.during([&] { chooseFrom(box, entry); });
    QCOMPARE(driver.problem(), QString());
}

/// Chooses an entry of a list; boxes that come up are a failure.
inline void choose(QComboBox* box, int entry)
{
    DialogDriver driver({});
    choose(box, entry, driver);
}
