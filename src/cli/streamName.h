// streamName.h - files as the user names them, of which "-" is a standard stream.
#pragma once

#include <QString>
#include <QStringList>

namespace cli {

/// Whether the path of an input stands for standard input.
[[nodiscard]] bool isStandardInput(const QString& path);

/// Whether the path of an output stands for standard output.
[[nodiscard]] bool isStandardOutput(const QString& path);

/// How many of the inputs are standard input, which can be read once only.
[[nodiscard]] int standardInputsIn(const QStringList& paths);

/// A file as messages and listings name it: its path with native separators, "<stdin>" for standard input.
[[nodiscard]] QString shownName(const QString& file);

/// A name of a file from the command line, in a form that the toolkit takes for one: it would look for a name that
/// begins with ":" inside the program.
[[nodiscard]] QString filePath(const QString& argument);

} // namespace cli
