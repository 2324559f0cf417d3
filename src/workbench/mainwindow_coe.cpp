// mainwindow_coe.cpp - the CoE tab. No effect yet.
#include "workbench/mainwindow.h"

int MainWindow::device_datatypeSize(const std::string& /*type*/)
{
    return 0;
}

str_Info MainWindow::device_objectInfo(std::uint32_t /*index*/, std::uint32_t /*subIndex*/)
{
    return {};
}

void MainWindow::device_datatypeScan(const QString& /*indexstr*/, const std::string& /*type*/,
                                     QTreeWidgetItem* /*item*/)
{}

void MainWindow::device_CoE_display() {}
