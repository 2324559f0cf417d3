// treeSelection.h - which items of the device tree an export takes.
#pragma once

#include <QTreeWidget>

#include <cstddef>

/// Whether an item counts as selected: checked, or partially checked. A missing item is not.
[[nodiscard]] inline bool isCheckedForExport(const QTreeWidgetItem* item)
{
    return item != nullptr && item->data(0, Qt::CheckStateRole).toInt() != 0;
}

/// Whether the export takes a device: its own item and that of its file have to be checked. Items are found by
/// position, the top-level item of a file at the file's place in the list, those of its devices under it.
[[nodiscard]] inline bool isCheckedForExport(const QTreeWidget& tree, std::size_t file, std::size_t device)
{
    const QTreeWidgetItem* fileItem = tree.topLevelItem(static_cast<int>(file));
    return isCheckedForExport(fileItem) && isCheckedForExport(fileItem->child(static_cast<int>(device)));
}
