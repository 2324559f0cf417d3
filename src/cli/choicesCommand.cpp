#include "cli/choicesCommand.h"

#include "choices/template.h"
#include "cli/deviceWarnings.h"
#include "cli/esiInput.h"
#include "editing/deviceEdits.h"
#include "editing/deviceLabel.h"
#include "esi/derivation/rangeErrors.h"

#include <stdexcept>
#include <vector>

namespace cli {

const SubCommandText choicesText{
    QLatin1String("choices"),
    QLatin1String("shows what can be chosen, as a template of a choices file"),
    QLatin1String("ESI..."),
    QLatin1String("ESI files, in the order of the conversion; - for standard input."),
    QLatin1String(
        "Writes a choices file for \"ktl convert --choices\": what an engineer would set in the workbench, here as it\n"
        "stands in EtherCAT slave descriptions (ESI), with names and allowed values beside it. Edit what is to be\n"
        "different and leave out the rest."),
    QLatin1String("  ktl choices drive.xml > choices.json\n"
                  "  ktl convert drive.xml -o machine.ktl --choices choices.json\n"),
};

namespace {

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
    CommandLine line(choicesText, {});
    if (const std::optional<ExitCode> ended = line.parse(arguments, console))
        return *ended;
    if (line.operands().isEmpty())
        return line.refuse(QStringLiteral("no ESI file is given"), console);
    std::vector<struct_FilenameDevice>& files = console.inputs.files;
    if (loadEsiFiles(line.operands(), Dictionaries::AreRead, console) && selectAll(files, console.messages)) {
        warnOfLostValues(files, console.messages);
        choices::writeTemplate(console.results, files);
    }
    return console.messages.exitCode();
}

} // namespace cli
