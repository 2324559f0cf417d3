// mainwindow_files.cpp - opening files: the ESI dialog, the KTL dialog, and files dropped on the window.
#include "workbench/mainwindow.h"

#include "esi/esiFile.h"
#include "ktl/reading/ktlReader.h"
#include "ktl/writing/ktlFile.h"
#include "workbench/messages.h"
#include "workbench/waitCursor.h"

#include "ui_mainwindow.h"

#include <QDir>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFile>
#include <QFileDialog>
#include <QMimeData>
#include <QUrl>

#include <cstdio>
#include <utility>

void MainWindow::device_import_triggered()
{
    const QStringList paths =
        QFileDialog::getOpenFileNames(this, tr("文件对话框！"), QStringLiteral("."), tr("XML文件(*xml)"));
    if (paths.isEmpty())
        warn(this, fileTitle(), tr("Please select a xml file to open"));
    for (const QString& path : paths)
        // A failure ends the opening at once: what was read before stays loaded and appears with the next refill.
        if (!path.isEmpty() && !importEsiFile(path))
            return;
    DeviceDisplayUpdate();
}

/// Loads one file and reports a failure.
bool MainWindow::importEsiFile(const QString& path)
{
    EsiLoadResult result;
    {
        const WaitCursor waiting;
        result = loadEsiFile(path, domDocument);
    }
    switch (result.status) {
    case EsiLoadStatus::Loaded:
        g_xmlfiledevices.push_back(std::move(result.file));
        return true;
    case EsiLoadStatus::CannotOpen:
        warn(this, fileTitle(),
             tr("The file cannot be read %1:\n%2.").arg(QDir::toNativeSeparators(path), result.reason.text));
        break;
    case EsiLoadStatus::NotWellFormed:
        inform(window(), fileTitle(),
               tr("XML Field format error， 行:%1, 列:%2:\n%3")
                   .arg(result.reason.line)
                   .arg(result.reason.column)
                   .arg(result.reason.text));
        break;
    case EsiLoadStatus::NotEsi:
        warn(this, fileTitle(), tr("this xml file not is ethercat xml\n"));
        break;
    }
    return false;
}

void MainWindow::on_actionInPort_ktl_triggered()
{
    const QStringList paths =
        QFileDialog::getOpenFileNames(this, tr("文件对话框！"), QStringLiteral("."), tr("KTL文件(*ktl)"));
    if (paths.isEmpty())
        warn(this, ktlTitle(), tr("Please select a ktl file to open"));
    for (const QString& path : paths)
        if (!path.isEmpty())
            importKtlFile(path);
    DeviceDisplayUpdate();
}

/// Loads one file; warns if it cannot be opened.
/// ODD, KEPT: nothing is said of a file that makes no sense, where one would expect a warning. What could be read of it
/// appears in the tree. Pinned by tst_ImportKtl::brokenFile.
void MainWindow::importKtlFile(const QString& path)
{
    const FileHandle file(std::fopen(QFile::encodeName(path).constData(), "rb"));
    if (file == nullptr) {
        warn(this, ktlTitle(),
             tr("File open failure again %1:\n Unknown ecoding error.").arg(QDir::toNativeSeparators(path)));
        return;
    }
    const WaitCursor waiting;
    int errorCode = 0;
    device_writektltodevices(file.get(), path, &errorCode);
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event)
{
    if (event->mimeData()->hasUrls()) {
        event->acceptProposedAction();
    } else {
        event->ignore();
        qDebug("无效文件哦");
    }
}

void MainWindow::dropEvent(QDropEvent* event)
{
    if (!event->mimeData()->hasUrls()) {
        warn(this, selectionTitle(), tr("file does not exist\n"));
        return;
    }
    for (const QUrl& url : event->mimeData()->urls())
        if (const QString path = url.toLocalFile(); !path.isEmpty())
            loadDroppedFile(path);
    DeviceDisplayUpdate();
}

/// Loads one dropped file by its kind; a bad one does not stop the others.
/// ODD, KEPT: the kind may be anywhere after the last dot of the name, in lower case only: "a.xmlbak" is read, and so
/// is "myxml" without a dot. One would expect the whole suffix, in either case. Pinned by tst_FileDrop::kindOfFile.
void MainWindow::loadDroppedFile(const QString& path)
{
    const QString suffix = path.split(QLatin1Char('/')).last().split(QLatin1Char('.')).last();
    if (suffix.contains(QLatin1String("xml")))
        importEsiFile(path);
    else if (suffix.contains(QLatin1String("ktl")))
        importKtlFile(path);
    else
        warn(this, fileTitle(), tr("The file unsupport be read %1:\n").arg(QDir::toNativeSeparators(path)));
}
