// mainwindow_modulepdo.cpp - the PDO views of a module as its file declares it.
#include "workbench/mainwindow.h"

#include "editing/pdoRows.h"
#include "model/pdoAccess.h"
#include "workbench/entryRows.h"
#include "workbench/messages.h"
#include "workbench/rowTexts.h"
#include "workbench/tableViews.h"

#include "ui_mainwindow.h"

/// The module that an item of the module tree stands for.
/// @param index  of an item below a group, in the tree of the selected file
/// @throws std::out_of_range if the tree shows more than the file has
struct_module& MainWindow::moduleOf(const QModelIndex& index)
{
    auto& groups = g_xmlfiledevices.at(static_cast<std::size_t>(currentfileindex)).vcommentmodule;
    std::vector<struct_module>& modules = groups.at(static_cast<std::size_t>(index.parent().row())).vmodule;
    return modules.at(static_cast<std::size_t>(index.row()));
}

void MainWindow::ModuleTreeCustomMenu(const QPoint& /*point*/)
{
    runMenu(*ui->ModuleTree, {{tr("Delete"), &MainWindow::on_mpdoContect_delete}});
}

void MainWindow::mPdoContentViewCustomMenu(const QPoint& /*point*/)
{
    runMenu(*ui->mPdoContentView, {{tr("modify"), &MainWindow::on_mpdoContect_modify},
                                   {tr("Add"), &MainWindow::on_mpdoContect_add},
                                   {tr("Delete"), &MainWindow::on_mpdoContect_delete}});
}

/// What a file declares for its modules is neither added to nor taken from.
void MainWindow::refuseModuleChange()
{
    warn(this, selectionTitle(), tr("This function is not supported temporarily\n"));
}

void MainWindow::on_ModuleTree_delete()
{
    refuseModuleChange();
}

void MainWindow::on_mpdoContect_add()
{
    refuseModuleChange();
}

void MainWindow::on_mpdoContect_delete()
{
    refuseModuleChange();
}

void MainWindow::on_Module_TreeClick(QTreeWidgetItem* /*item*/, int /*column*/)
{
    if (selectedDeviceInRange() == nullptr)
        return;
    removeAllRows(device_mpdo_model);
    removeAllRows(device_mpdocontent_model);
    const QModelIndex current = ui->ModuleTree->currentIndex();
    if (!current.isValid() || !current.parent().isValid())
        return; // a group of modules
    forEachPdoList(moduleOf(current), [this](const auto& pdos, PdoDirection /*direction*/) {
        appendRows(device_mpdo_model, pdos, declaredModulePdoRow);
    });
    pdo_mmodel_size = device_mpdo_model.rowCount();
}

void MainWindow::on_mPdoListView_clicked(const QModelIndex& index)
{
    if (selectedDeviceInRange() == nullptr)
        return;
    removeAllRows(device_mpdocontent_model);
    const QModelIndex current = ui->ModuleTree->currentIndex();
    if (!current.isValid() || !current.parent().isValid())
        return; // a group of modules, or nothing
    visitPdoRow(moduleOf(current), index.row(), [this](const modulePdo& pdo, PdoDirection /*direction*/) {
        ui->label_17->setText(bracketed(indexOf(pdo)));
        appendEntryRows(device_mpdocontent_model, pdo);
    });
}

/// Whether an entry of a module is chosen; if not the user is told what is missing.
bool MainWindow::isModuleEntryChosen(const QModelIndex& entry)
{
    const QModelIndex module = ui->ModuleTree->currentIndex();
    return warnUnless(module.isValid() && module.parent().isValid(), tr("Please select a module\n"))
           && warnUnless(ui->mPdoListView->currentIndex().isValid(), tr("Please select a module pdo\n"))
           && warnUnless(entry.isValid(), tr("Please select a module pdo content\n"));
}

/// @param entry        entry that the edit starts from
/// @param allSelected  whether all selected entries take the link
void MainWindow::editModuleEntry(const QModelIndex& entry, bool allSelected)
{
    if (!isModuleEntryChosen(entry))
        return;
    g_bpdoormodulepdo = true;
    g_bpdoMultiplechoice = allSelected;
    openPdoEditor(tr("module Pdo editor"));
}

void MainWindow::on_mPdoContentView_doubleClicked(const QModelIndex& /*index*/)
{
    editModuleEntry(ui->mPdoContentView->currentIndex(), false);
}

void MainWindow::on_mpdoContect_modify()
{
    const QModelIndexList selected = ui->mPdoContentView->selectionModel()->selectedIndexes();
    editModuleEntry(selected.isEmpty() ? QModelIndex() : selected.first(), true);
}
