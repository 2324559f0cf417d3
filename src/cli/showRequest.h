// showRequest.h - what a run of `ktl show` is asked for.
#pragma once

#include "cli/commandLine.h"
#include "show/showWriter.h"

#include <QCommandLineOption>
#include <QList>
#include <QString>
#include <QStringList>

namespace cli {

/// What a run of `ktl show` is asked for.
struct ShowRequest
{
    QStringList paths;
    QStringList selectors; ///< of devices; all are meant where there are none
    show::Form form;
};

/// The options of `ktl show`.
[[nodiscard]] QList<QCommandLineOption> showOptions();

/// What is wrong with the arguments, empty if nothing is.
[[nodiscard]] QString problemOfShow(const CommandLine& line);

/// @param line  without a problem
[[nodiscard]] ShowRequest showRequestFrom(const CommandLine& line, const Console& console);

} // namespace cli
