#include "cli/checkCommand.h"

#include "cli/checkRequest.h"
#include "cli/checkedInput.h"
#include "cli/chosenInputs.h"
#include "cli/findingTeller.h"
#include "cli/selectedDevices.h"
#include "cli/selectorRecord.h"
#include "cli/streamName.h"
#include "cli/takenResults.h"

#include <QFileInfo>

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace cli {

const SubCommandText checkText{
    QLatin1String("check"),
    QLatin1String("says what would go wrong on the machine"),
    QLatin1String("FILE..."),
    QLatin1String("ESI and KTL files; - for standard input."),
    QLatin1String("Says what would go wrong on the machine, with file and line: in ESI files, in KTL files (with the\n"
                  "offset of a byte), and, with --choices, in what would be exported after those choices. The exit\n"
                  "status is 1 where there is an error; --fail-on takes less. A file that cannot be read is told like\n"
                  "other findings, and the status is 2 then."),
    QLatin1String("  ktl check drive.xml coupler.xml\n"
                  "  ktl check drive.xml --fail-on warning --ignore product-code\n"
                  "  ktl check coupler.xml --choices choices.json --device 2\n"
                  "  ktl check *.xml --sarif > findings.sarif\n"
                  "  ktl check --explain product-code\n"),
};

namespace {

FileChecks fileChecksOf(const CheckRequest& request)
{
    FileChecks checks{request.rules, {}};
    for (const QString& path : request.paths)
        if (!isStandardInput(path))
            checks.givenFiles += QFileInfo(path).fileName();
    return checks;
}

/// Checks files one after the other, and tells findings as they come.
ExitCode checkAll(const CheckRequest& request, RetriedWork<CheckedInput>& work, const SelectedDevices& selected,
                  Console& console)
{
    FindingTeller teller(request, selected, console);
    // At a terminal the results themselves show that work goes on, and the line would come between them.
    takeAll(work, request.paths, "checking", !console.terminalWidth.has_value(),
            [&](const QString& path, CheckedInput checked) {
                console.inputs.count(checked.road);
                teller.tell(path, std::move(checked.file));
            });
    return teller.end();
}

/// Checks all files before the first finding is told, since a selector may mean a device of the last one.
ExitCode checkSelected(const CheckRequest& request, RetriedWork<CheckedInput>& work, Console& console)
{
    std::vector<CheckedInput> inputs;
    std::vector<struct_FilenameDevice> records;
    takeAll(work, request.paths, "checking", true, [&](const QString& path, CheckedInput checked) {
        console.inputs.count(checked.road);
        records.push_back(selectorRecordOf(path, checked.file.findings.units));
        inputs.push_back(std::move(checked));
    });
    Messages problems;
    const auto selected = selectedDevices(request.selectors, records, problems);
    console.messages.report(problems);
    FindingTeller teller(request, selected, console);
    if (!selected.has_value())
        teller.refuse(problems.keptErrors());
    for (int index = 0; index < request.paths.size(); ++index)
        teller.tell(request.paths.at(index), std::move(inputs[static_cast<std::size_t>(index)].file));
    return teller.end();
}

/// Tells of files that could not be read, since one of them may be why the arguments do not fit.
ExitCode refuse(const CheckRequest& request, const std::vector<TreeInput>& inputs, const FileChecks& checks,
                std::vector<std::string> problems, Console& console)
{
    FindingTeller teller(request, {}, console);
    teller.refuse(std::move(problems));
    for (std::size_t index = 0; index < inputs.size(); ++index) {
        const QString& path = request.paths.at(static_cast<int>(index));
        teller.tell(path, uncheckedFile(path, inputs[index], checks));
    }
    return teller.end();
}

/// Checks a file of which the record has been read.
/// @param record  with its choices
CheckedInput checkWithChoices(const QString& path, const TreeInput& input, const struct_FilenameDevice& record,
                              const FileChecks& checks)
{
    CheckedInput checked =
        withTree(path, input, [&](const TreeInput& whole) { return checkInput(path, whole, record, checks); });
    checked.road = EsiRoad::Plain; // it has been counted
    return checked;
}

/// Reads all files, makes the choices, and checks the files as they are then.
ExitCode checkChosen(const CheckRequest& request, const FileChecks& checks, Console& console)
{
    ChosenInputs chosen = readChosenInputs(request.paths, request.selectors, *request.choices, console);
    if (!chosen.areMade)
        return refuse(request, chosen.inputs, checks, std::move(chosen.problems), console);
    RetriedWork<CheckedInput> checking(request.paths, console.cores, [&](std::size_t index) {
        return checkWithChoices(request.paths.at(static_cast<int>(index)), chosen.inputs[index],
                                console.inputs.files[index], checks);
    });
    return checkAll(request, checking, chosen.selected, console);
}

} // namespace

ExitCode runCheck(const QStringList& arguments, Console& console)
{
    CommandLine line(checkText, checkOptions());
    if (const std::optional<ExitCode> ended = line.parse(arguments, console))
        return *ended;
    if (const QString problem = problemOfCheck(line); !problem.isEmpty())
        return line.refuse(problem, console);
    if (tellRules(line, console))
        return ExitCode::Done;
    const CheckRequest request = checkRequestFrom(line, console);
    const FileChecks checks = fileChecksOf(request);
    if (request.choices.has_value())
        return checkChosen(request, checks, console);
    RetriedWork<CheckedInput> work(request.paths, console.cores, [&](std::size_t index) {
        const QString& path = request.paths.at(static_cast<int>(index));
        const TreeInput input = readTreeInput(path, AcceptedInputs::EsiAndKtl);
        return checkInput(path, input, input.record, checks);
    });
    return request.selectors.isEmpty() ? checkAll(request, work, {}, console) : checkSelected(request, work, console);
}

} // namespace cli
