// mainwindow_tree.cpp - the device tree: filling, selecting, checking and deleting.
#include "workbench/mainwindow.h"

#include "editing/deviceEdits.h"
#include "esi/xmlCharConversion.h"
#include "workbench/checkState.h"
#include "workbench/tableViews.h"

#include "ui_mainwindow.h"

#include <QCursor>
#include <QHeaderView>
#include <QMenu>

namespace {

QTreeWidgetItem* checkedItem(const QString& text)
{
    auto* item = new QTreeWidgetItem(QStringList{text});
    item->setCheckState(0, Qt::Checked);
    return item;
}

/// Makes the column as wide as its widest name, so that a long one is reached by scrolling and never cut off, and at
/// least as wide as the tree.
void fitColumnToNames(QTreeWidget& tree)
{
    constexpr int widthOfStyle = -1;
    QHeaderView* header = tree.header();
    header->setMinimumSectionSize(widthOfStyle);
    header->setStretchLastSection(false);
    tree.resizeColumnToContents(0);
    header->setMinimumSectionSize(header->sectionSize(0));
    header->setStretchLastSection(true);
}

} // namespace

void MainWindow::DeviceDisplayUpdate()
{
    ui->DeviceTree->clear();
    for (const struct_FilenameDevice& file : g_xmlfiledevices) {
        const QString path = QString::fromStdString(file.xmlfilepath);
        QTreeWidgetItem* fileItem = checkedItem(path.split(QLatin1Char('/')).last());
        for (const struct_EtherCatDevice& device : file.device)
            fileItem->addChild(checkedItem(QString::fromStdString(device.Name)));
        ui->DeviceTree->addTopLevelItem(fileItem);
        fileItem->setExpanded(true);
    }
    fitColumnToNames(*ui->DeviceTree);
}

void MainWindow::device_information_display(QTreeWidgetItem* item, int /*column*/)
{
    sm_model_size = 0;
    pdo_model_size = 0;
    startup_model_size = 0;
    coe_model_size = 0;
    if (item == nullptr)
        return;
    ++m_dispatches;
    // The edits of the device selected so far are saved first: clearing empties the fields that they come from.
    device_switch_event();
    Device_Information_UIClear();
    if (selectItem(*ui->DeviceTree, item) && currentdeviceindex >= 0)
        showDevice();
}

/// Fills all tabs from the selected device. The order of the fills matters: the first two rebuild lists of the device
/// that the others show.
void MainWindow::showDevice()
{
    struct_FilenameDevice& file = g_xmlfiledevices.at(static_cast<std::size_t>(currentfileindex));
    struct_EtherCatDevice& device = file.device.at(static_cast<std::size_t>(currentdeviceindex));
    showIdentity(file, device);
    const int dispatches = m_dispatches;
    showDeviceType(device);
    if (m_dispatches != dispatches)
        return; // a changed type entry has run the whole dispatcher for the current item: every tab is filled
    if (!device.vopmode.empty())
        showOperationModes(device);
    device_slotmodule_display();
    device_modulestartup_generate();
    device_pdo_display();
    device_slots_display();
    device_module_display();
    device_CoE_display();
    device_startup_display();
    device_fmmu_display();
    device_sm_display();
    enableModuleIndexes(takesModuleIndexes(device.m_iDeviceType));
}

void MainWindow::enableModuleIndexes(bool enable)
{
    ui->ConfigModuleEdit->setEnabled(enable);
    ui->DetectModuleEdit->setEnabled(enable);
}

/// Saves the module index fields: the only way for these two edits to reach the model.
void MainWindow::device_switch_event()
{
    if (struct_EtherCatDevice* device = selectedDevice())
        setModuleIndexes(*device, toUint(ui->ConfigModuleEdit->text()), toUint(ui->DetectModuleEdit->text()));
}

void MainWindow::Device_Information_UIClear()
{
    for (QLineEdit* edit : {ui->TypeEdit, ui->RevisionEdit, ui->VendorEdit, ui->ProductCodeEdit, ui->RevisonNoEdit,
                            ui->SerialNo, ui->SyncEdit, ui->ConfigModuleEdit, ui->DetectModuleEdit})
        edit->clear();
    for (QLabel* label : {ui->label_17, ui->label_18})
        label->clear();
    for (QStandardItemModel* model : {&device_sm_model, &device_fmmu_model, &device_pdo_model, &device_pdocontent_model,
                                      &device_pdoassignment_model, &device_slots_model, &device_startup_model,
                                      &device_sync_model, &device_mpdo_model, &device_mpdocontent_model})
        removeAllRows(*model);
    ui->ModuleTree->clear();
    ui->CoeTree->clear();
    for (QCheckBox* box : {ui->checkBox_Dc1, ui->checkBox_Dc2, ui->checkBox_Dc3})
        box->setChecked(false);
    ui->comboBox_Dc->clear();
    ui->comboBox_Dc->clearEditText(); // the list is editable, and a typed text is not an entry of it
    enableModuleIndexes(false);
    ui->InsertModule->setEnabled(false);
    ui->DeleteModule->setEnabled(false);
}

void MainWindow::device_checked_updata(QTreeWidgetItem* item)
{
    pushStateDown(item);
}

void MainWindow::setParentPartiallyChecked(QTreeWidgetItem* itm)
{
    markAncestorsPartial(itm);
}

void MainWindow::device_checkedparent_updata(QTreeWidgetItem* item)
{
    recomputeAncestors(item);
}

void MainWindow::slotCustomContextMenu(const QPoint& /*point*/)
{
    auto* menu = new QMenu(ui->DeviceTree); // lives as long as the tree
    QTreeWidgetItem* item = ui->DeviceTree->currentItem();
    if (item == nullptr || !selectItem(*ui->DeviceTree, item))
        return;
    const QAction* remove = menu->addAction(tr("Delete"));
    connect(remove, &QAction::triggered, this, &MainWindow::device_delete);
    menu->exec(QCursor::pos());
}

/// Deletes the selected device, or the selected file. A file stays when its last device goes.
/// ODD, KEPT: the selection stays where it was, so that a second "Del" takes what has moved up into the same place,
/// where one would expect nothing to be selected. Pinned by tst_DeviceTreeDelete::repeatedKeyDeletesWhatIsThere.
void MainWindow::device_delete()
{
    if (currentfileindex < 0)
        return;
    const auto fileIndex = static_cast<std::size_t>(currentfileindex);
    if (fileIndex < g_xmlfiledevices.size()) {
        std::vector<struct_EtherCatDevice>& devices = g_xmlfiledevices[fileIndex].device;
        if (currentdeviceindex < 0)
            g_xmlfiledevices.erase(g_xmlfiledevices.begin() + currentfileindex);
        else if (static_cast<std::size_t>(currentdeviceindex) < devices.size())
            devices.erase(devices.begin() + currentdeviceindex);
    }
    DeviceDisplayUpdate();
    Device_Information_UIClear();
}
