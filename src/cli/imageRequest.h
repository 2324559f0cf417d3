// imageRequest.h - what a run of `ktl image` is asked for.
#pragma once

#include "cli/commandLine.h"
#include "image/imageWriter.h"

#include <QCommandLineOption>
#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

namespace cli {

/// What a run of `ktl image` is asked for.
struct ImageRequest
{
    QStringList paths;
    QStringList selectors; ///< of devices; all are meant where there are none
    std::optional<QString> choices; ///< path of a choices file
    image::Form form = image::Form::Text;
};

/// The options of `ktl image`.
[[nodiscard]] QList<QCommandLineOption> imageOptions();

/// What is wrong with the arguments, empty if nothing is.
[[nodiscard]] QString problemOfImage(const CommandLine& line);

/// @param line  without a problem
[[nodiscard]] ImageRequest imageRequestFrom(const CommandLine& line);

} // namespace cli
