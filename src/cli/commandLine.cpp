#include "cli/commandLine.h"

#include "cli/streamName.h"
#include "cli/wrappedText.h"
#include "model/version.h"

#include <algorithm>
#include <ostream>

namespace cli {

namespace {

const QString helpOption = QStringLiteral("help");
const QString versionOption = QStringLiteral("version");

constexpr int maxHelpWidth = 79; // the one to which the parser wraps the options

/// The first of the arguments that is none of the options; nothing if that is not known.
std::optional<QString> unknownArgument(const QStringList& arguments, const QStringList& unknownNames)
{
    for (const QString& argument : arguments) {
        if (argument == QLatin1String("--"))
            break;
        const bool isLong = argument.startsWith(QLatin1String("--"));
        const QString name = isLong ? argument.mid(2).section(QLatin1Char('='), 0, 0) : argument.mid(1);
        const auto isIn = [&](const QString& unknown) { return isLong ? name == unknown : name.contains(unknown); };
        if (argument.startsWith(QLatin1Char('-')) && std::any_of(unknownNames.begin(), unknownNames.end(), isIn))
            return argument;
    }
    return std::nullopt;
}

/// The option, with its hyphens, that the parser's own words name in quotation marks.
QString optionNamedIn(const QString& parserWords)
{
    return parserWords.section(QLatin1Char('\''), 1, 1);
}

} // namespace

CommandLine::CommandLine(const SubCommandText& text, const QList<QCommandLineOption>& options)
    : m_text(text)
{
    m_parser.setApplicationDescription(wrapped(text.description, maxHelpWidth));
    m_parser.addPositionalArgument(text.operands, text.operandsHelp, text.operands);
    m_parser.addOption({{QStringLiteral("h"), helpOption}, QStringLiteral("Shows this help.")});
    m_parser.addOption({{QStringLiteral("v"), versionOption}, QStringLiteral("Shows the version.")});
    m_parser.addOptions(options);
}

std::optional<ExitCode> CommandLine::parse(const QStringList& arguments, Console& console)
{
    // The parser takes the first argument for the program's name.
    if (!m_parser.parse(QStringList{m_text.name} + arguments))
        return refuse(parserProblem(arguments), console);
    if (isSet(helpOption)) {
        console.results << helpText().toStdString();
        return ExitCode::Done;
    }
    if (isSet(versionOption)) {
        console.results << "ktl " << versionText << '\n';
        return ExitCode::Done;
    }
    return std::nullopt;
}

QStringList CommandLine::operands() const
{
    QStringList paths;
    for (const QString& argument : m_parser.positionalArguments())
        paths += filePath(argument);
    return paths;
}

QString CommandLine::parserProblem(const QStringList& arguments) const
{
    const QStringList unknownNames = m_parser.unknownOptionNames();
    if (const std::optional<QString> unknown = unknownArgument(arguments, unknownNames)) {
        const QString problem = QStringLiteral("there is no option %1").arg(*unknown);
        return unknown->startsWith(QLatin1String("--"))
                   ? problem
                   : problem + QStringLiteral("; a file of that name is given after --");
    }
    // What is left: an option without its value, or a switch that was given one.
    const QString option = optionNamedIn(m_parser.errorText());
    const bool wasGivenValue = std::any_of(arguments.begin(), arguments.end(), [&option](const QString& argument) {
        return argument.startsWith(option + QLatin1Char('='));
    });
    return (wasGivenValue ? QStringLiteral("the option %1 takes no value")
                          : QStringLiteral("the option %1 needs a value"))
        .arg(option);
}

ExitCode CommandLine::refuse(const QString& reason, Console& console) const
{
    console.messages.error({}, QStringLiteral("%1 (see: ktl %2 --help)").arg(reason, m_text.name));
    return ExitCode::Unusable;
}

QString CommandLine::helpText() const
{
    // The parser's own first line names the program by its path and leaves the sub-command out.
    const QString text = m_parser.helpText();
    const QString usage = QStringLiteral("Usage: ktl %1 [options] %2").arg(m_text.name, m_text.operands);
    return usage + text.mid(text.indexOf(QLatin1Char('\n'))) + QStringLiteral("\nExamples:\n") + m_text.examples;
}

} // namespace cli
