#include "choices/writer.h"

#include "choices/words.h"
#include "editing/linkTexts.h"
#include "model/valueTexts.h"
#include "json/jsonWriter.h"

#include <QJsonArray>

#include <optional>
#include <ostream>
#include <string_view>

namespace choices {

namespace {

constexpr json::Layout layout{2, true};

/// A value that is left out.
QJsonValue nothing()
{
    return {QJsonValue::Undefined};
}

QJsonValue numberOrNothing(const std::optional<std::uint32_t>& number)
{
    return number.has_value() ? QJsonValue(static_cast<qint64>(*number)) : nothing();
}

QJsonValue hexOrNothing(const std::optional<std::uint32_t>& number)
{
    return number.has_value() ? QJsonValue(hexNumber(*number)) : nothing();
}

QJsonValue objectOrNothing(const std::optional<ObjectAddress>& object)
{
    return object.has_value() ? QJsonValue(objectText(*object)) : nothing();
}

QJsonValue textOrNothing(const std::optional<QString>& text)
{
    return text.has_value() ? QJsonValue(*text) : nothing();
}

/// A number where one is given, else what names the thing.
QJsonValue numberOr(const std::optional<std::uint32_t>& number, const QJsonValue& name)
{
    return number.has_value() ? numberOrNothing(number) : name;
}

/// Name of a link, or its value where that has none.
QJsonValue linkValue(std::int32_t link)
{
    const QString name = linkName(link);
    return linkNamed(name) == link ? QJsonValue(name) : QJsonValue(link);
}

QJsonValue moduleValue(const ModuleName& module)
{
    return module.ident.has_value() ? QJsonValue(hexNumber(*module.ident)) : QJsonValue(module.name);
}

QJsonValue pdoValue(const EntryName& entry)
{
    return numberOr(entry.pdoRow, hexOrNothing(entry.pdoIndex));
}

QJsonValue entryValue(const EntryName& entry)
{
    return numberOr(entry.entryPosition, objectOrNothing(entry.entryObject));
}

/// Writes a list, unless it is empty.
template<typename Choices, typename WriteOne>
void writeList(json::Writer& json, std::string_view key, const Choices& choices, WriteOne writeOne)
{
    if (choices.empty())
        return;
    json.openList(key);
    for (const auto& choice : choices)
        writeOne(choice);
    json.closeList();
}

void writeLink(json::Writer& json, const LinkChoice& choice, const QJsonValue& module)
{
    json.line({{"module", module},
               {"moduleRow", numberOrNothing(choice.module.row)},
               {"pdo", pdoValue(choice)},
               {"index", hexOrNothing(choice.checkedIndex)},
               {"entry", entryValue(choice)},
               {"object", objectOrNothing(choice.checkedObject)},
               {"name", textOrNothing(choice.checkedName)},
               {"link", linkValue(choice.link)}});
}

void writeModule(json::Writer& json, const ModuleChoice& choice)
{
    const bool isPutIn = choice.module.has_value();
    json.line({{"place", numberOrNothing(choice.place)},
               {"module", isPutIn ? moduleValue(*choice.module) : QJsonValue()},
               {"moduleRow", isPutIn ? numberOrNothing(choice.module->row) : nothing()},
               {"about", choice.about.isEmpty() ? nothing() : QJsonValue(choice.about)}});
}

void writeSyncManager(json::Writer& json, const SyncManagerChoice& choice)
{
    json.line({{"syncManager", numberOr(choice.row, choice.name)},
               {"name", textOrNothing(choice.checkedName)},
               {"minSize", numberOrNothing(choice.minSize)}});
}

/// @param isAdded  whether an entry is added behind the one that the choice names
void writeEntry(json::Writer& json, const EntryChoice& choice, bool isAdded)
{
    json.line({{"pdo", pdoValue(choice)},
               {"index", hexOrNothing(choice.checkedIndex)},
               {isAdded ? "behind" : "entry", entryValue(choice)},
               {"object", objectOrNothing(choice.checkedObject)},
               {"name", textOrNothing(choice.checkedName)},
               {"link", isAdded && choice.link != 0 ? linkValue(choice.link) : nothing()}});
}

/// What a command has to be; nothing where nothing is asked.
QJsonValue checkValue(const StartupCheck& was)
{
    QJsonObject check{{QStringLiteral("index"), hexOrNothing(was.index)},
                      {QStringLiteral("subIndex"), numberOrNothing(was.subIndex)},
                      {QStringLiteral("comment"), textOrNothing(was.comment)}};
    return check.isEmpty() ? nothing() : QJsonValue(check);
}

/// @param rowKey  "row", or "behind" for a command that is added
void writeCommand(json::Writer& json, const StartupChoice& choice, std::string_view rowKey)
{
    json.line({{rowKey, numberOrNothing(choice.row)},
               {"was", checkValue(choice.was)},
               {"index", hexOrNothing(choice.index)},
               {"subIndex", numberOrNothing(choice.subIndex)},
               {"dataBytes", numberOrNothing(choice.dataBytes)},
               {"data", numberOrNothing(choice.data)},
               {"unchecked", choice.isUnchecked ? QJsonValue(true) : nothing()}});
}

void writeEntries(json::Writer& json, const DeviceChoices& choices)
{
    if (choices.removedEntries.empty() && choices.addedEntries.empty())
        return;
    json.openObject("entries");
    writeList(json, "removed", choices.removedEntries,
              [&](const EntryChoice& choice) { writeEntry(json, choice, false); });
    writeList(json, "added", choices.addedEntries, [&](const EntryChoice& choice) { writeEntry(json, choice, true); });
    json.closeObject();
}

void writeStartup(json::Writer& json, const DeviceChoices& choices)
{
    if (choices.changedCommands.empty() && choices.removedCommands.empty() && choices.addedCommands.empty())
        return;
    const auto write = [&](std::string_view key, const std::vector<StartupChoice>& commands, std::string_view rowKey) {
        writeList(json, key, commands, [&](const StartupChoice& choice) { writeCommand(json, choice, rowKey); });
    };
    json.openObject("startup");
    write("changed", choices.changedCommands, "row");
    write("removed", choices.removedCommands, "row");
    write("added", choices.addedCommands, "behind");
    json.closeObject();
}

/// One mode as a value, several as a list.
QJsonValue modesValue(const std::vector<ModeName>& modes)
{
    QJsonArray values;
    for (const ModeName& mode : modes)
        values.append(numberOr(mode.position, mode.name));
    if (values.isEmpty())
        return nothing();
    return values.size() == 1 ? values.first() : QJsonValue(values);
}

void writeIfThere(json::Writer& json, std::string_view key, const QJsonValue& value)
{
    if (!value.isUndefined())
        json.value(key, value);
}

void writeSettings(json::Writer& json, const DeviceChoices& choices)
{
    if (!choices.isClicked)
        json.value("clicked", false);
    if (choices.takesModuleList.has_value())
        json.value("takesModuleList", *choices.takesModuleList);
    if (choices.deviceType.has_value())
        json.value("deviceType", deviceTypeName(*choices.deviceType));
    writeIfThere(json, "driveAxes", numberOrNothing(choices.driveAxes));
    writeIfThere(json, "dcMode", modesValue(choices.dcModes));
    writeIfThere(json, "configIndex", hexOrNothing(choices.configIndex));
    writeIfThere(json, "detectIndex", hexOrNothing(choices.detectIndex));
}

void writeDevice(json::Writer& json, const DeviceChoices& choices, const QJsonObject& about)
{
    json.openObject();
    json.value("device", choices.device);
    if (!about.isEmpty())
        json.value("about", about);
    writeSettings(json, choices);
    writeList(json, "moduleLinks", choices.moduleLinks,
              [&](const LinkChoice& choice) { writeLink(json, choice, moduleValue(choice.module)); });
    writeList(json, "modules", choices.modules, [&](const ModuleChoice& choice) { writeModule(json, choice); });
    writeList(json, "syncManagers", choices.syncManagers,
              [&](const SyncManagerChoice& choice) { writeSyncManager(json, choice); });
    writeList(json, "links", choices.links, [&](const LinkChoice& choice) { writeLink(json, choice, nothing()); });
    writeEntries(json, choices);
    writeStartup(json, choices);
    if (choices.lastType.has_value())
        json.value("lastType", deviceTypeName(*choices.lastType));
    json.closeObject();
}

} // namespace

void writeChoices(std::ostream& out, const FileChoices& choices, const AboutChoices& about)
{
    json::Writer json(out, layout);
    json.openObject();
    json.value("format", fileFormat);
    json.value("version", fileVersion);
    if (!about.file.isEmpty())
        json.value("about", about.file);
    if (choices.exported.has_value()) {
        QJsonArray selectors;
        for (const QString& selector : *choices.exported)
            selectors.append(selector);
        json.value("export", selectors);
    }
    json.openList("devices");
    for (std::size_t number = 0; number < choices.devices.size(); ++number)
        writeDevice(json, choices.devices[number],
                    number < about.devices.size() ? about.devices[number] : QJsonObject());
    json.closeList();
    json.closeObject();
    out << '\n';
}

} // namespace choices
