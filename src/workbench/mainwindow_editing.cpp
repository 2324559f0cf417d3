// mainwindow_editing.cpp - what the tabs share when something is edited: menus, refusals, and the PDO editor.
#include "workbench/mainwindow.h"

#include "workbench/messages.h"
#include "workbench/pdoeditwin.h"

#include "ui_mainwindow.h"

#include <QAbstractItemView>
#include <QCursor>
#include <QMenu>

/// Shows the context menu of a view, if one of its rows is current.
void MainWindow::runMenu(const QAbstractItemView& view, const std::vector<MenuEntry>& entries)
{
    auto* menu = new QMenu(ui->DeviceTree); // lives as long as the tree
    if (!view.currentIndex().isValid())
        return;
    for (const MenuEntry& entry : entries)
        connect(menu->addAction(entry.text), &QAction::triggered, this, entry.chosen);
    menu->exec(QCursor::pos());
}

/// Says why an edit is refused, unless its condition is met. @return  whether it is met
bool MainWindow::warnUnless(bool isMet, const QString& text)
{
    if (!isMet)
        warn(this, selectionTitle(), text);
    return isMet;
}

/// Opens the editor of PDO entries; the selection and its two switches say what it works on.
void MainWindow::openPdoEditor(const QString& title)
{
    openEditor(PdoEditWindow, &PdoEditWin::sendTextToParent, &MainWindow::PdoEditWindowSendMsg, title);
}
