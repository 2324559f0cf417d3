// choicesFrom.h - the choices that turn ESI files into an export that is there already.
#pragma once

#include "cli/console.h"

#include <QString>
#include <QStringList>

#include <cstddef>
#include <optional>

namespace cli {

/// What is asked for.
struct ChoicesFromRequest
{
    QStringList descriptions; ///< ESI files; "-" for standard input, as below
    QString exported; ///< KTL file
    std::optional<std::size_t> run; ///< of that file, from 1; may be left out where it has one only
};

/// Writes the choices to standard output, and tells what they do not make.
/// @return  `Different` if an export with the choices has other bytes
[[nodiscard]] ExitCode writeChoicesFrom(const ChoicesFromRequest& request, Console& console);

} // namespace cli
