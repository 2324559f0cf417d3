// dictionarySections.cpp - data types and objects of a CoE dictionary, of a device or of a module.
#include "esi/fieldRules.h"
#include "esi/sections/sectionReaders.h"
#include "esi/storeField.h"
#include "model/dataTypeNames.h"

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace {

/// Appends a cleared record to `list` and reads the children of `element` into it.
template<typename Record, std::size_t Count>
void appendRecord(std::vector<Record>& list, const xml::Element& element,
                  const std::array<ElementRule<Record>, Count>& rules)
{
    readChildren(element, rules, list.emplace_back());
}

// ---- Flags, of a data type's sub-item or of an object ----

// No attribute counts in a dictionary: an access right that `Access` restricts to some states is read as the plain one.
template<typename Flags>
const std::array flagRules{
    child("Access", storeToken<&Flags::Access>),
    child("Category", storeToken<&Flags::Category>),
    child("Backup", storeUint<&Flags::Backup>),
    child("Setting", storeUint<&Flags::Setting>),
};

template<auto Field> void readFlags(RecordOf<Field>& to, const xml::Element& element)
{
    readChildren(element, flagRules<FieldType<Field>>, to.*Field);
}

// ---- Data types ----

const std::array typeSubItemRules{
    child("SubIdx", storeUint<&DataTypeSubItem::SubIdx>), // sub-index
    child("Name", storeText<&DataTypeSubItem::Name>),
    child("Type", storeText<&DataTypeSubItem::Type>), // name of a data type
    child("BitSize", storeUint<&DataTypeSubItem::BitSize>),
    child("BitOffs", storeUint<&DataTypeSubItem::BitOffs>), // from the start of the record
    child("Flags", readFlags<&DataTypeSubItem::flag>),
};

const std::array arrayInfoRules{
    child("LBound", storeUint<&ArrayInfo::LBound>),
    child("Elements", storeUint<&ArrayInfo::Elements>),
};

const std::array enumInfoRules{
    child("Name", storeText<&EnumInfo::Name>),
    child("Comment", storeText<&EnumInfo::Comment>),
    child("Enum", storeUint<&EnumInfo::Enum>),
};

void appendTypeSubItem(struct_DataTypes& to, const xml::Element& element)
{
    appendRecord(to.vsubitem, element, typeSubItemRules);
}

void appendArrayInfo(struct_DataTypes& to, const xml::Element& element)
{
    appendRecord(to.varrayinfo, element, arrayInfoRules);
}

void appendEnumInfo(struct_DataTypes& to, const xml::Element& element)
{
    appendRecord(to.venuminfo, element, enumInfoRules);
}

const std::array dataTypeRules{
    child("Name", storeText<&struct_DataTypes::Name>),
    child("BaseType", storeText<&struct_DataTypes::BaseType>),
    child("BitSize", storeUint<&struct_DataTypes::BitSize>),
    child("SubItem", appendTypeSubItem),
    child("ArrayInfo", appendArrayInfo),
    child("EnumInfo", appendEnumInfo),
};

// ---- Objects ----

/// Default of an object or of one of its sub-items.
/// ODD, KEPT: the type of the object decides, as far as read, where one would expect a sub-item's own. So a string in a
/// record is a number, and so is a default before the type of its object. Pinned by tst_Objects::defaultData and
/// tst_Objects::subItemDefault.
/// @param typeOfObject  as read so far
void storeDefault(struct_ObjectInfo& to, std::string_view value, const std::string& typeOfObject)
{
    if (isStringType(typeOfObject))
        to.DefaultString = value;
    else
        to.DefaultValue = toUintFromBytes(value);
}

/// A sub-item of an object while its element is read.
struct SubItemBeingRead
{
    struct_Subitem& subItem;
    const std::string& typeOfObject;
};

void storeSubItemDefault(SubItemBeingRead& to, std::string_view value)
{
    storeDefault(to.subItem.Info.Info, value, to.typeOfObject);
}

template<auto Limit> void storeLimit(SubItemBeingRead& to, std::string_view value)
{
    storeUint<Limit>(to.subItem.Info.Info, value);
}

// ODD, KEPT: limits are plain numbers, while the default beside them has its bytes swapped. One would expect one form
// for all three. Pinned by tst_Objects::limits.
// Sub-items do not nest: there is no row for a sub-item in a sub-item (tst_Objects::nestedSubItem).
const std::array subItemInfoRules{
    child("DefaultData", storeSubItemDefault),
    child("MinData", storeLimit<&struct_ObjectInfo::MinData>),
    child("MaxData", storeLimit<&struct_ObjectInfo::MaxData>),
};

void readSubItemInfo(SubItemBeingRead& to, const xml::Element& element)
{
    readChildren(element, subItemInfoRules, to);
}

void storeSubItemName(SubItemBeingRead& to, std::string_view value)
{
    storeText<&struct_Subitem::Name>(to.subItem, value);
}

const std::array subItemRules{
    child("Name", storeSubItemName),
    child("Info", readSubItemInfo),
};

void appendSubItem(struct_Object& object, const xml::Element& element)
{
    SubItemBeingRead reading{object.Info.vsubitem.emplace_back(), object.Type};
    readChildren(element, subItemRules, reading);
}

void storeObjectDefault(struct_Object& object, std::string_view value)
{
    storeDefault(object.Info, value, object.Type);
}

// ODD, KEPT: the limits of an object itself are not read, only those of its sub-items, where one would expect both.
// They are written and shown all the same, as 0. Pinned by tst_Objects::limitsOfTheObject.
const std::array objectInfoRules{
    child("SubItem", appendSubItem),
    child("DefaultData", storeObjectDefault),
};

void readObjectInfo(struct_Object& object, const xml::Element& element)
{
    readChildren(element, objectInfoRules, object);
}

const std::array objectRules{
    child("Index", storeUint<&struct_Object::index>),
    child("Name", storeText<&struct_Object::Name>),
    child("Type", storeText<&struct_Object::Type>), // decides how the defaults after it are read
    child("BitSize", storeUint<&struct_Object::BitSize>),
    child("Comment", storeText<&struct_Object::Comment>),
    child("Info", readObjectInfo),
    child("Flags", readFlags<&struct_Object::flags>),
};

} // namespace

void readDataTypes(std::vector<struct_DataTypes>& dataTypes, const xml::Element& element)
{
    xml::forEachChildElement(element, [&](const xml::Element& child) { // any name counts
        appendRecord(dataTypes, child, dataTypeRules);
    });
}

void readObjects(std::vector<struct_Object>& objects, const xml::Element& element)
{
    xml::forEachChildElement(element, [&](const xml::Element& child) { // any name counts
        appendRecord(objects, child, objectRules);
    });
}
