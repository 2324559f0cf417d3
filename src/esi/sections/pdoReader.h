// pdoReader.h - how a PDO of a device and a PDO of a module are read alike. What differs is in the tables of rules of
// the two sections: names of attributes, the attributes of an index, which names may be empty.
#pragma once

#include "esi/fieldRules.h"
#include "esi/storeField.h"
#include "model/byteBit.h"
#include "model/pdoAccess.h"

#include <QDomElement>
#include <QString>

#include <cstdint>
#include <utility>

/// A PDO or an entry while its element is read.
template<typename Record> struct BeingRead
{
    Record record;
    std::int32_t bits = 0; ///< running total of the PDO, with the lengths of this entry that have been read
};

/// Makes a rule for a record being read out of one for the record and the text of the element.
template<auto Store, typename Record> void recordFromText(BeingRead<Record>& to, const QDomElement& element)
{
    Store(to.record, textOf(element));
}

/// Makes a rule for a record being read out of one for the record and the element.
template<auto Read, typename Record> void recordFromElement(BeingRead<Record>& to, const QDomElement& element)
{
    Read(to.record, element);
}

/// Stores the length of an entry and counts it for the PDO; a length that occurs twice counts twice.
template<auto BitLength> void storeBitLength(BeingRead<RecordOf<BitLength>>& to, const QString& value)
{
    storeUint<BitLength>(to.record, value);
    to.bits = addBits(to.bits, to.record.*BitLength);
}

/// Appends one entry, which has its place where the entries before it end.
/// @tparam EntryRules  the table of the entry's children
template<typename Entry, const auto& EntryRules, typename Pdo>
void appendEntry(BeingRead<Pdo>& to, const QDomElement& element)
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
[[nodiscard]] RecordOf<Size> pdoFrom(const QDomElement& element, const AttributeRules& attributeRules,
                                     const ChildRules& childRules)
{
    BeingRead<RecordOf<Size>> reading;
    readAttributes(element, attributeRules, reading.record.Attributes);
    readChildren(element, childRules, reading);
    reading.record.*Size = byteBitForm(reading.bits);
    return std::move(reading.record);
}
