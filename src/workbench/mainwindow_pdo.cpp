// mainwindow_pdo.cpp - the Process Data tab.
#include "workbench/mainwindow.h"

#include "editing/assignablePdos.h"
#include "editing/pdoEdits.h"
#include "editing/pdoRows.h"
#include "esi/xmlCharConversion.h"
#include "model/objectAreas.h"
#include "model/pdoAccess.h"
#include "workbench/entryRows.h"
#include "workbench/rowTexts.h"
#include "workbench/tableViews.h"

#include "ui_mainwindow.h"

#include <type_traits>

void MainWindow::device_pdo_display()
{
    const struct_EtherCatDevice* const device = selectedDevice();
    if (device == nullptr)
        return;
    removeAllRows(device_pdo_model);
    forEachPdoList(*device, [this](const auto& pdos, PdoDirection /*direction*/) {
        using Pdo = typename std::decay_t<decltype(pdos)>::value_type;
        const QBrush colour = std::is_same_v<Pdo, modulePdo> ? colourOfModules() : QBrush();
        appendRows(
            device_pdo_model, pdos, [](const Pdo& pdo) { return pdoRow(pdo); }, colour);
    });
    pdo_model_size = device_pdo_model.rowCount();
    const CoeAttributes& coe = device->Mailbox.COE.Attributes;
    ui->SdocheckBox->setChecked(coe.SdoInfo);
    ui->PdocheckBoxA->setChecked(coe.PdoAssign);
    ui->PdocheckBoxC->setChecked(coe.PdoConfig);
}

void MainWindow::on_SyncManagerView_clicked(const QModelIndex& index)
{
    device_sm_clicked(index);
}

/// Lists the PDOs that the clicked sync manager could carry. The view only reports.
void MainWindow::device_sm_clicked(const QModelIndex& index)
{
    const struct_EtherCatDevice* const device = selectedDevice();
    if (device == nullptr || !index.isValid())
        return;
    const int row = index.row();
    const struct_SM& syncManager = device->vSM.at(static_cast<std::size_t>(row));
    ui->label_18->setText(bracketed(assignObjectOf(syncManager.SM)));
    removeAllRows(device_pdoassignment_model);
    forEachPdoList(*device, [&](const auto& pdos, PdoDirection /*direction*/) {
        for (const auto& pdo : pdos)
            if (isAssignable(indexOf(pdo), syncManager.Smtype))
                appendRow(device_pdoassignment_model,
                          {xmlGetStringuint(indexOf(pdo)),
                           pdo.Attributes.SM == row ? QStringLiteral("1") : QStringLiteral("")});
    });
}

void MainWindow::on_PdoListView_clicked(const QModelIndex& index)
{
    const struct_EtherCatDevice* const device = selectedDevice();
    if (device == nullptr)
        return;
    removeAllRows(device_pdocontent_model);
    visitPdoRow(*device, index.row(), [this](const auto& pdo, PdoDirection /*direction*/) {
        ui->label_17->setText(bracketed(indexOf(pdo)));
        appendEntryRows(device_pdocontent_model, pdo);
    });
}

void MainWindow::PdoContentViewCustomMenu(const QPoint& /*point*/)
{
    runMenu(*ui->PdoContentView, {{tr("Modify"), &MainWindow::on_pdoContect_modify},
                                  {tr("Add"), &MainWindow::on_pdoContect_add},
                                  {tr("Delete"), &MainWindow::on_pdoContect_delete}});
}

/// The first selected row of the entries, or nothing after a refusal.
std::optional<QModelIndex> MainWindow::selectedEntry()
{
    if (!warnUnless(ui->PdoListView->currentIndex().isValid(), tr("Please select a pdo\n")))
        return std::nullopt;
    const QModelIndexList selected = ui->PdoContentView->selectionModel()->selectedIndexes();
    // The two texts differ by a blank, so that a report from the field tells which of the two checks refused.
    if (!warnUnless(!selected.isEmpty(), tr("Please select a  pdo content\n"))
        || !warnUnless(selected.first().isValid(), tr("Please select a pdo content\n")))
        return std::nullopt;
    return selected.first();
}

/// Entries of modules are neither added nor deleted, and the last use of the module views counts until an entry of the
/// device is modified.
bool MainWindow::refuseModuleEntry()
{
    return !warnUnless(!g_bpdoormodulepdo, tr("Please select no modulepdo\n"));
}

void MainWindow::on_pdoContect_modify()
{
    if (!selectedEntry())
        return;
    g_bpdoormodulepdo = false;
    g_bpdoMultiplechoice = true;
    openPdoEditor(tr("Pdo editor"));
}

void MainWindow::on_PdoContentView_doubleClicked(const QModelIndex& /*index*/)
{
    if (!warnUnless(ui->PdoListView->currentIndex().isValid(), tr("Please select a pdo\n"))
        || !warnUnless(ui->PdoContentView->currentIndex().isValid(), tr("Please select a pdo content\n")))
        return;
    g_bpdoormodulepdo = false;
    g_bpdoMultiplechoice = false;
    openPdoEditor(tr("Pdo editor"));
}

/// Changes the entries of the current PDO at the first selected one, and shows them again.
/// @param change  given the device, the row of the PDO and the row of the entry
/// @return        row of that entry, nothing after a refusal
std::optional<int> MainWindow::changeEntries(void (*change)(struct_EtherCatDevice&, int, int))
{
    if (refuseModuleEntry())
        return std::nullopt;
    const std::optional<QModelIndex> entry = selectedEntry();
    if (!entry)
        return std::nullopt;
    g_bpdoormodulepdo = false;
    g_bpdoMultiplechoice = false;
    const int pdoRow = ui->PdoListView->currentIndex().row();
    const int entryRow = entry->row();
    if (struct_EtherCatDevice* device = selectedDevice())
        change(*device, pdoRow, entryRow);
    ui->PdoListView->selectRow(pdoRow);
    PdoEditWindowSendMsg(QStringLiteral("hello"));
    return entryRow;
}

/// The new entry opens in the editor at once. After the closing row there is none, and the editor says so.
void MainWindow::on_pdoContect_add()
{
    const std::optional<int> entryRow = changeEntries(insertPdoEntry);
    if (!entryRow)
        return;
    ui->PdoContentView->selectRow(*entryRow + 1);
    on_PdoContentView_doubleClicked(ui->PdoContentView->currentIndex());
}

void MainWindow::on_pdoContect_delete()
{
    changeEntries(erasePdoEntry);
}

void MainWindow::PdoEditWindowSendMsg(const QString& /*text*/)
{
    PdoEditWindow = nullptr;
    const QTableView* const pdos = g_bpdoormodulepdo ? ui->mPdoListView : ui->PdoListView;
    const QModelIndex current = pdos->currentIndex();
    if (!current.isValid())
        return;
    if (g_bpdoormodulepdo)
        on_mPdoListView_clicked(current);
    else
        on_PdoListView_clicked(current);
}
