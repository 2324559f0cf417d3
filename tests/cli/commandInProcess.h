// commandInProcess.h - runs the command inside the test: for all that is not about the terminal, the process or its
// signals. Standard input cannot be given, and `-o -` would reach the test's own output.
#pragma once

#include "cli/commandRun.h"
#include "cli/ktlCommand.h"

#include <sstream>

/// Runs the command to its end.
/// @param arguments  without the name of the program; paths are absolute
inline CommandRun runHere(const QStringList& arguments)
{
    std::ostringstream results;
    std::ostringstream lines;
    Messages messages(lines);
    Inputs inputs;
    Console console{results, messages, inputs};
    CommandRun run;
    run.exitCode = static_cast<int>(runCommand(arguments, console));
    run.hasEnded = true;
    run.output = QByteArray::fromStdString(results.str());
    run.errors = QByteArray::fromStdString(lines.str());
    return run;
}
