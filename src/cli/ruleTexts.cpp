#include "cli/ruleTexts.h"

#include "check/rules/rules.h"
#include "cli/wrappedText.h"
#include "text/shownText.h"
#include "text/textMatching.h"

#include <QStringList>

#include <algorithm>
#include <ostream>
#include <utility>
#include <vector>

namespace cli {

namespace {

QString textOf(std::string_view text)
{
    return QString::fromUtf8(text.data(), static_cast<int>(text.size()));
}

/// A paragraph, with a blank line before it.
void writeParagraph(std::string_view beginning, std::string_view text, std::size_t width, std::ostream& out)
{
    out << '\n' << wrapped(textOf(beginning) + textOf(text), static_cast<int>(width)).toStdString() << '\n';
}

/// The codes of rules that are nearly that one, the nearest first.
QStringList nearestTo(const QString& code)
{
    constexpr int maxCompared = 60; // characters
    constexpr int charactersPerChange = 3; // more changes make another word
    constexpr std::size_t maxNearest = 3;
    const QString wanted = code.left(maxCompared);
    std::vector<std::pair<int, QString>> near;
    for (const check::Rule* const rule : check::allRules())
        if (const int distance = distanceToBeginning(wanted, textOf(rule->code));
            distance * charactersPerChange <= wanted.size())
            near.emplace_back(distance, textOf(rule->code));
    std::stable_sort(near.begin(), near.end(),
                     [](const auto& left, const auto& right) { return left.first < right.first; });
    QStringList codes;
    for (std::size_t index = 0; index < std::min(near.size(), maxNearest); ++index)
        codes += near[index].second;
    return codes;
}

} // namespace

void listRules(std::ostream& out)
{
    constexpr int severityWidth = 7;
    std::size_t codeWidth = 0;
    for (const check::Rule* const rule : check::allRules())
        codeWidth = std::max(codeWidth, rule->code.size());
    for (const check::Rule* const rule : check::allRules())
        out << textOf(rule->code).leftJustified(static_cast<int>(codeWidth)).toStdString() << "  "
            << textOf(nameOf(rule->severity)).leftJustified(severityWidth).toStdString() << "  " << rule->summary
            << '\n';
}

void explainRule(const check::Rule& rule, std::size_t width, std::ostream& out)
{
    out << rule.code << " (" << nameOf(rule.severity) << "): " << rule.summary << '\n';
    writeParagraph({}, rule.what, width, out);
    writeParagraph("Why it matters: ", rule.why, width, out);
    writeParagraph("What to do: ", rule.remedy, width, out);
    out << "\nExample:\n\n";
    for (const QString& line : textOf(rule.example).split(QLatin1Char('\n')))
        out << (line.isEmpty() ? "" : "    ") << line.toStdString() << '\n';
}

QString problemOfRuleCode(const QString& code)
{
    const QStringList nearest = code.isEmpty() ? QStringList() : nearestTo(code);
    const QString problem = QStringLiteral("%1 is no rule").arg(shownText(code));
    return nearest.isEmpty() ? problem + QStringLiteral("; \"ktl check --rules\" lists them")
                             : problem + QStringLiteral(", but there is ") + nearest.join(QStringLiteral(", "));
}

} // namespace cli
