#include "cli/choicesFrom.h"

#include "choices/file.h"
#include "choices/writer.h"
#include "cli/ktlEnd.h"
#include "cli/ktlInput.h"
#include "cli/progress.h"
#include "cli/remainingDifferences.h"
#include "cli/retriedWork.h"
#include "cli/streamName.h"
#include "cli/treeInput.h"
#include "esi/derivation/rangeErrors.h"
#include "ktl/ktlExport.h"
#include "ktl/reading/ktlItemWalk.h"
#include "model/missingSyncManager.h"
#include "model/valueTexts.h"
#include "retrace/exportedRun.h"
#include "retrace/runRetrace.h"
#include "system/cStreams.h"

#include <algorithm>
#include <new>
#include <ostream>
#include <set>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace cli {

namespace {

/// The time of an export, as `--date` of a conversion takes it.
QString dateText(const QDateTime& time)
{
    return time.toString(Qt::ISODate);
}

/// Finds and writes the choices of one call.
class ChoicesFrom
{
public:
    ChoicesFrom(const ChoicesFromRequest& request, Console& console)
        : m_request(request)
        , m_console(console)
    {}

    ExitCode run()
    {
        if (const bool areRead = readDescriptions(); !readExport() || !areRead || !pickRun())
            return m_console.messages.exitCode();
        const std::string text = findChoices();
        m_console.results << text;
        const bool isSame = isProven(QByteArray::fromStdString(text));
        if (const QString problem = problemAtEnd(m_walk); !problem.isEmpty())
            m_console.messages.error(m_request.exported, problem);
        const ExitCode trouble = m_console.messages.exitCode();
        return trouble == ExitCode::Done && !isSame ? ExitCode::Different : trouble;
    }

private:
    bool readDescriptions();
    bool readExport();
    bool pickRun();
    [[nodiscard]] std::string findChoices();
    [[nodiscard]] std::string textOfChoices() const;
    [[nodiscard]] bool isProven(const QByteArray& text);
    void tellFirstByte(const std::vector<unsigned char>& made);

    const ChoicesFromRequest& m_request;
    Console& m_console;
    std::vector<TreeInput> m_trees; ///< of the descriptions, with empty records
    std::vector<struct_FilenameDevice> m_files; ///< of the descriptions, as they were loaded
    std::vector<unsigned char> m_bytes; ///< of the export
    KtlWalk m_walk; ///< of these
    retrace::ExportedRun m_run;
    retrace::RetracedRun m_retraced;
};

bool ChoicesFrom::readDescriptions()
{
    const QStringList& paths = m_request.descriptions;
    RetriedWork<TreeInput> work(paths, m_console.cores, [&](std::size_t index) {
        return readTreeInput(paths.at(static_cast<int>(index)), AcceptedInputs::Esi);
    });
    bool areRead = true;
    for (int index = 0; index < paths.size(); ++index) {
        const QString& path = paths.at(index);
        const Progress progress(QStringLiteral("reading %1").arg(shownName(path)), index + 1, paths.size());
        TreeInput input = work.take();
        m_console.inputs.count(input.road);
        if (input.fault.has_value())
            report(*input.fault, path, m_console.messages);
        const bool isComplete =
            std::all_of(input.areComplete.begin(), input.areComplete.end(), [](bool is) { return is; });
        if (!isComplete)
            m_console.messages.error(path,
                                     QStringLiteral("a PDO is on a sync manager that its device does not declare, "
                                                    "so the file cannot be converted; \"ktl check\" names it"));
        areRead = areRead && isComplete && !input.fault.has_value();
        m_files.push_back(std::move(input.record));
        m_trees.push_back(std::move(input));
    }
    return areRead;
}

bool ChoicesFrom::readExport()
{
    QFile file;
    if (!openInput(file, m_request.exported, m_console.messages))
        return false;
    std::optional<std::vector<unsigned char>> bytes = readKtl(file, m_request.exported, m_console.messages);
    if (!bytes.has_value())
        return false;
    m_bytes = std::move(*bytes);
    m_walk = walkItems(m_bytes);
    return true;
}

bool ChoicesFrom::pickRun()
{
    const std::vector<std::size_t> runs = retrace::runsWithDevices(m_walk);
    QStringList numbers;
    for (const std::size_t run : runs)
        numbers += QString::number(run);
    QString problem;
    if (runs.empty())
        problem = QStringLiteral("the file holds no device; is it a KTL file?");
    else if (m_request.run.has_value() && std::find(runs.begin(), runs.end(), *m_request.run) == runs.end())
        problem = QStringLiteral("the file has no run %1 with devices; it has %2")
                      .arg(QString::number(*m_request.run), numbers.join(QStringLiteral(", ")));
    else if (!m_request.run.has_value() && runs.size() > 1)
        problem = QStringLiteral("the file has %1 runs (%2); --run names one of them")
                      .arg(QString::number(runs.size()), numbers.join(QStringLiteral(", ")));
    if (!problem.isEmpty()) {
        m_console.messages.error(m_request.exported, problem);
        return false;
    }
    m_run = retrace::exportedRunAt(m_bytes, m_walk, m_request.run.value_or(runs.front()));
    return true;
}

std::string ChoicesFrom::textOfChoices() const
{
    choices::AboutChoices about;
    about.file.insert(QStringLiteral("from"), shownName(m_request.exported));
    if (m_request.run.has_value())
        about.file.insert(QStringLiteral("run"), static_cast<int>(*m_request.run));
    if (retrace::showsTime(m_run))
        about.file.insert(QStringLiteral("date"), dateText(retrace::exportTimeOf(m_run)));
    for (const auto& [file, device] : m_retraced.chosen) {
        const struct_EtherCatDevice& chosen = m_files[file].device[device];
        about.devices.push_back({{QStringLiteral("name"), QString::fromStdString(chosen.Name)},
                                 {QStringLiteral("type"), QString::fromStdString(chosen.TypeAttributes.type)}});
    }
    std::ostringstream text;
    choices::writeChoices(text, m_retraced.choices, about);
    return text.str();
}

std::string ChoicesFrom::findChoices()
{
    const Progress progress(QStringLiteral("looking for choices"), 1, 2);
    m_retraced = retrace::retracedRun(m_files, m_run.blocks);
    return textOfChoices();
}

/// Makes the choices, exports, and compares: nothing but equal bytes proves choices right.
bool ChoicesFrom::isProven(const QByteArray& text)
{
    const Progress progress(QStringLiteral("exporting with these choices"), 2, 2);
    std::vector<struct_FilenameDevice> files = m_files;
    const choices::DeviceSelectors selectors(files);
    choices::Problems problems;
    const choices::MadeChoices made = choices::applyFile(text, files, selectors, problems);
    for (const choices::Problem& problem : problems.kept())
        m_console.messages.warning(m_request.exported, WarningCode::NoChoice, problem.text);
    os::MemoryFile written;
    int code = 0;
    const auto isSelected = [&](std::size_t file, std::size_t device) {
        return !made.exported.has_value() || made.exported->count({file, device}) > 0;
    };
    if (!writeDevices(written.stream(), files, isSelected, &code, retrace::exportTimeOf(m_run)))
        throw std::bad_alloc();
    written.finish();
    const std::vector<unsigned char> bytes(written.data(), written.data() + written.size());
    if (std::equal(bytes.begin(), bytes.end(), m_bytes.begin() + static_cast<std::ptrdiff_t>(m_run.first),
                   m_bytes.begin() + static_cast<std::ptrdiff_t>(m_run.end)))
        return true;
    const RetracedInputs inputs{m_request.descriptions, m_trees, files, m_request.exported, m_bytes, m_run, m_retraced};
    if (tellRemainingDifferences(inputs, m_console.messages) == 0)
        tellFirstByte(bytes);
    return false;
}

/// Tells of bytes that have no meaning, or of a run that ends early: nothing that has a name differs.
void ChoicesFrom::tellFirstByte(const std::vector<unsigned char>& made)
{
    const auto first = m_bytes.begin() + static_cast<std::ptrdiff_t>(m_run.first);
    const auto end = m_bytes.begin() + static_cast<std::ptrdiff_t>(m_run.end);
    const auto differing = std::mismatch(first, end, made.begin(), made.end()).first;
    m_console.messages.warning(m_request.exported, WarningCode::NoChoice,
                               QStringLiteral("at %1: the first byte that an export with these choices does not have")
                                   .arg(hexNumber(static_cast<std::uint32_t>(differing - m_bytes.begin()))));
}

} // namespace

ExitCode writeChoicesFrom(const ChoicesFromRequest& request, Console& console)
{
    try {
        return ChoicesFrom(request, console).run();
    } catch (const MissingSyncManager& error) { // of a device that no one could export
        console.messages.error(QFile::decodeName(error.file().c_str()), rangeErrorText(error));
        return console.messages.exitCode();
    } catch (const std::bad_alloc&) {
        reportNoMemory(request.exported, console.messages);
        return console.messages.exitCode();
    }
}

} // namespace cli
