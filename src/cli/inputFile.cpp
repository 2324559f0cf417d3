#include "cli/inputFile.h"

#include "cli/progress.h"
#include "esi/esiFile.h"
#include "esi/xmlCharConversion.h"
#include "model/missingSyncManager.h"

#include <cstdio>

namespace {

void tellFailure(const QString& path, const EsiLoadResult& result, Messages& messages)
{
    switch (result.status) {
    case EsiLoadStatus::Loaded:
        break;
    case EsiLoadStatus::CannotOpen:
        messages.error(path, QStringLiteral("the file cannot be read: ") + result.openError);
        break;
    case EsiLoadStatus::NotWellFormed:
        messages.error(path, result.formatError.line, result.formatError.column, result.formatError.message);
        break;
    case EsiLoadStatus::NotEsi:
        messages.error(path, QStringLiteral("this is no ESI file: it has no Vendor element"));
        break;
    }
}

bool loadEsi(const QString& path, Messages& messages)
{
    QFile file;
    return openInput(file, path, messages) && loadOpenEsi(file, path, messages);
}

} // namespace

bool isStandardInput(const QString& path)
{
    return path == QLatin1String("-");
}

bool openInput(QFile& file, const QString& path, Messages& messages)
{
    if (path.isEmpty()) {
        messages.error({}, QStringLiteral("the name of a file is empty"));
        return false;
    }
    file.setFileName(path);
    const bool isOpen = isStandardInput(path) ? file.open(stdin, QIODevice::ReadOnly) : file.open(QIODevice::ReadOnly);
    if (!isOpen)
        messages.error(path, QStringLiteral("the file cannot be read: ") + file.errorString());
    return isOpen;
}

bool loadOpenEsi(QFile& file, const QString& path, Messages& messages)
{
    try {
        const EsiLoadResult result = loadOpenEsiFile(file, isStandardInput(path) ? shownName(path) : path);
        tellFailure(path, result, messages);
        return result.status == EsiLoadStatus::Loaded;
    } catch (const std::out_of_range& error) {
        messages.error(path, rangeErrorText(error));
        return false;
    }
}

bool loadEsiFiles(const QStringList& paths, Messages& messages)
{
    if (paths.count(QStringLiteral("-")) > 1) {
        messages.error({}, QStringLiteral("standard input can be read once only"));
        return false;
    }
    bool areLoaded = true;
    int number = 0;
    for (const QString& path : paths) {
        const Progress progress(QStringLiteral("reading %1").arg(shownName(path)), ++number, paths.size());
        areLoaded = loadEsi(path, messages) && areLoaded;
    }
    return areLoaded;
}

QString rangeErrorText(const std::out_of_range& error)
{
    if (const auto* missing = dynamic_cast<const MissingSyncManager*>(&error))
        return QStringLiteral("device \"%1\": PDO %2 \"%3\" names a sync manager that the device does not declare (%4)")
            .arg(QString::fromStdString(missing->device()), xmlGetStringuint(missing->pdoIndex()),
                 QString::fromStdString(missing->pdoName()), QString::fromLocal8Bit(missing->what()));
    return QString::fromLocal8Bit(error.what());
}
