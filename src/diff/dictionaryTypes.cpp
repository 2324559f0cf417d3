#include "diff/dictionaryParts.h"
#include "diff/words.h"

#include <array>
#include <string>
#include <utility>
#include <vector>

namespace diff {

namespace {

using facts::DataType;
using facts::DictionaryFacts;
using facts::EnumItem;
using facts::ItemsOf;
using facts::TypeName;
using facts::TypeSubItem;

using SizedSubItem = Sized<TypeSubItem>;
using SizedType = Sized<DataType>;

constexpr std::array typeFields{
    Field<SizedType>{"name", "name", Weight::Text, [](const SizedType& type) { return text(type.item->name); }},
    Field<SizedType>{"bitSize", "length in bits", Weight::Breaking,
                     [](const SizedType& type) { return lengthValue(type.bits); }},
    Field<SizedType>{
        "lowerBound", "first element", Weight::Breaking,
        [](const SizedType& type) { return type.item->isArray() ? decimal(type.item->bounds.lower) : noValue(); }},
    Field<SizedType>{
        "elements", "number of elements", Weight::Breaking,
        [](const SizedType& type) {
            return type.item->isArray() ? Value{std::to_string(type.item->elements), ValueKind::Number} : noValue();
        }},
    Field<SizedType>{
        "dimensions", "dimensions", Weight::Breaking,
        [](const SizedType& type) { return type.item->dimensions > 1 ? decimal(type.item->dimensions) : noValue(); }},
};

constexpr ReferenceFields baseTypeFields = referenceFields("baseType", "base type");

constexpr std::array subItemFields{
    Field<SizedSubItem>{"name", "name", Weight::Text,
                        [](const SizedSubItem& subItem) { return text(subItem.item->name); }},
    Field<SizedSubItem>{"bitSize", "length in bits", Weight::Breaking,
                        [](const SizedSubItem& subItem) { return lengthValue(subItem.bits); }},
    Field<SizedSubItem>{"bitOffset", "offset in bits", Weight::Breaking,
                        [](const SizedSubItem& subItem) { return decimal(subItem.item->offset.value_or(0)); }},
    Field<SizedSubItem>{"access", "access", Weight::Behaviour,
                        [](const SizedSubItem& subItem) { return valueOf(subItem.item->flags.access); }},
    Field<SizedSubItem>{"backup", "backup", Weight::Behaviour,
                        [](const SizedSubItem& subItem) { return decimal(subItem.item->flags.backup); }},
    Field<SizedSubItem>{"setting", "setting", Weight::Behaviour,
                        [](const SizedSubItem& subItem) { return decimal(subItem.item->flags.setting); }},
    Field<SizedSubItem>{"category", "category", Weight::Text,
                        [](const SizedSubItem& subItem) { return text(subItem.item->flags.category); }},
    Field<SizedSubItem>{"pdoMapping", "PDO mapping", Weight::Behaviour,
                        [](const SizedSubItem& subItem) { return valueOf(subItem.item->flags.mapping); }},
};

constexpr ReferenceFields subItemTypeFields = referenceFields("type", "type");

constexpr std::array enumFields{
    Field<EnumItem>{"name", "name", Weight::Text, [](const EnumItem& item) { return text(item.name); }},
};

/// Data types that belong together, in what they are for.
struct TypePair
{
    Pair places; ///< in the lists of data types
    SideItems<DataType> types;
    const std::string* owner; ///< words before those for it
    Weight most; ///< what is different in it weighs no more than that
};

std::string partOf(const TypePair& pair)
{
    return named(*pair.owner + "data type", text(pair.types.any().name).text);
}

template<typename Item> Spot spotIn(const TypePair& pair, std::string part, const SideItems<Item>& items)
{
    Spot spot = spotOf(Area::Dictionary, std::move(part), items);
    spot.most = pair.most;
    return spot;
}

SizedSubItem sized(const TypeSubItem& subItem, const DictionaryFacts& facts)
{
    return {&subItem, subItem.bits.has_value() ? *subItem.bits : bitsOf(facts, subItem.type)};
}

void compareTypeSubItem(const TypePair& pair, const SideItems<TypeSubItem>& subItems, DictionarySides& sides)
{
    const auto spot = [&] {
        const TypeSubItem& subItem = subItems.any();
        const std::string number = subItem.subIndex.has_value() ? " " + std::to_string(*subItem.subIndex) : "";
        return spotIn(pair, named(partOf(pair) + ", sub-item" + number, text(subItem.name).text), subItems);
    };
    if (isOnOneSide(subItems, Weight::Behaviour, Weight::Breaking, sides.out, spot))
        return;
    const TypeSubItem& before = *subItems.before;
    const TypeSubItem& after = *subItems.after;
    sides.out.compare(subItemFields, sized(before, sides.before), sized(after, sides.after), spot);
    compareReferences(subItemTypeFields, before.type, after.type, sides, spot);
}

void compareTypeSubItems(const TypePair& pair, DictionarySides& sides)
{
    const DataType& before = *pair.types.before;
    const DataType& after = *pair.types.after;
    const ItemsOf<TypeSubItem> oldSubItems = sides.before.content().subItemsOf(before);
    const ItemsOf<TypeSubItem> newSubItems = sides.after.content().subItemsOf(after);
    for (const Pair& subItems : pairsByKey(subIndexesOf(sides.before, before), subIndexesOf(sides.after, after)))
        compareTypeSubItem(pair, itemsOf(subItems, oldSubItems, newSubItems), sides);
}

std::vector<std::uint32_t> valuesOf(const ItemsOf<EnumItem>& items)
{
    std::vector<std::uint32_t> values;
    for (const EnumItem& item : items)
        values.push_back(item.value);
    return values;
}

void compareEnumerations(const TypePair& pair, DictionarySides& sides)
{
    const ItemsOf<EnumItem> before = sides.before.content().enumItemsOf(*pair.types.before);
    const ItemsOf<EnumItem> after = sides.after.content().enumItemsOf(*pair.types.after);
    for (const Pair& place : pairsByKey(valuesOf(before), valuesOf(after))) {
        const SideItems<EnumItem> items = itemsOf(place, before, after);
        const auto spot = [&] {
            const EnumItem& item = items.any();
            const std::string part = partOf(pair) + ", value " + std::to_string(item.value);
            return spotIn(pair, named(part, text(item.name).text), items);
        };
        if (!isOnOneSide(items, Weight::Text, Weight::Text, sides.out, spot))
            sides.out.compare(enumFields, *items.before, *items.after, spot);
    }
}

/// A reference to a data type by its place.
TypeName referenceTo(const DataType& type, std::size_t place)
{
    return {type.name, static_cast<std::uint32_t>(place)};
}

void compareType(const TypePair& pair, DictionarySides& sides)
{
    const DataType& before = *pair.types.before;
    const DataType& after = *pair.types.after;
    const TypeName oldType = referenceTo(before, *pair.places.before);
    const TypeName newType = referenceTo(after, *pair.places.after);
    const auto spot = [&] { return spotIn(pair, partOf(pair), pair.types); };
    sides.out.compare(typeFields, SizedType{&before, bitsOf(sides.before, oldType)},
                      SizedType{&after, bitsOf(sides.after, newType)}, spot);
    // A base type can be just another way to say what a simple data type is.
    const bool hasParts = before.isArray() || before.isRecord() || after.isArray() || after.isRecord();
    if (hasParts || !sides.types.meanTheSame(oldType, newType))
        compareReferences(baseTypeFields, before.base, after.base, sides, spot);
    compareTypeSubItems(pair, sides);
    compareEnumerations(pair, sides);
}

} // namespace

void compareTypes(DictionarySides& sides)
{
    for (const Pair& places : sides.types.pairs()) {
        const TypePair pair{places, itemsOf(places, sides.before.content().types, sides.after.content().types),
                            &sides.owner, sides.types.isUsed(places) ? Weight::Breaking : Weight::Text};
        const auto spot = [&] { return spotIn(pair, partOf(pair), pair.types); };
        // Objects keep their meaning, or the difference is theirs.
        if (!isOnOneSide(pair.types, Weight::Text, Weight::Text, sides.out, spot))
            compareType(pair, sides);
    }
}

} // namespace diff
