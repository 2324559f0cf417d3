#include "cli/openShownFile.h"

#include "cli/esiInput.h"
#include "cli/inputFile.h"
#include "cli/ktlEnd.h"
#include "cli/ktlInput.h"
#include "cli/streamName.h"

#include <QDomDocument>
#include <QFile>

#include <optional>
#include <utility>
#include <vector>

namespace cli {

namespace {

bool readKtlFile(show::ShownFile& file, QFile& input, const QString& path, Messages& messages)
{
    std::optional<std::vector<unsigned char>> bytes = readKtl(input, path, messages);
    if (!bytes.has_value())
        return false;
    file.setKtl(std::move(*bytes));
    if (const QString problem = problemAtEnd(file.walk); !problem.isEmpty())
        messages.error(path, problem);
    return true;
}

bool readEsiFile(show::ShownFile& file, QFile& input, const QString& path, Messages& messages)
{
    QDomDocument document; // its memory is free again when the devices are made
    std::optional<struct_FilenameDevice> loaded = loadOpenEsi(input, path, document, messages);
    if (!loaded.has_value())
        return false;
    file.setEsi(std::move(*loaded), [path, &messages](const show::ExportProblem& problem) {
        if (problem.kind == show::ExportProblem::Kind::CutShort)
            messages.error(path, problem.text);
        else
            messages.warning(path, WarningCode::ModuleCommands, problem.text);
    });
    return true;
}

} // namespace

std::unique_ptr<const show::ShownFile> openShownFile(const QString& path, Messages& messages)
{
    QFile input;
    if (!openInput(input, path, messages))
        return nullptr;
    const std::optional<InputKind> kind = kindOfInput(input, path, messages);
    if (!kind.has_value())
        return nullptr;
    auto file = std::make_unique<show::ShownFile>();
    file->name = QFile::encodeName(shownName(path)).toStdString();
    if (kind == InputKind::Esi && readEsiFile(*file, input, path, messages))
        return file;
    if (kind == InputKind::Ktl && readKtlFile(*file, input, path, messages))
        return file;
    if (kind == InputKind::Neither)
        messages.error(path, QStringLiteral("this is neither an ESI file nor a KTL file"));
    return nullptr;
}

} // namespace cli
