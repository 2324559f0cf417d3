// windowParts.h - the main window as the benchmarks take hold of it.
#pragma once

#include "stopwatch.h"

#include "workbench/mainwindow.h"

#include <QMetaObject>
#include <QTreeWidget>

#include <malloc.h>

#include <stdexcept>
#include <string>

/// A part of the window by its object name.
/// @throws std::runtime_error if the window has none
template<typename Part> Part& partNamed(const MainWindow& window, const char* name)
{
    auto* const part = window.findChild<Part*>(QLatin1String(name));
    if (part == nullptr)
        throw std::runtime_error(std::string("the window has no part named ") + name);
    return *part;
}

/// Runs a click on the one device of the window.
inline void clickDevice(MainWindow& window)
{
    auto& tree = partNamed<QTreeWidget>(window, "DeviceTree");
    QTreeWidgetItem* const item = tree.topLevelItem(0)->child(0);
    if (!QMetaObject::invokeMethod(&tree, "itemClicked", Qt::DirectConnection, Q_ARG(QTreeWidgetItem*, item),
                                   Q_ARG(int, 0)))
        throw std::runtime_error("the device tree cannot be clicked");
}

/// Time of a click on the one device of the window, whose tabs are empty before.
inline double secondsOfClick(MainWindow& window)
{
    const Stopwatch stopwatch;
    clickDevice(window);
    return stopwatch.seconds();
}

/// Empties the tabs, so that both sides of a comparison start alike.
inline void clearTabs(MainWindow& window)
{
    window.Device_Information_UIClear();
    malloc_trim(0);
}
