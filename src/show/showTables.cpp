#include "show/showTables.h"

#include "model/moduleAccess.h"
#include "model/pdoAccess.h"
#include "show/choiceRows.h"
#include "show/showDictionary.h"
#include "show/showStartup.h"
#include "show/showWords.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>

namespace show {

namespace {

using Fields = std::vector<std::string>;

/// The columns that all tables begin with.
struct Place
{
    std::string file;
    std::string device; ///< number in the file, from 1; empty for a module of the file
    std::string deviceName; ///< empty where it is not known
    std::string owner; ///< what of the device or file the row belongs to
};

Fields rowOf(const Place& place, const Fields& fields)
{
    Fields row{place.file, place.device, place.deviceName, place.owner};
    row.insert(row.end(), fields.begin(), fields.end());
    return row;
}

template<typename Number> std::string numeral(Number number)
{
    return std::to_string(number);
}

/// A number, or an empty field for none.
std::string numeral(const std::optional<std::int64_t>& number)
{
    return number ? std::to_string(*number) : std::string();
}

std::string yesOrNo(bool isSet)
{
    return isSet ? "yes" : "no";
}

std::string moduleOwner(std::uint32_t ident)
{
    return "module " + hexText(ident);
}

/// The first of the names that a KTL file has of a device.
std::string nameOf(const KtlDeviceBlock& block)
{
    return block.moreInfo ? block.moreInfo->text.substr(0, block.moreInfo->text.find('\n')) : std::string();
}

/// Calls `visit(place, device, index)` for each device of a file.
template<typename Visitor> void forEachDevice(const ShownFile& file, Visitor visit)
{
    for (std::size_t index = 0; index < file.devices.size(); ++index) {
        const std::string name = file.esi ? file.esi->device[index].Name : nameOf(file.devices[index].block);
        visit(Place{file.name, numeral(index + 1), name, "device"}, file.devices[index], index);
    }
}

/// Calls `visit(module, place)` for each module of an ESI file.
template<typename Visitor> void forEachShownModule(const ShownFile& file, Visitor visit)
{
    if (file.esi)
        forEachModule(*file.esi, [&](const struct_module& module) {
            visit(module, Place{file.name, {}, {}, moduleOwner(module.TypeAttributes.ModuleIdent)});
        });
}

// ---- dictionary ----

void writeDictionaryHeader(CsvWriter& out)
{
    out.writeRow({"file", "device", "deviceName", "owner", "index", "subIndex", "name", "access", "bitSize", "type",
                  "value", "signedValue"});
}

template<typename Dictionary> void writeDictionary(CsvWriter& out, const Place& place, const Dictionary& dictionary)
{
    DictionaryRowList rows(dictionary.vdatatype, dictionary.vobject);
    for (std::size_t number = 0; number < rows.size(); ++number) {
        const ShownDictionaryRow row = rows.row(number);
        out.writeRow(rowOf(place, {hexText(row.index), numeral(row.subIndex), row.name, row.access,
                                   numeral(row.bitSize), row.dataType, row.value, numeral(row.signedValue)}));
    }
}

void writeDictionaryRows(CsvWriter& out, const ShownFile& file)
{
    if (!file.esi)
        return; // no dictionary reaches a KTL file
    forEachDevice(file, [&](const Place& place, const ShownDevice& /*device*/, std::size_t index) {
        writeDictionary(out, place, file.esi->device[index].Dictionary);
    });
    forEachShownModule(
        file, [&](const struct_module& module, const Place& place) { writeDictionary(out, place, module.Dictionary); });
}

// ---- PDOs ----

void writePdoHeader(CsvWriter& out)
{
    out.writeRow({"file",      "device",    "deviceName",  "owner",    "direction", "pdo",        "pdoName",
                  "fixed",     "mandatory", "syncManager", "syncUnit", "entry",     "index",      "subIndex",
                  "bitLength", "name",      "dataType",    "link",     "choicePdo", "choiceEntry"});
}

/// What all rows of one PDO have in common.
Fields pdoFields(bool isInput, std::uint16_t index, const std::string& name, bool isFixed, bool isMandatory,
                 std::int32_t syncManager, std::int32_t syncUnit)
{
    return {isInput ? "input" : "output", hexText(index),   name, yesOrNo(isFixed), yesOrNo(isMandatory),
            numeral(syncManager),         numeral(syncUnit)};
}

/// Writes a row for each entry, and one without an entry for a PDO that has none.
/// @param choicePdo  number of the PDO in choices files; nothing if they cannot name it
/// @param fieldsOf   `fieldsOf(entry)` gives the fields from the index on
template<typename Entry, typename FieldsOf>
void writePdo(CsvWriter& out, const Place& place, const Fields& pdo, const std::optional<std::int64_t>& choicePdo,
              const std::vector<Entry>& entries, FieldsOf fieldsOf)
{
    const auto write = [&](const std::string& number, const Fields& entry, const std::string& choiceEntry) {
        Fields fields = pdo;
        fields.push_back(number);
        fields.insert(fields.end(), entry.begin(), entry.end());
        fields.push_back(numeral(choicePdo));
        fields.push_back(choiceEntry);
        out.writeRow(rowOf(place, fields));
    };
    if (entries.empty())
        write({}, Fields(6), {}); // as many as an entry has
    for (std::size_t index = 0; index < entries.size(); ++index)
        write(numeral(index + 1), fieldsOf(entries[index]), choicePdo ? numeral(index) : std::string());
}

/// @param choicePdo  number of the first PDO in choices files; nothing if they cannot name them
template<typename Pdo>
void writeModelPdos(CsvWriter& out, const Place& place, const std::vector<Pdo>& pdos, bool isInput,
                    std::optional<std::int64_t> choicePdo)
{
    for (const Pdo& pdo : pdos) {
        writePdo(out, place,
                 pdoFields(isInput, indexOf(pdo), pdo.Name, pdo.Attributes.Fixed, pdo.Attributes.Mandatory,
                           pdo.Attributes.SM, pdo.Attributes.SU),
                 choicePdo, entriesOf(pdo), [](const auto& entry) -> Fields {
                     return {hexText(indexOf(entry)), numeral(entry.SubIndex), numeral(bitLengthOf(entry)), entry.Name,
                             entry.DataType,          linkWords(entry.Linkto)};
                 });
        if (choicePdo)
            ++*choicePdo;
    }
}

Fields carriedEntry(const struct_KTL_EntryPDOContent& entry)
{
    return {
        hexText(entry.Index),       numeral(std::uint32_t{entry.SubIndex}), numeral(std::int32_t{entry.Bitlen}), {}, {},
        linkWords(entry.LinkToData)};
}

Fields carriedEntry(const struct_KTL_modulePdoOne& entry)
{
    return {hexText(entry.index),
            numeral(std::uint32_t{entry.SubIndex}),
            numeral(std::uint32_t{entry.BitLen}),
            {},
            {},
            linkWords(entry.LinkToData)};
}

template<typename Pdo> void writeCarriedPdos(CsvWriter& out, const Place& place, const std::vector<Pdo>& pdos)
{
    for (const Pdo& pdo : pdos)
        writePdo(out, place,
                 pdoFields(pdo.isInput, pdo.head.IndexAttributes, {}, pdo.head.Fixed != 0, pdo.head.Mandatory != 0,
                           pdo.head.SM, pdo.head.SU),
                 std::nullopt, pdo.entries, [](const auto& entry) { return carriedEntry(entry); });
}

void writeEsiPdos(CsvWriter& out, Place place, struct_EtherCatDevice& device)
{
    const ChoicePdoRows rows = choicePdoRows(device, isSameAfterSelection(device));
    writeModelPdos(out, place, device.RxPdo.vpdo, false, rows.outputs);
    writeModelPdos(out, place, device.TxPdo.vpdo, true, rows.inputs);
    place.owner = "slots";
    writeModelPdos(out, place, device.mRxPdo.mpdo, false, rows.moduleOutputs);
    writeModelPdos(out, place, device.mTxPdo.mpdo, true, rows.moduleInputs);
}

void writeKtlPdos(CsvWriter& out, Place place, const KtlDeviceBlock& block)
{
    writeCarriedPdos(out, place, block.pdos);
    for (const KtlModule& module : block.modules) {
        place.owner = moduleOwner(module.attributes.ModuleIdent);
        writeCarriedPdos(out, place, module.pdos);
    }
}

void writePdoRows(CsvWriter& out, const ShownFile& file)
{
    forEachDevice(file, [&](const Place& place, const ShownDevice& device, std::size_t index) {
        if (file.esi)
            writeEsiPdos(out, place, file.esi->device[index]);
        else
            writeKtlPdos(out, place, device.block);
    });
    forEachShownModule(file, [&](const struct_module& module, const Place& place) {
        writeModelPdos(out, place, module.RxPdo.vpdo, false, 0);
        writeModelPdos(out, place, module.TxPdo.vpdo, true, static_cast<std::int64_t>(module.RxPdo.vpdo.size()));
    });
}

// ---- startup commands ----

void writeStartupHeader(CsvWriter& out)
{
    out.writeRow({"file", "device", "deviceName", "owner", "position", "protocol", "transition", "index", "subIndex",
                  "completeAccess", "dataBytes", "value", "values", "meaning", "origin", "comment", "text",
                  "choiceRow"});
}

template<typename Record> std::string numberText(const Record& record)
{
    return hasNumber(record) ? numeral(std::uint32_t{record.Data}) : std::string();
}

std::string valuesText(const ShownCommand& command)
{
    std::string all;
    if (command.record.bIfCA != 0 && command.values != nullptr)
        for (const std::uint32_t value : *command.values)
            all += (all.empty() ? "" : " ") + hexText(value);
    return all;
}

std::string transitionText(std::uint16_t transition)
{
    const std::string name = tokenName(transition);
    return name.empty() ? numeral(transition) : name;
}

void writeDeviceCommands(CsvWriter& out, const Place& place, const ShownDevice& device)
{
    const auto values = valuesOfCommands(device.block.coeCommands, device.block.accessValues);
    for (const ShownCommand& command : commandsOf(device, values)) {
        const struct_KTL_InitCmd& record = command.record;
        out.writeRow(
            rowOf(place, {numeral(command.position), command.isEoe ? "EoE" : "CoE", transitionText(record.Transition),
                          hexText(record.Index), numeral(unsigned{record.SubIndex}), yesOrNo(record.bIfCA != 0),
                          numeral(unsigned{record.DataBytes}), numberText(record), valuesText(command),
                          meaningOf(command), command.source->origin, std::string(command.source->comment.value_or("")),
                          std::string(command.source->text.value_or("")), numeral(command.source->choiceRow)}));
    }
}

/// Commands of a module block have no transition, and are never complete accesses.
void writeModuleCommands(CsvWriter& out, Place place, const KtlModule& module)
{
    place.owner = moduleOwner(module.attributes.ModuleIdent);
    std::size_t position = 0;
    for (const struct_KTL_moduleStartupOne& record : module.commands)
        out.writeRow(rowOf(place, {numeral(++position),
                                   "CoE",
                                   {},
                                   hexText(record.index),
                                   numeral(unsigned{record.SubIndex}),
                                   yesOrNo(false),
                                   numeral(unsigned{record.m_DataBytes}),
                                   numberText(record),
                                   {},
                                   meaningOf(record),
                                   {},
                                   {},
                                   {},
                                   {}}));
}

void writeStartupRows(CsvWriter& out, const ShownFile& file)
{
    forEachDevice(file, [&](const Place& place, const ShownDevice& device, std::size_t /*index*/) {
        writeDeviceCommands(out, place, device);
        for (const KtlModule& module : device.block.modules)
            writeModuleCommands(out, place, module);
    });
}

constexpr std::array tables{
    Table{"dictionary", writeDictionaryHeader, writeDictionaryRows},
    Table{"pdo", writePdoHeader, writePdoRows},
    Table{"startup", writeStartupHeader, writeStartupRows},
};

} // namespace

const Table* tableNamed(const QString& name)
{
    const auto* const found = std::find_if(tables.begin(), tables.end(),
                                           [&](const Table& table) { return name == QLatin1String(table.name); });
    return found == tables.end() ? nullptr : &*found;
}

} // namespace show
