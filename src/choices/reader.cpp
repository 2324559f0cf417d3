#include "choices/reader.h"

#include "choices/jsonFields.h"
#include "choices/words.h"
#include "editing/linkTexts.h"
#include "text/shownText.h"

#include <cmath>
#include <limits>
#include <utility>

namespace choices {

namespace {

// The keys of each kind of object. docs/choices.schema.json names the same ones.

const QLatin1String formatKey("format");
const QLatin1String versionKey("version");
const QLatin1String devicesKey("devices");
const std::array fileKeys{JsonKey{formatKey, true}, JsonKey{versionKey, true}, JsonKey{devicesKey, true}};

const QLatin1String deviceKey("device");
const QLatin1String deviceTypeKey("deviceType");
const QLatin1String driveAxesKey("driveAxes");
const QLatin1String dcModeKey("dcMode");
const QLatin1String configIndexKey("configIndex");
const QLatin1String detectIndexKey("detectIndex");
const QLatin1String moduleLinksKey("moduleLinks");
const QLatin1String modulesKey("modules");
const QLatin1String linksKey("links");
const QLatin1String startupKey("startup");
const std::array deviceKeys{
    JsonKey{deviceKey, true},       JsonKey{deviceTypeKey, false},  JsonKey{driveAxesKey, false},
    JsonKey{dcModeKey, false},      JsonKey{configIndexKey, false}, JsonKey{detectIndexKey, false},
    JsonKey{moduleLinksKey, false}, JsonKey{modulesKey, false},     JsonKey{linksKey, false},
    JsonKey{startupKey, false},
};

const QLatin1String placeKey("place");
const QLatin1String moduleKey("module");
const std::array moduleKeys{JsonKey{placeKey, true}, JsonKey{moduleKey, true}};

const QLatin1String pdoKey("pdo");
const QLatin1String entryKey("entry");
const QLatin1String linkKey("link");
const QLatin1String indexKey("index");
const QLatin1String objectKey("object");
const QLatin1String nameKey("name");
const std::array linkKeys{JsonKey{pdoKey, true},     JsonKey{indexKey, false}, JsonKey{entryKey, true},
                          JsonKey{objectKey, false}, JsonKey{nameKey, false},  JsonKey{linkKey, true}};
const std::array moduleLinkKeys{JsonKey{moduleKey, true}, JsonKey{pdoKey, true},     JsonKey{indexKey, false},
                                JsonKey{entryKey, true},  JsonKey{objectKey, false}, JsonKey{nameKey, false},
                                JsonKey{linkKey, true}};

const QLatin1String changedKey("changed");
const QLatin1String removedKey("removed");
const QLatin1String addedKey("added");
const std::array startupKeys{JsonKey{changedKey, false}, JsonKey{removedKey, false}, JsonKey{addedKey, false}};

const QLatin1String rowKey("row");
const QLatin1String behindKey("behind");
const QLatin1String wasKey("was");
const QLatin1String subIndexKey("subIndex");
const QLatin1String dataBytesKey("dataBytes");
const QLatin1String dataKey("data");
const QLatin1String commentKey("comment");
const std::array wasKeys{JsonKey{indexKey, false}, JsonKey{subIndexKey, false}, JsonKey{commentKey, false}};
const std::array removedKeys{JsonKey{rowKey, true}, JsonKey{wasKey, false}};
const std::array changedKeys{JsonKey{rowKey, true},       JsonKey{wasKey, false},       JsonKey{indexKey, false},
                             JsonKey{subIndexKey, false}, JsonKey{dataBytesKey, false}, JsonKey{dataKey, false}};
const std::array addedKeys{JsonKey{behindKey, true},    JsonKey{wasKey, false},      JsonKey{indexKey, true},
                           JsonKey{subIndexKey, false}, JsonKey{dataBytesKey, true}, JsonKey{dataKey, true}};

std::optional<std::uint16_t> word(JsonFields& fields, QLatin1String key)
{
    const std::optional<std::uint32_t> number = fields.number(key, max16Bits);
    return number.has_value() ? std::make_optional(static_cast<std::uint16_t>(*number)) : std::nullopt;
}

/// A key whose number counts and whose text means something else.
/// @param alternative  what the text means, as a message names it: "a name"
template<typename ReadText>
void readCountOr(JsonFields& fields, QLatin1String key, QLatin1String alternative, std::optional<std::uint32_t>& count,
                 ReadText readText)
{
    if (const std::optional<QString> text = fields.value(key).text())
        readText(*text);
    else
        count = fields.count(key, max32Bits, alternative);
}

std::optional<std::uint16_t> deviceTypeIn(JsonFields& fields)
{
    if (!fields.has(deviceTypeKey))
        return std::nullopt;
    const json::Value value = fields.value(deviceTypeKey);
    const std::optional<std::uint32_t> number = numberOf(value);
    const auto type = number.has_value() && *number < static_cast<std::uint32_t>(deviceTypeNames().size())
                          ? std::make_optional(static_cast<std::uint16_t>(*number))
                          : deviceTypeNamed(value.text().value_or(QString()));
    if (!type.has_value())
        fields.refuse(deviceTypeKey, QStringLiteral("a device type (0 to %1, or %2)")
                                         .arg(QString::number(deviceTypeNames().size() - 1),
                                              deviceTypeNames().join(QStringLiteral(", "))));
    return type;
}

std::optional<ModuleName> moduleNameIn(JsonFields& fields)
{
    const json::Value value = fields.value(moduleKey);
    ModuleName module{numberOf(value), value.text().value_or(QString())};
    if (fields.has(moduleKey) && !module.ident.has_value() && module.name.isEmpty()) {
        fields.refuse(moduleKey, QStringLiteral("the ident or the name of a module"));
        return std::nullopt;
    }
    return module;
}

ModuleChoice moduleChoiceFrom(const json::Value& value, const QString& path, Problems& problems)
{
    JsonFields fields(value, path, moduleKeys, problems);
    ModuleChoice choice{{path}, fields.count(placeKey, max16Bits).value_or(0), std::nullopt};
    if (!fields.value(moduleKey).isNull())
        choice.module = moduleNameIn(fields);
    return choice;
}

std::optional<ObjectAddress> objectOf(JsonFields& fields, QLatin1String key)
{
    const std::optional<ObjectAddress> object = objectIn(fields.value(key).text().value_or(QString()));
    if (fields.has(key) && !object.has_value())
        fields.refuse(key, QStringLiteral("an object like \"0x6040:0\""));
    return object;
}

/// The value of a link, as the format stores it: 0 or below.
std::optional<std::int32_t> linkValueIn(const json::Value& value)
{
    const double number = value.number().value_or(1);
    if (number > 0 || number < std::numeric_limits<std::int32_t>::min() || std::floor(number) != number)
        return std::nullopt;
    return static_cast<std::int32_t>(number);
}

std::int32_t linkIn(JsonFields& fields)
{
    const json::Value value = fields.value(linkKey);
    const std::optional<QString> name = value.text();
    const std::optional<std::int32_t> link = name.has_value() ? linkNamed(*name) : linkValueIn(value);
    if (fields.has(linkKey) && !link.has_value())
        fields.refuse(linkKey, QStringLiteral("a link (%1)")
                                   .arg((linkNames(PdoDirection::Outputs) + linkNames(PdoDirection::Inputs).mid(1))
                                            .join(QStringLiteral(", "))));
    return link.value_or(0);
}

LinkChoice linkChoiceFrom(JsonFields fields)
{
    LinkChoice choice;
    choice.path = fields.path();
    readCountOr(fields, pdoKey, QLatin1String("an index"), choice.pdoRow,
                [&](const QString&) { choice.pdoIndex = word(fields, pdoKey); });
    readCountOr(fields, entryKey, QLatin1String("an object"), choice.entryPosition,
                [&](const QString&) { choice.entryObject = objectOf(fields, entryKey); });
    choice.checkedIndex = word(fields, indexKey);
    choice.checkedObject = objectOf(fields, objectKey);
    choice.checkedName = fields.text(nameKey);
    choice.link = linkIn(fields);
    return choice;
}

LinkChoice moduleLinkChoiceFrom(const json::Value& value, const QString& path, Problems& problems)
{
    JsonFields fields(value, path, moduleLinkKeys, problems);
    const ModuleName module = moduleNameIn(fields).value_or(ModuleName());
    LinkChoice choice = linkChoiceFrom(std::move(fields));
    choice.module = module;
    return choice;
}

/// What all three kinds of startup choices have in common.
StartupChoice startupChoiceFrom(JsonFields& fields, QLatin1String numberKey, Problems& problems)
{
    StartupChoice choice;
    choice.path = fields.path();
    choice.row = fields.count(numberKey, max32Bits).value_or(0);
    if (!fields.has(wasKey))
        return choice;
    JsonFields was(fields.value(wasKey), fields.pathOf(wasKey), wasKeys, problems);
    choice.was.index = was.number(indexKey, max16Bits);
    choice.was.subIndex = was.number(subIndexKey, max16Bits);
    choice.was.comment = was.text(commentKey);
    return choice;
}

void readValues(JsonFields& fields, StartupChoice& choice)
{
    choice.index = fields.number(indexKey, max16Bits);
    choice.subIndex = fields.number(subIndexKey, max16Bits); // commands of the device have 8 bits
    choice.dataBytes = fields.number(dataBytesKey, max16Bits);
    choice.data = fields.number(dataKey, max32Bits);
}

void readStartup(const json::Value& value, const QString& path, DeviceChoices& choices, Problems& problems)
{
    JsonFields fields(value, path, startupKeys, problems);
    fields.forEach(changedKey, [&](const json::Value& element, const QString& place) {
        JsonFields command(element, place, changedKeys, problems);
        readValues(command, choices.changedCommands.emplace_back(startupChoiceFrom(command, rowKey, problems)));
    });
    fields.forEach(removedKey, [&](const json::Value& element, const QString& place) {
        JsonFields command(element, place, removedKeys, problems);
        choices.removedCommands.push_back(startupChoiceFrom(command, rowKey, problems));
    });
    fields.forEach(addedKey, [&](const json::Value& element, const QString& place) {
        JsonFields command(element, place, addedKeys, problems);
        readValues(command, choices.addedCommands.emplace_back(startupChoiceFrom(command, behindKey, problems)));
    });
}

void readLists(JsonFields& fields, DeviceChoices& choices, Problems& problems)
{
    fields.forEach(moduleLinksKey, [&](const json::Value& element, const QString& place) {
        choices.moduleLinks.push_back(moduleLinkChoiceFrom(element, place, problems));
    });
    fields.forEach(modulesKey, [&](const json::Value& element, const QString& place) {
        choices.modules.push_back(moduleChoiceFrom(element, place, problems));
    });
    fields.forEach(linksKey, [&](const json::Value& element, const QString& place) {
        choices.links.push_back(linkChoiceFrom(JsonFields(element, place, linkKeys, problems)));
    });
    if (fields.has(startupKey))
        readStartup(fields.value(startupKey), fields.pathOf(startupKey), choices, problems);
}

DeviceChoices deviceChoicesFrom(const json::Value& value, const QString& path, Problems& problems)
{
    JsonFields fields(value, path, deviceKeys, problems);
    DeviceChoices choices;
    choices.path = path;
    const QLatin1String aName("a name");
    std::optional<std::uint32_t> deviceNumber;
    readCountOr(fields, deviceKey, aName, deviceNumber, [&](const QString& text) { choices.device = text; });
    if (deviceNumber.has_value())
        choices.device = QString::number(*deviceNumber);
    choices.deviceType = deviceTypeIn(fields);
    choices.driveAxes = word(fields, driveAxesKey);
    readCountOr(fields, dcModeKey, aName, choices.dcModePosition,
                [&](const QString& text) { choices.dcModeName = text; });
    choices.configIndex = word(fields, configIndexKey);
    choices.detectIndex = word(fields, detectIndexKey);
    readLists(fields, choices, problems);
    return choices;
}

} // namespace

std::vector<DeviceChoices> choicesFrom(const json::Value& file, Problems& problems)
{
    JsonFields fields(file, QString(), fileKeys, problems);
    const std::optional<QString> format = fields.text(formatKey);
    if (format.has_value() && *format != fileFormat)
        fields.refuse(formatKey, shownText(fileFormat));
    const std::optional<std::uint32_t> version = fields.count(versionKey, max32Bits);
    if (version.has_value() && *version != fileVersion)
        fields.refuse(versionKey, QString::number(fileVersion));
    std::vector<DeviceChoices> choices;
    fields.forEach(devicesKey, [&](const json::Value& element, const QString& path) {
        const std::size_t before = problems.count();
        DeviceChoices ofDevice = deviceChoicesFrom(element, path, problems);
        if (problems.count() == before)
            choices.push_back(std::move(ofDevice));
    });
    return choices;
}

} // namespace choices
