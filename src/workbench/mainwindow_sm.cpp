// mainwindow_sm.cpp - sync manager and FMMU views. No effect yet.
#include "workbench/mainwindow.h"

void MainWindow::device_fmmu_display() {}

void MainWindow::device_sm_display() {}

void MainWindow::SmViewCustomMenu(const QPoint& /*point*/) {}

void MainWindow::on_SmView_modify() {}

void MainWindow::on_SmView_doubleClicked(const QModelIndex& /*index*/) {}

void MainWindow::SmEditWindowSendMsg(const QString& /*text*/) {}
