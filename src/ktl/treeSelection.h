// treeSelection.h - which items of the device tree an export takes.
#pragma once

#include <QTreeWidgetItem>

/// Whether an item counts as selected: checked, or partially checked. A missing item is not.
[[nodiscard]] inline bool isCheckedForExport(const QTreeWidgetItem* item)
{
    return item != nullptr && item->data(0, Qt::CheckStateRole).toInt() != 0;
}
