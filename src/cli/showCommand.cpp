#include "cli/showCommand.h"

#include "cli/inputFile.h"
#include "cli/inputReader.h"
#include "cli/openShownFile.h"
#include "cli/progress.h"
#include "cli/selectedDevices.h"
#include "cli/selectorRecord.h"
#include "cli/showRequest.h"
#include "cli/streamName.h"
#include "show/namedDevice.h"
#include "show/showWriter.h"

#include <memory>
#include <new>
#include <optional>
#include <utility>
#include <vector>

namespace cli {

const SubCommandText showText{
    QLatin1String("show"),
    QLatin1String("shows what ESI and KTL files hold"),
    QLatin1String("FILE..."),
    QLatin1String("ESI and KTL files; - for standard input."),
    QLatin1String(
        "Shows what ESI and KTL files hold. Without an option each device in what fits a terminal: identity,\n"
        "distributed clocks, sync managers, process image, startup commands, slots. --full shows all there\n"
        "is: of a KTL file every item, field by field, of an ESI file every device as it is after loading,\n"
        "and of both the devices as the controller gets them. What a file is shows in its first bytes; its\n"
        "name does not count. There is no limit on the number of items."),
    QLatin1String("  ktl show drive.xml\n"
                  "  ktl show terminals.xml --device 'EL36*'\n"
                  "  ktl show machine.ktl --full | less\n"
                  "  ktl show drive.xml --json > drive.json\n"
                  "  ktl show coupler.xml machine.ktl --csv startup > startup.csv\n"),
};

namespace {

using OpenFile = std::unique_ptr<show::ShownFile>;

/// Shows files, all of them or the devices that are asked for.
class Shower
{
public:
    Shower(const ShowRequest& request, Console& console)
        : m_request(request)
        , m_console(console)
        , m_reader(request.paths, AcceptedInputs::EsiAndKtl, Dictionaries::AreRead, console.cores)
        , m_writer(console.results, request.form)
    {}

    void showAll()
    {
        m_writer.begin();
        // At a terminal the results themselves show that work goes on, and the line would come between them.
        forEachPath("showing", !m_console.terminalWidth.has_value(), [this](const QString& path) {
            guarded(path, [&] {
                const OpenFile file = open(path);
                show(path, file.get());
            });
        });
        m_writer.end();
    }

    /// Reads all files before the first one is shown, since a selector may mean a device of the last one.
    void showSelected()
    {
        std::vector<OpenFile> files;
        std::vector<struct_FilenameDevice> records;
        forEachPath("reading", true, [&](const QString& path) {
            OpenFile& file = files.emplace_back();
            records.push_back(selectorRecordOf(path, std::vector<show::NamedDevice>()));
            guarded(path, [&] {
                file = open(path);
                if (file != nullptr)
                    records.back() = selectorRecordOf(path, show::namedDevices(*file));
            });
        });
        const auto selected = selectedDevices(m_request.selectors, records, m_console.messages);
        if (!selected.has_value())
            return;
        records.clear(); // they have done their service, and devices take memory
        std::vector<std::vector<std::size_t>> devices(files.size());
        for (const auto& [file, device] : *selected)
            devices[file].push_back(device);
        m_writer.begin();
        for (std::size_t index = 0; index < files.size(); ++index) {
            const QString& path = m_request.paths.at(static_cast<int>(index));
            guarded(path, [&] {
                const OpenFile file = std::move(files[index]);
                if (devices[index].empty())
                    return;
                file->limitTo(std::move(devices[index]));
                show(path, file.get());
            });
        }
        m_writer.end();
    }

private:
    template<typename Visitor> void forEachPath(const char* what, bool showsProgress, Visitor visit)
    {
        int number = 0;
        for (const QString& path : m_request.paths) {
            std::optional<Progress> progress;
            ++number;
            if (showsProgress)
                progress.emplace(QStringLiteral("%1 %2").arg(QLatin1String(what), shownName(path)), number,
                                 m_request.paths.size());
            visit(path);
        }
    }

    /// Does work on a file. If there is not enough memory for it, that is reported, and what has been shown of the file
    /// stays.
    template<typename Work> void guarded(const QString& path, Work work)
    {
        try {
            work();
        } catch (const std::bad_alloc&) {
            m_writer.breakOff();
            reportNoMemory(path, m_console.messages);
        }
    }

    [[nodiscard]] OpenFile open(const QString& path)
    {
        ReadInput input = m_reader.take();
        if (input.esi.has_value())
            m_console.inputs.count(input.esi->road);
        return openShownFile(std::move(input), path, m_console.messages);
    }

    void show(const QString& path, const show::ShownFile* file)
    {
        if (file == nullptr)
            return;
        if (m_request.form.text == show::TextContent::Items && file->esi != nullptr)
            m_console.messages.error(path, QStringLiteral("an ESI file has no items"));
        else
            m_writer.show(*file);
    }

    const ShowRequest& m_request;
    Console& m_console;
    InputReader m_reader;
    show::Writer m_writer;
};

} // namespace

ExitCode runShow(const QStringList& arguments, Console& console)
{
    CommandLine line(showText, showOptions());
    if (const std::optional<ExitCode> ended = line.parse(arguments, console))
        return *ended;
    if (const QString problem = problemOfShow(line); !problem.isEmpty())
        return line.refuse(problem, console);
    const ShowRequest request = showRequestFrom(line, console);
    Shower shower(request, console);
    if (request.selectors.isEmpty())
        shower.showAll();
    else
        shower.showSelected();
    return console.messages.exitCode();
}

} // namespace cli
