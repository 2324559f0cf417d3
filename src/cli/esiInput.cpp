#include "cli/esiInput.h"

#include "cli/inputFile.h"
#include "cli/progress.h"
#include "cli/streamName.h"
#include "esi/derivation/rangeErrors.h"
#include "esi/esiFile.h"

#include <new>
#include <stdexcept>
#include <utility>

namespace cli {

namespace {

void reportFailure(const QString& path, const EsiLoadResult& result, Messages& messages)
{
    switch (result.status) {
    case EsiLoadStatus::Loaded:
        break;
    case EsiLoadStatus::CannotOpen:
        reportUnreadable(path, result.reason.text, messages);
        break;
    case EsiLoadStatus::NotWellFormed:
        messages.error(path, result.reason.line, result.reason.column, result.reason.text);
        break;
    case EsiLoadStatus::NotEsi:
        messages.error(path, QStringLiteral("this is no ESI file: it has no Vendor element"));
        break;
    }
}

/// Loads what is not known to be of another kind: the XML parser knows best what is wrong with a text.
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

std::optional<struct_FilenameDevice> loadOpenEsi(QFile& file, const QString& path, QDomDocument& document,
                                                 Messages& messages)
{
    try {
        const QString name = isStandardInput(path) ? shownName(path) : path;
        EsiLoadResult result = loadOpenEsiFile(file, name, document);
        reportFailure(path, result, messages);
        if (result.status != EsiLoadStatus::Loaded)
            return std::nullopt;
        result.file.xmlfilepath = QFile::encodeName(name).toStdString(); // every byte of it
        return std::move(result.file);
    } catch (const std::out_of_range& error) {
        messages.error(path, rangeErrorText(error));
    } catch (const std::bad_alloc&) {
        reportNoMemory(path, messages);
    }
    return std::nullopt;
}

bool loadEsiFiles(const QStringList& paths, Inputs& inputs, Messages& messages)
{
    if (standardInputsIn(paths) > 1) {
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

} // namespace cli
