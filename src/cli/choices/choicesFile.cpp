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
/// @param selectors  the devices that are written, not empty
void warnOfLeftOut(const QString& path, const std::vector<DeviceChoices>& choices,
                   const std::vector<struct_FilenameDevice>& files, const QStringList& selectors, Messages& messages)
{
    std::set<DevicePosition> written;
    for (const QString& selector : selectors)
        written.merge(devicesNamed(selector, files));
    for (const DeviceChoices& ofDevice : choices)
        for (const DevicePosition& position : devicesNamed(ofDevice.device, files))
            if (written.count(position) == 0)
                messages.warning(path, WarningCode::LeftOut,
                                 QStringLiteral("%1.device: %2 is left out by --device")
                                     .arg(ofDevice.path, quoted(ofDevice.device)));
}

} // namespace

bool applyChoicesFile(const QString& path, std::vector<struct_FilenameDevice>& files, Messages& messages,
                      const QStringList& selectors)
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
    for (const QString& problem : problems.texts())
        messages.error(path, problem);
    if (problems.count() == 0 && !selectors.isEmpty())
        warnOfLeftOut(path, choices, files, selectors, messages);
    return problems.count() == 0;
}
