#include "facts/dictionary/dictionaryContent.h"

#include "esi/xml/treeIteration.h"
#include "model/valueTexts.h"

#include <array>
#include <limits>

namespace facts {

namespace {

/// The text of an element, which the content keeps if it is not that of a single node.
std::string_view textOf(DictionaryContent& content, const xml::Element& element)
{
    const auto nodes = element.children();
    auto node = nodes.begin();
    if (node == nodes.end())
        return ""; // unlike a missing element, an empty one has a text
    const xml::Node first = *node;
    if (++node == nodes.end() && first.isText())
        return first.characters();
    return content.texts.emplace_back(element.text().toString());
}

/// One row of a table of child elements.
template<typename Record> struct ChildRow
{
    std::string_view name;
    void (*read)(DictionaryContent& content, const xml::Element& element, Record& to);
};

/// Reads the children that the table names, the later of two.
template<typename Record, std::size_t Count>
void readChildren(DictionaryContent& content, const xml::Element& parent,
                  const std::array<ChildRow<Record>, Count>& rows, Record& to)
{
    xml::forEachChildElement(parent, [&](const xml::Element& child) {
        const std::string_view name = child.name();
        for (const ChildRow<Record>& row : rows)
            if (name == row.name) {
                row.read(content, child, to);
                return;
            }
    });
}

template<typename Record, std::string_view Record::*Field>
void readText(DictionaryContent& content, const xml::Element& element, Record& to)
{
    to.*Field = textOf(content, element);
}

template<typename Record, TypeName Record::*Field>
void readTypeName(DictionaryContent& content, const xml::Element& element, Record& to)
{
    (to.*Field).name = textOf(content, element);
}

template<typename Record, auto Field>
void readNumber(DictionaryContent& content, const xml::Element& element, Record& to)
{
    to.*Field = toUint(textOf(content, element));
}

// ---- Flags ----

void readAccess(DictionaryContent& content, const xml::Element& element, AccessFlags& to)
{
    switch (toToken(textOf(content, element))) {
    case ro:
        to.access = Access::ReadOnly;
        break;
    case rw:
        to.access = Access::ReadWrite;
        break;
    case wo:
        to.access = Access::WriteOnly;
        break;
    default:
        to.access = Access::Unknown;
    }
}

Mapping mappingNamed(std::string_view name)
{
    if (name.empty())
        return Mapping::None;
    bool isOutput = false;
    bool isInput = false;
    for (const char letter : name) {
        isOutput = isOutput || letter == 'R' || letter == 'r';
        isInput = isInput || letter == 'T' || letter == 't';
    }
    if (name.size() > 2 || isOutput == isInput)
        return isOutput && name.size() == 2 ? Mapping::Both : Mapping::Unknown;
    return isOutput ? Mapping::Outputs : Mapping::Inputs;
}

void readMapping(DictionaryContent& content, const xml::Element& element, AccessFlags& to)
{
    content.tellsMapping = true;
    to.mapping = mappingNamed(textOf(content, element));
}

constexpr std::array flagRows{
    ChildRow<AccessFlags>{"Access", readAccess},
    ChildRow<AccessFlags>{"PdoMapping", readMapping},
    ChildRow<AccessFlags>{"Backup", readNumber<AccessFlags, &AccessFlags::backup>},
    ChildRow<AccessFlags>{"Setting", readNumber<AccessFlags, &AccessFlags::setting>},
    ChildRow<AccessFlags>{"Category", readText<AccessFlags, &AccessFlags::category>},
};

template<typename Record> void readFlags(DictionaryContent& content, const xml::Element& element, Record& to)
{
    readChildren(content, element, flagRows, to.flags);
}

// ---- Data types ----

constexpr std::array subItemRows{
    ChildRow<TypeSubItem>{"SubIdx", readNumber<TypeSubItem, &TypeSubItem::subIndex>},
    ChildRow<TypeSubItem>{"Name", readText<TypeSubItem, &TypeSubItem::name>},
    ChildRow<TypeSubItem>{"Type", readTypeName<TypeSubItem, &TypeSubItem::type>},
    ChildRow<TypeSubItem>{"BitSize", readNumber<TypeSubItem, &TypeSubItem::bits>},
    ChildRow<TypeSubItem>{"BitOffs", readNumber<TypeSubItem, &TypeSubItem::offset>},
    ChildRow<TypeSubItem>{"Flags", readFlags<TypeSubItem>},
};

constexpr std::array enumRows{
    ChildRow<EnumItem>{"Name", readText<EnumItem, &EnumItem::name>},
    ChildRow<EnumItem>{"Text", readText<EnumItem, &EnumItem::name>},
    ChildRow<EnumItem>{"Enum", readNumber<EnumItem, &EnumItem::value>},
};

constexpr std::array boundsRows{
    ChildRow<ArrayBounds>{"LBound", readNumber<ArrayBounds, &ArrayBounds::lower>},
    ChildRow<ArrayBounds>{"Elements", readNumber<ArrayBounds, &ArrayBounds::elements>},
};

void readSubItem(DictionaryContent& content, const xml::Element& element, DataType& to)
{
    TypeSubItem subItem;
    subItem.where = element.placeKey();
    readChildren(content, element, subItemRows, subItem);
    content.typeSubItems.push_back(subItem);
    ++to.subItems.count;
}

void readEnumItem(DictionaryContent& content, const xml::Element& element, DataType& to)
{
    EnumItem item;
    item.where = element.placeKey();
    readChildren(content, element, enumRows, item);
    content.enumItems.push_back(item);
    ++to.enumItems.count;
}

void readBounds(DictionaryContent& content, const xml::Element& element, DataType& to)
{
    ArrayBounds bounds;
    readChildren(content, element, boundsRows, bounds);
    if (to.dimensions == 0) {
        to.bounds = bounds;
        to.elements = bounds.elements;
    } else {
        constexpr std::uint64_t most = std::numeric_limits<std::uint64_t>::max();
        const bool isTooMuch = bounds.elements > 0 && to.elements > most / bounds.elements;
        to.elements = isTooMuch ? most : to.elements * bounds.elements;
    }
    ++to.dimensions;
}

constexpr std::array typeRows{
    ChildRow<DataType>{"SubItem", readSubItem},
    ChildRow<DataType>{"Name", readText<DataType, &DataType::name>},
    ChildRow<DataType>{"BaseType", readTypeName<DataType, &DataType::base>},
    ChildRow<DataType>{"BitSize", readNumber<DataType, &DataType::bits>},
    ChildRow<DataType>{"ArrayInfo", readBounds},
    ChildRow<DataType>{"EnumInfo", readEnumItem},
};

void readType(DictionaryContent& content, const xml::Element& element)
{
    DataType type;
    type.where = element.placeKey();
    type.subItems.first = static_cast<std::uint32_t>(content.typeSubItems.size());
    type.enumItems.first = static_cast<std::uint32_t>(content.enumItems.size());
    readChildren(content, element, typeRows, type);
    content.types.push_back(type);
}

// ---- Objects ----

template<typename Record, WrittenValue ItemInfo::*Field, ValueForm Form>
void readValue(DictionaryContent& content, const xml::Element& element, Record& to)
{
    to.info.*Field = {textOf(content, element), element.placeKey(), Form};
}

template<typename Record>
constexpr std::array valueRows{
    ChildRow<Record>{"DefaultData", readValue<Record, &ItemInfo::initial, ValueForm::Data>},
    ChildRow<Record>{"MinData", readValue<Record, &ItemInfo::least, ValueForm::Data>},
    ChildRow<Record>{"MaxData", readValue<Record, &ItemInfo::greatest, ValueForm::Data>},
    ChildRow<Record>{"DefaultValue", readValue<Record, &ItemInfo::initial, ValueForm::Number>},
    ChildRow<Record>{"MinValue", readValue<Record, &ItemInfo::least, ValueForm::Number>},
    ChildRow<Record>{"MaxValue", readValue<Record, &ItemInfo::greatest, ValueForm::Number>},
    ChildRow<Record>{"DefaultString", readValue<Record, &ItemInfo::initial, ValueForm::Text>},
};

void readSubItemInfo(DictionaryContent& content, const xml::Element& element, InfoSubItem& to)
{
    readChildren(content, element, valueRows<InfoSubItem>, to);
}

constexpr std::array infoSubItemRows{
    ChildRow<InfoSubItem>{"Name", readText<InfoSubItem, &InfoSubItem::name>},
    ChildRow<InfoSubItem>{"Info", readSubItemInfo},
};

void readInfo(DictionaryContent& content, const xml::Element& element, DictionaryObject& to)
{
    readChildren(content, element, valueRows<DictionaryObject>, to);
    xml::forEachChildElement(element, "SubItem", [&](const xml::Element& child) {
        InfoSubItem subItem;
        subItem.where = child.placeKey();
        readChildren(content, child, infoSubItemRows, subItem);
        content.infoSubItems.push_back(subItem);
        ++to.subItems.count;
    });
}

void readIndex(DictionaryContent& content, const xml::Element& element, DictionaryObject& to)
{
    to.index = static_cast<std::uint16_t>(toUint(textOf(content, element)));
}

constexpr std::array objectRows{
    ChildRow<DictionaryObject>{"Index", readIndex},
    ChildRow<DictionaryObject>{"Name", readText<DictionaryObject, &DictionaryObject::name>},
    ChildRow<DictionaryObject>{"Type", readTypeName<DictionaryObject, &DictionaryObject::type>},
    ChildRow<DictionaryObject>{"BitSize", readNumber<DictionaryObject, &DictionaryObject::bits>},
    ChildRow<DictionaryObject>{"Info", readInfo},
    ChildRow<DictionaryObject>{"Flags", readFlags<DictionaryObject>},
};

void readObject(DictionaryContent& content, const xml::Element& element)
{
    DictionaryObject object;
    object.where = element.placeKey();
    object.subItems.first = static_cast<std::uint32_t>(content.infoSubItems.size());
    readChildren(content, element, objectRows, object);
    content.objects.push_back(object);
}

} // namespace

DictionaryContent dictionaryContentOf(const std::vector<xml::Element>& dictionaries)
{
    DictionaryContent content;
    for (const xml::Element& dictionary : dictionaries) {
        xml::forEachChildElement(dictionary, "DataTypes", [&](const xml::Element& types) { // any name counts in it
            xml::forEachChildElement(types, [&](const xml::Element& type) { readType(content, type); });
        });
        xml::forEachChildElement(dictionary, "Objects", [&](const xml::Element& objects) { // any name counts in it
            xml::forEachChildElement(objects, [&](const xml::Element& object) { readObject(content, object); });
        });
    }
    return content;
}

} // namespace facts
