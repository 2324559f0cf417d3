// windowParts.h - the main window as a test takes hold of it: parts by name, clicks, slots, a clean start.
#pragma once

#include "model/XMLParsing.h"
#include "workbench/mainwindow.h"
#include "workbench/selection.h"
#include "workbench/windowSetUp.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QSettings>
#include <QStyle>
#include <QStyleOptionViewItem>
#include <QTreeWidget>
#include <QtTest>

/// No file is loaded and nothing is selected, as when the program starts.
inline void resetModel()
{
    g_xmlfiledevices.clear();
    domDocument.clear();
    currentfileindex = -1;
    currentdeviceindex = -1;
    g_bpdoormodulepdo = false;
    g_bpdoMultiplechoice = false;
}

/// Shows the window as the program does on a screen of usual size.
inline void showWindow(MainWindow& window)
{
    setUpMainWindow(window, QRect(0, 0, 1920, 1080));
    window.show();
}

/// File dialogs remember their last folder in a folder of the test's own.
inline void keepSettingsIn(const QString& folder)
{
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, folder);
}

/// A part of the window by its object name. A name that is missing ends the test program.
template<typename Part> Part* part(const QWidget& window, const char* name)
{
    Part* const found = window.findChild<Part*>(QLatin1String(name));
    if (found == nullptr)
        qFatal("the window has no %s named %s", Part::staticMetaObject.className(), name);
    return found;
}

inline QTreeWidget* deviceTree(const QWidget& window)
{
    return part<QTreeWidget>(window, "DeviceTree");
}

/// Item of a file, or of one of its devices if `device` is not negative.
inline QTreeWidgetItem* treeItem(const QWidget& window, int file, int device = -1)
{
    QTreeWidgetItem* const fileItem = deviceTree(window)->topLevelItem(file);
    return device < 0 ? fileItem : fileItem->child(device);
}

/// Where an item of the device tree shows its check box, or its text.
inline QRect placeOf(const QWidget& window, QTreeWidgetItem* item, QStyle::SubElement element)
{
    QTreeWidget* const tree = deviceTree(window);
    QStyleOptionViewItem option;
    option.initFrom(tree);
    option.rect = tree->visualItemRect(item);
    option.features = QStyleOptionViewItem::HasCheckIndicator | QStyleOptionViewItem::HasDisplay;
    option.text = item->text(0);
    return tree->style()->subElementRect(element, &option, tree);
}

/// A click on the text of an item.
inline void clickItem(const QWidget& window, QTreeWidgetItem* item, Qt::MouseButton button = Qt::LeftButton)
{
    const QPoint place = placeOf(window, item, QStyle::SE_ItemViewItemText).center();
    QTest::mouseClick(deviceTree(window)->viewport(), button, {}, place);
}

/// A click on the check box of an item.
inline void clickCheckBox(const QWidget& window, QTreeWidgetItem* item)
{
    const QPoint place = placeOf(window, item, QStyle::SE_ItemViewItemCheckIndicator).center();
    QTest::mouseClick(deviceTree(window)->viewport(), Qt::LeftButton, {}, place);
}

/// A right click: the press makes the item under it the current one, then the system asks for the menu.
inline void rightClickItem(const QWidget& window, QTreeWidgetItem* item)
{
    QTreeWidget* const tree = deviceTree(window);
    clickItem(window, item, Qt::RightButton);
    const QPoint position = tree->visualItemRect(item).center();
    QContextMenuEvent event(QContextMenuEvent::Mouse, position, tree->viewport()->mapToGlobal(position));
    QApplication::sendEvent(tree->viewport(), &event);
}

/// Check state of an item: 0 unchecked, 1 partially checked, 2 checked.
inline int stateOf(const QTreeWidgetItem* item)
{
    return item->data(0, Qt::CheckStateRole).toInt();
}

inline void setState(QTreeWidgetItem* item, int state)
{
    item->setData(0, Qt::CheckStateRole, state);
}

/// Calls a slot that is not public, by its name.
template<typename... Arguments> bool callSlot(MainWindow& window, const char* name, Arguments... arguments)
{
    return QMetaObject::invokeMethod(&window, name, Qt::DirectConnection, arguments...);
}
