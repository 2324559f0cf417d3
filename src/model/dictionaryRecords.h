// dictionaryRecords.h - data types and objects of a CoE dictionary, of a device or of a module.
#pragma once

#include "model/nmtoken.h"

#include <cstdint>
#include <string>
#include <vector>

/// Bounds of an array data type.
struct ArrayInfo
{
    int LBound = 0; ///< first sub-index
    int Elements = 0; ///< number of elements
};

/// One named value of an enumeration data type.
struct EnumInfo
{
    std::string Name;
    int Enum = 0; ///< the value
    std::string Comment;
};

/// Flags of a data type's sub-item.
struct DataTypeFlags
{
    NMTOKEN Access = UnknownType;
    NMTOKEN Category = UnknownType;
    int Backup = 0;
    int Setting = 0;
};

/// One sub-item of a record data type.
struct DataTypeSubItem
{
    std::uint32_t SubIdx = 0; ///< sub-index
    std::string Name;
    std::string Type; ///< name of a data type
    int BitSize = 0; ///< length in bits
    int BitOffs = 0; ///< place in the record, in bits
    DataTypeFlags flag;
};

/// One data type of a dictionary.
struct struct_DataTypes
{
    std::string Name;
    int BitSize = 0; ///< length in bits
    std::uint16_t index = 0; ///< not read from ESI
    std::string BaseType; ///< name of the data type that an array or enumeration rests on
    std::vector<ArrayInfo> varrayinfo;
    std::vector<DataTypeSubItem> vsubitem;
    std::vector<EnumInfo> venuminfo;
};
using str_DataTypes = struct_DataTypes;

struct struct_Subitem;

/// Default data, limits and sub-items of an object or of a sub-item.
struct struct_ObjectInfo
{
    std::string DefaultString; ///< default of an object whose type is a string
    std::uint32_t DefaultValue = 0; ///< default of any other object
    std::uint32_t MinData = 0; ///< read for sub-items only
    std::uint32_t MaxData = 0; ///< read for sub-items only
    std::vector<struct_Subitem> vsubitem; ///< used at the object level only
};
using str_Info = struct_ObjectInfo;

/// The block `Info` of a sub-item, reached as `Info.Info`.
struct SubitemInfo
{
    struct_ObjectInfo Info;
};

/// One sub-item of an object.
struct struct_Subitem
{
    std::string Name;
    SubitemInfo Info;
};
using str_ObjectSubitem = struct_Subitem;

/// Flags of an object.
struct ObjectFlags
{
    NMTOKEN Access = UnknownType;
    NMTOKEN Category = UnknownType;
    NMTOKEN PdoMapping = UnknownType; ///< not read from ESI
    NMTOKEN SafetyMapping = UnknownType; ///< not read from ESI
    NMTOKEN SdoAccess = UnknownType; ///< not read from ESI
    int Backup = 0;
    int Setting = 0;
};

/// One object of a dictionary.
struct struct_Object
{
    std::uint16_t index = 0; ///< object index
    std::string Name;
    std::string Comment;
    std::string Type; ///< name of its data type
    int BitSize = 0; ///< length in bits
    ObjectFlags flags;
    struct_ObjectInfo Info;
};
using str_Object = struct_Object;

// Compiled once, in recordLists.cpp.
extern template class std::vector<ArrayInfo>;
extern template class std::vector<EnumInfo>;
extern template class std::vector<DataTypeSubItem>;
extern template class std::vector<struct_DataTypes>;
extern template class std::vector<struct_Subitem>;
extern template class std::vector<struct_Object>;
