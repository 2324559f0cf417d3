#include "cli/choicesFile.h"

#include "choices/file.h"
#include "choices/words.h"
#include "cli/inputFile.h"
#include "editing/deviceLabel.h"

#include <QFile>

#include <new>
#include <optional>

namespace cli {

namespace {

/// Reads a choices file; reports if it cannot be read.
std::optional<QByteArray> textOf(const QString& path, Messages& messages)
{
    QFile file;
    if (!openInput(file, path, messages))
        return std::nullopt;
    QByteArray text = choices::textOf(file);
    if (file.error() == QFileDevice::NoError)
        return text;
    reportUnreadable(path, file.errorString(), messages);
    return std::nullopt;
}

void tell(const choices::Problem& problem, const QString& path, Messages& messages)
{
    const QString text = QStringLiteral("%1 [%2]").arg(problem.text, choices::nameOf(problem.code));
    if (problem.line > 0)
        messages.error(path, problem.line, problem.column, text);
    else
        messages.error(path, text);
}

void tell(const choices::Problems& problems, const QString& path, Messages& messages)
{
    for (const choices::Problem& problem : problems.kept())
        tell(problem, path, messages);
    if (const std::size_t more = problems.count() - problems.kept().size(); more > 0)
        messages.error(path, QStringLiteral("... and %1 more").arg(more));
}

/// Warns of couplers whose modules are set by hand although they take a list of modules.
void warnOfModuleLists(const std::vector<choices::DevicePosition>& couplers,
                       const std::vector<struct_FilenameDevice>& files, const choices::DeviceSelectors& selectors,
                       Messages& messages)
{
    for (const choices::DevicePosition& position : couplers)
        messages.warning(
            inputPathOf(files[position.first]), WarningCode::ModuleList,
            QStringLiteral("%1: its list of modules (object 0xF030) can be written, the type %2 is advised")
                .arg(selectors.labelOf(position), choices::deviceTypeName(KTL_DEVICE_TYPE_PnpIOBlock)));
}

/// Warns of choices that are made for nothing, since their device is not written. What one of them sets in the modules
/// of the file still counts for the other devices.
void warnOfLeftOut(const QString& path, const choices::MadeChoices& made,
                   const std::set<choices::DevicePosition>& written, const choices::DeviceSelectors& selectors,
                   Messages& messages)
{
    for (const auto& [device, place] : made.chosen)
        if (written.count(device) == 0)
            messages.warning(
                path, WarningCode::LeftOut,
                QStringLiteral("%1.device: %2 is left out by --device").arg(place, selectors.labelOf(device)));
}

/// @return  nothing if not all choices are made
std::optional<choices::MadeChoices> applyChoices(const QByteArray& text, const QString& path,
                                                 std::vector<struct_FilenameDevice>& files,
                                                 const std::set<choices::DevicePosition>& written, Messages& messages)
{
    const choices::DeviceSelectors selectors(files);
    choices::Problems problems;
    choices::MadeChoices made = choices::applyFile(text, files, selectors, problems);
    warnOfModuleLists(made.couplers, files, selectors, messages);
    tell(problems, path, messages);
    if (problems.count() != 0)
        return std::nullopt;
    warnOfLeftOut(path, made, written, selectors, messages);
    return made;
}

} // namespace

std::optional<choices::MadeChoices> applyChoicesFile(const QString& path, std::vector<struct_FilenameDevice>& files,
                                                     Messages& messages,
                                                     const std::set<choices::DevicePosition>& written)
{
    try {
        const std::optional<QByteArray> text = textOf(path, messages);
        return text.has_value() ? applyChoices(*text, path, files, written, messages) : std::nullopt;
    } catch (const std::bad_alloc&) {
        tell({choices::ProblemCode::Size, QStringLiteral("not enough memory")}, path, messages);
        return std::nullopt;
    }
}

} // namespace cli
