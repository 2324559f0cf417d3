// moduleTab.h - the Module tab as a test uses it.
#pragma once

#include "workbench/editorParts.h"
#include "workbench/viewParts.h"

#include <QTreeWidget>

inline QTreeWidget& moduleTree(const QWidget& window)
{
    return *part<QTreeWidget>(window, "ModuleTree");
}

/// Item of a group of modules, or of one of its modules if `module` is not negative.
inline QTreeWidgetItem* moduleItem(const QWidget& window, int group, int module = -1)
{
    QTreeWidgetItem* const item = moduleTree(window).topLevelItem(group);
    return module < 0 ? item : item->child(module);
}

/// Where an item of the module tree is shown.
inline QPoint placeOfModule(const QWidget& window, QTreeWidgetItem* item)
{
    moduleTree(window).scrollToItem(item);
    return moduleTree(window).visualItemRect(item).center();
}

/// A click on a module, or on a group of modules.
inline void clickModule(const QWidget& window, int group, int module = -1)
{
    const QPoint place = placeOfModule(window, moduleItem(window, group, module));
    QTest::mouseClick(moduleTree(window).viewport(), Qt::LeftButton, {}, place);
}

/// Names of the modules of a group that are not struck out.
inline QStringList fittingModules(const QWidget& window, int group)
{
    QStringList names;
    for (int number = 0; number < moduleItem(window, group)->childCount(); ++number)
        if (!moduleItem(window, group, number)->font(0).strikeOut())
            names.append(moduleItem(window, group, number)->text(0));
    return names;
}
