#include "cli/choices/choicesFile.h"

#include "cli/choices/choicesApply.h"
#include "cli/choices/choicesReader.h"
#include "cli/choices/jsonText.h"
#include "cli/deviceSelectors.h"
#include "cli/inputFile.h"

#include <QFile>

namespace {

/// Warns of choices that are made for nothing, since their device is not written. What one of them sets in the modules
/// of the file still counts for the other devices.
void warnOfLeftOut(const QString& path, const std::vector<DeviceChoices>& choices,
                   const std::vector<struct_FilenameDevice>& files, const std::set<DevicePosition>& written,
                   Messages& messages)
{
    const DeviceSelectors selectors(files);
    for (const DeviceChoices& ofDevice : choices)
        for (const DevicePosition& position : selectors.deviceOf(ofDevice.device).devices)
            if (written.count(position) == 0)
                messages.warning(path, WarningCode::LeftOut,
                                 QStringLiteral("%1.device: %2 is left out by --device")
                                     .arg(ofDevice.path, selectors.labelOf(position)));
}

} // namespace

bool applyChoicesFile(const QString& path, std::vector<struct_FilenameDevice>& files, Messages& messages,
                      const std::set<DevicePosition>& written)
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
        messages.warning(warning.file, WarningCode::ModuleList, warning.text);
    messages.errors(path, problems.texts());
    if (problems.count() == 0)
        warnOfLeftOut(path, choices, files, written, messages);
    return problems.count() == 0;
}
