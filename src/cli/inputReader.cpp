#include "cli/inputReader.h"

#include "cli/inputFile.h"
#include "cli/ktlInput.h"
#include "cli/streamName.h"
#include "esi/derivation/rangeErrors.h"

#include <QFile>

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

void readEsi(QFile& file, const QString& path, Dictionaries dictionaries, ReadInput& input)
{
    const QString name = isStandardInput(path) ? shownName(path) : path;
    EsiLoadResult result = loadOpenEsiFile(file, name, dictionaries);
    reportFailure(path, result, input.messages);
    if (result.status != EsiLoadStatus::Loaded)
        return;
    result.file.xmlfilepath = QFile::encodeName(name).toStdString(); // every byte of it
    input.esi = std::move(result);
}

/// Reads a file as what it is. Where ESI files alone are taken, that is all which is not known to be another kind: the
/// XML parser knows best what is wrong with a text.
void readByKind(QFile& file, const QString& path, AcceptedInputs accepted, Dictionaries dictionaries, ReadInput& input)
{
    const std::optional<InputKind> kind = kindOfInput(file, path, input.messages);
    if (!kind.has_value())
        return;
    const bool takesKtl = accepted == AcceptedInputs::EsiAndKtl;
    if (*kind == InputKind::Ktl && takesKtl)
        input.ktl = readKtl(file, path, input.messages);
    else if (*kind == InputKind::Ktl)
        input.messages.error(path, QStringLiteral("this is a KTL file, not an ESI file"));
    else if (*kind == InputKind::Neither && takesKtl)
        input.messages.error(path, QStringLiteral("this is neither an ESI file nor a KTL file"));
    else
        readEsi(file, path, dictionaries, input);
}

} // namespace

InputReader::InputReader(const QStringList& paths, AcceptedInputs accepted, Dictionaries dictionaries,
                         std::size_t cores)
    : m_paths(paths)
    , m_accepted(accepted)
    , m_dictionaries(dictionaries)
    , m_work(static_cast<std::size_t>(paths.size()), cores > 1 && paths.size() > 1 ? cores : 0,
             [this](std::size_t index) { return read(index); })
{}

ReadInput InputReader::take()
{
    ReadInput input = m_work.take();
    const std::size_t index = m_taken++;
    if (!input.isOutOfMemory || isStandardInput(m_paths.at(static_cast<int>(index))))
        return input;
    m_work.stopThreads();
    return read(index);
}

ReadInput InputReader::read(std::size_t index) const
{
    const QString& path = m_paths.at(static_cast<int>(index));
    ReadInput input;
    try {
        if (QFile file; openInput(file, path, input.messages))
            readByKind(file, path, m_accepted, m_dictionaries, input);
    } catch (const std::out_of_range& error) {
        input.messages.error(path, rangeErrorText(error));
    } catch (const std::bad_alloc&) {
        reportNoMemory(path, input.messages);
        input.isOutOfMemory = true;
    }
    return input;
}

} // namespace cli
