#include "cli/ktlCommand.h"

#include "cli/checkCommand.h"
#include "cli/choicesCommand.h"
#include "cli/convertCommand.h"
#include "cli/diffCommand.h"
#include "cli/dumpCommand.h"
#include "cli/findCommand.h"
#include "cli/imageCommand.h"
#include "cli/inputFile.h"
#include "cli/showCommand.h"
#include "model/version.h"

#include <QLatin1String>
#include <QString>

#include <algorithm>
#include <iterator>
#include <new>
#include <ostream>

namespace cli {

namespace {

struct SubCommand
{
    const SubCommandText* text;
    ExitCode (*run)(const QStringList& arguments, Console& console);
};

constexpr SubCommand subCommands[] = {
    {&convertText, runConvert}, {&choicesText, runChoices}, {&showText, runShow}, {&imageText, runImage},
    {&findText, runFind},       {&checkText, runCheck},     {&diffText, runDiff}, {&dumpText, runDump},
};

void showHelp(std::ostream& out)
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
           "Exit status: 0 done; 1 done, with warnings where --strict of convert is given,\n"
           "or with findings of check that --fail-on names (errors, if nothing else),\n"
           "or find has found nothing, or diff has found a difference;\n"
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
        showHelp(console.results);
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

} // namespace

ExitCode runCommand(const QStringList& arguments, Console& console)
{
    try {
        return runNamed(arguments, console);
    } catch (const std::bad_alloc&) { // where no single file is the reason
        reportNoMemory({}, console.messages);
        return console.messages.exitCode();
    }
}

} // namespace cli
