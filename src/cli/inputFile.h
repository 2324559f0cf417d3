// inputFile.h - the files that the user names on the command line.
#pragma once

#include "cli/inputKind.h"
#include "cli/inputs.h"
#include "cli/messages.h"
#include "model/deviceRecords.h"

#include <QFile>
#include <QString>
#include <QStringList>

#include <optional>

/// Whether a path stands for standard input.
[[nodiscard]] bool isStandardInput(const QString& path);

/// A name of a file from the command line, in a form that the toolkit takes for one: it would look for a name that
/// begins with ":" inside the program.
[[nodiscard]] QString filePath(const QString& argument);

/// Tells that a file cannot be read.
/// @param reason  in the system's words
void tellUnreadable(const QString& path, const QString& reason, Messages& messages);

/// Tells that the memory did not suffice for a file.
void tellNoMemory(const QString& path, Messages& messages);

/// Opens a file, or standard input, for reading; tells if it cannot be opened.
/// @param file  takes the path; closed before
[[nodiscard]] bool openInput(QFile& file, const QString& path, Messages& messages);

/// The kind of a file that is open for reading, by its first bytes; it can be read from its start afterwards.
/// @param path  for messages
/// @return      nothing if it cannot be read; that has been told
[[nodiscard]] std::optional<InputKind> kindOfInput(QFile& file, const QString& path, Messages& messages);

/// Loads an ESI file that is open for reading; tells if it cannot be loaded.
/// @param path      for messages, and as the path of the loaded file
/// @param document  takes the parse tree
/// @return          nothing if it cannot be loaded
[[nodiscard]] std::optional<struct_FilenameDevice> loadOpenEsi(QFile& file, const QString& path, QDomDocument& document,
                                                               Messages& messages);

/// Loads ESI files into `inputs`, in the given order. Every file that cannot be loaded is told, so that one run shows
/// all that is wrong. Standard input can be given once.
/// @return  whether all were loaded
[[nodiscard]] bool loadEsiFiles(const QStringList& paths, Inputs& inputs, Messages& messages);
