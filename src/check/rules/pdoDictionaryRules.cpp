// pdoDictionaryRules.cpp - entries of PDOs against the dictionary of the same device or module.
#include "check/dictionary/dictionaryOfUnit.h"
#include "check/dictionary/dictionaryWords.h"
#include "check/factNames.h"
#include "check/rules/report.h"
#include "check/rules/ruleFamilies.h"
#include "check/unitLabels.h"

#include <array>

namespace check {

namespace {

/// Data types of the standard have indexes too; mapped as objects they fill gaps.
constexpr std::uint16_t lastDummy = 0x1F;

/// Calls `visit(entry, pdo, found)` for each declared entry that is an object, with what the dictionary says of it.
template<typename Visitor> void forEachEntry(const UnitFacts& unit, Visitor visit)
{
    if (unit.dictionary == nullptr || unit.dictionary->content().objects.empty())
        return;
    for (const PdoFacts& pdo : unit.pdos) {
        if (pdo.isCopy)
            continue;
        for (const EntryFacts& entry : pdo.entries)
            if (entry.index > lastDummy && entry.where != pdo.where) // one without an element is derived
                visit(entry, pdo, unit.dictionary->itemAt(entry.index, entry.subIndex));
    }
}

/// As above, for entries that are in the dictionary.
template<typename Visitor> void forEachFoundEntry(const UnitFacts& unit, Visitor visit)
{
    forEachEntry(unit, [&](const EntryFacts& entry, const PdoFacts& pdo, const LookedUpItem& found) {
        if (found.result == LookUp::Found)
            visit(entry, pdo, found.item);
    });
}

QString entryName(const EntryFacts& entry, const PdoFacts& pdo)
{
    return QStringLiteral("entry %1 of %2").arg(objectText(entry.index, entry.subIndex), labelOf(pdo));
}

/// Lets only the first of the entries through that are next to each other and of one object.
class FirstOfObject
{
public:
    [[nodiscard]] bool take(const EntryFacts& entry, const PdoFacts& pdo)
    {
        const bool isFirst = m_pdo != &pdo || m_index != entry.index;
        m_pdo = &pdo;
        m_index = entry.index;
        return isFirst;
    }

private:
    const PdoFacts* m_pdo = nullptr;
    std::uint16_t m_index = 0;
};

void checkObjects(const UnitFacts& unit, Report& report)
{
    FirstOfObject first;
    forEachEntry(unit, [&](const EntryFacts& entry, const PdoFacts& pdo, const LookedUpItem& found) {
        const bool isMissing = found.result == LookUp::NoObject && hasToKnow(unit, entry.index);
        if (isMissing && first.take(entry, pdo))
            report.add(entry.where, QStringLiteral("%1: the dictionary has no object %2")
                                        .arg(entryName(entry, pdo), hexNumber(entry.index)));
    });
}

void checkSubIndexes(const UnitFacts& unit, Report& report)
{
    FirstOfObject first;
    forEachEntry(unit, [&](const EntryFacts& entry, const PdoFacts& pdo, const LookedUpItem& found) {
        if (found.result == LookUp::NoSubIndex && first.take(entry, pdo))
            report.add(entry.where,
                       QStringLiteral("%1: object %2 of the dictionary has no sub-index %3")
                           .arg(entryName(entry, pdo), hexNumber(entry.index), QString::number(entry.subIndex)));
    });
}

bool hasOtherLength(const EntryFacts& entry, const ItemFacts& item)
{
    return item.bits > 0 && entry.bits != item.bits;
}

void checkLengths(const UnitFacts& unit, Report& report)
{
    forEachFoundEntry(unit, [&](const EntryFacts& entry, const PdoFacts& pdo, const ItemFacts& item) {
        if (hasOtherLength(entry, item))
            report.add(entry.where, QStringLiteral("%1 has %2, in the dictionary it has %3")
                                        .arg(entryName(entry, pdo), bitsText(entry.bits), bitsText(item.bits)));
    });
}

/// A length that differs is another rule's finding, unless only the types tell it.
bool areTypesAtOdds(const TypeShape& ofEntry, const TypeShape& ofItem, bool isLengthTold)
{
    if (!canBeSame(ofEntry.kind, ofItem.kind))
        return true;
    return !isLengthTold && ofEntry.bits > 0 && ofItem.bits > 0 && ofEntry.bits != ofItem.bits;
}

void checkTypes(const UnitFacts& unit, Report& report)
{
    forEachFoundEntry(unit, [&](const EntryFacts& entry, const PdoFacts& pdo, const ItemFacts& item) {
        if (entry.dataType.empty() || entry.dataType == item.type)
            return;
        const DictionaryFacts& dictionary = *unit.dictionary;
        const TypeShape ofEntry = dictionary.shapeOf(dictionary.typeNamed(entry.dataType));
        if (areTypesAtOdds(ofEntry, item.shape, hasOtherLength(entry, item)))
            report.add(entry.where, QStringLiteral("%1 is of type %2, in the dictionary it is of type %3")
                                        .arg(entryName(entry, pdo), shown(entry.dataType), shown(item.type)));
    });
}

void checkMappings(const UnitFacts& unit, Report& report)
{
    FirstOfObject first;
    forEachFoundEntry(unit, [&](const EntryFacts& entry, const PdoFacts& pdo, const ItemFacts& item) {
        const bool isUnmapped = item.mapping == Mapping::None || item.mapping == Mapping::Unknown;
        if (isUnmapped && unit.dictionary->content().tellsMapping && first.take(entry, pdo))
            report.add(
                entry.where,
                QStringLiteral("%1: the dictionary does not let the object be mapped").arg(entryName(entry, pdo)));
    });
}

void checkDirections(const UnitFacts& unit, Report& report)
{
    forEachFoundEntry(unit, [&](const EntryFacts& entry, const PdoFacts& pdo, const ItemFacts& item) {
        if (pdo.isInput && item.mapping == Mapping::Outputs)
            report.add(entry.where,
                       QStringLiteral("%1, a TxPdo: the dictionary lets the object be mapped into RxPdos only")
                           .arg(entryName(entry, pdo)));
        if (!pdo.isInput && item.mapping == Mapping::Inputs)
            report.add(entry.where,
                       QStringLiteral("%1, an RxPdo: the dictionary lets the object be mapped into TxPdos only")
                           .arg(entryName(entry, pdo)));
    });
}

constexpr std::array rules{
    Rule{"pdo-entry-object",
         Severity::Warning,
         "the object of a PDO entry is not in the dictionary",
         "An entry of a PDO names an object that the dictionary of the same device or module does not have. Gaps and "
         "dummy objects are no finding, nor are objects that may be those of a module in a slot, or of the device that "
         "a module is put into. Of such entries of one object that follow each other the first is told.",
         "If the device does not have the object either, it refuses the mapping and stays in PREOP.",
         "Correct the index of the entry, or add the object to the dictionary.",
         "<Entry><Index>#x6099</Index><SubIndex>1</SubIndex><BitLen>16</BitLen></Entry>",
         {nullptr, nullptr, checkObjects}},
    Rule{"pdo-entry-sub-index",
         Severity::Warning,
         "the sub-index of a PDO entry is not in the dictionary",
         "An entry of a PDO names a sub-index that its object does not have in the dictionary. Of such entries of one "
         "object that follow each other the first is told.",
         "If the device does not have it either, it refuses the mapping and stays in PREOP.",
         "Correct the sub-index of the entry, or the data type of the object.",
         "<Entry><Index>#x6000</Index><SubIndex>9</SubIndex><BitLen>16</BitLen></Entry>",
         {nullptr, nullptr, checkSubIndexes}},
    Rule{"pdo-entry-length",
         Severity::Warning,
         "a PDO entry has another length than its object",
         "The BitLen of an entry differs from the BitSize of its object or sub-item in the dictionary.",
         "The device maps the length of the object, so either it refuses the PDO, or all values after the entry are "
         "read from the wrong place.",
         "Take the length that the device has, here or in the dictionary.",
         "<Entry><Index>#x6041</Index><BitLen>8</BitLen><DataType>USINT</DataType></Entry>",
         {nullptr, nullptr, checkLengths}},
    Rule{"pdo-entry-type",
         Severity::Warning,
         "a PDO entry has another data type than its object",
         "The DataType of an entry and that of its object in the dictionary differ in kind (signed, unsigned, real, "
         "text) or in length. Names that can mean the same, such as BYTE and USINT, are no finding; nor is a length "
         "that the BitLen tells already.",
         "The controller reads the value as the wrong kind: -1 becomes 65535, a speed becomes nonsense.",
         "Give the entry the data type of the object.",
         "<Entry><Index>#x6064</Index><BitLen>32</BitLen><DataType>UDINT</DataType></Entry>",
         {nullptr, nullptr, checkTypes}},
    Rule{"pdo-entry-mapping",
         Severity::Note,
         "the object of a PDO entry must not be mapped",
         "The object of an entry has no PdoMapping in the dictionary, or an empty one, while other objects have. A "
         "dictionary without any PdoMapping tells nothing. Of such entries of one object that follow each other the "
         "first is told.",
         "The PDOs of the description itself mostly work all the same. But tools that offer objects for PDOs leave "
         "this one out, and a device that keeps to its dictionary refuses the mapping.",
         "Add PdoMapping to the object, or take the entry out of the PDO.",
         "<Object><Index>#x2000</Index><Type>UINT</Type><Flags><Access>rw</Access></Flags></Object>",
         {nullptr, nullptr, checkMappings}},
    Rule{"pdo-entry-direction",
         Severity::Warning,
         "an object is mapped in the wrong direction",
         "The PdoMapping of the object is T and the entry is in an RxPdo, or it is R and the entry is in a TxPdo.",
         "A device that keeps to its dictionary refuses the mapping. One that does not takes outputs for an input "
         "value, which has no effect.",
         "Move the entry to a PDO of the other direction, or correct PdoMapping.",
         "<Flags><Access>ro</Access><PdoMapping>T</PdoMapping></Flags> (mapped by an RxPdo)",
         {nullptr, nullptr, checkDirections}},
};

} // namespace

RuleFamily pdoDictionaryRules()
{
    return rules;
}

} // namespace check
