// viewParts.h - the tabs and tables of the window as a test reads them, clicks them and asks them for their menus.
#pragma once

#include "workbench/dialogDriver.h"
#include "workbench/windowParts.h"

#include <QAbstractItemView>
#include <QLabel>
#include <QStandardItemModel>
#include <QTabWidget>
#include <QTableView>

/// Brings a tab to the front, so that its parts can be clicked.
inline void openTab(const QWidget& window, const char* name)
{
    part<QTabWidget>(window, "tabWidget")->setCurrentWidget(part<QWidget>(window, name));
}

inline QTableView& table(const QWidget& window, const char* name)
{
    return *part<QTableView>(window, name);
}

inline QStandardItemModel& modelOf(const QTableView& view)
{
    return static_cast<QStandardItemModel&>(*view.model());
}

/// What stands for a cell that has no item at all, which is not the same as an empty one.
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

/// A right click below the last row.
inline void rightClickBeside(QAbstractItemView& view)
{
    rightClick(view, QPoint(2, view.viewport()->height() - 2));
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
