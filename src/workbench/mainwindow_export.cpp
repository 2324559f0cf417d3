// mainwindow_export.cpp - the export of the checked devices.
#include "workbench/mainwindow.h"

#include "editing/exportChecks.h"
#include "ktl/ktlExport.h"
#include "ktl/treeSelection.h"
#include "ktl/writing/ktlFile.h"
#include "system/fileAccess.h"
#include "workbench/messages.h"
#include "workbench/overwriteQuestion.h"
#include "workbench/waitCursor.h"

#include "ui_mainwindow.h"

#include <QDir>
#include <QFile>
#include <QFileDialog>

#include <optional>

namespace {

int checkedFiles(const QTreeWidget& tree)
{
    int count = 0;
    for (int index = 0; index < tree.topLevelItemCount(); ++index)
        count += isCheckedForExport(tree.topLevelItem(index)) ? 1 : 0;
    return count;
}

/// What the user wants done with the target, or nothing if the export is to stop.
std::optional<KtlSaveMode> saveModeFor(QWidget* parent, const std::string& path, const QString& nativePath)
{
    if (os::isWritable(path)) {
        switch (askOverwrite(parent)) {
        case OverwriteAnswer::Overwrite:
            return KtlSaveMode::Overwrite;
        case OverwriteAnswer::Append:
            return KtlSaveMode::Append;
        case OverwriteAnswer::Neither:
            break;
        }
        return std::nullopt;
    }
    if (os::isThere(path)) {
        warn(parent, fileTitle(), MainWindow::tr("The file does not have write permission %1:\n").arg(nativePath));
        return std::nullopt;
    }
    return KtlSaveMode::Overwrite;
}

/// The warning of a failed export.
QString saveWarning(KtlSaveStatus failure, const std::string& path)
{
    const std::string failedPath = failure == KtlSaveStatus::CannotWriteDump ? dumpPathOf(path) : path;
    const QString text = failure == KtlSaveStatus::CannotReopen
                             ? MainWindow::tr("File open failure again %1:\n Unknown ecoding error.")
                             : MainWindow::tr("File write failure %1:\n Unknown ecoding error.");
    return text.arg(QDir::toNativeSeparators(QFile::decodeName(failedPath.c_str())));
}

} // namespace

void MainWindow::device_export_triggered()
{
    device_switch_event();
    if (checkedFiles(*ui->DeviceTree) == 0) {
        warn(this, selectionTitle(), tr("Select at least one device export\n"));
        return;
    }
    if (const std::optional<QString> path = askExportPath(warnAndProposeName()))
        exportTo(*path);
}

/// Warns about the checked devices, in tree order.
/// @return  proposed name by the first file that holds a checked device; empty if there is none
QString MainWindow::warnAndProposeName()
{
    QString proposedName;
    for (std::size_t fileIndex = 0; fileIndex < g_xmlfiledevices.size(); ++fileIndex)
        for (std::size_t deviceIndex = 0; deviceIndex < g_xmlfiledevices[fileIndex].device.size(); ++deviceIndex) {
            if (!isCheckedForExport(*ui->DeviceTree, fileIndex, deviceIndex))
                continue;
            for (const QString& warning : exportWarnings(g_xmlfiledevices[fileIndex].device[deviceIndex]))
                warn(this, fileTitle(), warning);
            if (proposedName.isEmpty())
                proposedName = proposedKtlName(g_xmlfiledevices[fileIndex]);
        }
    return proposedName;
}

/// @return  the chosen path, nothing if the dialog was cancelled
std::optional<QString> MainWindow::askExportPath(const QString& proposedName)
{
    QFileDialog dialog(this);
    dialog.setWindowModality(Qt::WindowModal);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setNameFilter(tr("ktl files(*.ktl )"));
    if (!proposedName.isEmpty())
        dialog.selectFile(proposedName);
    if (dialog.exec() != QDialog::Accepted)
        return std::nullopt;
    return dialog.selectedFiles().value(0);
}

/// Writes the file and its dump, and reports what went wrong; success has no message.
void MainWindow::exportTo(const QString& path)
{
    // The C library takes a path in the file system's encoding, up to its first zero byte.
    const std::string filePath = QFile::encodeName(path).constData();
    const QString nativePath = QDir::toNativeSeparators(path);
    if (filePath.empty()) {
        warn(this, fileTitle(), tr("File path is empty %1:\n").arg(nativePath));
        return;
    }
    const std::optional<KtlSaveMode> mode = saveModeFor(this, filePath, nativePath);
    if (!mode.has_value())
        return;
    KtlSaveResult result;
    {
        const WaitCursor waiting;
        result = saveKtlFile(filePath, *mode, [this](std::FILE* out, int* errorCode) {
            return KTL_write_devices(out, ui->DeviceTree, errorCode);
        });
    }
    if (result.status != KtlSaveStatus::Saved)
        warn(this, fileTitle(), saveWarning(result.status, filePath));
}
