#include "cli/diffCommand.h"

#include "cli/choicesFile.h"
#include "cli/diffRequest.h"
#include "cli/ktlEnd.h"
#include "cli/pairedDevices.h"
#include "cli/progress.h"
#include "cli/retriedWork.h"
#include "cli/selectedDevices.h"
#include "cli/streamName.h"
#include "cli/treeInput.h"
#include "diff/compareDevices.h"
#include "diff/differenceWriter.h"
#include "diff/source.h"
#include "esi/derivation/rangeErrors.h"
#include "ktl/reading/ktlItemWalk.h"
#include "text/oneLine.h"

#include <QFile>
#include <QProcess>

#include <memory>
#include <new>
#include <optional>
#include <ostream>
#include <stdexcept>
#include <utility>
#include <vector>

namespace cli {

const SubCommandText diffText{
    QLatin1String("diff"),
    QLatin1String("says what differs between two descriptions"),
    QLatin1String("OLD [NEW]"),
    QLatin1String("Two ESI or KTL files, or one of each, or one file with two devices; - for standard input."),
    QLatin1String("Says what differs between two descriptions of devices, by meaning: formatting, comments and order\n"
                  "without meaning do not count. Devices pair by identity, then by product and nearest revision,\n"
                  "then by name. Each difference has a weight: breaking (a controller that is set up with the old\n"
                  "one works wrongly with the new one, or not at all), behaviour (the device does something else),\n"
                  "or text. An ESI file and a KTL file are compared as the export of the one would be. The exit\n"
                  "status is 0 if nothing differs at the weight of --weight, 1 if something does, and 2 if a file\n"
                  "cannot be used."),
    QLatin1String("  ktl diff old/drive.xml new/drive.xml\n"
                  "  ktl diff drive.xml --device 0x2:0x1234:0x10000 --with 0x2:0x1234:0x20000\n"
                  "  ktl diff drive.xml machine.ktl --choices choices.json --weight breaking\n"),
};

namespace {

/// A file that is compared, with what its source refers to.
struct ComparedFile
{
    QString path;
    TreeInput input;
    std::unique_ptr<diff::Source> source;
};

/// Whether a path stands for a file that is not there, as git gives it for one that was added or has gone.
bool isNoFile(const QString& path)
{
    return path == QProcess::nullDevice();
}

/// Makes the choices in an ESI file that is compared with a KTL file.
/// @return  false if they do not fit; that has been reported
bool makeChoices(const QString& choices, struct_FilenameDevice& record, Messages& messages)
{
    std::vector<struct_FilenameDevice> files(1);
    files.front() = std::move(record);
    std::set<choices::DevicePosition> all;
    for (std::size_t device = 0; device < files.front().device.size(); ++device)
        all.emplace(0, device);
    bool areMade = false;
    try {
        areMade = applyChoicesFile(choices, files, messages, all).has_value();
    } catch (const std::out_of_range& error) {
        messages.error(choices, rangeErrorText(error));
    }
    record = std::move(files.front());
    return areMade;
}

/// Compares two files that were read.
class FileComparison
{
public:
    FileComparison(const DiffRequest& request, Console& console)
        : m_request(request)
        , m_console(console)
    {}

    ExitCode run()
    {
        if (!readFiles() || !makeAllChoices())
            return m_console.messages.exitCode();
        for (ComparedFile& file : m_files)
            makeSource(file);
        ComparedFile& before = m_files.front();
        ComparedFile& after = m_files.back();
        const std::optional<std::vector<diff::Pair>> pairs =
            pairedDevices({before.path, *before.source}, {after.path, *after.source}, m_request.selectors,
                          m_request.with, m_console.messages);
        if (!pairs.has_value())
            return m_console.messages.exitCode();
        return compare(*pairs);
    }

private:
    bool readFiles();
    bool makeAllChoices();
    static void makeSource(ComparedFile& file);
    ExitCode compare(const std::vector<diff::Pair>& pairs);
    void reportEnd(const ComparedFile& file);
    void report(const diff::ComparedDevices& compared);
    [[nodiscard]] std::unique_ptr<diff::DifferenceWriter> makeWriter() const;
    [[nodiscard]] static diff::WrittenFile writtenFile(const ComparedFile& file);

    const DiffRequest& m_request;
    Console& m_console;
    std::vector<ComparedFile> m_files; ///< one if two devices of it are compared
};

bool FileComparison::readFiles()
{
    QStringList paths{m_request.before};
    if (!m_request.isOfOneFile())
        paths += m_request.after;
    RetriedWork<TreeInput> work(paths, m_console.cores, [&](std::size_t index) {
        const QString& path = paths.at(static_cast<int>(index));
        return isNoFile(path) ? TreeInput() : readTreeInput(path, AcceptedInputs::EsiAndKtl);
    });
    bool areRead = true;
    for (int index = 0; index < paths.size(); ++index) {
        const Progress progress(QStringLiteral("reading %1").arg(shownName(paths.at(index))), index + 1, paths.size());
        ComparedFile file{paths.at(index), work.take(), nullptr};
        m_console.inputs.count(file.input.road);
        if (file.input.fault.has_value()) {
            cli::report(*file.input.fault, file.path, m_console.messages);
            areRead = false;
        }
        m_files.push_back(std::move(file));
    }
    return areRead;
}

bool FileComparison::makeAllChoices()
{
    if (!m_request.choices.has_value())
        return true;
    const auto isEsi = [](const ComparedFile& file) { return file.input.tree.has_value(); };
    if (isEsi(m_files.front()) == isEsi(m_files.back())) {
        m_console.messages.error({}, QStringLiteral("--choices goes with an ESI file and a KTL file"));
        return false;
    }
    ComparedFile& esi = isEsi(m_files.front()) ? m_files.front() : m_files.back();
    return makeChoices(*m_request.choices, esi.input.record, m_console.messages);
}

void FileComparison::makeSource(ComparedFile& file)
{
    TreeInput& input = file.input;
    file.source = input.tree.has_value() ? std::make_unique<diff::Source>(*input.tree, input.record, input.areComplete)
                                         : std::make_unique<diff::Source>(input.bytes);
}

void FileComparison::reportEnd(const ComparedFile& file)
{
    if (!file.source->isKtl() || isNoFile(file.path))
        return;
    if (const QString problem = problemAtEnd(walkItems(file.input.bytes)); !problem.isEmpty())
        m_console.messages.error(file.path, problem);
}

diff::WrittenFile FileComparison::writtenFile(const ComparedFile& file)
{
    return {QFile::encodeName(shownName(file.path)).toStdString(), messageText(shownName(file.path)), file.source.get(),
            !isNoFile(file.path)};
}

std::unique_ptr<diff::DifferenceWriter> FileComparison::makeWriter() const
{
    const diff::WrittenFile before = writtenFile(m_files.front());
    const diff::WrittenFile after = writtenFile(m_files.back());
    if (m_request.isJson)
        return diff::makeJsonWriter(m_console.results, before, after);
    return diff::makeLineWriter(
        m_console.results, before, after,
        {m_console.terminalWidth.value_or(show::anyWidth), m_request.hasColors, m_console.terminalWidth.has_value()});
}

/// Reports why devices could not be compared.
void FileComparison::report(const diff::ComparedDevices& compared)
{
    const ComparedFile& esi = m_files.front().source->isKtl() ? m_files.back() : m_files.front();
    m_console.messages.error(esi.path, compared.problem);
}

ExitCode FileComparison::compare(const std::vector<diff::Pair>& pairs)
{
    diff::CompareRequest request{pairs, m_request.selectors.isEmpty(), m_request.isOfAll, m_request.least};
    const std::unique_ptr<diff::DifferenceWriter> writer = makeWriter();
    diff::DifferenceCounts counts;
    writer->begin();
    diff::compareSources(*m_files.front().source, *m_files.back().source, request,
                         [&](const diff::ComparedDevices& compared) {
                             for (const diff::Difference& difference : compared.differences)
                                 counts.count(difference.weight);
                             if (!compared.problem.isEmpty())
                                 report(compared);
                             writer->write(compared);
                         });
    writer->end(counts);
    for (const ComparedFile& file : m_files)
        reportEnd(file);
    const ExitCode trouble = m_console.messages.exitCode();
    return trouble == ExitCode::Done && counts.all() > 0 ? ExitCode::Different : trouble;
}

} // namespace

ExitCode runDiff(const QStringList& arguments, Console& console)
{
    CommandLine line(diffText, diffOptions());
    if (const std::optional<ExitCode> ended = line.parse(arguments, console))
        return *ended;
    if (const QString problem = problemOfDiff(line); !problem.isEmpty())
        return line.refuse(problem, console);
    const DiffRequest request = diffRequestFrom(line, console);
    try {
        return FileComparison(request, console).run();
    } catch (const std::bad_alloc&) {
        reportNoMemory(request.after, console.messages);
        return console.messages.exitCode();
    }
}

} // namespace cli
