// diffRequest.h - what a run of `ktl diff` is asked for.
#pragma once

#include "cli/commandLine.h"
#include "cli/console.h"
#include "diff/difference.h"

#include <QCommandLineOption>
#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

namespace cli {

/// What a run of `ktl diff` is asked for.
struct DiffRequest
{
    QString before;
    QString after; ///< the same as `before` where two devices of one file are compared
    QStringList selectors;
    std::optional<QString> with; ///< selector of the new device
    std::optional<QString> choices;
    diff::Weight least = diff::Weight::Text;
    bool isOfAll = false;
    bool isJson = false;
    bool hasColors = false;

    [[nodiscard]] bool isOfOneFile() const { return before == after; }
};

/// The options of `ktl diff`.
[[nodiscard]] QList<QCommandLineOption> diffOptions();

/// What is wrong with the arguments, empty if nothing is.
[[nodiscard]] QString problemOfDiff(const CommandLine& line);

/// @param line  without a problem
[[nodiscard]] DiffRequest diffRequestFrom(const CommandLine& line, const Console& console);

} // namespace cli
