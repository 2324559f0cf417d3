#include "cli/choicesFile.h"

#include "choices/choicesApply.h"
#include "choices/choicesReader.h"
#include "choices/choicesWords.h"
#include "choices/deviceSelectors.h"
#include "cli/inputFile.h"
#include "editing/deviceLabel.h"
#include "json/jsonText.h"

#include <QFile>

#include <algorithm>
#include <new>
#include <optional>
#include <set>

namespace cli {

namespace {

QString withCode(const QString& text, ProblemCode code)
{
    return QStringLiteral("%1 [%2]").arg(text, nameOf(code));
}

void refuseSize(const QString& path, const QString& text, Messages& messages)
{
    messages.error(path, withCode(text, ProblemCode::Size));
}

/// Reads a choices file, and no more of it than one can hold; tells if that is too much, or cannot be read.
std::optional<QByteArray> textOf(const QString& path, Messages& messages)
{
    constexpr int mebibyte = 1024 * 1024;
    constexpr int maxMebibytes = 16;
    QFile file;
    if (!openInput(file, path, messages))
        return std::nullopt;
    QByteArray text;
    for (QByteArray piece = file.read(mebibyte); !piece.isEmpty(); piece = file.read(mebibyte)) {
        text += piece;
        if (text.size() > maxMebibytes * mebibyte) {
            refuseSize(path, QStringLiteral("a choices file has %1 MiB at most").arg(maxMebibytes), messages);
            return std::nullopt;
        }
    }
    if (file.error() == QFileDevice::NoError)
        return text;
    messages.error(path, QStringLiteral("the file cannot be read: ") + file.errorString());
    return std::nullopt;
}

/// Whether a text has few enough objects and lists; tells if not. An empty one takes three bytes of a file and up to a
/// hundred times that in memory, so the size of the file is no limit for them. Brackets in texts count too.
bool isSmallEnough(const QByteArray& text, const QString& path, Messages& messages)
{
    constexpr int maxBrackets = 1000000;
    const auto brackets = std::count_if(text.begin(), text.end(), [](char byte) { return byte == '{' || byte == '['; });
    if (brackets <= maxBrackets)
        return true;
    refuseSize(path, QStringLiteral("a choices file has %1 objects and lists at most").arg(maxBrackets), messages);
    return false;
}

/// What a file says; tells if it is no JSON.
std::optional<std::vector<DeviceChoices>> choicesIn(const QByteArray& text, const QString& path, Problems& problems,
                                                    Messages& messages)
{
    const JsonParsing parsing = parseJson(text);
    if (!parsing.problem.has_value())
        return choicesFrom(parsing.value(), problems);
    messages.error(path, parsing.problem->line, parsing.problem->column,
                   withCode(parsing.problem->text, ProblemCode::Json));
    return std::nullopt;
}

void tell(const Problems& problems, const QString& path, Messages& messages)
{
    for (const Problem& problem : problems.kept())
        messages.error(path, withCode(problem.text, problem.code));
    if (const std::size_t more = problems.count() - problems.kept().size(); more > 0)
        messages.error(path, QStringLiteral("... and %1 more").arg(more));
}

/// Warns of couplers whose modules are set by hand although they take a list of modules.
void warnOfModuleLists(const std::vector<DevicePosition>& couplers, const std::vector<struct_FilenameDevice>& files,
                       const DeviceSelectors& selectors, Messages& messages)
{
    for (const DevicePosition& position : couplers)
        messages.warning(
            inputPathOf(files[position.first]), WarningCode::ModuleList,
            QStringLiteral("%1: its list of modules (object 0xF030) can be written, the type %2 is advised")
                .arg(selectors.labelOf(position), deviceTypeName(KTL_DEVICE_TYPE_PnpIOBlock)));
}

/// Warns of choices that are made for nothing, since their device is not written. What one of them sets in the modules
/// of the file still counts for the other devices.
void warnOfLeftOut(const QString& path, const MadeChoices& made, const std::set<DevicePosition>& written,
                   const DeviceSelectors& selectors, Messages& messages)
{
    for (const auto& [position, choices] : made.chosen)
        if (written.count(position) == 0)
            messages.warning(path, WarningCode::LeftOut,
                             QStringLiteral("%1.device: %2 is left out by --device")
                                 .arg(choices->path, selectors.labelOf(position)));
}

/// @return  whether all choices are made
bool applyChoices(const QByteArray& text, const QString& path, std::vector<struct_FilenameDevice>& files,
                  const std::set<DevicePosition>& written, Messages& messages)
{
    Problems problems;
    const std::optional<std::vector<DeviceChoices>> choices = choicesIn(text, path, problems, messages);
    if (!choices.has_value())
        return false;
    const DeviceSelectors selectors(files);
    const MadeChoices made = makeChoices(*choices, files, selectors, problems);
    warnOfModuleLists(made.couplers, files, selectors, messages);
    tell(problems, path, messages);
    if (problems.count() == 0)
        warnOfLeftOut(path, made, written, selectors, messages);
    return problems.count() == 0;
}

} // namespace

bool applyChoicesFile(const QString& path, std::vector<struct_FilenameDevice>& files, Messages& messages,
                      const std::set<DevicePosition>& written)
{
    try {
        const std::optional<QByteArray> text = textOf(path, messages);
        return text.has_value() && isSmallEnough(*text, path, messages)
               && applyChoices(*text, path, files, written, messages);
    } catch (const std::bad_alloc&) {
        refuseSize(path, QStringLiteral("not enough memory"), messages);
        return false;
    }
}

} // namespace cli
