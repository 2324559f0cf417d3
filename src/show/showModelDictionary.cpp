#include "show/showModelDictionary.h"

#include "show/showDictionary.h"
#include "show/showWords.h"

#include <memory>

namespace show {

namespace {

Object arrayMembers(const ArrayInfo& array)
{
    return {{"lowerBound", decimal(array.LBound)}, {"elements", decimal(array.Elements)}};
}

Object enumMembers(const EnumInfo& value)
{
    return {{"name", text(value.Name)}, {"value", decimal(value.Enum)}, {"comment", text(value.Comment)}};
}

Object subItemMembers(const DataTypeSubItem& subItem)
{
    return {{"subIndex", decimal(subItem.SubIdx)},
            {"name", text(subItem.Name)},
            {"type", text(subItem.Type)},
            {"bitSize", decimal(subItem.BitSize)},
            {"bitOffset", decimal(subItem.BitOffs)},
            {"access", text(tokenName(subItem.flag.Access))},
            {"category", text(tokenName(subItem.flag.Category))},
            {"backup", decimal(subItem.flag.Backup)},
            {"setting", decimal(subItem.flag.Setting)}};
}

Object dataTypeMembers(const struct_DataTypes& dataType)
{
    return {{"name", text(dataType.Name)},
            {"bitSize", decimal(dataType.BitSize)},
            {"baseType", text(dataType.BaseType)},
            {"index", hexadecimal(dataType.index)},
            {"arrays", listOf(dataType.varrayinfo, arrayMembers)},
            {"subItems", listOf(dataType.vsubitem, subItemMembers)},
            {"enumeration", listOf(dataType.venuminfo, enumMembers)}};
}

Object objectSubItemMembers(const struct_Subitem& subItem)
{
    const struct_ObjectInfo& info = subItem.Info.Info;
    return {{"name", text(subItem.Name)},
            {"defaultText", text(info.DefaultString)},
            {"defaultValue", decimal(info.DefaultValue)},
            {"minimum", decimal(info.MinData)},
            {"maximum", decimal(info.MaxData)}};
}

Object objectMembers(const struct_Object& object)
{
    const ObjectFlags& flags = object.flags;
    return {{"index", hexadecimal(object.index)},
            {"name", text(object.Name)},
            {"comment", text(object.Comment)},
            {"type", text(object.Type)},
            {"bitSize", decimal(object.BitSize)},
            {"access", text(tokenName(flags.Access))},
            {"category", text(tokenName(flags.Category))},
            {"pdoMapping", text(tokenName(flags.PdoMapping))},
            {"safetyMapping", text(tokenName(flags.SafetyMapping))},
            {"sdoAccess", text(tokenName(flags.SdoAccess))},
            {"backup", decimal(flags.Backup)},
            {"setting", decimal(flags.Setting)},
            {"defaultText", text(object.Info.DefaultString)},
            {"defaultValue", decimal(object.Info.DefaultValue)},
            {"minimum", decimal(object.Info.MinData)},
            {"maximum", decimal(object.Info.MaxData)},
            {"subItems", listOf(object.Info.vsubitem, objectSubItemMembers)}};
}

Object rowMembers(const ShownDictionaryRow& row, Detail detail)
{
    const bool isForPeople = detail == Detail::ForPeople;
    const bool hasOwnForm = isForPeople && row.signedValue.has_value();
    Object members{{"index", hexadecimal(row.index)},
                   {"subIndex", decimal(row.subIndex)},
                   {"name", text(row.name)},
                   {"access", text(row.access)},
                   {"bitSize", decimal(row.bitSize)},
                   {"type", text(row.dataType)},
                   {"value", hasOwnForm ? optionalNumber(row.signedValue) : text(row.value)}};
    if (!isForPeople)
        members.push_back({"signedValue", optionalNumber(row.signedValue)});
    return members;
}

} // namespace

Object dictionaryMembers(const std::vector<struct_DataTypes>& dataTypes, const std::vector<struct_Object>& objects,
                         Detail detail)
{
    const auto rows = std::make_shared<DictionaryRowList>(dataTypes, objects);
    const auto rowAt = [rows, detail](std::size_t number) -> Value { return {rowMembers(rows->row(number), detail)}; };
    Object members{{"rows", {List{rows->size(), rowAt}}}};
    if (detail == Detail::Everything) {
        members.push_back({"dataTypes", listOf(dataTypes, dataTypeMembers)});
        members.push_back({"objects", listOf(objects, objectMembers)});
    }
    return members;
}

} // namespace show
