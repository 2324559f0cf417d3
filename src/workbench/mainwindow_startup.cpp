// mainwindow_startup.cpp - the Startup tab.
#include "workbench/mainwindow.h"

#include "editing/startupRows.h"
#include "model/objectAreas.h"
#include "model/startupAccess.h"
#include "workbench/rowTexts.h"
#include "workbench/startupeditwin.h"
#include "workbench/tableViews.h"

#include "ui_mainwindow.h"

#include <type_traits>

namespace {

/// Commands of modules are marked, but for the assignments of the usual two sync managers: these mostly name PDOs of
/// the device itself.
QBrush colourOf(const struct_moduleInitCmd& command)
{
    constexpr std::uint16_t assignmentOfOutputs = assignObjectOf(2);
    constexpr std::uint16_t assignmentOfInputs = assignObjectOf(3);
    const std::uint16_t index = indexOf(command);
    return index == assignmentOfOutputs || index == assignmentOfInputs ? QBrush() : colourOfModules();
}

QBrush colourOf(const struct_InitCmd& /*command*/)
{
    return {};
}

} // namespace

void MainWindow::device_startup_display()
{
    const struct_EtherCatDevice* const device = selectedDevice();
    if (device == nullptr)
        return;
    removeAllRows(device_startup_model);
    const bool completeAccess = device->Mailbox.COE.Attributes.CompleteAccess;
    forEachStartupList(*device, [&](const auto& commands, std::uint16_t count, StartupList list) {
        for (std::size_t position = 0; position < count; ++position)
            appendRow(device_startup_model, startupRow(commands[position], list, completeAccess),
                      colourOf(commands[position]));
    });
    startup_model_size = device_startup_model.rowCount();
}

void MainWindow::StartupViewCustomMenu(const QPoint& /*point*/)
{
    runMenu(*ui->StartupView, {{tr("add"), &MainWindow::on_StartupView_add},
                               {tr("modify"), &MainWindow::on_StartupView_modify},
                               {tr("delete"), &MainWindow::on_StartupView_delete}});
}

void MainWindow::on_StartupView_add()
{
    const QModelIndex current = ui->StartupView->currentIndex();
    if (!warnUnless(current.isValid(), tr("Please select a startup\n")))
        return;
    const int row = current.row();
    struct_EtherCatDevice* const device = selectedDevice();
    if (device == nullptr || !insertStartupCommand(*device, row))
        return;
    device_startup_display();
    ui->StartupView->selectRow(row + 1);
    on_StartupView_modify();
}

void MainWindow::on_StartupView_modify()
{
    if (warnUnless(ui->StartupView->currentIndex().isValid(), tr("Please select a startup\n")))
        openEditor(StartupEditWindow, &Startupeditwin::StartupsendTextToParent, &MainWindow::StartupEditWindowSendMsg,
                   tr("startup editor"));
}

void MainWindow::on_StartupView_doubleClicked(const QModelIndex& /*index*/)
{
    on_StartupView_modify();
}

void MainWindow::on_StartupView_delete()
{
    const QModelIndex current = ui->StartupView->currentIndex();
    if (!warnUnless(current.isValid(), tr("Please select a startup\n")))
        return;
    if (struct_EtherCatDevice* device = selectedDevice())
        eraseStartupCommand(*device, current.row());
    device_startup_display();
}

void MainWindow::StartupEditWindowSendMsg(const QString& /*text*/)
{
    StartupEditWindow = nullptr;
    if (ui->StartupView->currentIndex().isValid())
        device_startup_display();
}
