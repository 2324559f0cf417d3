// dictionarySizeRules.cpp - lengths in a dictionary: whether objects, data types and sub-items agree about them.
#include "check/dictionary/dictionaryWords.h"
#include "check/factNames.h"
#include "check/rules/report.h"
#include "check/rules/ruleFamilies.h"

#include <algorithm>
#include <array>
#include <limits>

namespace check {

namespace {

constexpr std::uint64_t bitsOfByte = 8;

constexpr std::uint64_t roundedUp(std::uint64_t bits, std::uint64_t step)
{
    return (bits + step - 1) / step * step;
}

/// A product; the greatest number if it is greater.
constexpr std::uint64_t product(std::uint64_t left, std::uint64_t right)
{
    constexpr std::uint64_t most = std::numeric_limits<std::uint64_t>::max();
    return right > 0 && left > most / right ? most : left * right;
}

/// A type under a name of the standard.
void checkStandardType(const DataType& type, Report& report)
{
    const std::optional<TypeShape> standard = standardTypeNamed(type.name);
    if (!standard.has_value() || standard->bits == 0 || standard->kind == DataKind::Text
        || *type.bits == standard->bits)
        return;
    report.add(type.where, QStringLiteral("data type %1 has %2, by its name it has %3")
                               .arg(shown(type.name), bitsText(*type.bits), bitsText(standard->bits)));
}

/// Elements that are no whole bytes may begin at bytes, and the last one may be filled up.
bool fitsElements(std::uint64_t bits, std::uint64_t elements, std::uint64_t bitsOfElement)
{
    const std::uint64_t exact = product(elements, bitsOfElement);
    constexpr std::uint64_t word = 16;
    return bits == exact || bits == product(elements, roundedUp(bitsOfElement, bitsOfByte))
           || (bitsOfElement % bitsOfByte != 0 && bits > exact && bits - exact < word);
}

void checkArray(const DictionaryFacts& dictionary, const DataType& type, Report& report)
{
    const std::uint64_t bitsOfElement = dictionary.shapeOf(type.base).bits;
    if (bitsOfElement == 0 || fitsElements(*type.bits, type.elements, bitsOfElement))
        return;
    const QString elements =
        type.elements == 1 ? QStringLiteral("1 element") : QStringLiteral("%1 elements").arg(type.elements);
    report.add(type.where, QStringLiteral("data type %1 has %2 for %3 of type %4, which has %5")
                               .arg(shown(type.name), bitsText(*type.bits), elements, shown(type.base.name),
                                    bitsText(bitsOfElement)));
}

/// An enumeration, or another name for a type. Enumerations of few bits rest on whole bytes.
void checkDerived(const DictionaryFacts& dictionary, const DataType& type, Report& report)
{
    const std::uint64_t bitsOfBase = dictionary.shapeOf(type.base).bits;
    if (bitsOfBase != 0 && bitsOfBase < *type.bits)
        report.add(type.where,
                   QStringLiteral("data type %1 has %2, its base type %3 has %4")
                       .arg(shown(type.name), bitsText(*type.bits), shown(type.base.name), bitsText(bitsOfBase)));
}

/// Where the last sub-item of a record ends.
struct RecordEnd
{
    std::uint64_t bit = 0;
    const TypeSubItem* subItem = nullptr;
};

RecordEnd endOf(const DictionaryContent& content, const DataType& type)
{
    RecordEnd end;
    for (const TypeSubItem& subItem : content.subItemsOf(type)) {
        const std::uint64_t bit = std::uint64_t{subItem.offset.value_or(0)} + subItem.bits.value_or(0);
        if (bit > end.bit)
            end = {bit, &subItem};
    }
    return end;
}

void checkRecord(const DictionaryFacts& dictionary, const DataType& type, Report& report)
{
    const RecordEnd end = endOf(dictionary.content(), type);
    if (end.subItem != nullptr && *type.bits < end.bit)
        report.add(type.where,
                   QStringLiteral("data type %1 has %2, its sub-item %3 ends after %4")
                       .arg(shown(type.name), bitsText(*type.bits), shown(end.subItem->name), bitsText(end.bit)));
}

void checkSubItems(const DictionaryFacts& dictionary, const DataType& type, Report& report)
{
    for (const TypeSubItem& subItem : dictionary.content().subItemsOf(type)) {
        if (!subItem.bits.has_value())
            continue;
        const std::uint64_t bits = dictionary.shapeOf(subItem.type).bits;
        if (bits != 0 && bits != *subItem.bits)
            report.add(subItem.where, QStringLiteral("sub-item %1 of data type %2 has %3, its type %4 has %5")
                                          .arg(shown(subItem.name), shown(type.name), bitsText(*subItem.bits),
                                               shown(subItem.type.name), bitsText(bits)));
    }
}

void checkType(const DictionaryFacts& dictionary, const DataType& type, Report& report)
{
    checkSubItems(dictionary, type, report);
    if (!type.bits.has_value())
        return;
    checkStandardType(type, report);
    if (type.isArray())
        checkArray(dictionary, type, report);
    else if (type.isRecord())
        checkRecord(dictionary, type, report);
    else if (type.base.isGiven())
        checkDerived(dictionary, type, report);
}

void checkSizes(const UnitFacts& unit, Report& report)
{
    if (unit.dictionary == nullptr)
        return;
    const DictionaryFacts& dictionary = *unit.dictionary;
    for (const DataType& type : dictionary.content().types)
        checkType(dictionary, type, report);
    for (const DictionaryObject& object : dictionary.content().objects) {
        const std::uint64_t bits = dictionary.shapeOf(object.type).bits;
        if (object.bits.has_value() && bits != 0 && bits != *object.bits)
            report.add(object.where, QStringLiteral("object %1 has %2, its type %3 has %4")
                                         .arg(hexNumber(object.index), bitsText(*object.bits), shown(object.type.name),
                                              bitsText(bits)));
    }
}

/// What is after the last sub-item may fill up to a boundary of 64 bits, the largest that processors ask for.
void checkUnusedBits(const UnitFacts& unit, Report& report)
{
    constexpr std::uint64_t largestBoundary = 64;
    if (unit.dictionary == nullptr)
        return;
    const DictionaryContent& content = unit.dictionary->content();
    for (const DataType& type : content.types) {
        const RecordEnd end = type.isRecord() ? endOf(content, type) : RecordEnd{};
        if (end.subItem != nullptr && type.bits.value_or(0) > roundedUp(end.bit, largestBoundary))
            report.add(type.where,
                       QStringLiteral("data type %1 has %2, its last sub-item %3 ends after %4")
                           .arg(shown(type.name), bitsText(*type.bits), shown(end.subItem->name), bitsText(end.bit)));
    }
}

constexpr std::array rules{
    Rule{"dictionary-bit-size",
         Severity::Warning,
         "bit sizes in the dictionary do not add up",
         "The BitSize of an object or sub-item differs from that of its type, a data type ends before one of its "
         "sub-items, an array has another length than its elements together, or a data type is longer than its base "
         "type or has another length than its name says. Texts may be shorter or longer than their name says.",
         "The length of a value is taken from one of the two places. If it is the wrong one, the device refuses the "
         "value, or values of complete access are cut.",
         "Correct the BitSize that differs from the device.",
         "<Object><Index>#x2000</Index><Name>Gain</Name><Type>UDINT</Type><BitSize>16</BitSize></Object>",
         {nullptr, nullptr, checkSizes}},
    Rule{"dictionary-unused-bits",
         Severity::Note,
         "a data type is longer than its sub-items reach",
         "The BitSize of a data type with sub-items is more than the end of its last sub-item, filled up to a boundary "
         "of 64 bits.",
         "Mostly BitSize is right and the sub-items at the end are left out, or their BitOffs is missing or wrong. "
         "With complete access their values are read from and written to the wrong place.",
         "Describe the sub-items that are missing, or correct BitOffs and BitSize.",
         "<DataType><Name>DT2000</Name><BitSize>144</BitSize><SubItem><SubIdx>0</SubIdx><Name>Count</Name>\n"
         "  <Type>USINT</Type><BitSize>8</BitSize><BitOffs>0</BitOffs></SubItem></DataType>",
         {nullptr, nullptr, checkUnusedBits}},
};

} // namespace

RuleFamily dictionarySizeRules()
{
    return rules;
}

} // namespace check
