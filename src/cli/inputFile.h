// inputFile.h - opening the files that the user names on the command line.
#pragma once

#include "cli/inputKind.h"
#include "cli/messages.h"

#include <QFile>
#include <QString>

#include <optional>

namespace cli {

/// Reports that a file cannot be read.
/// @param reason  in the system's words
void reportUnreadable(const QString& path, const QString& reason, Messages& messages);

/// Reports that there is not enough memory for a file.
void reportNoMemory(const QString& path, Messages& messages);

/// Opens a file, or standard input, for reading; reports it if that is not possible.
/// @param file  takes the path; closed before
[[nodiscard]] bool openInput(QFile& file, const QString& path, Messages& messages);

/// The kind of a file that is open for reading, by its first bytes; it can be read from its start afterwards.
/// @param path  for messages
/// @return      nothing if it cannot be read; that has been reported
[[nodiscard]] std::optional<InputKind> kindOfInput(QFile& file, const QString& path, Messages& messages);

} // namespace cli
