#include "diff/dictionaryParts.h"
#include "diff/words.h"
#include "diff/writtenValues.h"
#include "model/valueTexts.h"

#include <algorithm>
#include <array>
#include <string>
#include <vector>

namespace diff {

namespace {

using facts::DictionaryFacts;
using facts::DictionaryObject;
using facts::InfoSubItem;
using facts::ItemInfo;
using facts::ItemsOf;
using facts::Mapping;
using facts::WrittenValue;

using SizedObject = Sized<DictionaryObject>;

constexpr std::array objectFields{
    Field<SizedObject>{"name", "name", Weight::Text, [](const SizedObject& object) { return text(object.item->name); }},
    Field<SizedObject>{"bitSize", "length in bits", Weight::Breaking,
                       [](const SizedObject& object) { return lengthValue(object.bits); }},
    Field<SizedObject>{"access", "access", Weight::Behaviour,
                       [](const SizedObject& object) { return valueOf(object.item->flags.access); }},
    Field<SizedObject>{"backup", "backup", Weight::Behaviour,
                       [](const SizedObject& object) { return decimal(object.item->flags.backup); }},
    Field<SizedObject>{"setting", "setting", Weight::Behaviour,
                       [](const SizedObject& object) { return decimal(object.item->flags.setting); }},
    Field<SizedObject>{"category", "category", Weight::Text,
                       [](const SizedObject& object) { return text(object.item->flags.category); }},
    Field<SizedObject>{"pdoMapping", "PDO mapping", Weight::Behaviour,
                       [](const SizedObject& object) {
                           const Mapping mapping = object.item->flags.mapping; // that is not told is none
                           return valueOf(mapping == Mapping::Unknown ? Mapping::None : mapping);
                       }},
};

constexpr ReferenceFields typeFields = referenceFields("type", "type");

constexpr std::array subItemFields{
    Field<InfoSubItem>{"name", "name", Weight::Text, [](const InfoSubItem& subItem) { return text(subItem.name); }},
};

/// A default or limit in an `Info`.
struct InfoField
{
    WrittenValue ItemInfo::*member;
    Field<WrittenValue> field;
};

Value valueOfWritten(const WrittenValue& written)
{
    return valueOf(written);
}

constexpr std::array infoFields{
    InfoField{&ItemInfo::initial, {"default", "default", Weight::Behaviour, valueOfWritten}},
    InfoField{&ItemInfo::least, {"minimum", "minimum", Weight::Behaviour, valueOfWritten}},
    InfoField{&ItemInfo::greatest, {"maximum", "maximum", Weight::Behaviour, valueOfWritten}},
};

template<typename SpotOf>
void compareInfos(const ItemInfo& before, const ItemInfo& after, Comparison& out, SpotOf spotOf)
{
    for (const InfoField& row : infoFields)
        if (!areSame(before.*row.member, after.*row.member))
            out.compare(row.field, before.*row.member, after.*row.member, spotOf);
}

SizedObject sized(const DictionaryObject& object, const DictionaryFacts& facts)
{
    return {&object, object.bits.has_value() ? *object.bits : bitsOf(facts, object.type)};
}

/// Sub-items are there for their defaults and limits; a missing one has none.
/// @param partOf  `partOf()` gives the words for the object
template<typename PartOf>
void compareSubItems(const SideItems<DictionaryObject>& objects, DictionarySides& sides, PartOf partOf)
{
    const ItemsOf<InfoSubItem> before = sides.before.content().subItemsOf(*objects.before);
    const ItemsOf<InfoSubItem> after = sides.after.content().subItemsOf(*objects.after);
    for (std::size_t place = 0; place < std::max(before.size(), after.size()); ++place) {
        const SideItems<InfoSubItem> subItems{place < before.size() ? &before[place] : nullptr,
                                              place < after.size() ? &after[place] : nullptr};
        const auto spot = [&] {
            const std::string part = partOf() + ", sub-item " + std::to_string(place);
            return spotOf(Area::Dictionary, named(part, text(subItems.any().name).text), subItems);
        };
        const auto infoOf = [](const InfoSubItem* subItem) { return subItem == nullptr ? ItemInfo{} : subItem->info; };
        if (subItems.areBoth())
            sides.out.compare(subItemFields, *subItems.before, *subItems.after, spot);
        compareInfos(infoOf(subItems.before), infoOf(subItems.after), sides.out, spot);
    }
}

void compareObject(const SideItems<DictionaryObject>& objects, DictionarySides& sides)
{
    const auto part = [&] {
        const DictionaryObject& object = objects.any();
        return named(sides.owner + "object " + numberText(object.index), text(object.name).text);
    };
    const auto spot = [&] { return spotOf(Area::Dictionary, part(), objects); };
    if (isOnOneSide(objects, Weight::Behaviour, Weight::Breaking, sides.out, spot))
        return;
    const DictionaryObject& before = *objects.before;
    const DictionaryObject& after = *objects.after;
    sides.out.compare(objectFields, sized(before, sides.before), sized(after, sides.after), spot);
    compareReferences(typeFields, before.type, after.type, sides, spot);
    compareInfos(before.info, after.info, sides.out, spot);
    compareSubItems(objects, sides, part);
}

} // namespace

void compareObjects(const std::vector<Pair>& pairs, DictionarySides& sides)
{
    for (const Pair& pair : pairs)
        compareObject(itemsOf(pair, sides.before.content().objects, sides.after.content().objects), sides);
}

} // namespace diff
