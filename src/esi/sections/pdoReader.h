// pdoReader.h - how a PDO of a device and a PDO of a module are read alike. What differs is in the tables of rules of
// the two sections: names of attributes, the attributes of an index, which names may be empty.
#pragma once

#include "esi/fieldRules.h"
#include "esi/storeField.h"
#include "model/byteBit.h"
#include "model/pdoAccess.h"

#include <cstdint>
#include <string_view>
#include <utility>

/// A PDO or an entry while its element is read.
template<typename Record> struct BeingRead
{
    Record record;
    std::int32_t bits = 0; ///< running total of the PDO, with the lengths of this entry that have been read
};

template<auto Rule, typename Record, typename Source> void applyToRecord(BeingRead<Record>& to, Source source)
{
    Rule(to.record, source);
}

template<auto Rule, typename Record, typename Source> constexpr auto ruleOfRecord(void (* /*unused*/)(Record&, Source))
{
    return &applyToRecord<Rule, Record, Source>;
}

/// Makes a rule for a record being read out of one for the record.
template<auto Rule> inline constexpr auto ofRecord = ruleOfRecord<Rule>(Rule);

/// Stores the length of an entry and counts it for the PDO; a length that occurs twice counts twice.
template<auto BitLength> void storeBitLength(BeingRead<RecordOf<BitLength>>& to, std::string_view value)
{
    storeUint<BitLength>(to.record, value);
    to.bits = addBits(to.bits, to.record.*BitLength);
}

/// Appends one entry, which has its place where the entries before it end.
/// @tparam EntryRules  the table of the entry's children
template<typename Pdo, typename Entry, const auto& EntryRules>
void appendEntry(BeingRead<Pdo>& to, const xml::Element& element)
{
    BeingRead<Entry> reading;
    reading.bits = to.bits;
    reading.record.Offs = byteBitForm(to.bits);
    readChildren(element, EntryRules, reading);
    to.bits = reading.bits;
    entriesOf(to.record).push_back(std::move(reading.record));
}

/// Reads one PDO element.
/// @tparam Size  the field of the total size
template<auto Size, typename AttributeRules, typename ChildRules>
[[nodiscard]] RecordOf<Size> pdoFrom(const xml::Element& element, const AttributeRules& attributeRules,
                                     const ChildRules& childRules)
{
    BeingRead<RecordOf<Size>> reading;
    readAttributes(element, attributeRules, reading.record.Attributes);
    readChildren(element, childRules, reading);
    reading.record.*Size = byteBitForm(reading.bits);
    return std::move(reading.record);
}
