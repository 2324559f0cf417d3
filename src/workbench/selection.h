// selection.h - what is selected in the device tree, and the two switches of the PDO editor.
#pragma once

#include "model/deviceRecords.h"

#include <QTreeWidget>

/// Position in `g_xmlfiledevices` of the selected file, -1 for none. It is not reset by a deletion, so it may lie past
/// the end of the list.
extern int currentfileindex;

/// Position in the file's `device` of the selected device, -1 when the file itself or nothing is selected.
extern int currentdeviceindex;

/// Whether the open PDO editor works on an entry of a module.
extern bool g_bpdoormodulepdo;

/// Whether the open PDO editor works on all selected rows.
extern bool g_bpdoMultiplechoice;

/// The device at a position, or null if there is none.
/// The pointer is valid until `g_xmlfiledevices` or its file's device list changes.
/// @param file, device  positions in `g_xmlfiledevices` and in the file's `device`; negative ones stand for none
[[nodiscard]] struct_EtherCatDevice* deviceAt(int file, int device);

/// The selected device, or null if none is selected or the selection lies past the lists.
/// The pointer is valid until `g_xmlfiledevices` or its file's device list changes.
[[nodiscard]] struct_EtherCatDevice* selectedDevice();

/// The selected device, or null if none is selected. For callers to whom a selection past the lists is an error.
/// The pointer is valid until `g_xmlfiledevices` or its file's device list changes.
/// @throws std::out_of_range if the selection lies past the lists
[[nodiscard]] struct_EtherCatDevice* selectedDeviceInRange();

/// Selects what an item of the device tree stands for: items are mapped by position. A device whose own position is not
/// found leaves its file selected.
/// @return  false, with the selection unchanged, if the item's file is not in the tree
bool selectItem(const QTreeWidget& tree, QTreeWidgetItem* item);
