// dictionaryBuilders.h - records of a CoE dictionary, as the tests need them.
#pragma once

#include "model/dictionaryRecords.h"

#include <cstdint>
#include <string>
#include <vector>

/// A sub-item of a record, readable and writable, of 16 bits.
inline DataTypeSubItem subItem(std::uint32_t subIndex, const std::string& type, const std::string& name = "item")
{
    DataTypeSubItem item;
    item.SubIdx = subIndex;
    item.Name = name;
    item.Type = type;
    item.BitSize = 16;
    item.flag.Access = rw;
    return item;
}

/// A record.
inline struct_DataTypes record(const std::string& name, const std::vector<DataTypeSubItem>& subItems)
{
    struct_DataTypes dataType;
    dataType.Name = name;
    dataType.vsubitem = subItems;
    return dataType;
}

/// A data type of a size, such as the one that an array rests on.
inline struct_DataTypes sized(const std::string& name, int bitSize)
{
    struct_DataTypes dataType;
    dataType.Name = name;
    dataType.BitSize = bitSize;
    return dataType;
}

/// An array.
inline struct_DataTypes array(const std::string& name, int lowerBound, int elements,
                              const std::string& baseType = "UINT")
{
    struct_DataTypes dataType;
    dataType.Name = name;
    dataType.BaseType = baseType;
    dataType.varrayinfo.push_back({lowerBound, elements});
    return dataType;
}

/// An object without sub-items, read-only, of 32 bits.
inline struct_Object object(std::uint16_t index, const std::string& type, const std::string& name = "object")
{
    struct_Object made;
    made.index = index;
    made.Name = name;
    made.Type = type;
    made.BitSize = 32;
    made.flags.Access = ro;
    return made;
}

/// An object with a sub-item for each of the numbers, which is its default. The default as a text is "text <number>".
inline struct_Object objectWithDefaults(std::uint16_t index, const std::string& type,
                                        const std::vector<std::uint32_t>& defaults)
{
    struct_Object made = object(index, type);
    for (const std::uint32_t number : defaults) {
        made.Info.vsubitem.emplace_back();
        made.Info.vsubitem.back().Info.Info.DefaultValue = number;
        made.Info.vsubitem.back().Info.Info.DefaultString = "text " + std::to_string(number);
    }
    return made;
}
