#include "cli/showRequest.h"

#include "cli/streamName.h"
#include "show/showTables.h"

#include <array>
#include <utility>

namespace cli {

namespace {

const QString deviceOption = QStringLiteral("device");
const QString fullSwitch = QStringLiteral("full");
const QString itemsSwitch = QStringLiteral("items");
const QString jsonSwitch = QStringLiteral("json");
const QString csvOption = QStringLiteral("csv");
const QString spreadsheetSwitch = QStringLiteral("spreadsheet");

/// The first two options given that do not go together, as a problem; empty if there are none.
QString problemOfPairs(const CommandLine& line)
{
    const std::array pairs{
        std::pair(jsonSwitch, csvOption),     std::pair(fullSwitch, jsonSwitch), std::pair(fullSwitch, csvOption),
        std::pair(itemsSwitch, jsonSwitch),   std::pair(itemsSwitch, csvOption), std::pair(fullSwitch, itemsSwitch),
        std::pair(itemsSwitch, deviceOption),
    };
    for (const auto& [first, second] : pairs)
        if (line.isSet(first) && line.isSet(second))
            return QStringLiteral("--%1 and --%2 cannot be given together").arg(first, second);
    return {};
}

show::TextContent contentOf(const CommandLine& line)
{
    if (line.isSet(itemsSwitch))
        return show::TextContent::Items;
    return line.isSet(fullSwitch) ? show::TextContent::Full : show::TextContent::Summary;
}

} // namespace

QList<QCommandLineOption> showOptions()
{
    return {
        {deviceOption,
         QStringLiteral("Shows this device only, and nothing of its file that belongs to no device; may be given "
                        "several times. A number (from 1, over all files), a name, a Type, or "
                        "VENDOR:PRODUCT[:REVISION], which must mean one device; with * in it all devices that fit."),
         QStringLiteral("SELECTOR")},
        {fullSwitch, QStringLiteral("Everything, as text.")},
        {itemsSwitch, QStringLiteral("The items of KTL files, field by field.")},
        {jsonSwitch, QStringLiteral("Everything, as JSON.")},
        {csvOption, QStringLiteral("One table as comma-separated values: dictionary, pdo or startup."),
         QStringLiteral("TABLE")},
        {spreadsheetSwitch, QStringLiteral("The table is for a spreadsheet program: with a byte order mark, and an "
                                           "apostrophe before texts that read as a formula.")},
    };
}

QString problemOfShow(const CommandLine& line)
{
    if (line.operands().isEmpty())
        return QStringLiteral("no file is given");
    if (standardInputsIn(line.operands()) > 1)
        return QStringLiteral("standard input can be read once only");
    if (line.values(csvOption).size() > 1)
        return QStringLiteral("--csv can be given once only");
    if (QString problem = problemOfPairs(line); !problem.isEmpty())
        return problem;
    if (line.isSet(csvOption) && show::tableNamed(line.value(csvOption)) == nullptr)
        return QStringLiteral("\"%1\" is no table; there are dictionary, pdo and startup").arg(line.value(csvOption));
    if (line.isSet(spreadsheetSwitch) && !line.isSet(csvOption))
        return QStringLiteral("--spreadsheet goes with --csv only");
    return {};
}

ShowRequest showRequestFrom(const CommandLine& line, const Console& console)
{
    return {line.operands(),
            line.values(deviceOption),
            {contentOf(line), line.isSet(jsonSwitch), show::tableNamed(line.value(csvOption)),
             line.isSet(spreadsheetSwitch) ? show::CsvForm::Spreadsheet : show::CsvForm::Plain, console.terminalWidth}};
}

} // namespace cli
