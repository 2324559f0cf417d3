// main.cpp - `ktl`, the companion command for build servers: the engine of the workbench without a window.
#include "cli/choicesCommand.h"
#include "cli/convertCommand.h"
#include "cli/dumpCommand.h"
#include "cli/inputFile.h"
#include "cli/showCommand.h"
#include "esi/lastWords.h"
#include "model/version.h"
#include "system/fileNameCodec.h"
#include "system/standardOutput.h"

#include <QCoreApplication>

#include <algorithm>
#include <clocale>
#include <csignal>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <iterator>
#include <new>
#include <ostream>

#include <fcntl.h>
#include <unistd.h>

namespace {

struct SubCommand
{
    const SubCommandText* text;
    ExitCode (*run)(const QStringList& arguments, Console& console);
};

constexpr SubCommand subCommands[] = {
    {&convertText, runConvert},
    {&choicesText, runChoices},
    {&showText, runShow},
    {&dumpText, runDump},
};

[[noreturn]] void endWithReason()
{
    std::cerr << lastWords().toStdString() << std::endl;
    std::abort();
}

/// Gives a use to each of the three standard streams that is closed, before a file of ours gets its number and is taken
/// for it. Standard input stays one that cannot be read and standard output one that cannot be written, so that it is
/// noticed when they are needed.
void fillClosedStreams()
{
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
        if (fcntl(stream, F_GETFD) < 0)
            static_cast<void>(open("/dev/null", stream == STDOUT_FILENO ? O_RDONLY : O_WRONLY));
}

void tellHelp(std::ostream& out)
{
    out << "Usage: ktl SUB-COMMAND [options] FILE...\n"
           "What the workbench for EtherCAT slave descriptions does, without a window.\n\n"
           "Sub-commands:\n";
    for (const SubCommand& subCommand : subCommands)
        out << "  " << QString(subCommand.text->name).leftJustified(10).toStdString()
            << subCommand.text->summary.latin1() << '\n';
    out << "  help      shows this help, or that of the sub-command after it\n"
           "\nOptions:\n"
           "  -h, --help     Shows this help; after a sub-command, that of the sub-command.\n"
           "  -v, --version  Shows the version.\n\n"
           "Exit status: 0 done; 1 done, with warnings where --strict of convert is given;\n"
           "2 input or arguments that cannot be used; 3 an output that cannot be written.\n\n"
           "Examples:\n";
    for (const SubCommand& subCommand : subCommands)
        out << subCommand.text->examples.latin1();
}

const SubCommand* subCommandNamed(const QString& name)
{
    const auto* const found = std::find_if(std::begin(subCommands), std::end(subCommands),
                                           [&](const SubCommand& subCommand) { return name == subCommand.text->name; });
    return found == std::end(subCommands) ? nullptr : found;
}

ExitCode refuseSubCommand(const QString& name, Console& console)
{
    console.messages.error({}, name.isEmpty() ? QStringLiteral("the sub-command is missing (see: ktl --help)")
                                              : QStringLiteral("\"%1\" is no sub-command (see: ktl --help)").arg(name));
    return console.messages.exitCode();
}

/// `ktl help`, `ktl help SUB-COMMAND`.
ExitCode runHelp(const QStringList& names, Console& console)
{
    if (names.isEmpty() || names.constFirst() == QLatin1String("help")) {
        tellHelp(console.results);
        return ExitCode::Done;
    }
    const SubCommand* const subCommand = subCommandNamed(names.constFirst());
    return subCommand != nullptr ? subCommand->run({QStringLiteral("--help")}, console)
                                 : refuseSubCommand(names.constFirst(), console);
}

ExitCode runNamed(const QStringList& arguments, Console& console)
{
    const QString first = arguments.value(0);
    if (first == QLatin1String("--help") || first == QLatin1String("-h"))
        return runHelp({}, console);
    if (first == QLatin1String("help"))
        return runHelp(arguments.mid(1), console);
    if (first == QLatin1String("--version") || first == QLatin1String("-v")) {
        console.results << "ktl " << versionText << '\n';
        return ExitCode::Done;
    }
    const SubCommand* const subCommand = subCommandNamed(first);
    return subCommand != nullptr ? subCommand->run(arguments.mid(1), console) : refuseSubCommand(first, console);
}

/// Runs the command; tells if memory ends where that is the affair of no single file.
ExitCode run(const QStringList& arguments, Console& console)
{
    try {
        return runNamed(arguments, console);
    } catch (const std::bad_alloc&) {
        tellNoMemory({}, console.messages);
        return console.messages.exitCode();
    }
}

} // namespace

int main(int argc, char** argv)
{
    std::set_terminate(endWithReason);
    fillClosedStreams();
    static_cast<void>(std::signal(SIGXFSZ, SIG_IGN)); // a limit on the size of files is told like a disk that is full
    keepFileNames();
    const QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("ktl"));
    std::setlocale(LC_ALL, "C"); // the reasons that the system gives are English, like all other words
    StandardOutput standardOutput;
    std::ostream results(&standardOutput);
    Messages messages(std::cerr);
    Inputs inputs;
    Console console{results, messages, inputs};
    ExitCode ended = run(QCoreApplication::arguments().mid(1), console);
    if (!results.flush()) {
        messages.outputError({}, QStringLiteral("standard output cannot be written: ")
                                     + QString::fromStdString(standardOutput.failure()));
        ended = messages.exitCode();
    }
    // Everything is written and closed by now. The last tree and all records go with the process: to free them piece by
    // piece before took a sixth of the whole time.
    std::_Exit(static_cast<int>(ended));
}
