// checkState.h - how check states spread in the device tree.
#pragma once

#include <QTreeWidgetItem>

/// Gives the item's state to everything under it. A partial state is never pushed down.
void pushStateDown(QTreeWidgetItem* item);

/// Sets all ancestors of the item to partially checked.
void markAncestorsPartial(QTreeWidgetItem* item);

/// Recomputes the ancestors of the item from their children: none checked, all checked, or something between.
void recomputeAncestors(QTreeWidgetItem* item);
