// mainwindow_pdo.cpp - the Process Data tab. Apart from the hand-over of a click no slot has an effect yet.
#include "workbench/mainwindow.h"

void MainWindow::device_pdo_display() {}

void MainWindow::on_SyncManagerView_clicked(const QModelIndex& index)
{
    device_sm_clicked(index);
}

void MainWindow::device_sm_clicked(const QModelIndex& /*index*/) {}

void MainWindow::on_PdoListView_clicked(const QModelIndex& /*index*/) {}

void MainWindow::PdoContentViewCustomMenu(const QPoint& /*point*/) {}

void MainWindow::on_pdoContect_modify() {}

void MainWindow::on_pdoContect_add() {}

void MainWindow::on_pdoContect_delete() {}

void MainWindow::on_PdoContentView_doubleClicked(const QModelIndex& /*index*/) {}

void MainWindow::PdoEditWindowSendMsg(const QString& /*text*/) {}
