// dictionaryDefaultRules.cpp - defaults and limits in a dictionary against the types that they are for.
#include "check/dictionary/dictionaryWords.h"
#include "check/dictionary/writtenValues.h"
#include "check/factNames.h"
#include "check/rules/report.h"
#include "check/rules/ruleFamilies.h"

#include <array>
#include <string_view>
#include <unordered_map>

namespace check {

namespace {

/// The `Info` of an object or sub-item, with the type that it is for.
struct TypedInfo
{
    const ItemInfo& info;
    TypeShape shape;
    const DictionaryObject& object;
    const InfoSubItem* subItem; ///< null for the object itself

    [[nodiscard]] QString owner() const
    {
        const QString name = QStringLiteral("object %1").arg(hexNumber(object.index));
        return subItem == nullptr ? name : QStringLiteral("sub-item %1 of %2").arg(shown(subItem->name), name);
    }
};

/// Finds the types of sub-items in the `Info` of objects. They are in the order of the data type's, but some may be
/// missing; those for elements of an array have any name.
class InfoTypes
{
public:
    explicit InfoTypes(const DictionaryFacts& dictionary)
        : m_dictionary(dictionary)
        , m_content(dictionary.content())
    {}

    /// To be called before the sub-items of an object.
    void begin(const DictionaryObject& object)
    {
        m_type = m_dictionary.declared(object.type);
        m_typePlace = object.type.type;
        m_next = 0;
        m_elements = m_type == nullptr ? nullptr : m_dictionary.elementsIn(m_typePlace);
    }

    /// Whether the sub-items of the object are told by a record alone, so that each has to have a name of it.
    [[nodiscard]] bool areNamesKnown() const
    {
        return m_type != nullptr && m_type->isRecord() && m_elements == nullptr;
    }

    /// The sub-item of the data type for the next sub-item.
    /// @param position  in the `Info`
    /// @return          null if none has its name
    [[nodiscard]] const TypeSubItem* next(std::string_view name, std::size_t position)
    {
        const TypeSubItem* const subItem = named(name);
        return subItem == nullptr && position == 0 ? count() : subItem;
    }

    /// The type of the next sub-item.
    /// @param position  in the `Info`
    [[nodiscard]] TypeShape shapeOfNext(std::string_view name, std::size_t position)
    {
        const TypeSubItem* const subItem = next(name, position);
        if (subItem == nullptr)
            return m_elements != nullptr ? m_dictionary.shapeOf(m_elements->base) : TypeShape{};
        const TypeShape shape = m_dictionary.shapeOf(subItem->type);
        return {shape.kind, subItem->bits.has_value() ? *subItem->bits : shape.bits};
    }

private:
    using Names = std::unordered_map<std::string_view, std::size_t>;

    /// Sub-index 0, which has a name of its own in the `Info` of many objects.
    [[nodiscard]] const TypeSubItem* count()
    {
        if (m_type == nullptr || m_type->subItems.count == 0)
            return nullptr;
        const TypeSubItem& first = m_content.subItemsOf(*m_type)[0];
        if (first.subIndex != 0U)
            return nullptr;
        m_next = 1;
        return &first;
    }

    const TypeSubItem* namedAmongFew(const ItemsOf<TypeSubItem>& subItems, std::string_view name)
    {
        for (std::size_t place = 0; place < subItems.size(); ++place)
            if (subItems[place].name == name) {
                m_next = place + 1;
                return &subItems[place];
            }
        return nullptr;
    }

    [[nodiscard]] const TypeSubItem* named(std::string_view name)
    {
        if (m_type == nullptr)
            return nullptr;
        const ItemsOf<TypeSubItem> subItems = m_content.subItemsOf(*m_type);
        for (std::size_t step = 0; step < 2 && m_next + step < subItems.size(); ++step)
            if (subItems[m_next + step].name == name) {
                m_next += step + 1;
                return &subItems[m_next - 1];
            }
        constexpr std::size_t few = 8;
        if (subItems.size() <= few)
            return namedAmongFew(subItems, name);
        const auto found = names().find(name);
        if (found == names().end())
            return nullptr;
        m_next = found->second + 1;
        return &subItems[found->second];
    }

    /// The sub-items of the data type by name, made when they are needed.
    const Names& names()
    {
        Names& names = m_names[m_typePlace];
        const ItemsOf<TypeSubItem> subItems = m_content.subItemsOf(*m_type);
        if (names.empty())
            for (std::size_t place = 0; place < subItems.size(); ++place)
                names.emplace(subItems[place].name, place);
        return names;
    }

    const DictionaryFacts& m_dictionary;
    const DictionaryContent& m_content;
    const DataType* m_type = nullptr;
    const DataType* m_elements = nullptr; ///< the array of the record's elements, if it has one
    std::uint32_t m_typePlace = 0;
    std::size_t m_next = 0; ///< sub-item of the data type that is expected
    std::unordered_map<std::uint32_t, Names> m_names; ///< by data type
};

/// Calls `visit(typedInfo)` for each object and sub-item that has defaults or limits.
template<typename Visitor> void forEachInfo(const UnitFacts& unit, Visitor visit)
{
    if (unit.dictionary == nullptr)
        return;
    const DictionaryFacts& dictionary = *unit.dictionary;
    InfoTypes types(dictionary);
    for (const DictionaryObject& object : dictionary.content().objects) {
        if (object.info.initial.form != ValueForm::None) {
            const TypeShape shape = dictionary.shapeOf(object.type);
            visit(TypedInfo{object.info,
                            {shape.kind, object.bits.value_or(static_cast<std::uint32_t>(shape.bits))},
                            object,
                            nullptr});
        }
        types.begin(object);
        std::size_t position = 0;
        for (const InfoSubItem& subItem : dictionary.content().subItemsOf(object))
            visit(TypedInfo{subItem.info, types.shapeOfNext(subItem.name, position++), object, &subItem});
    }
}

void checkLengths(const UnitFacts& unit, Report& report)
{
    forEachInfo(unit, [&](const TypedInfo& typed) {
        constexpr std::uint64_t bitsOfByte = 8;
        const std::uint64_t room = (typed.shape.bits + bitsOfByte - 1) / bitsOfByte;
        const std::optional<std::size_t> bytes = bytesOf(typed.info.initial);
        if (room > 0 && bytes.has_value() && *bytes > room)
            report.add(typed.info.initial.where, QStringLiteral("%1 has a default of %2, its type has %3")
                                                     .arg(typed.owner(), bytesText(*bytes), bytesText(room)));
    });
}

void checkRanges(const UnitFacts& unit, Report& report)
{
    forEachInfo(unit, [&](const TypedInfo& typed) {
        const ItemInfo& info = typed.info;
        if (info.least.form == ValueForm::None && info.greatest.form == ValueForm::None)
            return;
        const std::optional<OrderedNumber> initial = numberOf(info.initial, typed.shape);
        if (!initial.has_value())
            return;
        const std::optional<OrderedNumber> least = numberOf(info.least, typed.shape);
        const std::optional<OrderedNumber> greatest = numberOf(info.greatest, typed.shape);
        const auto tell = [&](const OrderedNumber& limit, const QString& pattern) {
            report.add(info.initial.where, pattern.arg(typed.owner(), numberText(*initial, typed.shape.kind),
                                                       numberText(limit, typed.shape.kind)));
        };
        if (least.has_value() && initial->place < least->place)
            tell(*least, QStringLiteral("%1 has the default %2, its minimum is %3"));
        else if (greatest.has_value() && initial->place > greatest->place)
            tell(*greatest, QStringLiteral("%1 has the default %2, its maximum is %3"));
    });
}

void checkNames(const UnitFacts& unit, Report& report)
{
    if (unit.dictionary == nullptr)
        return;
    const DictionaryContent& content = unit.dictionary->content();
    InfoTypes types(*unit.dictionary);
    for (const DictionaryObject& object : content.objects) {
        types.begin(object);
        if (!types.areNamesKnown())
            continue;
        std::size_t position = 0;
        for (const InfoSubItem& subItem : content.subItemsOf(object))
            if (types.next(subItem.name, position++) == nullptr)
                report.add(subItem.where,
                           QStringLiteral("object %1 has a default for %2, its type %3 has no such sub-item")
                               .arg(hexNumber(object.index), shown(subItem.name), shown(object.type.name)));
    }
}

constexpr std::array rules{
    Rule{"dictionary-default-length",
         Severity::Warning,
         "a default is longer than its object",
         "The DefaultData or DefaultString of an object or sub-item has more bytes than its BitSize and type have room "
         "for.",
         "Nobody can tell what the device starts with, and a tool that writes the default back sends a value that is "
         "too long; the device refuses it.",
         "Shorten the default, or correct the type. DefaultData has two hexadecimal digits for each byte.",
         "<Type>UINT</Type><BitSize>16</BitSize><Info><DefaultData>00000000</DefaultData></Info>",
         {nullptr, nullptr, checkLengths}},
    Rule{"dictionary-default-range",
         Severity::Warning,
         "a default is outside its minimum and maximum",
         "The default of an object or sub-item is less than its minimum or more than its maximum. MinData, MaxData and "
         "DefaultData are bytes, the least significant first; signed types count as such.",
         "A device that keeps to its limits refuses its own default when a tool writes it back.",
         "Correct the default or the limit. Often the bytes of one of them are in the wrong order.",
         "<Type>INT</Type><BitSize>16</BitSize><Info><MinData>0000</MinData><MaxData>6400</MaxData>\n"
         "  <DefaultData>00FF</DefaultData></Info>",
         {nullptr, nullptr, checkRanges}},
    Rule{"dictionary-default-name",
         Severity::Warning,
         "a default is for a sub-item that the type does not have",
         "A sub-item in the Info of an object has a name that no sub-item of its data type has. Elements of arrays and "
         "sub-index 0, which have names of their own, are no finding.",
         "Defaults and limits are assigned by name. This one belongs to no sub-item, so it is lost, or a tool takes it "
         "for the sub-item at the same place.",
         "Give it the name that the sub-item has in the data type.",
         "<SubItem><Name>Gian</Name><Info><DefaultData>0A00</DefaultData></Info></SubItem>",
         {nullptr, nullptr, checkNames}},
};

} // namespace

RuleFamily dictionaryDefaultRules()
{
    return rules;
}

} // namespace check
