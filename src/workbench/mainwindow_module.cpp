// mainwindow_module.cpp - the Module tab: slots, and the modules of the file.
#include "workbench/mainwindow.h"

#include "editing/deviceTypeTexts.h"
#include "editing/moduleData.h"
#include "editing/moduleEdits.h"
#include "editing/moduleIdentList.h"
#include "editing/slotPlaces.h"
#include "editing/slotTable.h"
#include "esi/xmlCharConversion.h"
#include "workbench/messages.h"
#include "workbench/tableViews.h"

#include "ui_mainwindow.h"

namespace {

QTreeWidgetItem* groupItem(const struct_commentmodule& group)
{
    auto* item = new QTreeWidgetItem(QStringList{QString::fromStdString(group.comment)});
    for (const struct_module& module : group.vmodule) {
        const QString name = QString::fromStdString(module.Name);
        auto* child = new QTreeWidgetItem(item, QStringList{name, xmlGetStringuint(module.TypeAttributes.ModuleIdent),
                                                            QString::fromStdString(module.TypeAttributes.Name)});
        child->setToolTip(0, name); // many names are longer than their column
    }
    return item;
}

/// Shows whether a module fits: black, or red and struck out, in every column.
void markModule(QTreeWidgetItem& item, bool fits)
{
    constexpr QColor black(0, 0, 0, 255);
    constexpr QColor red(255, 0, 0, 255);
    for (int column = 0; column < item.columnCount(); ++column) {
        QFont font = item.font(column);
        font.setStrikeOut(!fits);
        item.setFont(column, font);
        item.setForeground(column, fits ? black : red);
    }
}

void expandGroups(const QTreeWidget& tree)
{
    for (int index = 0; index < tree.topLevelItemCount(); ++index)
        if (tree.topLevelItem(index)->childCount() > 0)
            tree.topLevelItem(index)->setExpanded(true);
}

/// Removes the rows from one onward.
void cutRows(QStandardItemModel& model, int firstRow)
{
    if (firstRow < model.rowCount())
        model.removeRows(firstRow, model.rowCount() - firstRow);
}

} // namespace

void MainWindow::device_slots_display()
{
    const struct_EtherCatDevice* device = selectedDeviceInRange();
    if (device == nullptr)
        return;
    removeAllRows(device_slots_model);
    const SlotTable table = slotTableOf(device->Slots);
    for (int overflow = 0; overflow < table.overflows; ++overflow)
        warn(this, tr("slot sum overflow"), tr("Please check xml file"));
    device = selectedDeviceInRange(); // a box has run the event loop
    if (device == nullptr)
        return;
    for (const QStringList& row : table.rows)
        appendRow(device_slots_model, row);
    const SlotsAttributes& attributes = device->Slots.Attributes;
    const auto transition = static_cast<std::int32_t>(attributes.m_DownloadModuleListTransition);
    ui->DownlaodCfg->setChecked(attributes.DownloadModuleIdentList);
    ui->CfgTransition->setChecked(transition < static_cast<std::int32_t>(PS));
}

void MainWindow::device_module_display()
{
    if (selectedDeviceInRange() == nullptr)
        return;
    ui->ModuleTree->clear();
    QList<QTreeWidgetItem*> groups;
    for (const struct_commentmodule& group :
         g_xmlfiledevices[static_cast<std::size_t>(currentfileindex)].vcommentmodule)
        groups.append(groupItem(group));
    ui->ModuleTree->addTopLevelItems(groups);
    expandGroups(*ui->ModuleTree);
}

/// Rebuilds what the modules in the slots bring into the device. The tables that show it are cut back first.
void MainWindow::device_slotmodule_display()
{
    struct_EtherCatDevice* const device = selectedDeviceInRange();
    if (device == nullptr || device->Slots.vslot.empty())
        return;
    cutRows(device_startup_model, startup_model_size);
    cutRows(device_pdo_model, pdo_model_size);
    for (QStandardItemModel* model : {&device_pdocontent_model, &device_pdoassignment_model, &device_slots_model})
        removeAllRows(*model);
    moduleData::renewLists(*device);
}

void MainWindow::device_modulestartup_generate()
{
    if (struct_EtherCatDevice* device = selectedDeviceInRange())
        moduleData::appendStartup(*device);
}

void MainWindow::device_slot_clicked(const QModelIndex& /*index*/)
{
    struct_EtherCatDevice* const device = selectedDeviceInRange();
    if (device == nullptr)
        return;
    const QModelIndex current = ui->ModuleView->currentIndex();
    const struct_Slot* const slot = current.isValid() ? slotAt(device->Slots, current.row()) : nullptr;
    const auto& groups = g_xmlfiledevices[static_cast<std::size_t>(currentfileindex)].vcommentmodule;
    for (int group = 0; group < ui->ModuleTree->topLevelItemCount(); ++group) {
        const std::vector<struct_module>& modules = groups.at(static_cast<std::size_t>(group)).vmodule;
        QTreeWidgetItem* const item = ui->ModuleTree->topLevelItem(group);
        for (int child = 0; child < item->childCount(); ++child) {
            const std::uint32_t ident = modules.at(static_cast<std::size_t>(child)).TypeAttributes.ModuleIdent;
            markModule(*item->child(child), slot == nullptr || acceptsModule(*slot, ident));
        }
    }
    expandGroups(*ui->ModuleTree);
}

void MainWindow::on_ModuleView_clicked(const QModelIndex& index)
{
    ui->DeleteModule->setEnabled(true);
    device_slot_clicked(index);
}

void MainWindow::on_ModuleTree_currentItemChanged(QTreeWidgetItem* current, QTreeWidgetItem* /*previous*/)
{
    if (current != nullptr)
        ui->InsertModule->setEnabled(true);
}

/// Whether modules of the device can be put in and taken out by hand; if not the user is told why.
bool MainWindow::takesModules(const struct_EtherCatDevice& device)
{
    const std::optional<ModuleRefusal> refusal = moduleRefusal(device.m_iDeviceType);
    if (refusal.has_value())
        warn(this, refusalTitle(), moduleRefusalText(*refusal));
    return !refusal.has_value();
}

void MainWindow::on_InsertModule_clicked()
{
    struct_EtherCatDevice* device = selectedDeviceInRange();
    if (device == nullptr || !takesModules(*device))
        return;
    if (isModuleListAdvised(*device, ModulePreset::PutInModule))
        warn(this, refusalTitle(), moduleListAdvice(*device));
    const QModelIndex place = ui->ModuleView->currentIndex();
    const QModelIndex moduleIndex = ui->ModuleTree->currentIndex();
    if (!warnUnless(place.isValid(), tr("Select valid slot\n"))
        || !warnUnless(moduleIndex.isValid() && moduleIndex.parent().isValid(), tr("Select valid module\n")))
        return;
    device = selectedDeviceInRange(); // a box has run the event loop
    if (device == nullptr)
        return;
    const struct_module& module = moduleOf(moduleIndex);
    if (const std::optional<ModuleRefusal> refusal = insertModule(*device, place.row(), module)) {
        warn(this, refusalTitle(), moduleRefusalText(*refusal, module.Name));
        return;
    }
    refreshModules();
}

void MainWindow::on_DeleteModule_clicked()
{
    struct_EtherCatDevice* const device = selectedDeviceInRange();
    if (device == nullptr || !takesModules(*device))
        return;
    const QModelIndex place = ui->ModuleView->currentIndex();
    if (!warnUnless(place.isValid() && !device->Slots.vslot.empty(), tr("Select valid slot\n")))
        return;
    removeModule(*device, place.row());
    refreshModules();
}

/// Renews everything that follows from the modules in the slots: each part of `moduleData`, and the tables that show
/// it. The order matters.
void MainWindow::refreshModules()
{
    device_slotmodule_display();
    device_modulestartup_generate();
    device_startup_display();
    device_pdo_display();
    device_sm_display();
    device_slots_display();
}

void MainWindow::on_DownlaodCfg_stateChanged(int /*arg1*/)
{
    if (struct_EtherCatDevice* device = selectedDevice())
        setTakesModuleList(*device, ui->DownlaodCfg->isChecked());
}

void MainWindow::device_moduleindex_modify(int arg1)
{
    enableModuleIndexes(arg1 != 0);
}

/// The command that tells a coupler its configured modules. No signal reaches this slot yet.
str_InitCmd MainWindow::device_downloadslotcfg(str_Slot* slot)
{
    constexpr std::uint16_t configuredModules = 0xF030; // object of the list of configured module idents
    str_InitCmd command;
    const struct_EtherCatDevice* const device = selectedDeviceInRange();
    if (device == nullptr || slot == nullptr)
        return command;
    if (device->Slots.Attributes.DownloadModuleIdentList) {
        command.Transition = PS;
        command.Index = configuredModules;
        command.Comment = "download slot cfg";
    }
    command.strData = moduleIdentList(*slot);
    return command;
}
