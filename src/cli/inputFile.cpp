#include "cli/inputFile.h"

#include "cli/deviceLabel.h"
#include "cli/progress.h"
#include "esi/esiFile.h"
#include "esi/xmlCharConversion.h"
#include "model/XMLParsing.h"
#include "model/missingSyncManager.h"

#include <QFileInfo>

#include <cstdio>
#include <new>

namespace {

void tellFailure(const QString& path, const EsiLoadResult& result, Messages& messages)
{
    switch (result.status) {
    case EsiLoadStatus::Loaded:
        break;
    case EsiLoadStatus::CannotOpen:
        tellUnreadable(path, result.openError, messages);
        break;
    case EsiLoadStatus::NotWellFormed:
        messages.error(path, result.formatError.line, result.formatError.column, result.formatError.message);
        break;
    case EsiLoadStatus::NotEsi:
        messages.error(path, QStringLiteral("this is no ESI file: it has no Vendor element"));
        break;
    }
}

/// Loads what is not known to be of another kind: what is wrong with a text, the parser of XML tells best.
bool loadEsi(const QString& path, Messages& messages)
{
    QFile file;
    if (!openInput(file, path, messages))
        return false;
    const std::optional<InputKind> kind = kindOfInput(file, path, messages);
    if (kind == InputKind::Ktl)
        messages.error(path, QStringLiteral("this is a KTL file, not an ESI file"));
    return kind.has_value() && kind != InputKind::Ktl && loadOpenEsi(file, path, messages);
}

} // namespace

bool isStandardInput(const QString& path)
{
    return path == QLatin1String("-");
}

QString filePath(const QString& argument)
{
    return argument.startsWith(QLatin1Char(':')) ? QStringLiteral("./") + argument : argument;
}

QString inputPathOf(const struct_FilenameDevice& file)
{
    return QFile::decodeName(file.xmlfilepath.c_str());
}

void tellUnreadable(const QString& path, const QString& reason, Messages& messages)
{
    messages.error(path, QStringLiteral("the file cannot be read: ") + reason);
}

void tellNoMemory(const QString& path, Messages& messages)
{
    messages.error(path, QStringLiteral("not enough memory"));
}

bool openInput(QFile& file, const QString& path, Messages& messages)
{
    if (path.isEmpty()) {
        messages.error({}, QStringLiteral("the name of a file is empty"));
        return false;
    }
    if (!isStandardInput(path) && QFileInfo(path).isDir()) {
        tellUnreadable(path, QStringLiteral("this is a folder"), messages);
        return false;
    }
    file.setFileName(path);
    const bool isOpen = isStandardInput(path) ? file.open(stdin, QIODevice::ReadOnly) : file.open(QIODevice::ReadOnly);
    if (!isOpen)
        tellUnreadable(path, file.errorString(), messages);
    return isOpen;
}

std::optional<InputKind> kindOfInput(QFile& file, const QString& path, Messages& messages)
{
    file.startTransaction();
    QByteArray beginning = file.read(bytesOfKind);
    for (QByteArray more = beginning; !more.isEmpty() && beginning.size() < bytesOfKind; beginning += more)
        more = file.read(bytesOfKind - beginning.size()); // a pipe gives what it happens to hold
    file.rollbackTransaction();
    if (file.error() != QFileDevice::NoError) {
        tellUnreadable(path, file.errorString(), messages);
        return std::nullopt;
    }
    return inputKindOf(beginning);
}

bool loadOpenEsi(QFile& file, const QString& path, Messages& messages)
{
    try {
        const QString name = isStandardInput(path) ? shownName(path) : path;
        const EsiLoadResult result = loadOpenEsiFile(file, name);
        tellFailure(path, result, messages);
        if (result.status != EsiLoadStatus::Loaded)
            return false;
        g_xmlfiledevices.back().xmlfilepath = QFile::encodeName(name).toStdString(); // every byte of it
        return true;
    } catch (const std::out_of_range& error) {
        messages.error(path, rangeErrorText(error));
    } catch (const std::bad_alloc&) {
        tellNoMemory(path, messages);
    }
    return false;
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
    const auto* const missing = dynamic_cast<const MissingSyncManager*>(&error);
    if (missing == nullptr)
        return QStringLiteral("a number in the file goes beyond the end of a list");
    return QStringLiteral("device %1: PDO %2 %3 names sync manager %4, which the device does not declare: it has %5")
        .arg(shownText(QString::fromStdString(missing->device())), xmlGetStringuint(missing->pdoIndex()),
             shownText(QString::fromStdString(missing->pdoName())), QString::number(missing->number()),
             QString::number(missing->present()));
}
