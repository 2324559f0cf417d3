#include "choices/rowReader.h"

#include "choices/keys.h"
#include "choices/words.h"
#include "editing/linkTexts.h"

#include <cmath>
#include <limits>
#include <utility>

namespace choices {

namespace {

// The keys of each kind of object. docs/choices.schema.json names the same ones.

const QLatin1String syncManagerKey("syncManager");
const QLatin1String minSizeKey("minSize");
const QLatin1String nameKey("name");
const std::array syncManagerKeys{JsonKey{syncManagerKey, true}, JsonKey{nameKey, false}, JsonKey{minSizeKey, true}};

const QLatin1String pdoKey("pdo");
const QLatin1String entryKey("entry");
const QLatin1String linkKey("link");
const QLatin1String indexKey("index");
const QLatin1String objectKey("object");
const std::array linkKeys{JsonKey{pdoKey, true},     JsonKey{indexKey, false}, JsonKey{entryKey, true},
                          JsonKey{objectKey, false}, JsonKey{nameKey, false},  JsonKey{linkKey, true}};
const std::array moduleLinkKeys{JsonKey{moduleKey, true}, JsonKey{moduleRowKey, false}, JsonKey{pdoKey, true},
                                JsonKey{indexKey, false}, JsonKey{entryKey, true},      JsonKey{objectKey, false},
                                JsonKey{nameKey, false},  JsonKey{linkKey, true}};

const QLatin1String changedKey("changed");
const QLatin1String removedKey("removed");
const QLatin1String addedKey("added");
const QLatin1String behindKey("behind");
const std::array entriesKeys{JsonKey{removedKey, false}, JsonKey{addedKey, false}};
const std::array removedEntryKeys{JsonKey{pdoKey, true}, JsonKey{indexKey, false}, JsonKey{entryKey, true},
                                  JsonKey{objectKey, false}, JsonKey{nameKey, false}};
const std::array addedEntryKeys{JsonKey{pdoKey, true},     JsonKey{indexKey, false}, JsonKey{behindKey, true},
                                JsonKey{objectKey, false}, JsonKey{nameKey, false},  JsonKey{linkKey, false}};

const std::array startupKeys{JsonKey{changedKey, false}, JsonKey{removedKey, false}, JsonKey{addedKey, false}};

const QLatin1String rowKey("row");
const QLatin1String wasKey("was");
const QLatin1String subIndexKey("subIndex");
const QLatin1String dataBytesKey("dataBytes");
const QLatin1String dataKey("data");
const QLatin1String commentKey("comment");
const QLatin1String uncheckedKey("unchecked");
const std::array wasKeys{JsonKey{indexKey, false}, JsonKey{subIndexKey, false}, JsonKey{commentKey, false}};
const std::array removedKeys{JsonKey{rowKey, true}, JsonKey{wasKey, false}};
const std::array changedKeys{JsonKey{rowKey, true},       JsonKey{wasKey, false},       JsonKey{indexKey, false},
                             JsonKey{subIndexKey, false}, JsonKey{dataBytesKey, false}, JsonKey{dataKey, false},
                             JsonKey{uncheckedKey, false}};
const std::array addedKeys{JsonKey{behindKey, true},    JsonKey{wasKey, false},      JsonKey{indexKey, true},
                           JsonKey{subIndexKey, false}, JsonKey{dataBytesKey, true}, JsonKey{dataKey, true},
                           JsonKey{uncheckedKey, false}};

SyncManagerChoice syncManagerChoiceFrom(const json::Value& value, const QString& path, Problems& problems)
{
    JsonFields fields(value, path, syncManagerKeys, problems);
    SyncManagerChoice choice;
    choice.path = path;
    readCountOr(fields, syncManagerKey, QLatin1String("a name"), choice.row,
                [&](const QString& text) { choice.name = text; });
    choice.checkedName = fields.text(nameKey);
    choice.minSize = word(fields, minSizeKey).value_or(0);
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

/// Reads the PDO, the entry, and what they have to be.
/// @param ofEntry  key of the entry: "behind" for the one before an added one
void readEntryName(JsonFields& fields, QLatin1String ofEntry, EntryName& name)
{
    readCountOr(fields, pdoKey, QLatin1String("an index"), name.pdoRow,
                [&](const QString&) { name.pdoIndex = word(fields, pdoKey); });
    readCountOr(fields, ofEntry, QLatin1String("an object"), name.entryPosition,
                [&](const QString&) { name.entryObject = objectOf(fields, ofEntry); });
    name.checkedIndex = word(fields, indexKey);
    name.checkedObject = objectOf(fields, objectKey);
    name.checkedName = fields.text(nameKey);
}

LinkChoice linkChoiceFrom(JsonFields fields)
{
    LinkChoice choice;
    choice.path = fields.path();
    readEntryName(fields, entryKey, choice);
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

void readEntries(const json::Value& value, const QString& path, DeviceChoices& choices, Problems& problems)
{
    JsonFields fields(value, path, entriesKeys, problems);
    fields.forEach(removedKey, [&](const json::Value& element, const QString& place) {
        JsonFields entry(element, place, removedEntryKeys, problems);
        EntryChoice& choice = choices.removedEntries.emplace_back();
        choice.path = place;
        readEntryName(entry, entryKey, choice);
    });
    fields.forEach(addedKey, [&](const json::Value& element, const QString& place) {
        JsonFields entry(element, place, addedEntryKeys, problems);
        EntryChoice& choice = choices.addedEntries.emplace_back();
        choice.path = place;
        readEntryName(entry, behindKey, choice);
        choice.link = linkIn(entry);
    });
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
    choice.isUnchecked = fields.flag(uncheckedKey).value_or(false);
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

} // namespace

void readRows(JsonFields& fields, DeviceChoices& choices, Problems& problems)
{
    fields.forEach(moduleLinksKey, [&](const json::Value& element, const QString& place) {
        choices.moduleLinks.push_back(moduleLinkChoiceFrom(element, place, problems));
    });
    fields.forEach(syncManagersKey, [&](const json::Value& element, const QString& place) {
        choices.syncManagers.push_back(syncManagerChoiceFrom(element, place, problems));
    });
    fields.forEach(linksKey, [&](const json::Value& element, const QString& place) {
        choices.links.push_back(linkChoiceFrom(JsonFields(element, place, linkKeys, problems)));
    });
    if (fields.has(entriesKey))
        readEntries(fields.value(entriesKey), fields.pathOf(entriesKey), choices, problems);
    if (fields.has(startupKey))
        readStartup(fields.value(startupKey), fields.pathOf(startupKey), choices, problems);
}

} // namespace choices
