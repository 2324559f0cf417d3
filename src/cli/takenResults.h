// takenResults.h - the results of work on the files of a call, one after another, with a line about progress.
#pragma once

#include "cli/progress.h"
#include "cli/retriedWork.h"
#include "cli/streamName.h"

#include <QStringList>

#include <optional>

namespace cli {

/// Takes the results of work on all files.
/// @param what           is done with a file: "checking"
/// @param showsProgress  false where the results themselves show that work goes on
/// @param take           gets path and result
template<typename Result, typename Take>
void takeAll(RetriedWork<Result>& work, const QStringList& paths, const char* what, bool showsProgress, Take take)
{
    int number = 0;
    for (const QString& path : paths) {
        std::optional<Progress> progress;
        ++number;
        if (showsProgress)
            progress.emplace(QStringLiteral("%1 %2").arg(QLatin1String(what), shownName(path)), number, paths.size());
        take(path, work.take());
    }
}

} // namespace cli
