#include "workbench/checkState.h"

namespace {

/// How many children of an item are in each state.
struct ChildStates
{
    int checked = 0;
    int partial = 0;
};

ChildStates childStatesOf(const QTreeWidgetItem& item)
{
    ChildStates states;
    for (int index = 0; index < item.childCount(); ++index) {
        const Qt::CheckState state = item.child(index)->checkState(0);
        states.checked += state == Qt::Checked ? 1 : 0;
        states.partial += state == Qt::PartiallyChecked ? 1 : 0;
    }
    return states;
}

/// The state that an item has by its children; one without children is unchecked.
Qt::CheckState stateByChildren(const QTreeWidgetItem& item)
{
    const ChildStates states = childStatesOf(item);
    if (states.checked == 0 && states.partial == 0)
        return Qt::Unchecked;
    return states.checked == item.childCount() ? Qt::Checked : Qt::PartiallyChecked;
}

} // namespace

void pushStateDown(QTreeWidgetItem* item)
{
    const Qt::CheckState state = item->checkState(0);
    if (state == Qt::PartiallyChecked)
        return;
    const int children = item->childCount();
    for (int index = 0; index < children; ++index) {
        QTreeWidgetItem* child = item->child(index);
        child->setCheckState(0, state);
        if (child->childCount() > 0)
            pushStateDown(child);
    }
}

void markAncestorsPartial(QTreeWidgetItem* item)
{
    for (QTreeWidgetItem* ancestor = item->parent(); ancestor != nullptr; ancestor = ancestor->parent())
        ancestor->setCheckState(0, Qt::PartiallyChecked);
}

void recomputeAncestors(QTreeWidgetItem* item)
{
    for (QTreeWidgetItem* ancestor = item->parent(); ancestor != nullptr; ancestor = ancestor->parent()) {
        const Qt::CheckState state = stateByChildren(*ancestor);
        ancestor->setCheckState(0, state);
        if (state == Qt::PartiallyChecked) {
            markAncestorsPartial(ancestor);
            return;
        }
    }
}
