// mainwindow_modulepdo.cpp - the PDO views of a module. No effect yet.
#include "workbench/mainwindow.h"

void MainWindow::ModuleTreeCustomMenu(const QPoint& /*point*/) {}

void MainWindow::on_ModuleTree_delete() {}

void MainWindow::mPdoContentViewCustomMenu(const QPoint& /*point*/) {}

void MainWindow::on_mpdoContect_modify() {}

void MainWindow::on_mpdoContect_add() {}

void MainWindow::on_mpdoContect_delete() {}

void MainWindow::on_mPdoContentView_doubleClicked(const QModelIndex& /*index*/) {}

void MainWindow::on_Module_TreeClick(QTreeWidgetItem* /*item*/, int /*column*/) {}

void MainWindow::on_mPdoListView_clicked(const QModelIndex& /*index*/) {}
