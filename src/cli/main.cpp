// main.cpp - `ktl`, the companion command for build servers: the engine of the workbench without a window.
#include "cli/convertCommand.h"
#include "esi/lastWords.h"
#include "model/version.h"

#include <QCommandLineParser>
#include <QCoreApplication>

#include <cstdlib>
#include <exception>
#include <iostream>

namespace {

[[noreturn]] void endWithReason()
{
    std::cerr << lastWords().toStdString() << std::endl;
    std::abort();
}

ExitCode usageError(const QCommandLineParser& parser, const QString& reason)
{
    std::cerr << "error: " << reason.toStdString() << "\n\n" << parser.helpText().toStdString();
    return ExitCode::Usage;
}

ExitCode run(const QStringList& arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "Turns EtherCAT slave descriptions (ESI) into one KTL file for the motion controller.\n"
        "Every device of the given files is written, and beside OUT.ktl a text dump of it, OUT.ktl.txt.\n"
        "Exit codes: 0 done, 1 a file could not be read or written, 2 wrong command line."));
    parser.addPositionalArgument(QStringLiteral("convert"), QStringLiteral("The sub-command."),
                                 QStringLiteral("convert"));
    parser.addPositionalArgument(QStringLiteral("ESI"), QStringLiteral("ESI files, in the order of the output."),
                                 QStringLiteral("ESI..."));
    const QCommandLineOption outputOption(QStringList{QStringLiteral("o"), QStringLiteral("output")},
                                          QStringLiteral("The KTL file to write; an existing one is replaced."),
                                          QStringLiteral("OUT.ktl"));
    parser.addOption(outputOption);
    const QCommandLineOption helpOption(QStringList{QStringLiteral("h"), QStringLiteral("help")},
                                        QStringLiteral("Shows this help."));
    parser.addOption(helpOption);
    const QCommandLineOption versionOption = parser.addVersionOption();

    if (!parser.parse(arguments))
        return usageError(parser, parser.errorText());
    if (parser.isSet(versionOption)) {
        std::cout << "ktl " << versionText << '\n';
        return ExitCode::Success;
    }
    if (parser.isSet(helpOption)) {
        std::cout << parser.helpText().toStdString();
        return ExitCode::Success;
    }
    QStringList files = parser.positionalArguments();
    if (files.isEmpty() || files.takeFirst() != QLatin1String("convert"))
        return usageError(parser, QStringLiteral("the sub-command is missing or unknown; there is: convert"));
    if (files.isEmpty())
        return usageError(parser, QStringLiteral("no ESI file is given"));
    const QString outputFile = parser.value(outputOption);
    if (outputFile.isEmpty())
        return usageError(parser, QStringLiteral("no output file is given (-o OUT.ktl)"));
    return convert(files, outputFile, std::cerr);
}

} // namespace

int main(int argc, char** argv)
{
    std::set_terminate(endWithReason);
    const QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("ktl"));
    return static_cast<int>(run(QCoreApplication::arguments()));
}
