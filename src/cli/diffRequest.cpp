#include "cli/diffRequest.h"

#include "cli/inputFile.h"
#include "cli/streamName.h"
#include "text/shownText.h"

#include <algorithm>
#include <array>

namespace cli {

namespace {

const QString deviceOption = QStringLiteral("device");
const QString withOption = QStringLiteral("with");
const QString choicesOption = QStringLiteral("choices");
const QString weightOption = QStringLiteral("weight");
const QString allSwitch = QStringLiteral("all");
const QString colorOption = QStringLiteral("color");
const QString jsonSwitch = QStringLiteral("json");

constexpr std::array weights{diff::Weight::Breaking, diff::Weight::Behaviour, diff::Weight::Text};

std::optional<diff::Weight> weightNamed(const QString& name)
{
    const auto* const found = std::find_if(weights.begin(), weights.end(),
                                           [&](diff::Weight weight) { return name.toStdString() == nameOf(weight); });
    return found == weights.end() ? std::nullopt : std::make_optional(*found);
}

const QString always = QStringLiteral("always");
const QString never = QStringLiteral("never");
const QString automatic = QStringLiteral("auto");

/// What is wrong with the files and the devices in them.
QString problemOfOperands(const CommandLine& line)
{
    const QStringList files = line.operands();
    if (files.isEmpty())
        return QStringLiteral("no file is given");
    if (files.size() > 2)
        return QStringLiteral("only two files can be compared");
    if (files.size() == 1 && !line.isSet(withOption))
        return QStringLiteral("one file is given; two are compared, or with --device and --with two devices of one");
    if (line.isSet(withOption) && line.values(deviceOption).size() != 1)
        return QStringLiteral("--with goes with one --device: they name the old device and the new one");
    if (standardInputsIn(files + line.values(choicesOption)) > 1)
        return QStringLiteral("standard input can be read once only");
    return {};
}

} // namespace

QList<QCommandLineOption> diffOptions()
{
    const QString selector = QStringLiteral("SELECTOR");
    return {
        {deviceOption,
         QStringLiteral(
             "Compares this device only; may be given several times. A number (from 1 in its file), a name, a "
             "Type, or VENDOR:PRODUCT[:REVISION]; with * in it all devices that fit."),
         selector},
        {withOption,
         QStringLiteral("Compares the device of --device in the first file with this one in the second, or in the same "
                        "file if only one is given."),
         selector},
        {choicesOption,
         QStringLiteral("Makes these choices in an ESI file that is compared with a KTL file, from a JSON file; - for "
                        "standard input."),
         QStringLiteral("FILE")},
        {weightOption,
         QStringLiteral("Differences of that weight and above: breaking, behaviour or text. Without it: text, which is "
                        "all."),
         QStringLiteral("WEIGHT")},
        {allSwitch, QStringLiteral("Between an ESI file and a KTL file: also what a KTL file cannot have.")},
        {colorOption, QStringLiteral("Colors: auto (on a terminal), always or never."), QStringLiteral("WHEN")},
        {jsonSwitch, QStringLiteral("As JSON.")},
    };
}

QString problemOfDiff(const CommandLine& line)
{
    if (QString problem = problemOfOperands(line); !problem.isEmpty())
        return problem;
    for (const QString& option : {withOption, choicesOption, weightOption, colorOption})
        if (line.values(option).size() > 1)
            return QStringLiteral("--%1 can be given once only").arg(option);
    if (line.isSet(weightOption) && !weightNamed(line.value(weightOption)).has_value())
        return QStringLiteral("%1 is no weight; there are breaking, behaviour and text")
            .arg(shownText(line.value(weightOption)));
    if (line.isSet(colorOption) && !QStringList{always, never, automatic}.contains(line.value(colorOption)))
        return QStringLiteral("%1 is no value for --color; there are auto, always and never")
            .arg(shownText(line.value(colorOption)));
    return {};
}

DiffRequest diffRequestFrom(const CommandLine& line, const Console& console)
{
    DiffRequest request;
    request.before = line.operands().constFirst();
    request.after = line.operands().constLast();
    request.selectors = line.values(deviceOption);
    if (line.isSet(withOption))
        request.with = line.value(withOption);
    if (line.isSet(choicesOption))
        request.choices = filePath(line.value(choicesOption));
    request.least = weightNamed(line.value(weightOption)).value_or(diff::Weight::Text);
    request.isOfAll = line.isSet(allSwitch);
    request.isJson = line.isSet(jsonSwitch);
    const QString color = line.value(colorOption);
    const bool isForPeople = console.terminalWidth.has_value() && qEnvironmentVariableIsEmpty("NO_COLOR");
    request.hasColors = color == always || (color != never && isForPeople);
    return request;
}

} // namespace cli
