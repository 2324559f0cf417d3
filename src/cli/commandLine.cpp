#include "cli/commandLine.h"

#include "model/version.h"

#include <ostream>

namespace {

const QString helpOption = QStringLiteral("help");
const QString versionOption = QStringLiteral("version");

} // namespace

CommandLine::CommandLine(const SubCommandText& text, const QList<QCommandLineOption>& options)
    : m_text(text)
{
    m_parser.setApplicationDescription(text.description);
    m_parser.addPositionalArgument(text.operands, text.operandsHelp, text.operands);
    m_parser.addOption({{QStringLiteral("h"), helpOption}, QStringLiteral("Shows this help.")});
    m_parser.addOption({{QStringLiteral("v"), versionOption}, QStringLiteral("Shows the version.")});
    m_parser.addOptions(options);
}

std::optional<ExitCode> CommandLine::parse(const QStringList& arguments, Console& console)
{
    // The parser takes the first argument for the program's name.
    if (!m_parser.parse(QStringList{m_text.name} + arguments))
        return refuse(m_parser.errorText(), console);
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
