// commandLine.h - the command line of a sub-command: its options, its help, and what is wrong with it.
#pragma once

#include "cli/console.h"

#include <QCommandLineOption>
#include <QCommandLineParser>
#include <QLatin1String>
#include <QList>
#include <QStringList>

#include <optional>

namespace cli {

/// What `ktl SUB-COMMAND --help` says.
struct SubCommandText
{
    QLatin1String name;
    QLatin1String summary; ///< one line, for the list of sub-commands
    QLatin1String operands; ///< what follows the options: "ESI..."
    QLatin1String operandsHelp; ///< what the operands are
    QLatin1String description;
    QLatin1String examples; ///< a line each, ended by a line feed
};

/// Parses the arguments of one sub-command.
class CommandLine
{
public:
    /// @param options  besides `--help` and `--version`, which every sub-command has
    CommandLine(const SubCommandText& text, const QList<QCommandLineOption>& options);

    /// Reads the arguments after the sub-command's name.
    /// @return  nothing if the sub-command can go on; else its exit status: help was given, or something is wrong and
    ///          has been reported
    [[nodiscard]] std::optional<ExitCode> parse(const QStringList& arguments, Console& console);

    [[nodiscard]] bool isSet(const QString& option) const { return m_parser.isSet(option); }
    /// Value of an option, the last one if it was given more than once.
    [[nodiscard]] QString value(const QString& option) const { return m_parser.value(option); }
    [[nodiscard]] QStringList values(const QString& option) const { return m_parser.values(option); }
    /// Names of files, see `filePath`.
    [[nodiscard]] QStringList operands() const;

    /// Reports that the arguments make no sense together.
    ExitCode refuse(const QString& reason, Console& console) const;

private:
    [[nodiscard]] QString helpText() const;
    /// Why the parser cannot read the arguments, in the command's own words.
    [[nodiscard]] QString parserProblem(const QStringList& arguments) const;

    SubCommandText m_text;
    QCommandLineParser m_parser;
};

} // namespace cli
