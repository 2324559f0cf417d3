// mainwindow_general.cpp - the General tab: identity, device type and operation modes; the about box.
#include "workbench/mainwindow.h"

#include "editing/deviceEdits.h"
#include "editing/deviceTypeTexts.h"
#include "editing/moduleEdits.h"
#include "esi/xmlCharConversion.h"
#include "model/assignActivate.h"
#include "model/deviceType.h"
#include "model/version.h"
#include "workbench/messages.h"

#include "ui_mainwindow.h"

void MainWindow::showIdentity(const struct_FilenameDevice& file, const struct_EtherCatDevice& device)
{
    const DeviceTypeAttributes& type = device.TypeAttributes;
    ui->TypeEdit->setText(QString::fromStdString(type.type));
    const struct
    {
        QLineEdit* edit;
        std::uint32_t number;
    } numbers[] = {
        {ui->RevisionEdit, type.Product_Code}, // the field beside "Product/Revision:" shows the product
        {ui->VendorEdit, file.Vendor_Id},           {ui->ProductCodeEdit, type.Product_Code},
        {ui->RevisonNoEdit, type.Revision_No},      {ui->SerialNo, type.Serial_No},
        {ui->DriveAxies, device.m_iDriveAxies},     {ui->ConfigModuleEdit, device.configindex},
        {ui->DetectModuleEdit, device.detectindex},
    };
    for (const auto& field : numbers)
        field.edit->setText(xmlGetStringuint(field.number));
}

void MainWindow::showDeviceType(struct_EtherCatDevice& device)
{
    // Making the entry current runs the slot of a changed type, which sets the axes again. A multi-axis drive keeps the
    // number that was found at load or typed by the user.
    const std::uint16_t driveAxes = device.m_iDriveAxies;
    ui->comboBox_DeviceType->setCurrentIndex(ui->comboBox_DeviceType->findData(device.m_iDeviceType, Qt::UserRole));
    const bool isMultiDriver = device.m_iDeviceType == KTL_DEVICE_TYPE_MultiDriver;
    ui->DriveAxies->setEnabled(isMultiDriver);
    keepDriveAxes(device, driveAxes);
    if (isMultiDriver)
        ui->DriveAxies->setText(xmlGetStringuint(driveAxes));
}

/// Lists the operation modes, the chosen one first, and shows what the chosen one activates.
void MainWindow::showOperationModes(const struct_EtherCatDevice& device)
{
    ui->SyncEdit->setText(xmlGetStringuint(device.vopmode.front().AssignActivate));
    // Filling the list is not a choice by the user. The connection was made by name, so it is removed by name.
    disconnect(ui->comboBox_Dc, SIGNAL(currentIndexChanged(int)), this, SLOT(on_comboBox_Dc_currentIndexChanged(int)));
    ui->comboBox_Dc->clear();
    int position = 0;
    for (const Struct_DCOpMode& mode : device.vopmode)
        ui->comboBox_Dc->addItem(QString::fromStdString(mode.Desc), position++);
    connect(ui->comboBox_Dc, SIGNAL(currentIndexChanged(int)), this, SLOT(on_comboBox_Dc_currentIndexChanged(int)));
    showSyncSignals(device);
}

void MainWindow::showSyncSignals(const struct_EtherCatDevice& device)
{
    const std::uint32_t activate = device.vopmode.front().AssignActivate;
    ui->checkBox_Dc1->setChecked(isActive(activate, AssignActivateBit::CyclicMode));
    ui->checkBox_Dc2->setChecked(isActive(activate, AssignActivateBit::Sync0));
    ui->checkBox_Dc3->setChecked(isActive(activate, AssignActivateBit::Sync1));
}

void MainWindow::on_comboBox_DeviceType_currentIndexChanged(int index)
{
    struct_EtherCatDevice* device = selectedDevice();
    if (device == nullptr || index < 0)
        return;
    setDeviceType(*device, static_cast<std::uint16_t>(ui->comboBox_DeviceType->itemData(index).toUInt()));
    if (isModuleListAdvised(*device, ModulePreset::ChosenType)) {
        warn(this, fileTitle(), moduleListAdvice(*device));
        device = selectedDevice(); // the box has run the event loop
        if (device == nullptr)
            return;
    }
    ui->DriveAxies->setEnabled(device->m_iDeviceType == KTL_DEVICE_TYPE_MultiDriver);
    ui->DriveAxies->setText(xmlGetStringuint(device->m_iDriveAxies));
    device_information_display(ui->DeviceTree->currentItem(), 0); // modules and commands depend on the type
}

void MainWindow::on_DriveAxies_editingFinished()
{
    struct_EtherCatDevice* const device = selectedDevice();
    if (device == nullptr)
        return;
    setDriveAxes(*device, toUint(ui->DriveAxies->text()));
    ui->DriveAxies->setText(xmlGetStringuint(device->m_iDriveAxies));
}

void MainWindow::on_comboBox_Dc_currentIndexChanged(int index)
{
    struct_EtherCatDevice* const device = selectedDevice();
    if (device == nullptr || index < 0)
        return;
    if (!chooseOperationMode(*device, ui->comboBox_Dc->itemData(index, Qt::UserRole).toUInt())) {
        warn(this, fileTitle(), tr("超出DC选择范围 %1:\n").arg(QString::fromStdString(device->Name)));
        return;
    }
    showOperationModes(*device);
}

void MainWindow::on_actionAbout_triggered()
{
    showAbout(this, tr("Software information(软件信息)"),
              QString::asprintf("Kinetra, Kinetra Xml Parser %s", versionText));
}
