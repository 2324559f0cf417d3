#include "cli/convertCommand.h"

#include "cli/choicesFile.h"
#include "cli/convertOutput.h"
#include "cli/deviceWarnings.h"
#include "cli/esiInput.h"
#include "cli/exportTime.h"
#include "cli/sameInputs.h"
#include "cli/selectedDevices.h"
#include "cli/streamName.h"
#include "editing/deviceLabel.h"
#include "editing/exportChecks.h"
#include "esi/derivation/rangeErrors.h"
#include "ktl/ktlExport.h"
#include "ktl/reading/itemLimit.h"
#include "ktl/writing/ktlFile.h"
#include "model/missingSyncManager.h"
#include "text/shownText.h"

#include <QFile>

#include <algorithm>
#include <utility>
#include <vector>

namespace cli {

const SubCommandText convertText{
    QLatin1String("convert"),
    QLatin1String("turns ESI files into one KTL file with its text dump"),
    QLatin1String("ESI..."),
    QLatin1String("ESI files, in the order of the output; - for standard input."),
    QLatin1String(
        "Turns EtherCAT slave descriptions (ESI) into one KTL file for the motion controller, as the export of\n"
        "the workbench does, and writes its text dump beside it, with \".txt\" after the name. Both files are\n"
        "replaced when they are complete: a run that fails leaves the old ones as they were."),
    QLatin1String("  ktl convert drive.xml\n"
                  "  ktl convert drive.xml coupler.xml -o machine.ktl --force\n"
                  "  ktl convert terminals.xml -o one.ktl --device 0x7e570003:0x16160001\n"
                  "  ktl convert drive.xml -o machine.ktl --choices choices.json\n"
                  "  ktl convert drive.xml -o machine.ktl --append --date 2026-11-21T10:00:00Z\n"),
};

namespace {

const QString outputOption = QStringLiteral("output");
const QString appendSwitch = QStringLiteral("append");
const QString forceSwitch = QStringLiteral("force");
const QString noDumpSwitch = QStringLiteral("no-dump");
const QString deviceOption = QStringLiteral("device");
const QString choicesOption = QStringLiteral("choices");
const QString dateOption = QStringLiteral("date");
const QString strictSwitch = QStringLiteral("strict");
const QString ignoreOption = QStringLiteral("ignore");

QList<QCommandLineOption> convertOptions()
{
    return {
        {{QStringLiteral("o"), outputOption},
         QStringLiteral("The KTL file to write; - for standard output, without dump. Without it the name that the "
                        "workbench proposes, with .ktl."),
         QStringLiteral("OUT.ktl")},
        {appendSwitch, QStringLiteral("Adds to the file, or makes it.")},
        {forceSwitch, QStringLiteral("Replaces a file that exists.")},
        {noDumpSwitch, QStringLiteral("Writes no text dump beside the file.")},
        {deviceOption,
         QStringLiteral("Takes this device only; may be given several times. A number (from 1, over all files), a "
                        "name, a Type, or VENDOR:PRODUCT[:REVISION], which must mean one device; with * in it all "
                        "devices that fit: \"EL36*\", \"0x2:0x1a403052:*\"."),
         QStringLiteral("SELECTOR")},
        {choicesOption,
         QStringLiteral("What an engineer would set in the workbench, from a JSON file; - for standard input. \"ktl "
                        "choices\" writes a template."),
         QStringLiteral("FILE")},
        {dateOption,
         QStringLiteral("Time of the export that the file shows. Without it SOURCE_DATE_EPOCH counts, or now."),
         QStringLiteral("ISO-TIME")},
        {strictSwitch, QStringLiteral("Exit status 1 if there are warnings.")},
        {ignoreOption,
         QStringLiteral("Takes the warnings with this code out of --strict; may be given several times. The code is "
                        "at the end of the warning, in brackets."),
         QStringLiteral("CODE")},
    };
}

/// What is wrong with standard output as the output, empty if nothing is.
QString problemOfStandardOutput(const CommandLine& line, const Console& console)
{
    if (line.isSet(appendSwitch) || line.isSet(forceSwitch))
        return QStringLiteral("standard output is neither added to nor replaced: --append and --force are for files");
    return console.terminalWidth.has_value()
               ? QStringLiteral("a KTL file is not for a terminal: redirect standard output, or name a file by -o")
               : QString();
}

/// What is wrong with the arguments, empty if nothing is.
QString problemOf(const CommandLine& line, const Console& console)
{
    if (line.operands().isEmpty())
        return QStringLiteral("no ESI file is given");
    if (line.isSet(appendSwitch) && line.isSet(forceSwitch))
        return QStringLiteral("--append and --force cannot be given together");
    const QString output = line.value(outputOption);
    if (line.isSet(outputOption) && output.isEmpty())
        return QStringLiteral("the name of the output is empty");
    if (!line.isSet(outputOption) && standardInputsIn(line.operands()) > 0)
        return QStringLiteral("standard input has no name to make one for the output from; -o is needed");
    for (const QString& option : {outputOption, choicesOption, dateOption})
        if (line.values(option).size() > 1)
            return QStringLiteral("--%1 can be given once only").arg(option);
    for (const QString& code : line.values(ignoreOption))
        if (!warningCodeNamed(code).has_value())
            return QStringLiteral("%1 is no code of a warning; there are %2")
                .arg(shownText(code), warningCodeNames().join(QStringLiteral(", ")));
    if (standardInputsIn(line.operands()) > 0 && isStandardInput(line.value(choicesOption)))
        return QStringLiteral("standard input can be read once only");
    return isStandardOutput(output) ? problemOfStandardOutput(line, console) : QString();
}

/// How the output is to be saved.
SaveRequest saveRequest(const CommandLine& line, const QString& output)
{
    const ExistingFiles existing = line.isSet(appendSwitch)  ? ExistingFiles::AreAddedTo
                                   : line.isSet(forceSwitch) ? ExistingFiles::AreReplaced
                                                             : ExistingFiles::Stay;
    return {output, existing, !line.isSet(noDumpSwitch)};
}

/// Whether a file may be written, before anything is done; reports why not.
bool mayWriteOutput(const CommandLine& line, const QString& output, Messages& messages)
{
    QStringList inputs = line.operands();
    if (line.isSet(choicesOption))
        inputs += filePath(line.value(choicesOption));
    return isStandardOutput(output) || mayWrite(saveRequest(line, output), inputs, messages);
}

/// Warns of files that are given more than once: their devices are written as often.
void warnOfSameInputs(const QStringList& inputs, Messages& messages)
{
    SameInputs given;
    for (const QString& input : inputs)
        if (given.add(input) == 2)
            messages.warning(input, WarningCode::SameInput,
                             QStringLiteral("the file is given more than once, its devices are written as often"));
}

/// Whether there is a device to write; reports each file if not.
bool hasDevices(const std::vector<struct_FilenameDevice>& files, Messages& messages)
{
    const auto holdsDevice = [](const struct_FilenameDevice& file) { return !file.device.empty(); };
    if (std::any_of(files.begin(), files.end(), holdsDevice))
        return true;
    for (const struct_FilenameDevice& file : files)
        messages.error(inputPathOf(file), QStringLiteral("the file holds no device, nothing is written"));
    return false;
}

/// Warns of a file that is too long for the workbench.
void warnOfItemCount(const QString& output, Messages& messages)
{
    const FileHandle file(std::fopen(QFile::encodeName(output).constData(), "rb"));
    const std::size_t count = file == nullptr ? 0 : countItems(file.get());
    if (count > maxReadItems)
        messages.warning(
            output, WarningCode::ItemCount,
            QStringLiteral("the file has %1 items; the dump shows the first %2, and the workbench reads no "
                           "run that ends after them")
                .arg(count)
                .arg(maxReadItems));
}

/// Writes the devices; reports a failure.
void write(const CommandLine& line, const QString& output, const std::set<choices::DevicePosition>& devices,
           const QDateTime& exportTime, Console& console)
{
    Messages& messages = console.messages;
    const auto isSelected = [&](std::size_t file, std::size_t device) { return devices.count({file, device}) != 0; };
    const auto writeRun = [&](std::FILE* out, int* errorCode) {
        return writeDevices(out, console.inputs.files, isSelected, errorCode, exportTime);
    };
    try {
        if (isStandardOutput(output))
            writeToStandardOutput(writeRun, console);
        else if (saveRun(saveRequest(line, output), writeRun, messages))
            warnOfItemCount(output, messages);
    } catch (const MissingSyncManager& error) {
        messages.error(QFile::decodeName(error.file().c_str()), rangeErrorText(error));
    }
}

/// Makes the choices of the choices file, if there is one.
/// @return  the devices to write: those that the command line selects, else those that the choices file exports, else
///          all; nothing if selectors or choices do not fit, which has been reported
SelectedDevices chosenDevices(const CommandLine& line, std::vector<struct_FilenameDevice>& files, Messages& messages)
{
    SelectedDevices devices = selectedDevices(line.values(deviceOption), files, messages);
    if (!devices.has_value() || !line.isSet(choicesOption))
        return devices;
    auto made = applyChoicesFile(filePath(line.value(choicesOption)), files, messages, *devices);
    if (!made.has_value())
        return std::nullopt;
    return made->exported.has_value() && !line.isSet(deviceOption) ? std::move(made->exported) : devices;
}

/// Loads the files and writes the devices that are asked for.
ExitCode convert(const CommandLine& line, const QDateTime& exportTime, Console& console)
{
    Messages& messages = console.messages;
    QString output = filePath(line.value(outputOption));
    if (!output.isEmpty() && !mayWriteOutput(line, output, messages))
        return messages.exitCode();
    warnOfSameInputs(line.operands(), messages);
    if (!loadEsiFiles(line.operands(), Dictionaries::AreSkipped, console))
        return messages.exitCode();
    std::vector<struct_FilenameDevice>& files = console.inputs.files;
    if (!hasDevices(files, messages))
        return messages.exitCode();
    const SelectedDevices devices = chosenDevices(line, files, messages);
    if (!devices.has_value())
        return messages.exitCode();
    warnOfDevices(files, *devices, messages);
    if (output.isEmpty()) {
        const struct_FilenameDevice& first = files[devices->begin()->first];
        output = filePath(proposedKtlName(inputPathOf(first), first.Vendor_Id) + QStringLiteral(".ktl"));
        if (!mayWriteOutput(line, output, messages))
            return messages.exitCode();
        messages.note({}, QStringLiteral("writes %1; -o names another file").arg(output));
    }
    write(line, output, *devices, exportTime, console);
    return messages.exitCode(line.isSet(strictSwitch));
}

} // namespace

ExitCode runConvert(const QStringList& arguments, Console& console)
{
    CommandLine line(convertText, convertOptions());
    if (const std::optional<ExitCode> ended = line.parse(arguments, console))
        return *ended;
    if (const QString problem = problemOf(line, console); !problem.isEmpty())
        return line.refuse(problem, console);
    const ExportTime exportTime =
        exportTimeFrom(line.isSet(dateOption) ? std::make_optional(line.value(dateOption)) : std::nullopt);
    if (!exportTime.problem.isEmpty())
        return line.refuse(exportTime.problem, console);
    for (const QString& code : line.values(ignoreOption))
        if (const std::optional<WarningCode> ignored = warningCodeNamed(code))
            console.messages.ignore(*ignored);
    return convert(line, exportTime.time, console);
}

} // namespace cli
