// mainwindow_sm.cpp - sync manager and FMMU views.
#include "workbench/mainwindow.h"

#include "editing/moduleData.h"
#include "workbench/rowTexts.h"
#include "workbench/smeditwin.h"
#include "workbench/tableViews.h"

#include "ui_mainwindow.h"

void MainWindow::device_fmmu_display()
{
    const struct_EtherCatDevice* const device = selectedDevice();
    if (device == nullptr)
        return;
    removeAllRows(device_fmmu_model);
    appendRows(device_fmmu_model, device->vFmmu, fmmuRow);
}

/// The lengths are computed here, so that what is shown, and exported from then on, follows the current PDOs.
void MainWindow::device_sm_display()
{
    struct_EtherCatDevice* const device = selectedDevice();
    if (device == nullptr)
        return;
    removeAllRows(device_sm_model);
    removeAllRows(device_sync_model);
    moduleData::renewLengths(*device);
    appendRows(device_sm_model, device->vSM, smRow);
    sm_model_size = device_sm_model.rowCount();
    appendRows(device_sync_model, device->vSM, syncRow);
}

void MainWindow::SmViewCustomMenu(const QPoint& /*point*/)
{
    runMenu(*ui->SmView, {{tr("modify"), &MainWindow::on_SmView_modify}});
}

void MainWindow::on_SmView_modify()
{
    // The same words as for a PDO.
    if (warnUnless(ui->SmView->currentIndex().isValid(), tr("Please select a pdo\n")))
        openEditor(SmEditWindow, &Smeditwin::SmsendTextToParent, &MainWindow::SmEditWindowSendMsg, tr("Sm editor"));
}

void MainWindow::on_SmView_doubleClicked(const QModelIndex& /*index*/)
{
    on_SmView_modify();
}

void MainWindow::SmEditWindowSendMsg(const QString& /*text*/)
{
    SmEditWindow = nullptr;
    if (ui->SmView->currentIndex().isValid())
        device_sm_display();
}
