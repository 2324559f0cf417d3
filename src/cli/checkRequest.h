// checkRequest.h - what a run of `ktl check` is asked for.
#pragma once

#include "check/findingWriter.h"
#include "check/rules/rule.h"
#include "cli/commandLine.h"

#include <QCommandLineOption>
#include <QList>
#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

namespace cli {

/// What a run of `ktl check` is asked for.
struct CheckRequest
{
    QStringList paths;
    QStringList selectors; ///< of devices; all are meant where there are none
    std::optional<QString> choices; ///< path of a choices file
    check::FindingForm form = check::FindingForm::Lines;
    check::Severity failOn = check::Severity::Error;
    std::vector<const check::Rule*> rules; ///< that are asked
};

/// The options of `ktl check`.
[[nodiscard]] QList<QCommandLineOption> checkOptions();

/// What is wrong with the arguments, empty if nothing is.
[[nodiscard]] QString problemOfCheck(const CommandLine& line);

/// @param line  without a problem
[[nodiscard]] CheckRequest checkRequestFrom(const CommandLine& line, const Console& console);

/// Does what `--rules` and `--explain` ask for.
/// @param line  without a problem
/// @return      whether one of them was given
[[nodiscard]] bool tellRules(const CommandLine& line, Console& console);

} // namespace cli
