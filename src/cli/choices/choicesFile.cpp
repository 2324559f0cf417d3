#include "cli/choices/choicesFile.h"

#include "cli/choices/choicesApply.h"
#include "cli/choices/choicesReader.h"
#include "cli/choices/jsonText.h"
#include "cli/inputFile.h"

#include <QFile>

bool applyChoicesFile(const QString& path, std::vector<struct_FilenameDevice>& files, Messages& messages)
{
    QFile file;
    if (!openInput(file, path, messages))
        return false;
    const QByteArray text = file.readAll();
    if (file.error() != QFileDevice::NoError) {
        messages.error(path, QStringLiteral("the file cannot be read: ") + file.errorString());
        return false;
    }
    const JsonParsing parsing = parseJson(text);
    if (parsing.problem.has_value()) {
        messages.error(path, parsing.problem->line, parsing.problem->column, parsing.problem->text);
        return false;
    }
    Problems problems;
    const std::vector<DeviceChoices> choices = choicesFrom(parsing.value, problems);
    for (const ChoiceWarning& warning : makeChoices(choices, files, problems))
        messages.warning(warning.file, warning.text);
    for (const QString& problem : problems.texts())
        messages.error(path, problem);
    return problems.count() == 0;
}
