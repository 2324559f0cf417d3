#include "cli/imageRequest.h"

#include "cli/streamName.h"

namespace cli {

namespace {

const QString deviceOption = QStringLiteral("device");
const QString choicesOption = QStringLiteral("choices");
const QString csvSwitch = QStringLiteral("csv");
const QString jsonSwitch = QStringLiteral("json");
const QString svgSwitch = QStringLiteral("svg");

} // namespace

QList<QCommandLineOption> imageOptions()
{
    return {
        {deviceOption,
         QStringLiteral("Shows this device only; may be given several times. A number (from 1, over all files), a "
                        "name, a Type, or VENDOR:PRODUCT[:REVISION], which must mean one device; with * in it all "
                        "devices that fit."),
         QStringLiteral("SELECTOR")},
        {choicesOption,
         QStringLiteral("Shows the image after these choices, from a JSON file; - for standard input. ESI files only."),
         QStringLiteral("FILE")},
        {csvSwitch, QStringLiteral("As CSV, a row for each entry.")},
        {jsonSwitch, QStringLiteral("As JSON.")},
        {svgSwitch, QStringLiteral("As a picture, SVG.")},
    };
}

QString problemOfImage(const CommandLine& line)
{
    if (line.operands().isEmpty())
        return QStringLiteral("no file is given");
    if (line.values(choicesOption).size() > 1)
        return QStringLiteral("--choices can be given once only");
    if (standardInputsIn(line.operands() + line.values(choicesOption)) > 1)
        return QStringLiteral("standard input can be read once only");
    const auto given = [&](const QString& option) { return line.isSet(option) ? 1 : 0; };
    if (given(csvSwitch) + given(jsonSwitch) + given(svgSwitch) > 1)
        return QStringLiteral("only one of --csv, --json and --svg can be given");
    return {};
}

ImageRequest imageRequestFrom(const CommandLine& line)
{
    ImageRequest request;
    request.paths = line.operands();
    request.selectors = line.values(deviceOption);
    if (line.isSet(choicesOption))
        request.choices = filePath(line.value(choicesOption));
    if (line.isSet(csvSwitch))
        request.form = image::Form::Csv;
    else if (line.isSet(jsonSwitch))
        request.form = image::Form::Json;
    else if (line.isSet(svgSwitch))
        request.form = image::Form::Svg;
    return request;
}

} // namespace cli
