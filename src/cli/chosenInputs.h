// chosenInputs.h - ESI files with the choices of a file made in them, for what needs their trees after that.
#pragma once

#include "cli/console.h"
#include "cli/selectedDevices.h"
#include "cli/treeInput.h"

#include <QString>
#include <QStringList>

#include <string>
#include <vector>

namespace cli {

/// Whether a file can be read a second time. A pipe cannot.
[[nodiscard]] bool canBeReadAgain(const QString& path);

/// The files of a call. Their records, with the choices, are in the console.
struct ChosenInputs
{
    std::vector<TreeInput> inputs; ///< without trees where a file can be read again: a tree is large
    SelectedDevices selected;
    bool areMade = false; ///< false if selectors or choices do not fit; that has been reported
    std::vector<std::string> problems; ///< what was reported of them, see `Messages::keptErrors`
};

/// Reads the files, and makes the choices in those that could be read.
[[nodiscard]] ChosenInputs readChosenInputs(const QStringList& paths, const QStringList& selectors,
                                            const QString& choices, Console& console);

/// Works on a file with its tree, which is read again if need be; or with its fault.
/// @param work  gets the input
template<typename Work> [[nodiscard]] auto withTree(const QString& path, const TreeInput& input, Work work)
{
    if (input.fault.has_value() || input.tree.has_value())
        return work(input);
    const TreeInput again = readTreeInput(path, AcceptedInputs::Esi);
    return work(again);
}

} // namespace cli
