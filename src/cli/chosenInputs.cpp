#include "cli/chosenInputs.h"

#include "cli/choicesFile.h"
#include "cli/streamName.h"
#include "cli/takenResults.h"
#include "esi/derivation/rangeErrors.h"

#include <QFileInfo>

#include <stdexcept>
#include <utility>

namespace cli {

namespace {

/// Makes the choices in the files that could be read.
/// @param selected  takes the devices that are asked for
/// @return          false if selectors or choices do not fit; that has been reported
bool makeChoices(const QStringList& selectors, const QString& choices, SelectedDevices& selected,
                 std::vector<struct_FilenameDevice>& files, Messages& messages)
{
    selected = selectedDevices(selectors, files, messages);
    if (!selected.has_value())
        return false;
    try {
        if (!applyChoicesFile(choices, files, messages, *selected).has_value())
            return false;
    } catch (const std::out_of_range& error) {
        messages.error(choices, rangeErrorText(error));
        return false;
    }
    if (selectors.isEmpty())
        selected.reset();
    return true;
}

/// Reads a file for its record. The tree is large and needed again only after the choices: it is kept only where the
/// file cannot be read again.
TreeInput readForChoices(const QString& path)
{
    TreeInput input = readTreeInput(path, AcceptedInputs::Esi);
    if (canBeReadAgain(path))
        input.tree.reset();
    return input;
}

} // namespace

bool canBeReadAgain(const QString& path)
{
    return !isStandardInput(path) && QFileInfo(path).isFile();
}

ChosenInputs readChosenInputs(const QStringList& paths, const QStringList& selectors, const QString& choices,
                              Console& console)
{
    ChosenInputs chosen;
    RetriedWork<TreeInput> reading(
        paths, console.cores, [&](std::size_t index) { return readForChoices(paths.at(static_cast<int>(index))); });
    takeAll(reading, paths, "reading", true, [&](const QString& /*path*/, TreeInput input) {
        console.inputs.count(input.road);
        console.inputs.files.push_back(std::move(input.record)); // of a broken file too, for its place
        chosen.inputs.push_back(std::move(input));
    });
    Messages problems;
    chosen.areMade = makeChoices(selectors, choices, chosen.selected, console.inputs.files, problems);
    console.messages.report(problems);
    chosen.problems = problems.keptErrors();
    return chosen;
}

} // namespace cli
