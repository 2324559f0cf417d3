// convertCommand.h - `ktl convert`: ESI files in, one KTL file with its text dump out.
#pragma once

#include <QString>
#include <QStringList>

#include <iosfwd>

/// Exit codes of the command.
enum class ExitCode
{
    Success = 0,
    Failure = 1, ///< a file could not be read or written; the reason is in the messages
    Usage = 2, ///< the command line is not understood
};

/// Loads the ESI files in the given order and writes every device of theirs. Nothing is written if a file cannot be
/// loaded. An existing output file is replaced, unless it is one of the ESI files.
/// @param messages  takes one line per error
[[nodiscard]] ExitCode convert(const QStringList& esiFiles, const QString& outputFile, std::ostream& messages);
