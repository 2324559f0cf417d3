#include "cli/inputFile.h"

#include "cli/progress.h"
#include "esi/derivation/rangeErrors.h"
#include "esi/esiFile.h"

#include <QFileInfo>

#include <cstdio>
#include <new>
#include <stdexcept>
#include <utility>

namespace {

void tellFailure(const QString& path, const EsiLoadResult& result, Messages& messages)
{
    switch (result.status) {
    case EsiLoadStatus::Loaded:
        break;
    case EsiLoadStatus::CannotOpen:
        tellUnreadable(path, result.reason.text, messages);
        break;
    case EsiLoadStatus::NotWellFormed:
        messages.error(path, result.reason.line, result.reason.column, result.reason.text);
        break;
    case EsiLoadStatus::NotEsi:
        messages.error(path, QStringLiteral("this is no ESI file: it has no Vendor element"));
        break;
    }
}

/// Loads what is not known to be of another kind: what is wrong with a text, the parser of XML tells best.
bool loadEsi(const QString& path, Inputs& inputs, Messages& messages)
{
    QFile file;
    if (!openInput(file, path, messages))
        return false;
    const std::optional<InputKind> kind = kindOfInput(file, path, messages);
    if (kind == InputKind::Ktl)
        messages.error(path, QStringLiteral("this is a KTL file, not an ESI file"));
    if (!kind.has_value() || kind == InputKind::Ktl)
        return false;
    std::optional<struct_FilenameDevice> loaded = loadOpenEsi(file, path, inputs.document, messages);
    if (loaded.has_value())
        inputs.files.push_back(std::move(*loaded));
    return loaded.has_value();
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

std::optional<struct_FilenameDevice> loadOpenEsi(QFile& file, const QString& path, QDomDocument& document,
                                                 Messages& messages)
{
    try {
        const QString name = isStandardInput(path) ? shownName(path) : path;
        EsiLoadResult result = loadOpenEsiFile(file, name, document);
        tellFailure(path, result, messages);
        if (result.status != EsiLoadStatus::Loaded)
            return std::nullopt;
        result.file.xmlfilepath = QFile::encodeName(name).toStdString(); // every byte of it
        return std::move(result.file);
    } catch (const std::out_of_range& error) {
        messages.error(path, rangeErrorText(error));
    } catch (const std::bad_alloc&) {
        tellNoMemory(path, messages);
    }
    return std::nullopt;
}

bool loadEsiFiles(const QStringList& paths, Inputs& inputs, Messages& messages)
{
    if (paths.count(QStringLiteral("-")) > 1) {
        messages.error({}, QStringLiteral("standard input can be read once only"));
        return false;
    }
    bool areLoaded = true;
    int number = 0;
    for (const QString& path : paths) {
        const Progress progress(QStringLiteral("reading %1").arg(shownName(path)), ++number, paths.size());
        areLoaded = loadEsi(path, inputs, messages) && areLoaded;
    }
    return areLoaded;
}
