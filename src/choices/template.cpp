#include "choices/template.h"

#include "choices/words.h"
#include "editing/deviceEdits.h"
#include "editing/deviceTypeTexts.h"
#include "editing/linkTexts.h"
#include "editing/moduleEdits.h"
#include "editing/pdoRows.h"
#include "editing/slotPlaces.h"
#include "editing/startupRows.h"
#include "editing/startupValues.h"
#include "model/moduleAccess.h"
#include "model/pdoAccess.h"
#include "model/valueTexts.h"
#include "json/jsonWriter.h"

#include <QJsonArray>
#include <QJsonObject>

#include <algorithm>
#include <initializer_list>
#include <map>
#include <ostream>
#include <string_view>
#include <tuple>

namespace choices {

namespace {

constexpr json::Layout layout{2, true};
constexpr std::string_view aboutKey = "about";

QString text(const std::string& utf8)
{
    return QString::fromStdString(utf8);
}

int number(std::uint32_t value)
{
    return static_cast<int>(value);
}

/// A text, or nothing where it is empty.
QJsonValue textOrNothing(const std::string& utf8)
{
    return utf8.empty() ? QJsonValue(QJsonValue::Undefined) : QJsonValue(text(utf8));
}

/// Vendor id, product code and revision.
using DeviceIdentity = std::tuple<std::uint32_t, std::uint32_t, std::uint32_t>;

DeviceIdentity identityOf(const struct_FilenameDevice& file, const struct_EtherCatDevice& device)
{
    return {file.Vendor_Id, device.TypeAttributes.Product_Code, device.TypeAttributes.Revision_No};
}

std::map<DeviceIdentity, int> countedIdentities(const std::vector<struct_FilenameDevice>& files)
{
    std::map<DeviceIdentity, int> counts;
    for (const struct_FilenameDevice& file : files)
        for (const struct_EtherCatDevice& device : file.device)
            ++counts[identityOf(file, device)];
    return counts;
}

void writeCommonAbout(json::Writer& json)
{
    json.openObject(aboutKey);
    json.openList("deviceTypes");
    for (const DeviceTypeText& entry : deviceTypeTexts)
        json.line({{"deviceType", QLatin1String(entry.name)}, {"shownAs", QString::fromUtf8(entry.text)}});
    json.closeList();
    json.value("linksOfOutputs", QJsonArray::fromStringList(linkNames(PdoDirection::Outputs)));
    json.value("linksOfInputs", QJsonArray::fromStringList(linkNames(PdoDirection::Inputs)));
    json.closeObject();
}

void writeModes(json::Writer& json, const struct_EtherCatDevice& device)
{
    if (device.vopmode.empty())
        return;
    json.openList("dcModes");
    int position = 0;
    for (const Struct_DCOpMode& mode : device.vopmode)
        json.line({{"dcMode", position++},
                   {"name", text(mode.Name)},
                   {"description", textOrNothing(mode.Desc)},
                   {"assignActivate", hexNumber(mode.AssignActivate)}});
    json.closeList();
}

/// The module at a place of a slot, null for an empty place.
const struct_module* moduleAt(const struct_Slot& slot, int place)
{
    const auto found = std::find_if(slot.slotmodule.begin(), slot.slotmodule.end(),
                                    [place](const struct_slotmodule& placed) { return placed.Instances == place; });
    return found == slot.slotmodule.end() ? nullptr : &found->module;
}

QJsonArray identsOf(const struct_Slot& slot)
{
    QJsonArray idents;
    for (const struct_ModuleIdent& ident : slot.ModuleIdent)
        idents.append(hexNumber(ident.ModuleIdent));
    return idents;
}

/// Default modules bear the number of their slot; where that is no place of the slot, they cannot be taken out.
QJsonArray modulesThatStay(const struct_Slot& slot, const PlaceRange& places)
{
    QJsonArray modules;
    for (const struct_slotmodule& placed : slot.slotmodule)
        if (!places.holds(placed.Instances))
            modules.append(text(placed.module.Name));
    return modules;
}

void writeSlots(json::Writer& json, const struct_EtherCatDevice& device)
{
    if (device.Slots.vslot.empty())
        return;
    json.openList("slots");
    PlaceRange places;
    for (const struct_Slot& slot : device.Slots.vslot) {
        places.first = places.end;
        places.end = static_cast<std::uint16_t>(places.first + slot.Attributes.MaxInstances);
        const QJsonArray idents = identsOf(slot);
        const QJsonArray fixed = modulesThatStay(slot, places);
        json.line({{"slot", text(slot.Name)},
                   {"firstPlace", number(places.first)},
                   {"places", number(slot.Attributes.MaxInstances)},
                   {"modulesTaken", idents.isEmpty() ? QJsonValue(QStringLiteral("any")) : QJsonValue(idents)},
                   {"modulesThatStay", fixed.isEmpty() ? QJsonValue(QJsonValue::Undefined) : QJsonValue(fixed)}});
    }
    json.closeList();
}

void writeModulesOfFile(json::Writer& json, const struct_FilenameDevice& file)
{
    json.openList("modulesOfFile");
    int row = 0;
    forEachModule(file, [&](const struct_module& module) {
        json.line({{"module", hexNumber(module.TypeAttributes.ModuleIdent)},
                   {"moduleRow", row++},
                   {"name", text(module.Name)},
                   {"type", textOrNothing(module.TypeAttributes.Name)}});
    });
    json.closeList();
}

void writeModules(json::Writer& json, const struct_EtherCatDevice& device)
{
    json.openList("modules");
    int place = 0;
    for (const struct_Slot& slot : device.Slots.vslot)
        for (std::uint32_t ofSlot = 0; ofSlot < slot.Attributes.MaxInstances; ++ofSlot) {
            const struct_module* const module = moduleAt(slot, place);
            json.line({{"place", place++},
                       {"module",
                        module == nullptr ? QJsonValue() : QJsonValue(hexNumber(module->TypeAttributes.ModuleIdent))},
                       {"about", module == nullptr ? QJsonValue(QJsonValue::Undefined) : textOrNothing(module->Name)}});
        }
    json.closeList();
}

void writeSyncManagers(json::Writer& json, const struct_EtherCatDevice& device)
{
    if (device.vSM.empty())
        return;
    json.openList("syncManagers");
    int row = 0;
    for (const struct_SM& syncManager : device.vSM)
        json.line({{"syncManager", row++},
                   {"name", text(syncManager.Name)},
                   {"minSize", number(syncManager.Attributes.MinSize)}});
    json.closeList();
}

/// What helps to choose the link of an entry.
template<typename Pdo, typename Entry>
QJsonObject aboutEntry(const Pdo& pdo, const Entry& entry, PdoDirection direction)
{
    const bool isOutput = direction == PdoDirection::Outputs;
    QJsonObject about{{QStringLiteral("direction"), isOutput ? QStringLiteral("output") : QStringLiteral("input")},
                      {QStringLiteral("bits"), bitLengthOf(entry)},
                      {QStringLiteral("pdo"), text(pdo.Name)},
                      {QStringLiteral("assigned"), pdo.Attributes.SM >= 0}};
    if (indexOf(entry) == 0)
        about.insert(QStringLiteral("gap"), true);
    return about;
}

/// A module as links name it; undefined values for a device.
struct NamedModule
{
    QJsonValue ident = QJsonValue(QJsonValue::Undefined);
    QJsonValue row = QJsonValue(QJsonValue::Undefined); ///< where others have the ident too
};

/// The entries of the PDOs of a device or of a module with their links.
template<typename Owner> void writeLinks(json::Writer& json, const Owner& owner, const NamedModule& module)
{
    int row = 0;
    forEachPdoList(owner, [&](const auto& pdos, PdoDirection direction) {
        for (const auto& pdo : pdos) {
            int position = 0;
            for (const auto& entry : entriesOf(pdo))
                json.line({{"module", module.ident},
                           {"moduleRow", module.row},
                           {"pdo", row},
                           {"index", hexNumber(indexOf(pdo))},
                           {"entry", position++},
                           {"object", objectText({indexOf(entry), entry.SubIndex})},
                           {"name", text(entry.Name)},
                           {"link", linkName(entry.Linkto)},
                           {"about", aboutEntry(pdo, entry, direction)}});
            ++row;
        }
    });
}

void writeModuleLinks(json::Writer& json, const struct_FilenameDevice& file)
{
    std::map<std::uint32_t, int> idents;
    forEachModule(file, [&](const struct_module& module) { ++idents[module.TypeAttributes.ModuleIdent]; });
    json.openList("moduleLinks");
    int row = 0;
    forEachModule(file, [&](const struct_module& module) {
        NamedModule named{hexNumber(module.TypeAttributes.ModuleIdent)};
        if (idents[module.TypeAttributes.ModuleIdent] > 1)
            named.row = row;
        ++row;
        writeLinks(json, module, named);
    });
    json.closeList();
}

/// Lists to be filled by hand.
void writeEmptyLists(json::Writer& json, std::initializer_list<std::string_view> keys)
{
    for (const std::string_view key : keys) {
        json.openList(key);
        json.closeList();
    }
}

void writeStartup(json::Writer& json, const struct_EtherCatDevice& device)
{
    json.openObject("startup");
    json.openList("changed");
    int row = 0;
    forEachStartupList(device, [&](const auto& commands, std::uint16_t count, StartupList list) {
        for (std::size_t position = 0; position < count; ++position) {
            const auto& command = commands[position];
            const StartupValues is = startupValuesOf(command);
            const QJsonObject was{{QStringLiteral("index"), hexNumber(is.index)},
                                  {QStringLiteral("subIndex"), number(is.subIndex)},
                                  {QStringLiteral("comment"), text(command.Comment)}};
            const QString protocol = list == StartupList::DeviceEoe ? QStringLiteral("EoE ") : QStringLiteral("CoE ");
            json.line({{"row", row++},
                       {"about", protocol + tokenText(command.Transition)},
                       {"was", was},
                       {"index", hexNumber(is.index)},
                       {"subIndex", number(is.subIndex)},
                       {"dataBytes", number(is.dataBytes)},
                       {"data", static_cast<qint64>(is.data)}});
        }
    });
    json.closeList();
    writeEmptyLists(json, {"removed", "added"});
    json.closeObject();
}

/// What is told with the choices of a device.
struct DeviceContext
{
    int number; ///< from 1, over all files
    QString selector;
    bool isFirst; ///< of its file: what the devices of the file share, its modules, is told with this one
};

void writeAbout(json::Writer& json, const struct_FilenameDevice& file, const struct_EtherCatDevice& device,
                const DeviceContext& context)
{
    json.openObject(aboutKey);
    json.value("number", context.number);
    json.value("name", text(device.Name));
    json.value("type", text(device.TypeAttributes.type));
    json.value("file", text(file.xmlfilepath));
    writeModes(json, device);
    writeSlots(json, device);
    if (context.isFirst && !file.vcommentmodule.empty())
        writeModulesOfFile(json, file);
    json.closeObject();
}

void writeSettings(json::Writer& json, const struct_EtherCatDevice& device)
{
    if (!device.Slots.vslot.empty())
        json.value("takesModuleList", device.Slots.Attributes.DownloadModuleIdentList);
    json.value("deviceType", deviceTypeName(device.m_iDeviceType));
    if (device.m_iDeviceType == KTL_DEVICE_TYPE_MultiDriver)
        json.value("driveAxes", number(device.m_iDriveAxies));
    if (!device.vopmode.empty()) {
        const QString name = text(device.vopmode.front().Name);
        const bool isOnlyOne = !name.isEmpty() && modesNamed(device.vopmode, name).size() == 1;
        json.value("dcMode", isOnlyOne ? QJsonValue(name) : QJsonValue(0));
    }
    if (takesModuleIndexes(device.m_iDeviceType)) {
        json.value("configIndex", hexNumber(device.configindex));
        json.value("detectIndex", hexNumber(device.detectindex));
    }
}

void writeDevice(json::Writer& json, const struct_FilenameDevice& file, const struct_EtherCatDevice& device,
                 const DeviceContext& context)
{
    json.openObject();
    json.value("device", context.selector);
    writeAbout(json, file, device, context);
    writeSettings(json, device);
    if (context.isFirst && !file.vcommentmodule.empty())
        writeModuleLinks(json, file);
    if (!moduleRefusal(device.m_iDeviceType).has_value() && !device.Slots.vslot.empty())
        writeModules(json, device);
    writeSyncManagers(json, device);
    json.openList("links");
    writeLinks(json, device, {});
    json.closeList();
    json.openObject("entries");
    writeEmptyLists(json, {"removed", "added"});
    json.closeObject();
    writeStartup(json, device);
    json.closeObject();
}

/// "VENDOR:PRODUCT:REVISION".
QString identityText(const DeviceIdentity& identity)
{
    const auto [vendor, product, revision] = identity;
    return QStringList{hexNumber(vendor), hexNumber(product), hexNumber(revision)}.join(QLatin1Char(':'));
}

} // namespace

void writeTemplate(std::ostream& out, const std::vector<struct_FilenameDevice>& files)
{
    const std::map<DeviceIdentity, int> identities = countedIdentities(files);
    json::Writer json(out, layout);
    json.openObject();
    json.value("format", fileFormat);
    json.value("version", fileVersion);
    writeCommonAbout(json);
    json.openList("devices");
    int count = 0;
    for (const struct_FilenameDevice& file : files) {
        bool isFirst = true;
        for (const struct_EtherCatDevice& device : file.device) {
            const DeviceIdentity identity = identityOf(file, device);
            ++count;
            const QString selector = identities.at(identity) > 1 ? QString::number(count) : identityText(identity);
            writeDevice(json, file, device, {count, selector, isFirst});
            isFirst = false;
        }
    }
    json.closeList();
    json.closeObject();
    out << '\n';
}

} // namespace choices
