#include "choices/reader.h"

#include "choices/keys.h"
#include "choices/rowReader.h"
#include "choices/words.h"
#include "text/shownText.h"

#include <utility>

namespace choices {

namespace {

// The keys of each kind of object. docs/choices.schema.json names the same ones.

const QLatin1String formatKey("format");
const QLatin1String versionKey("version");
const QLatin1String exportKey("export");
const QLatin1String devicesKey("devices");
const std::array fileKeys{JsonKey{formatKey, true}, JsonKey{versionKey, true}, JsonKey{exportKey, false},
                          JsonKey{devicesKey, true}};

const QLatin1String deviceKey("device");
const QLatin1String clickedKey("clicked");
const QLatin1String takesModuleListKey("takesModuleList");
const QLatin1String deviceTypeKey("deviceType");
const QLatin1String driveAxesKey("driveAxes");
const QLatin1String dcModeKey("dcMode");
const QLatin1String configIndexKey("configIndex");
const QLatin1String detectIndexKey("detectIndex");
const QLatin1String modulesKey("modules");
const QLatin1String lastTypeKey("lastType");
const std::array deviceKeys{
    JsonKey{deviceKey, true},       JsonKey{clickedKey, false},      JsonKey{takesModuleListKey, false},
    JsonKey{deviceTypeKey, false},  JsonKey{driveAxesKey, false},    JsonKey{dcModeKey, false},
    JsonKey{configIndexKey, false}, JsonKey{detectIndexKey, false},  JsonKey{moduleLinksKey, false},
    JsonKey{modulesKey, false},     JsonKey{syncManagersKey, false}, JsonKey{linksKey, false},
    JsonKey{entriesKey, false},     JsonKey{startupKey, false},      JsonKey{lastTypeKey, false},
};

const QLatin1String placeKey("place");
const std::array moduleKeys{JsonKey{placeKey, true}, JsonKey{moduleKey, true}, JsonKey{moduleRowKey, false}};

const QLatin1String aName("a name");

/// A selector of devices as it is written on the command line; a number is that of a device.
QString selectorIn(const json::Value& value, const QString& path, Problems& problems)
{
    const CountOrText read = countOrTextIn(value, path, aName, problems);
    return read.count.has_value() ? QString::number(*read.count) : read.text;
}

std::optional<std::uint16_t> deviceTypeIn(JsonFields& fields, QLatin1String key)
{
    if (!fields.has(key))
        return std::nullopt;
    const json::Value value = fields.value(key);
    const std::optional<std::uint32_t> number = numberOf(value);
    const auto type = number.has_value() && *number < static_cast<std::uint32_t>(deviceTypeNames().size())
                          ? std::make_optional(static_cast<std::uint16_t>(*number))
                          : deviceTypeNamed(value.text().value_or(QString()));
    if (!type.has_value())
        fields.refuse(
            key, QStringLiteral("a device type (0 to %1, or %2)")
                     .arg(QString::number(deviceTypeNames().size() - 1), deviceTypeNames().join(QStringLiteral(", "))));
    return type;
}

ModuleChoice moduleChoiceFrom(const json::Value& value, const QString& path, Problems& problems)
{
    JsonFields fields(value, path, moduleKeys, problems);
    ModuleChoice choice{{path}, fields.count(placeKey, max16Bits).value_or(0), std::nullopt};
    if (!fields.value(moduleKey).isNull())
        choice.module = moduleNameIn(fields);
    else if (fields.has(moduleRowKey))
        fields.refuse(moduleKey, QStringLiteral("the ident or the name of a module"));
    return choice;
}

/// One mode, or a list of them.
void readModes(JsonFields& fields, DeviceChoices& choices, Problems& problems)
{
    const auto read = [&](const json::Value& value, const QString& path) {
        const CountOrText mode = countOrTextIn(value, path, aName, problems);
        choices.dcModes.push_back({mode.count, mode.text});
    };
    if (fields.value(dcModeKey).isList())
        fields.forEach(dcModeKey, read);
    else if (fields.has(dcModeKey))
        read(fields.value(dcModeKey), fields.pathOf(dcModeKey));
}

DeviceChoices deviceChoicesFrom(const json::Value& value, const QString& path, Problems& problems)
{
    JsonFields fields(value, path, deviceKeys, problems);
    DeviceChoices choices;
    choices.path = path;
    if (fields.has(deviceKey))
        choices.device = selectorIn(fields.value(deviceKey), fields.pathOf(deviceKey), problems);
    choices.isClicked = fields.flag(clickedKey).value_or(true);
    choices.takesModuleList = fields.flag(takesModuleListKey);
    choices.deviceType = deviceTypeIn(fields, deviceTypeKey);
    choices.driveAxes = word(fields, driveAxesKey);
    readModes(fields, choices, problems);
    choices.configIndex = word(fields, configIndexKey);
    choices.detectIndex = word(fields, detectIndexKey);
    fields.forEach(modulesKey, [&](const json::Value& element, const QString& place) {
        choices.modules.push_back(moduleChoiceFrom(element, place, problems));
    });
    readRows(fields, choices, problems);
    choices.lastType = deviceTypeIn(fields, lastTypeKey);
    return choices;
}

/// The devices to write; nothing if one of them is not in the form.
std::optional<std::vector<QString>> exportedIn(JsonFields& fields, Problems& problems)
{
    if (!fields.has(exportKey))
        return std::nullopt;
    const std::size_t before = problems.count();
    std::vector<QString> selectors;
    fields.forEach(exportKey, [&](const json::Value& element, const QString& path) {
        selectors.push_back(selectorIn(element, path, problems));
    });
    if (problems.count() == before && selectors.empty())
        fields.refuse(exportKey, QStringLiteral("a list of devices: nothing would be written"));
    return problems.count() == before ? std::make_optional(std::move(selectors)) : std::nullopt;
}

} // namespace

FileChoices choicesFrom(const json::Value& file, Problems& problems)
{
    JsonFields fields(file, QString(), fileKeys, problems);
    const std::optional<QString> format = fields.text(formatKey);
    if (format.has_value() && *format != fileFormat)
        fields.refuse(formatKey, shownText(fileFormat));
    const std::optional<std::uint32_t> version = fields.count(versionKey, max32Bits);
    if (version.has_value() && *version != fileVersion)
        fields.refuse(versionKey, QString::number(fileVersion));
    FileChoices choices;
    choices.exported = exportedIn(fields, problems);
    fields.forEach(devicesKey, [&](const json::Value& element, const QString& path) {
        const std::size_t before = problems.count();
        DeviceChoices ofDevice = deviceChoicesFrom(element, path, problems);
        if (problems.count() == before)
            choices.devices.push_back(std::move(ofDevice));
    });
    return choices;
}

} // namespace choices
