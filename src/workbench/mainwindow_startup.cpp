// mainwindow_startup.cpp - the Startup tab. No effect yet.
#include "workbench/mainwindow.h"

void MainWindow::device_startup_display() {}

void MainWindow::StartupViewCustomMenu(const QPoint& /*point*/) {}

void MainWindow::on_StartupView_add() {}

void MainWindow::on_StartupView_modify() {}

void MainWindow::on_StartupView_delete() {}

void MainWindow::on_StartupView_doubleClicked(const QModelIndex& /*index*/) {}

void MainWindow::StartupEditWindowSendMsg(const QString& /*text*/) {}
