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

void readEsi(QFile& file, const QString& path, Dictionaries dictionaries, ReadInput& input)
{
    const QString name = isStandardInput(path) ? shownName(path) : path;
    EsiLoadResult result = loadOpenEsiFile(file, name, dictionaries);
    if (result.status != EsiLoadStatus::Loaded)
        return report(faultOf(result.status, result.reason), path, input.messages);
    result.file.xmlfilepath = QFile::encodeName(name).toStdString(); // every byte of it
    input.esi = std::move(result);
}

void readByKind(QFile& file, const QString& path, InputKind kind, Dictionaries dictionaries, ReadInput& input)
{
    if (kind == InputKind::Ktl)
        input.ktl = readKtl(file, path, input.messages);
    else
        readEsi(file, path, dictionaries, input);
}

} // namespace

InputReader::InputReader(QStringList paths, AcceptedInputs accepted, Dictionaries dictionaries, std::size_t cores)
    : m_paths(std::move(paths))
    , m_accepted(accepted)
    , m_dictionaries(dictionaries)
    , m_work(m_paths, cores, [this](std::size_t index) { return read(m_paths.at(static_cast<int>(index))); })
{}

ReadInput InputReader::read(const QString& path) const
{
    ReadInput input;
    try {
        QFile file;
        auto kind = InputKind::Neither;
        if (const std::optional<InputFault> fault = openAccepted(file, path, m_accepted, kind))
            report(*fault, path, input.messages);
        else
            readByKind(file, path, kind, m_dictionaries, input);
    } catch (const std::out_of_range& error) {
        input.messages.error(path, rangeErrorText(error));
    } catch (const std::bad_alloc&) {
        reportNoMemory(path, input.messages);
        input.isOutOfMemory = true;
    }
    return input;
}

} // namespace cli
