// findRequest.h - what a run of `ktl find` is asked for.
#pragma once

#include "cli/commandLine.h"
#include "cli/foundWriter.h"
#include "find/filter.h"

#include <QCommandLineOption>
#include <QList>
#include <QString>
#include <QStringList>

namespace cli {

/// What a run of `ktl find` is asked for.
struct FindRequest
{
    QStringList paths;
    find::Filter filter;
    bool takesLatest = false;
    bool takesDuplicates = false;
    FoundForm form = FoundForm::Lines;
    char end = '\n'; ///< of a line
};

/// The options of `ktl find`.
[[nodiscard]] QList<QCommandLineOption> findOptions();

/// What is wrong with the arguments, empty if nothing is.
[[nodiscard]] QString problemOfFind(const CommandLine& line);

/// @param line  without a problem
[[nodiscard]] FindRequest findRequestFrom(const CommandLine& line);

} // namespace cli
