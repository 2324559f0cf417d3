#include "cli/checkRequest.h"

#include "check/rules/rules.h"
#include "cli/ruleTexts.h"
#include "cli/streamName.h"
#include "text/shownText.h"

#include <algorithm>
#include <array>
#include <ostream>

namespace cli {

namespace {

const QString deviceOption = QStringLiteral("device");
const QString choicesOption = QStringLiteral("choices");
const QString jsonSwitch = QStringLiteral("json");
const QString sarifSwitch = QStringLiteral("sarif");
const QString failOnOption = QStringLiteral("fail-on");
const QString onlyOption = QStringLiteral("only");
const QString ignoreOption = QStringLiteral("ignore");
const QString rulesSwitch = QStringLiteral("rules");
const QString explainOption = QStringLiteral("explain");

constexpr std::array severities{check::Severity::Error, check::Severity::Warning, check::Severity::Note};

std::optional<check::Severity> severityNamed(const QString& name)
{
    const auto* const found = std::find_if(severities.begin(), severities.end(), [&](check::Severity severity) {
        return name.toStdString() == nameOf(severity);
    });
    return found == severities.end() ? std::nullopt : std::make_optional(*found);
}

/// The first code that is that of no rule, in words.
QString problemOfCodes(const CommandLine& line)
{
    for (const QString& option : {onlyOption, ignoreOption, explainOption})
        for (const QString& code : line.values(option))
            if (check::ruleNamed(code.toStdString()) == nullptr)
                return problemOfRuleCode(code);
    return {};
}

/// What is wrong where the rules are to be told.
QString problemOfTelling(const CommandLine& line)
{
    const QString telling = line.isSet(rulesSwitch) ? rulesSwitch : explainOption;
    for (const QCommandLineOption& other : checkOptions())
        if (const QString name = other.names().constFirst(); name != telling && line.isSet(name))
            return QStringLiteral("--%1 and --%2 cannot be given together").arg(telling, name);
    return line.operands().isEmpty() ? QString() : QStringLiteral("--rules and --explain check no file");
}

/// The codes of an option are sought often, and are few.
bool isGiven(const QStringList& codes, const check::Rule& rule)
{
    const QLatin1String code(rule.code.data(), static_cast<int>(rule.code.size()));
    return std::any_of(codes.begin(), codes.end(), [&](const QString& given) { return given == code; });
}

} // namespace

QList<QCommandLineOption> checkOptions()
{
    return {
        {deviceOption,
         QStringLiteral("Tells findings about this device only; may be given several times. A number (from 1, over all "
                        "files), a name, a Type, or VENDOR:PRODUCT[:REVISION], which must mean one device; with * in "
                        "it all devices that fit."),
         QStringLiteral("SELECTOR")},
        {choicesOption,
         QStringLiteral(
             "Checks what would be exported after these choices, from a JSON file; - for standard input. ESI "
             "files only."),
         QStringLiteral("FILE")},
        {jsonSwitch, QStringLiteral("Findings as JSON.")},
        {sarifSwitch, QStringLiteral("Findings as SARIF 2.1.0, for code hosts.")},
        {failOnOption,
         QStringLiteral("Exit status 1 if a finding is that bad or worse: error, warning or note. Without it: error."),
         QStringLiteral("SEVERITY")},
        {onlyOption, QStringLiteral("Asks this rule only; may be given several times."), QStringLiteral("RULE")},
        {ignoreOption, QStringLiteral("Does not ask this rule; may be given several times."), QStringLiteral("RULE")},
        {rulesSwitch, QStringLiteral("Lists all rules: code, severity, and what is wrong.")},
        {explainOption, QStringLiteral("Explains a rule: what it looks at, why, and what to do."),
         QStringLiteral("RULE")},
    };
}

QString problemOfCheck(const CommandLine& line)
{
    if (QString problem = problemOfCodes(line); !problem.isEmpty())
        return problem;
    if (line.isSet(rulesSwitch) || line.isSet(explainOption))
        return problemOfTelling(line);
    if (line.operands().isEmpty())
        return QStringLiteral("no file is given");
    for (const QString& option : {choicesOption, failOnOption})
        if (line.values(option).size() > 1)
            return QStringLiteral("--%1 can be given once only").arg(option);
    if (standardInputsIn(line.operands() + line.values(choicesOption)) > 1)
        return QStringLiteral("standard input can be read once only");
    if (line.isSet(jsonSwitch) && line.isSet(sarifSwitch))
        return QStringLiteral("--json and --sarif cannot be given together");
    if (line.isSet(failOnOption) && !severityNamed(line.value(failOnOption)).has_value())
        return QStringLiteral("%1 is no severity; there are error, warning and note")
            .arg(shownText(line.value(failOnOption)));
    return {};
}

CheckRequest checkRequestFrom(const CommandLine& line, const Console& console)
{
    CheckRequest request;
    request.paths = line.operands();
    request.selectors = line.values(deviceOption);
    if (line.isSet(choicesOption))
        request.choices = filePath(line.value(choicesOption));
    if (line.isSet(jsonSwitch))
        request.form = check::FindingForm::Json;
    else if (line.isSet(sarifSwitch))
        request.form = check::FindingForm::Sarif;
    else if (console.terminalWidth.has_value())
        request.form = check::FindingForm::LinesAndSummary;
    request.failOn = severityNamed(line.value(failOnOption)).value_or(check::Severity::Error);
    const QStringList only = line.values(onlyOption);
    const QStringList ignored = line.values(ignoreOption);
    for (const check::Rule* const rule : check::allRules())
        // That a file cannot be read is not kept from those who ask for some rules: nothing in it was checked.
        if ((only.isEmpty() || isGiven(only, *rule) || rule->isFault) && !isGiven(ignored, *rule))
            request.rules.push_back(rule);
    return request;
}

bool tellRules(const CommandLine& line, Console& console)
{
    constexpr std::size_t usualWidth = 80;
    if (line.isSet(rulesSwitch))
        listRules(console.results);
    bool isFirst = true;
    for (const QString& code : line.values(explainOption)) {
        console.results << (isFirst ? "" : "\n");
        isFirst = false;
        if (const check::Rule* const rule = check::ruleNamed(code.toStdString()))
            explainRule(*rule, console.terminalWidth.value_or(usualWidth), console.results);
    }
    return line.isSet(rulesSwitch) || line.isSet(explainOption);
}

} // namespace cli
