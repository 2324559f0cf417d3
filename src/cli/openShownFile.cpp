#include "cli/openShownFile.h"

#include "cli/ktlEnd.h"
#include "cli/streamName.h"

#include <QFile>

#include <utility>

namespace cli {

std::unique_ptr<show::ShownFile> openShownFile(ReadInput input, const QString& path, Messages& messages)
{
    messages.report(input.messages);
    if (!input.esi.has_value() && !input.ktl.has_value())
        return nullptr;
    auto file = std::make_unique<show::ShownFile>();
    file->name = QFile::encodeName(shownName(path)).toStdString();
    if (input.ktl.has_value()) {
        file->setKtl(std::move(*input.ktl));
        if (const QString problem = problemAtEnd(file->walk); !problem.isEmpty())
            messages.error(path, problem);
        return file;
    }
    file->setEsi(std::move(input.esi->file), [path, &messages](const show::ExportProblem& problem) {
        if (problem.kind == show::ExportProblem::Kind::CutShort)
            messages.error(path, problem.text);
        else
            messages.warning(path, WarningCode::ModuleCommands, problem.text);
    });
    return file;
}

} // namespace cli
