// commandInProcess.h - runs the command inside the test: for all that is not about the terminal, the process or its
// signals. Standard input cannot be given.
#pragma once

#include "cli/commandRun.h"
#include "cli/ktlCommand.h"

#include <QDir>

#include <optional>
#include <sstream>

/// The working folder of the test, as long as it lives.
class WorkingFolder
{
public:
    /// @param folder  empty for the one that there is
    explicit WorkingFolder(const QString& folder)
    {
        if (!folder.isEmpty())
            QDir::setCurrent(folder);
    }
    ~WorkingFolder() { QDir::setCurrent(m_before); }
    WorkingFolder(const WorkingFolder&) = delete;
    WorkingFolder& operator=(const WorkingFolder&) = delete;
    WorkingFolder(WorkingFolder&&) = delete;
    WorkingFolder& operator=(WorkingFolder&&) = delete;

private:
    const QString m_before = QDir::currentPath();
};

/// Runs the command to its end; a variable that would fix its time does not count.
/// @param arguments  without the name of the program
/// @param folder     in which relative paths are; empty for that of the test
/// @param cores      files that are read at the same time
/// @param columns    of the terminal that shows the results; nothing if none does
inline CommandRun runHere(const QStringList& arguments, const QString& folder = {}, std::size_t cores = 1,
                          std::optional<std::size_t> columns = std::nullopt)
{
    qunsetenv("SOURCE_DATE_EPOCH");
    const WorkingFolder workingFolder(folder);
    std::ostringstream results;
    std::ostringstream lines;
    cli::Messages messages(lines);
    cli::Inputs inputs;
    cli::Console console{results, messages, inputs, cores, columns};
    CommandRun run;
    run.exitCode = static_cast<int>(cli::runCommand(arguments, console));
    run.hasEnded = true;
    run.throughDocuments = inputs.throughDocuments;
    run.output = QByteArray::fromStdString(results.str());
    run.errors = QByteArray::fromStdString(lines.str());
    return run;
}
