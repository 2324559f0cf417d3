// mainwindow_files.cpp - opening files: the ESI dialog. The KTL import and file drops have no effect yet.
#include "workbench/mainwindow.h"

#include "esi/esiFile.h"
#include "workbench/messages.h"
#include "workbench/waitCursor.h"

#include "ui_mainwindow.h"

#include <QDir>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFileDialog>

void MainWindow::device_import_triggered()
{
    const QStringList paths =
        QFileDialog::getOpenFileNames(this, tr("文件对话框！"), QStringLiteral("."), tr("XML文件(*xml)"));
    if (paths.isEmpty())
        warn(this, fileMatters(), tr("Please select a xml file to open"));
    for (const QString& path : paths)
        // A failure ends the opening at once: what was read before it stays loaded and shows with the next refill.
        if (!path.isEmpty() && !importEsiFile(path))
            return;
    DeviceDisplayUpdate();
}

/// Loads one file and tells of a failure.
bool MainWindow::importEsiFile(const QString& path)
{
    EsiLoadResult result;
    {
        const WaitCursor waiting;
        result = loadEsiFile(path);
    }
    switch (result.status) {
    case EsiLoadStatus::Loaded:
        return true;
    case EsiLoadStatus::CannotOpen:
        warn(this, fileMatters(),
             tr("The file cannot be read %1:\n%2.").arg(QDir::toNativeSeparators(path), result.openError));
        break;
    case EsiLoadStatus::NotWellFormed:
        inform(window(), fileMatters(),
               tr("XML Field format error， 行:%1, 列:%2:\n%3")
                   .arg(result.formatError.line)
                   .arg(result.formatError.column)
                   .arg(result.formatError.message));
        break;
    case EsiLoadStatus::NotEsi:
        warn(this, fileMatters(), tr("this xml file not is ethercat xml\n"));
        break;
    }
    return false;
}

void MainWindow::on_actionInPort_ktl_triggered() {}

void MainWindow::dragEnterEvent(QDragEnterEvent* /*event*/) {}

void MainWindow::dropEvent(QDropEvent* /*event*/) {}
