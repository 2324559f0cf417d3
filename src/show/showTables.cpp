#include "show/showTables.h"

#include "show/showDictionary.h"
#include "show/showPdoTable.h"
#include "show/showStartup.h"
#include "show/showTableRows.h"
#include "show/showWords.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace show {

namespace {

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
