#include "cli/choicesCommand.h"

#include "choices/template.h"
#include "cli/choicesFrom.h"
#include "cli/deviceWarnings.h"
#include "cli/esiInput.h"
#include "cli/streamName.h"
#include "editing/deviceEdits.h"
#include "editing/deviceLabel.h"
#include "esi/derivation/rangeErrors.h"
#include "text/shownText.h"

#include <stdexcept>
#include <vector>

namespace cli {

const SubCommandText choicesText{
    QLatin1String("choices"),
    QLatin1String("shows what can be chosen, or what was chosen for an export"),
    QLatin1String("ESI..."),
    QLatin1String("ESI files, in the order of the conversion; - for standard input."),
    QLatin1String(
        "Writes a choices file for \"ktl convert --choices\": what an engineer would set in the workbench, here as it\n"
        "stands in EtherCAT slave descriptions (ESI), with names and allowed values beside it. Edit what is to be\n"
        "different and leave out the rest.\n"
        "\n"
        "With --from, writes the choices that turn the descriptions into an export that is there already: \"ktl\n"
        "convert\" with them and with the time of the export writes the same bytes. What no choice can make is told,\n"
        "and the exit status is 1 then; the choices that come nearest are written all the same."),
    QLatin1String("  ktl choices drive.xml > choices.json\n"
                  "  ktl convert drive.xml -o machine.ktl --choices choices.json\n"
                  "  ktl choices drive.xml coupler.xml --from machine.ktl > choices.json\n"),
};

namespace {

const QString fromOption = QStringLiteral("from");
const QString runOption = QStringLiteral("run");

QList<QCommandLineOption> choicesOptions()
{
    return {
        {fromOption, QStringLiteral("Writes the choices that make the descriptions this export; - for standard input."),
         QStringLiteral("KTL")},
        {runOption,
         QStringLiteral("The run of the file, from 1; needed if it has several, as after \"convert --append\"."),
         QStringLiteral("N")},
    };
}

/// A run as the user names it; nothing if that is no number from 1.
std::optional<std::size_t> runIn(const QString& text)
{
    bool isNumber = false;
    const uint number = text.toUInt(&isNumber);
    return isNumber && number > 0 ? std::make_optional<std::size_t>(number) : std::nullopt;
}

/// What is wrong with the arguments, empty if nothing is.
QString problemOf(const CommandLine& line)
{
    if (line.operands().isEmpty())
        return QStringLiteral("no ESI file is given");
    if (line.isSet(runOption) && !line.isSet(fromOption))
        return QStringLiteral("--run goes with --from: it names a run of that file");
    for (const QString& option : {fromOption, runOption})
        if (line.values(option).size() > 1)
            return QStringLiteral("--%1 can be given once only").arg(option);
    if (line.isSet(runOption) && !runIn(line.value(runOption)).has_value())
        return QStringLiteral("%1 is no number of a run; they count from 1").arg(shownText(line.value(runOption)));
    if (line.isSet(fromOption) && standardInputsIn(line.operands() + line.values(fromOption)) > 1)
        return QStringLiteral("standard input can be read once only");
    return {};
}

/// Selects every device once, as the choices of a file do; reports a device for which that fails.
bool selectAll(std::vector<struct_FilenameDevice>& files, Messages& messages)
{
    DeviceClicks clicks;
    bool areSelected = true;
    for (struct_FilenameDevice& file : files)
        for (struct_EtherCatDevice& device : file.device)
            try {
                clicks.select(device);
            } catch (const std::out_of_range& error) {
                messages.error(inputPathOf(file), rangeErrorText(error));
                areSelected = false;
            }
    return areSelected;
}

} // namespace

ExitCode runChoices(const QStringList& arguments, Console& console)
{
    CommandLine line(choicesText, choicesOptions());
    if (const std::optional<ExitCode> ended = line.parse(arguments, console))
        return *ended;
    if (const QString problem = problemOf(line); !problem.isEmpty())
        return line.refuse(problem, console);
    if (line.isSet(fromOption))
        return writeChoicesFrom({line.operands(), filePath(line.value(fromOption)), runIn(line.value(runOption))},
                                console);
    std::vector<struct_FilenameDevice>& files = console.inputs.files;
    if (loadEsiFiles(line.operands(), Dictionaries::AreRead, console) && selectAll(files, console.messages)) {
        warnOfLostValues(files, console.messages);
        choices::writeTemplate(console.results, files);
    }
    return console.messages.exitCode();
}

} // namespace cli
