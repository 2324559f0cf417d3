#include "show/showDictionary.h"

#include "model/dataTypeNames.h"
#include "model/valueTexts.h"

#include <algorithm>
#include <array>

namespace show {

namespace {

struct SignedType
{
    const char* name;
    unsigned bits;
};

/// Data types of numbers with a sign, as far as a default has their bits: it is kept in 32 of them.
constexpr std::array signedTypes{
    SignedType{"SINT", 8},   SignedType{"INT", 16},   SignedType{"DINT", 32},  SignedType{"INT8", 8},
    SignedType{"INT16", 16}, SignedType{"INT24", 24}, SignedType{"INT32", 32},
};

/// The number of a default with its sign; nothing if its type has none, or the number is not of the type.
/// @param defaultType  tells whether the default is a text
std::optional<std::int64_t> signedValue(const std::string& dataType, const std::string& defaultType,
                                        const str_Info& info)
{
    const auto* const type = std::find_if(signedTypes.begin(), signedTypes.end(),
                                          [&](const SignedType& candidate) { return dataType == candidate.name; });
    const auto number = std::int64_t{info.DefaultValue};
    if (type == signedTypes.end() || isStringType(defaultType) || number >> type->bits != 0)
        return std::nullopt;
    const std::int64_t range = std::int64_t{1} << type->bits;
    return number < range / 2 ? number : number - range;
}

std::string accessOf(NMTOKEN access)
{
    return tokenText(access).toStdString();
}

} // namespace

DictionaryRowList::DictionaryRowList(const std::vector<struct_DataTypes>& dataTypes,
                                     const std::vector<struct_Object>& objects)
    : m_index(dataTypes, objects)
{
    DictionaryScanner scanner(m_index);
    for (const struct_Object& object : objects) {
        const DictionaryRows found = scanner.scan(object.Type);
        m_places.push_back({&object, {found.countedType, found.count, 0}, true});
        for (const DictionaryRow& row : found.rows)
            m_places.push_back({&object, row, false});
    }
}

ShownDictionaryRow DictionaryRowList::row(std::size_t number)
{
    const Place& place = m_places.at(number);
    return place.isObject ? objectRow(place) : rowUnder(place);
}

ShownDictionaryRow DictionaryRowList::objectRow(const Place& place)
{
    const struct_Object& object = *place.object;
    const DataTypeSubItem* const count = place.under.subItem;
    const std::string dataType = isStructuredType(object.Type) ? std::string() : object.Type;
    const std::string& defaultType = count != nullptr ? count->Type : object.Type;
    const str_Info& info = count != nullptr ? m_texts.infoOf(*place.under.dataType, *count) : object.Info;
    return {object.index,
            0,
            object.Name,
            accessOf(object.flags.Access),
            object.BitSize,
            dataType,
            valueText(defaultType, info).toStdString(),
            signedValue(dataType, defaultType, info)};
}

ShownDictionaryRow DictionaryRowList::rowUnder(const Place& place)
{
    const struct_Object& object = *place.object;
    if (place.under.subItem == nullptr)
        return elementRow(object, place.under);
    const DataTypeSubItem& subItem = *place.under.subItem;
    const str_Info& info = m_texts.infoOf(*place.under.dataType, subItem);
    return {object.index,
            subItem.SubIdx,
            subItem.Name,
            accessOf(subItem.flag.Access),
            subItem.BitSize,
            subItem.Type,
            valueText(subItem.Type, info).toStdString(),
            signedValue(subItem.Type, subItem.Type, info)};
}

ShownDictionaryRow DictionaryRowList::elementRow(const struct_Object& object, const DictionaryRow& element) const
{
    const std::string& baseType = element.dataType->BaseType;
    return {object.index,
            element.element,
            elementName(QString::number(element.element)).toStdString(),
            accessOf(object.flags.Access),
            m_index.sizeOfDataType(baseType),
            baseType,
            {},
            std::nullopt};
}

} // namespace show
