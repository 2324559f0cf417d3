// mainwindow_module.cpp - the Module tab: slots and modules. No effect yet.
#include "workbench/mainwindow.h"

void MainWindow::device_slots_display() {}

str_InitCmd MainWindow::device_downloadslotcfg(str_Slot* /*slot*/)
{
    return {};
}

void MainWindow::device_module_display() {}

void MainWindow::device_slot_clicked(const QModelIndex& /*index*/) {}

void MainWindow::device_slotmodule_display() {}

void MainWindow::device_modulestartup_generate() {}

void MainWindow::device_moduleindex_modify(int /*arg1*/) {}

void MainWindow::on_InsertModule_clicked() {}

void MainWindow::on_DeleteModule_clicked() {}

void MainWindow::on_ModuleTree_currentItemChanged(QTreeWidgetItem* /*current*/, QTreeWidgetItem* /*previous*/) {}

void MainWindow::on_ModuleView_clicked(const QModelIndex& /*index*/) {}

void MainWindow::on_DownlaodCfg_stateChanged(int /*arg1*/) {}
