// coeTreeParts.h - the CoE tab as its tests fill and read it.
#pragma once

#include "workbench/modelBuilders.h"
#include "workbench/windowParts.h"

#include <QStringList>
#include <QVector>

/// A top-level row and the rows under it, a text per column.
struct ShownObject
{
    QStringList texts;
    QVector<QStringList> children;

    bool operator==(const ShownObject& other) const { return texts == other.texts && children == other.children; }
};

/// A text per column that the item has.
inline QStringList textsOf(const QTreeWidgetItem* item)
{
    QStringList texts;
    for (int column = 0; column < item->columnCount(); ++column)
        texts << item->text(column);
    return texts;
}

inline ShownObject shownObject(const QTreeWidgetItem* item)
{
    ShownObject shown{textsOf(item), {}};
    for (int row = 0; row < item->childCount(); ++row)
        shown.children << textsOf(item->child(row));
    return shown;
}

/// Loads one file with one device, which has the dictionary, and clicks the device.
inline void clickDeviceWith(MainWindow& window, const DeviceDictionary& dictionary)
{
    g_xmlfiledevices = {fileWith("a.xml", {"Drive"})};
    g_xmlfiledevices[0].device[0].Dictionary = dictionary;
    window.DeviceDisplayUpdate();
    clickItem(window, treeItem(window, 0, 0));
}
