// dictionaryRules.cpp - data types and objects of a dictionary: what they are called and how they refer to each other.
#include "check/dictionary/dictionaryWords.h"
#include "check/factNames.h"
#include "check/rules/report.h"
#include "check/rules/ruleFamilies.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <vector>

namespace check {

namespace {

/// Asks about the dictionary of a unit, if it has one.
template<void (*Check)(const DictionaryFacts&, Report&)> void ofDictionary(const UnitFacts& unit, Report& report)
{
    if (unit.dictionary != nullptr)
        Check(*unit.dictionary, report);
}

// ---- Unknown types ----

bool isUnknown(const TypeName& type)
{
    return type.isGiven() && !type.isDeclared() && !standardTypeNamed(type.name).has_value();
}

void checkTypesAreKnown(const DictionaryFacts& dictionary, Report& report)
{
    const DictionaryContent& content = dictionary.content();
    for (const DataType& type : content.types) {
        if (isUnknown(type.base))
            report.add(type.where, QStringLiteral("data type %1 rests on %2, which is not declared")
                                       .arg(shown(type.name), shown(type.base.name)));
        for (const TypeSubItem& subItem : content.subItemsOf(type))
            if (isUnknown(subItem.type))
                report.add(subItem.where,
                           QStringLiteral("sub-item %1 of data type %2 is of type %3, which is not declared")
                               .arg(shown(subItem.name), shown(type.name), shown(subItem.type.name)));
    }
    for (const DictionaryObject& object : content.objects)
        if (isUnknown(object.type))
            report.add(object.where, QStringLiteral("object %1 is of type %2, which is not declared")
                                         .arg(hexNumber(object.index), shown(object.type.name)));
}

// ---- Types that contain themselves ----

/// Follows references from type to type, with a list of levels instead of calls: a chain may be longer than the stack.
class CircleSearch
{
public:
    CircleSearch(const DictionaryFacts& dictionary, Report& report)
        : m_content(dictionary.content())
        , m_report(report)
        , m_states(m_content.types.size(), State::New)
    {}

    void search()
    {
        for (std::uint32_t type = 0; type < m_states.size(); ++type) {
            enter(type);
            while (!m_levels.empty())
                step();
        }
    }

private:
    enum class State : std::uint8_t
    {
        New,
        Open, ///< being followed
        Done,
    };
    /// A type that is being followed, and how many of its references have been: the base type, then the sub-items.
    struct Level
    {
        std::uint32_t type;
        std::uint32_t followed;
    };

    void enter(std::uint32_t type)
    {
        if (m_states[type] != State::New)
            return;
        m_states[type] = State::Open;
        m_levels.push_back({type, 0});
    }

    void step()
    {
        Level& level = m_levels.back();
        const DataType& type = m_content.types[level.type];
        const std::uint32_t reference = level.followed++;
        if (reference == 0) {
            follow(type.base, type, nullptr);
        } else if (reference <= type.subItems.count) {
            const TypeSubItem& subItem = m_content.subItemsOf(type)[reference - 1];
            follow(subItem.type, type, &subItem);
        } else {
            m_states[level.type] = State::Done;
            m_levels.pop_back();
        }
    }

    /// @param subItem  of `from`; null for its base type
    void follow(const TypeName& to, const DataType& from, const TypeSubItem* subItem)
    {
        if (!to.isDeclared())
            return;
        if (m_states[to.type] != State::Open) {
            enter(to.type);
            return;
        }
        const QString through = subItem == nullptr ? QStringLiteral("the base type")
                                                   : QStringLiteral("sub-item %1").arg(shown(subItem->name));
        m_report.add(subItem == nullptr ? from.where : subItem->where,
                     QStringLiteral("data type %1 contains itself through %2 of data type %3")
                         .arg(shown(to.name), through, shown(from.name)));
    }

    const DictionaryContent& m_content;
    Report& m_report;
    std::vector<State> m_states;
    std::vector<Level> m_levels;
};

void checkTypesAreFinite(const DictionaryFacts& dictionary, Report& report)
{
    CircleSearch(dictionary, report).search();
}

// ---- Things that are there twice ----

bool isSame(const TypeSubItem& left, const TypeSubItem& right)
{
    return left.subIndex == right.subIndex && left.name == right.name && left.type.name == right.type.name
           && left.bits == right.bits && left.offset == right.offset && left.flags.access == right.flags.access
           && left.flags.mapping == right.flags.mapping;
}

bool isSame(const DictionaryContent& content, const DataType& left, const DataType& right)
{
    const ItemsOf<TypeSubItem> leftItems = content.subItemsOf(left);
    const ItemsOf<TypeSubItem> rightItems = content.subItemsOf(right);
    return left.base.name == right.base.name && left.bits == right.bits && left.dimensions == right.dimensions
           && left.bounds.lower == right.bounds.lower && left.elements == right.elements
           && std::equal(leftItems.begin(), leftItems.end(), rightItems.begin(), rightItems.end(),
                         [](const TypeSubItem& one, const TypeSubItem& other) { return isSame(one, other); });
}

void checkTypeNames(const DictionaryFacts& dictionary, Report& report)
{
    const DictionaryContent& content = dictionary.content();
    for (const DataType& type : content.types) {
        const DataType* const first = dictionary.declared(dictionary.typeNamed(type.name)); // null if it has no name
        if (first != nullptr && first != &type && !isSame(content, *first, type))
            report.add(type.where, QStringLiteral("there is another data type %1 before, which differs from this one")
                                       .arg(shown(type.name)));
    }
}

void checkObjectIndexes(const DictionaryFacts& dictionary, Report& report)
{
    const std::vector<DictionaryObject>& objects = dictionary.content().objects;
    const DictionaryObject* last = nullptr;
    for (const std::uint32_t place : dictionary.objectsByIndex()) {
        const DictionaryObject& object = objects[place];
        if (last != nullptr && last->index == object.index)
            report.add(object.where,
                       QStringLiteral("object %1 is in the dictionary twice").arg(hexNumber(object.index)));
        last = &object;
    }
}

void checkSubIndexes(const DictionaryFacts& dictionary, Report& report)
{
    const DictionaryContent& content = dictionary.content();
    for (std::uint32_t type = 0; type < content.types.size(); ++type) {
        const SubIndexSpan* last = nullptr;
        for (const SubIndexSpan& span : dictionary.spansOf(type)) {
            if (last != nullptr && span.first <= last->last) {
                const TypeSubItem& subItem = content.typeSubItems[span.subItem];
                report.add(subItem.where,
                           QStringLiteral("sub-index %1 of data type %2 is that of sub-item %3 and of sub-item %4")
                               .arg(span.first)
                               .arg(shown(content.types[type].name), shown(content.typeSubItems[last->subItem].name),
                                    shown(subItem.name)));
            }
            if (last == nullptr || span.last > last->last)
                last = &span;
        }
    }
}

// ---- Sub-items that overlap ----

/// The bits of a sub-item in its record.
struct BitSpan
{
    std::uint64_t first;
    std::uint64_t end;
    const TypeSubItem* subItem;
};

void reportFirstOverlap(const DataType& type, const std::vector<BitSpan>& spans, Report& report)
{
    const BitSpan* last = nullptr;
    for (const BitSpan& span : spans) {
        if (last != nullptr && span.first < last->end) {
            report.add(span.subItem->where,
                       QStringLiteral("sub-item %1 of data type %2 begins at bit %3, within %4, which "
                                      "has bits %5 to %6")
                           .arg(shown(span.subItem->name), shown(type.name), QString::number(span.first),
                                shown(last->subItem->name), QString::number(last->first),
                                QString::number(last->end - 1)));
            return;
        }
        if (last == nullptr || span.end > last->end)
            last = &span;
    }
}

void checkOverlaps(const DictionaryFacts& dictionary, Report& report)
{
    const DictionaryContent& content = dictionary.content();
    std::vector<BitSpan> spans;
    for (const DataType& type : content.types) {
        spans.clear();
        for (const TypeSubItem& subItem : content.subItemsOf(type))
            if (subItem.offset.has_value() && subItem.bits.value_or(0) > 0)
                spans.push_back({*subItem.offset, std::uint64_t{*subItem.offset} + *subItem.bits, &subItem});
        const auto isBefore = [](const BitSpan& left, const BitSpan& right) { return left.first < right.first; };
        if (!std::is_sorted(spans.begin(), spans.end(), isBefore))
            std::stable_sort(spans.begin(), spans.end(), isBefore);
        reportFirstOverlap(type, spans, report);
    }
}

constexpr std::array rules{
    Rule{"dictionary-type-unknown",
         Severity::Warning,
         "a data type of the dictionary is not declared",
         "The type of an object or sub-item, or the base type of a data type, is neither declared under DataTypes nor "
         "one of the standard's own.",
         "Nobody can tell how long the object is or which sub-indexes it has, so tools show it as raw bytes or leave "
         "it out.",
         "Declare the data type, or correct its name; capital letters count.",
         "<Object><Index>#x2000</Index><Name>Gain</Name><Type>DT2000</Type><BitSize>32</BitSize></Object>",
         {nullptr, nullptr, ofDictionary<checkTypesAreKnown>}},
    Rule{"dictionary-type-recursive",
         Severity::Warning,
         "a data type contains itself",
         "A sub-item or the base type of a data type leads back to the data type, directly or through others.",
         "Such a type has no length. Tools that follow its parts leave the object out, or hang.",
         "Give the sub-item the type that is really meant, mostly that of the elements.",
         "<DataType><Name>DT2000</Name><BitSize>16</BitSize><SubItem><SubIdx>1</SubIdx><Name>Gain</Name>\n"
         "  <Type>DT2000</Type><BitSize>16</BitSize><BitOffs>0</BitOffs></SubItem></DataType>",
         {nullptr, nullptr, ofDictionary<checkTypesAreFinite>}},
    Rule{"dictionary-type-twice",
         Severity::Warning,
         "two different data types with the same name",
         "A data type has the name of another one before it in the same dictionary, and their lengths, bounds or "
         "sub-items differ. Two that are the same are no finding.",
         "Objects refer to data types by name. One tool takes the first, another the last, and they show different "
         "objects.",
         "Rename one of the two, or delete the one that is out of date.",
         "<DataType><Name>DT2000</Name><BitSize>16</BitSize></DataType>\n"
         "<DataType><Name>DT2000</Name><BitSize>32</BitSize></DataType>",
         {nullptr, nullptr, ofDictionary<checkTypeNames>}},
    Rule{"dictionary-object-twice",
         Severity::Warning,
         "two objects have one index",
         "An object has the index of another one before it in the same dictionary.",
         "A device has only one object per index. Tools differ in which of the two they use.",
         "Delete the object that the device does not have, or correct its index.",
         "<Object><Index>#x2000</Index><Name>Gain</Name><Type>UINT</Type><BitSize>16</BitSize></Object>\n"
         "<Object><Index>#x2000</Index><Name>Limit</Name><Type>UINT</Type><BitSize>16</BitSize></Object>",
         {nullptr, nullptr, ofDictionary<checkObjectIndexes>}},
    Rule{
        "dictionary-sub-index-twice",
        Severity::Warning,
        "two sub-items of a data type have one sub-index",
        "A sub-item has the sub-index of another one of its data type, or one that is taken by an element of an array.",
        "Only one of the two can be reached on the bus, and a value for one may end up in the other.",
        "Number the sub-items as the device does.",
        "<SubItem><SubIdx>1</SubIdx><Name>Gain</Name><Type>UINT</Type><BitSize>16</BitSize></SubItem>\n"
        "<SubItem><SubIdx>1</SubIdx><Name>Limit</Name><Type>UINT</Type><BitSize>16</BitSize></SubItem>",
        {nullptr, nullptr, ofDictionary<checkSubIndexes>}},
    Rule{"dictionary-overlap",
         Severity::Warning,
         "sub-items of a data type share bits",
         "A sub-item begins at a bit that belongs to another sub-item of the same data type. Only the first such "
         "sub-item of a data type is told.",
         "With complete access the object is read and written as one block by these places, so values get mixed up.",
         "Correct BitOffs, or BitSize of the sub-item before.",
         "<SubItem><Name>Gain</Name><Type>UDINT</Type><BitSize>32</BitSize><BitOffs>16</BitOffs></SubItem>\n"
         "<SubItem><Name>Limit</Name><Type>UINT</Type><BitSize>16</BitSize><BitOffs>32</BitOffs></SubItem>",
         {nullptr, nullptr, ofDictionary<checkOverlaps>}},
};

} // namespace

RuleFamily dictionaryRules()
{
    return rules;
}

} // namespace check
