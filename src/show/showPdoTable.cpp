#include "show/showPdoTable.h"

#include "model/pdoAccess.h"
#include "show/choiceRows.h"
#include "show/deviceImage.h"
#include "show/showTableRows.h"
#include "show/showWords.h"

#include <algorithm>

namespace show {

namespace {

/// What all rows of one PDO have in common.
Fields pdoFields(bool isInput, std::uint16_t index, const std::string& name, bool isFixed, bool isMandatory,
                 std::int32_t syncManager, std::int32_t syncUnit)
{
    return {isInput ? "input" : "output", hexText(index),   name, yesOrNo(isFixed), yesOrNo(isMandatory),
            numeral(syncManager),         numeral(syncUnit)};
}

/// The columns at the end of a row, of one PDO.
struct RowEnd
{
    std::string productCode; ///< of the device, as the next one; empty for a module of a file
    std::string revisionNo;
    std::optional<std::int64_t> firstBit; ///< of the PDO in its sync manager; nothing if it has no place there
};

/// The ends of rows of the PDOs of a device, in the order of its facts.
class RowEnds
{
public:
    RowEnds(const ShownFile& file, std::size_t index)
    {
        const DeviceImage device = deviceImageOf(file, index);
        m_device = {hexText(device.unit.product), hexText(device.unit.revision), std::nullopt};
        m_firstBits = firstBitsOf(device);
    }

    /// Of what has no place in the process image.
    [[nodiscard]] const RowEnd& withoutPlace() const { return m_device; }

    [[nodiscard]] RowEnd of(std::size_t pdo) const
    {
        RowEnd end = m_device;
        if (pdo < m_firstBits.size())
            end.firstBit = m_firstBits[pdo];
        return end;
    }

private:
    RowEnd m_device;
    std::vector<std::optional<std::int64_t>> m_firstBits;
};

std::int64_t bitsIn(const struct_KTL_EntryPDOContent& entry)
{
    return entry.Bitlen;
}

std::int64_t bitsIn(const struct_KTL_modulePdoOne& entry)
{
    return entry.BitLen;
}

template<typename Entry> std::int64_t bitsIn(const Entry& entry)
{
    return bitLengthOf(entry);
}

/// Writes a row for each entry, and one without an entry for a PDO that has none.
/// @param choicePdo  number of the PDO in choices files; nothing if they cannot name it
/// @param fieldsOf   `fieldsOf(entry)` gives the fields from the index on
template<typename Entry, typename FieldsOf>
void writePdo(CsvWriter& out, const Place& place, const Fields& pdo, const std::optional<std::int64_t>& choicePdo,
              const std::vector<Entry>& entries, RowEnd end, FieldsOf fieldsOf)
{
    const auto write = [&](const std::string& number, const Fields& entry, const std::string& choiceEntry) {
        const bool hasPlace = end.firstBit.has_value() && !number.empty();
        Fields fields = pdo;
        fields.push_back(number);
        fields.insert(fields.end(), entry.begin(), entry.end());
        fields.insert(fields.end(), {numeral(choicePdo), choiceEntry, end.productCode, end.revisionNo,
                                     hasPlace ? numeral(facts::byteOf(*end.firstBit)) : std::string(),
                                     hasPlace ? numeral(facts::bitInByte(*end.firstBit)) : std::string()});
        out.writeRow(rowOf(place, fields));
    };
    if (entries.empty())
        write({}, Fields(6), {}); // as many as an entry has
    for (std::size_t index = 0; index < entries.size(); ++index) {
        write(numeral(index + 1), fieldsOf(entries[index]), choicePdo ? numeral(index) : std::string());
        if (end.firstBit)
            *end.firstBit += std::max<std::int64_t>(bitsIn(entries[index]), 0);
    }
}

/// @param choicePdo  number of the first PDO in choices files; nothing if they cannot name them
/// @param endOf      `endOf(number)` gives the end of the rows of a PDO of the list
template<typename Pdo, typename EndOf>
void writeModelPdos(CsvWriter& out, const Place& place, const std::vector<Pdo>& pdos, bool isInput,
                    std::optional<std::int64_t> choicePdo, EndOf endOf)
{
    std::size_t number = 0;
    for (const Pdo& pdo : pdos) {
        writePdo(out, place,
                 pdoFields(isInput, indexOf(pdo), pdo.Name, pdo.Attributes.Fixed, pdo.Attributes.Mandatory,
                           pdo.Attributes.SM, pdo.Attributes.SU),
                 choicePdo, entriesOf(pdo), endOf(number++), [](const auto& entry) -> Fields {
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

/// @param endOf  as above
template<typename Pdo, typename EndOf>
void writeCarriedPdos(CsvWriter& out, const Place& place, const std::vector<Pdo>& pdos, EndOf endOf)
{
    std::size_t number = 0;
    for (const Pdo& pdo : pdos)
        writePdo(out, place,
                 pdoFields(pdo.isInput, pdo.head.IndexAttributes, {}, pdo.head.Fixed != 0, pdo.head.Mandatory != 0,
                           pdo.head.SM, pdo.head.SU),
                 std::nullopt, pdo.entries, endOf(number++), [](const auto& entry) { return carriedEntry(entry); });
}

/// The facts of a device have its outputs, those of its modules, its inputs, and those of its modules.
void writeEsiPdos(CsvWriter& out, Place place, struct_EtherCatDevice& device, const RowEnds& ends)
{
    const ChoicePdoRows rows = choicePdoRows(device, isSameAfterSelection(device));
    const std::size_t moduleOutputs = device.RxPdo.vpdo.size();
    const std::size_t inputs = moduleOutputs + device.mRxPdo.mpdo.size();
    const std::size_t moduleInputs = inputs + device.TxPdo.vpdo.size();
    const auto endsFrom = [&ends](std::size_t first) {
        return [&ends, first](std::size_t number) { return ends.of(first + number); };
    };
    writeModelPdos(out, place, device.RxPdo.vpdo, false, rows.outputs, endsFrom(0));
    writeModelPdos(out, place, device.TxPdo.vpdo, true, rows.inputs, endsFrom(inputs));
    place.owner = "slots";
    writeModelPdos(out, place, device.mRxPdo.mpdo, false, rows.moduleOutputs, endsFrom(moduleOutputs));
    writeModelPdos(out, place, device.mTxPdo.mpdo, true, rows.moduleInputs, endsFrom(moduleInputs));
}

void writeKtlPdos(CsvWriter& out, Place place, const KtlDeviceBlock& block, const RowEnds& ends)
{
    writeCarriedPdos(out, place, block.pdos, [&ends](std::size_t number) { return ends.of(number); });
    for (const KtlModule& module : block.modules) {
        place.owner = moduleOwner(module.attributes.ModuleIdent);
        writeCarriedPdos(out, place, module.pdos, [&ends](std::size_t /*number*/) { return ends.withoutPlace(); });
    }
}

} // namespace

void writePdoHeader(CsvWriter& out)
{
    out.writeRow({"file",      "device",      "deviceName",  "owner",       "direction", "pdo",
                  "pdoName",   "fixed",       "mandatory",   "syncManager", "syncUnit",  "entry",
                  "index",     "subIndex",    "bitLength",   "name",        "dataType",  "link",
                  "choicePdo", "choiceEntry", "productCode", "revisionNo",  "byte",      "bit"});
}

void writePdoRows(CsvWriter& out, const ShownFile& file)
{
    forEachDevice(file, [&](const Place& place, const ShownDevice& device, std::size_t index) {
        if (file.esi)
            writeEsiPdos(out, place, file.esi->device[index], RowEnds(file, index));
        else
            writeKtlPdos(out, place, device.block, RowEnds(file, index));
    });
    forEachShownModule(file, [&](const struct_module& module, const Place& place) {
        const auto noEnd = [](std::size_t /*number*/) { return RowEnd(); };
        writeModelPdos(out, place, module.RxPdo.vpdo, false, 0, noEnd);
        writeModelPdos(out, place, module.TxPdo.vpdo, true, static_cast<std::int64_t>(module.RxPdo.vpdo.size()), noEnd);
    });
}

} // namespace show
