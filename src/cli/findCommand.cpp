#include "cli/findCommand.h"

#include "cli/findInput.h"
#include "cli/findRequest.h"
#include "cli/inputFile.h"
#include "cli/progress.h"
#include "cli/retriedWork.h"
#include "cli/sameInputs.h"
#include "cli/streamName.h"
#include "find/fileList.h"
#include "find/selection.h"

#include <algorithm>
#include <optional>
#include <ostream>
#include <utility>

namespace cli {

const SubCommandText findText{
    QLatin1String("find"),
    QLatin1String("says which files describe a device"),
    QLatin1String("PATH..."),
    QLatin1String("ESI and KTL files, and folders with such files at any depth; - for standard input."),
    QLatin1String(
        "Says which files describe a device: a line for each that fits all options, with its identity, type,\n"
        "name and place, a tab between them. The place is file and line, in a KTL file the offset of a byte.\n"
        "The identity of a device works for --device where one device of the files has it; KTL files are\n"
        "for check --device alone. Files in folders that are neither ESI nor KTL files are passed over.\n"
        "The exit status is 0 if something was found, 1 if not, and 2 if a file or folder could not be read\n"
        "to its end; the others are looked through all the same. --latest and --duplicates hold what fits\n"
        "until the last file is read; a file that is given twice counts once for --duplicates."),
    QLatin1String("  ktl find --name '*coupler*' esi/\n"
                  "  ktl find --vendor 0x7e570002 --product 0x5001 --latest esi/\n"
                  "  ktl find --revision '>=0x120000' -l -0 esi/ | xargs -0 ktl check\n"
                  "  ktl find --duplicates esi/ more/coupler.xml\n"),
};

namespace {

/// What was found in a file and waits to be told.
struct Waiting
{
    QString path;
    FoundInput input;
};

void report(const std::vector<find::UnreadablePath>& unreadable, Messages& messages)
{
    for (const auto& [path, reason, isFolder] : unreadable) {
        if (isFolder)
            messages.error(path, QStringLiteral("the folder cannot be read: ") + reason);
        else
            reportUnreadable(path, reason, messages);
    }
}

class Finder
{
public:
    Finder(const FindRequest& request, Console& console)
        : m_console(console)
        , m_selection(request.takesLatest, request.takesDuplicates)
        , m_writer(makeFoundWriter(request.form, request.end, console.terminalWidth.has_value(), console.results))
    {}

    void begin() { m_writer->begin(); }

    void take(const QString& path, FoundInput input)
    {
        if (!m_selection.needsAll())
            tell(path, input);
        if (input.fault.has_value())
            report(*input.fault, path, m_console.messages);
        if (!m_selection.needsAll() || input.found.empty())
            return;
        const bool isNewFile = m_files.add(path) == 1;
        for (const find::Found& found : input.found)
            m_selection.learn(found, isNewFile);
        m_waiting.push_back({path, std::move(input)});
    }

    ExitCode end()
    {
        for (Waiting& waiting : m_waiting) {
            std::vector<find::Found>& found = waiting.input.found;
            const auto isLeftOut = [&](const find::Found& each) { return !m_selection.takes(each); };
            found.erase(std::remove_if(found.begin(), found.end(), isLeftOut), found.end());
            tell(waiting.path, waiting.input);
        }
        m_writer->end();
        const ExitCode troubles = m_console.messages.exitCode();
        return troubles == ExitCode::Done && !m_hasFound ? ExitCode::NothingFound : troubles;
    }

private:
    void tell(const QString& path, const FoundInput& input)
    {
        if (input.found.empty())
            return;
        m_hasFound = true;
        const Progress::Pause pause;
        m_writer->write(path, input.isKtl, input.found);
        if (m_console.terminalWidth.has_value())
            m_console.results.flush(); // somebody waits, and the line about progress comes again
    }

    Console& m_console;
    find::Selection m_selection;
    std::unique_ptr<FoundWriter> m_writer;
    SameInputs m_files;
    std::vector<Waiting> m_waiting;
    bool m_hasFound = false;
};

} // namespace

ExitCode runFind(const QStringList& arguments, Console& console)
{
    CommandLine line(findText, findOptions());
    if (const std::optional<ExitCode> ended = line.parse(arguments, console))
        return *ended;
    if (const QString problem = problemOfFind(line); !problem.isEmpty())
        return line.refuse(problem, console);
    const FindRequest request = findRequestFrom(line);
    const find::FileList list = find::listFiles(request.paths, isStandardInput);
    report(list.unreadable, console.messages);
    RetriedWork<FoundInput> work(list.paths, console.cores, [&](std::size_t index) {
        const int place = static_cast<int>(index);
        return findIn(list.paths.at(place), list.named.count(place) > 0, request.filter);
    });
    Finder finder(request, console);
    finder.begin();
    for (int place = 0; place < list.paths.size(); ++place) {
        const Progress progress(QStringLiteral("looking through ") + shownName(list.paths.at(place)), place + 1,
                                list.paths.size());
        finder.take(list.paths.at(place), work.take());
    }
    return finder.end();
}

} // namespace cli
