#include "cli/findRequest.h"

#include "cli/streamName.h"
#include "text/shownText.h"
#include "text/writtenNumber.h"

namespace cli {

namespace {

const QString vendorOption = QStringLiteral("vendor");
const QString productOption = QStringLiteral("product");
const QString revisionOption = QStringLiteral("revision");
const QString nameOption = QStringLiteral("name");
const QString typeOption = QStringLiteral("type");
const QString latestSwitch = QStringLiteral("latest");
const QString duplicatesSwitch = QStringLiteral("duplicates");
const QString modulesSwitch = QStringLiteral("modules");
const QString jsonSwitch = QStringLiteral("json");
const QString csvSwitch = QStringLiteral("csv");
const QString nullSwitch = QStringLiteral("null");
const QString filesSwitch = QStringLiteral("files");

std::optional<std::uint32_t> numberOf(const CommandLine& line, const QString& option)
{
    const QString text = line.value(option);
    return text.isEmpty() ? std::nullopt : numberIn(text);
}

std::optional<find::Pattern> patternOf(const CommandLine& line, const QString& option)
{
    return line.isSet(option) ? std::make_optional(find::Pattern(line.value(option))) : std::nullopt;
}

QString problemOfFilters(const CommandLine& line)
{
    for (const QString& option : {vendorOption, productOption, revisionOption, nameOption, typeOption})
        if (line.values(option).size() > 1)
            return QStringLiteral("--%1 can be given once only").arg(option);
    for (const QString& option : {vendorOption, productOption})
        if (line.isSet(option) && !numberOf(line, option).has_value())
            return QStringLiteral("%1 is no number for --%2: decimal, or hexadecimal as 0x1a")
                .arg(shownText(line.value(option)), option);
    if (line.isSet(revisionOption) && !find::rangeIn(line.value(revisionOption)).has_value())
        return QStringLiteral("%1 is no revision and no range of them: 0x120000, >=0x120000, 0x100000..0x1fffff")
            .arg(shownText(line.value(revisionOption)));
    return {};
}

} // namespace

QList<QCommandLineOption> findOptions()
{
    const QString number = QStringLiteral("NUMBER");
    const QString pattern = QStringLiteral("PATTERN");
    return {
        {vendorOption, QStringLiteral("Of this vendor: a number, decimal or as 0x1a."), number},
        {productOption, QStringLiteral("With this product code; of modules, with this ident."), number},
        {revisionOption,
         QStringLiteral("With this revision: 0x120000, >=0x120000 (so with >, <= and <), or "
                        "0x100000..0x1fffff."),
         QStringLiteral("RANGE")},
        {nameOption,
         QStringLiteral("With this name; * is any run of characters, ? any one. Upper and lower case are the same."),
         pattern},
        {typeOption, QStringLiteral("With this text of Type, as for --name."), pattern},
        {latestSwitch, QStringLiteral("Of each product its highest revision alone.")},
        {duplicatesSwitch, QStringLiteral("Identities alone that are in several places.")},
        {modulesSwitch, QStringLiteral("Modules too.")},
        {jsonSwitch, QStringLiteral("As JSON.")},
        {csvSwitch, QStringLiteral("As CSV.")},
        {{QStringLiteral("0"), nullSwitch}, QStringLiteral("Ends lines with a zero byte, for xargs -0.")},
        {{QStringLiteral("l"), filesSwitch}, QStringLiteral("Names of files alone.")},
    };
}

QString problemOfFind(const CommandLine& line)
{
    if (line.operands().isEmpty())
        return QStringLiteral("no file and no folder is given");
    if (standardInputsIn(line.operands()) > 1)
        return QStringLiteral("standard input can be read once only");
    if (QString problem = problemOfFilters(line); !problem.isEmpty())
        return problem;
    const auto given = [&](const QString& option) { return line.isSet(option) ? 1 : 0; };
    if (given(jsonSwitch) + given(csvSwitch) + given(filesSwitch) > 1)
        return QStringLiteral("only one of --json, --csv and --files can be given");
    if (line.isSet(nullSwitch) && (line.isSet(jsonSwitch) || line.isSet(csvSwitch)))
        return QStringLiteral("--null is for lines, not for --json or --csv");
    return {};
}

FindRequest findRequestFrom(const CommandLine& line)
{
    FindRequest request;
    request.paths = line.operands();
    request.filter.vendor = numberOf(line, vendorOption);
    request.filter.number = numberOf(line, productOption);
    if (line.isSet(revisionOption))
        request.filter.revision = find::rangeIn(line.value(revisionOption));
    request.filter.name = patternOf(line, nameOption);
    request.filter.type = patternOf(line, typeOption);
    if (line.isSet(modulesSwitch))
        request.filter.wanted = find::Wanted::DevicesAndModules;
    request.takesLatest = line.isSet(latestSwitch);
    request.takesDuplicates = line.isSet(duplicatesSwitch);
    if (line.isSet(jsonSwitch))
        request.form = FoundForm::Json;
    else if (line.isSet(csvSwitch))
        request.form = FoundForm::Csv;
    else if (line.isSet(filesSwitch))
        request.form = FoundForm::Files;
    request.end = line.isSet(nullSwitch) ? '\0' : '\n';
    return request;
}

} // namespace cli
