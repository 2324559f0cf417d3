#include "cli/showCommand.h"

#include "cli/inputFile.h"
#include "cli/inputReader.h"
#include "cli/openShownFile.h"
#include "cli/progress.h"
#include "cli/streamName.h"
#include "show/showTables.h"
#include "show/showWriter.h"
#include "show/textColumns.h"

#include <new>
#include <optional>
#include <utility>

namespace cli {

const SubCommandText showText{
    QLatin1String("show"),
    QLatin1String("shows what ESI and KTL files hold"),
    QLatin1String("FILE..."),
    QLatin1String("ESI and KTL files; - for standard input."),
    QLatin1String("Shows what ESI and KTL files hold: of a KTL file every item, field by field, of an ESI file every\n"
                  "device as it is after loading, and of both the devices as the controller gets them. What a file is\n"
                  "shows in its first bytes; its name does not count. There is no limit on the number of items."),
    QLatin1String("  ktl show machine.ktl | less\n"
                  "  ktl show drive.xml --json > drive.json\n"
                  "  ktl show coupler.xml machine.ktl --csv startup > startup.csv\n"),
};

namespace {

const QString jsonSwitch = QStringLiteral("json");
const QString csvOption = QStringLiteral("csv");
const QString spreadsheetSwitch = QStringLiteral("spreadsheet");

QList<QCommandLineOption> showOptions()
{
    return {
        {jsonSwitch, QStringLiteral("Everything, as JSON.")},
        {csvOption, QStringLiteral("One table as comma-separated values: dictionary, pdo or startup."),
         QStringLiteral("TABLE")},
        {spreadsheetSwitch, QStringLiteral("The table is for a spreadsheet program: with a byte order mark, and an "
                                           "apostrophe before texts that read as a formula.")},
    };
}

/// What is wrong with the arguments, empty if nothing is.
QString problemOf(const CommandLine& line)
{
    if (line.operands().isEmpty())
        return QStringLiteral("no file is given");
    if (standardInputsIn(line.operands()) > 1)
        return QStringLiteral("standard input can be read once only");
    if (line.values(csvOption).size() > 1)
        return QStringLiteral("--csv can be given once only");
    if (line.isSet(jsonSwitch) && line.isSet(csvOption))
        return QStringLiteral("--json and --csv cannot be given together");
    if (line.isSet(csvOption) && show::tableNamed(line.value(csvOption)) == nullptr)
        return QStringLiteral("\"%1\" is no table; there are dictionary, pdo and startup").arg(line.value(csvOption));
    if (line.isSet(spreadsheetSwitch) && !line.isSet(csvOption))
        return QStringLiteral("--spreadsheet goes with --csv only");
    return {};
}

show::Form formOf(const CommandLine& line, const Console& console)
{
    return {line.isSet(jsonSwitch), show::tableNamed(line.value(csvOption)),
            line.isSet(spreadsheetSwitch) ? show::CsvForm::Spreadsheet : show::CsvForm::Plain,
            console.terminalWidth.value_or(show::anyWidth)};
}

/// Shows the next file. If there is not enough memory for it, that is reported, and what has been shown of it stays.
void showNext(InputReader& reader, const QString& path, show::Writer& writer, Console& console)
{
    Messages& messages = console.messages;
    try {
        ReadInput input = reader.take();
        if (input.esi.has_value())
            console.inputs.count(input.esi->road);
        if (const auto file = openShownFile(std::move(input), path, messages))
            writer.show(*file);
    } catch (const std::bad_alloc&) {
        writer.breakOff();
        reportNoMemory(path, messages);
    }
}

} // namespace

ExitCode runShow(const QStringList& arguments, Console& console)
{
    CommandLine line(showText, showOptions());
    if (const std::optional<ExitCode> ended = line.parse(arguments, console))
        return *ended;
    if (const QString problem = problemOf(line); !problem.isEmpty())
        return line.refuse(problem, console);
    const QStringList paths = line.operands();
    show::Writer writer(console.results, formOf(line, console));
    writer.begin();
    InputReader reader(paths, AcceptedInputs::EsiAndKtl, Dictionaries::AreRead, console.cores);
    int number = 0;
    for (const QString& path : paths) {
        // At a terminal the results themselves show that work goes on, and the line would come between them.
        std::optional<Progress> progress;
        ++number;
        if (!console.terminalWidth.has_value())
            progress.emplace(QStringLiteral("showing %1").arg(shownName(path)), number, paths.size());
        showNext(reader, path, writer, console);
    }
    writer.end();
    return console.messages.exitCode();
}

} // namespace cli
