#include "cli/convertCommand.h"

#include "esi/esiFile.h"
#include "ktl/ktlExport.h"
#include "ktl/ktlFile.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <ostream>
#include <stdexcept>

namespace {

/// The error of a load as a compiler would tell it: file first, then line and column if there are any.
QString loadMessage(const QString& path, const EsiLoadResult& result)
{
    const QString file = QDir::toNativeSeparators(path);
    switch (result.status) {
    case EsiLoadStatus::Loaded:
        break;
    case EsiLoadStatus::CannotOpen:
        return QStringLiteral("%1: error: the file cannot be read: %2").arg(file, result.openError);
    case EsiLoadStatus::NotWellFormed:
        return QStringLiteral("%1:%2:%3: error: %4")
            .arg(file)
            .arg(result.formatError.line)
            .arg(result.formatError.column)
            .arg(result.formatError.message);
    case EsiLoadStatus::NotEsi:
        return QStringLiteral("%1: error: this is no ESI file: it has no Vendor element").arg(file);
    }
    return {};
}

/// @return  empty if everything was saved
QString saveMessage(const QString& path, const KtlSaveResult& result)
{
    const QString file = QDir::toNativeSeparators(path);
    const QString reason =
        result.reason.empty() ? QString() : QStringLiteral(": ") + QString::fromStdString(result.reason);
    switch (result.status) {
    case KtlSaveStatus::Saved:
        break;
    case KtlSaveStatus::CannotWrite:
        return QStringLiteral("%1: error: the file cannot be written in full%2").arg(file, reason);
    case KtlSaveStatus::CannotReopen:
        return QStringLiteral("%1: error: the file was written, but cannot be opened again for its text dump%2")
            .arg(file, reason);
    case KtlSaveStatus::CannotWriteDump:
        return QStringLiteral("%1.txt: error: the text dump cannot be written in full%2").arg(file, reason);
    }
    return {};
}

/// Loads a file.
/// @return  whether it was loaded; if not, `messages` tells why
bool load(const QString& path, std::ostream& messages)
{
    try {
        const EsiLoadResult result = loadEsiFile(path);
        if (result.status == EsiLoadStatus::Loaded)
            return true;
        messages << loadMessage(path, result).toStdString() << '\n';
    } catch (const std::out_of_range& error) {
        messages << QDir::toNativeSeparators(path).toStdString()
                 << ": error: a PDO names a sync manager that its device does not declare: " << error.what() << '\n';
    }
    return false;
}

bool holdsDevices(const std::vector<struct_FilenameDevice>& files)
{
    return std::any_of(files.cbegin(), files.cend(),
                       [](const struct_FilenameDevice& file) { return !file.device.empty(); });
}

/// Whether two paths name the same file that exists.
bool isSameFile(const QString& first, const QString& second)
{
    const QString canonical = QFileInfo(first).canonicalFilePath();
    return !canonical.isEmpty() && canonical == QFileInfo(second).canonicalFilePath();
}

} // namespace

ExitCode convert(const QStringList& esiFiles, const QString& outputFile, std::ostream& messages)
{
    for (const QString& path : esiFiles)
        if (isSameFile(path, outputFile)) {
            messages << QDir::toNativeSeparators(path).toStdString() << ": error: the output would replace this file\n";
            return ExitCode::Usage;
        }
    for (const QString& path : esiFiles)
        if (!load(path, messages))
            return ExitCode::Failure;
    if (!holdsDevices(g_xmlfiledevices)) {
        messages << "error: the files hold no device, nothing is written\n";
        return ExitCode::Failure;
    }
    const auto everyDevice = [](std::size_t /*file*/, std::size_t /*device*/) { return true; };
    const QDateTime exportTime = QDateTime::currentDateTime();
    const auto writeRun = [&](std::FILE* out, int* errorCode) {
        return writeDevices(out, g_xmlfiledevices, everyDevice, errorCode, exportTime);
    };
    const KtlSaveResult result =
        saveKtlFile(QFile::encodeName(outputFile).toStdString(), KtlSaveMode::Overwrite, writeRun);
    if (result.status == KtlSaveStatus::Saved)
        return ExitCode::Success;
    messages << saveMessage(outputFile, result).toStdString() << '\n';
    return ExitCode::Failure;
}
