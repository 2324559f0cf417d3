// schemaRowsDictionary.cpp - rows of the schema: profiles with their dictionary and diagnosis messages.
#include "check/schema/schemaRows.h"

#include <array>

namespace check {

namespace {

// clang-format off
constexpr std::array rows{
    SchemaRow{"DeviceProfile", "",
              "ProfileNo:u32 AddInfo:number SubAddInfo:number ( ChannelCount:number | ChannelInfo:ChannelInfo* ) ( "
              "DictionaryFile:dictionaryFile | Dictionary:Dictionary ) ( DiagFile* | DiagMessages:DiagMessages ) "
              "VendorSpecific:Anything",
              "Channel:number"},
    SchemaRow{"DiagMessages", "",
              "DiagReset:EnumInfo* DiagReaction:EnumInfo* DiagType:EnumInfo* DiagMessage:DiagMessage*",
              ""},
    SchemaRow{"DiagMessage", "",
              "TextId:number MessageText:Text* Description:Text* Flags:DiagFlags CauseRemedy:CauseRemedy* Info:Text* "
              "Hint:Text* URL:Text*",
              ""},
    SchemaRow{"CauseRemedy", "",
              "Cause:Text* Remedy:Text*",
              "Idx"},
    SchemaRow{"DiagFlags", "",
              "DiagClass:diagClass DiagReset:number DiagReaction:number DiagType:number",
              ""},
    SchemaRow{"Dictionary", "",
              "UnitTypes:Units DataTypes:DataTypes Objects:Objects",
              ""},
    SchemaRow{"Objects", "",
              "Object:Object*",
              ""},
    SchemaRow{"Object", "",
              "Index:ObjectIndex Name:Text* Comment:Text* Type BitSize:u32 Info:ObjectInfo Flags:ObjectFlags "
              "Properties:Properties Xml:Anything",
              ""},
    SchemaRow{"ObjectFlags", "",
              "Access:Access Category:category PdoMapping:pdoMapping SafetyMapping:safetyMapping Attribute:number "
              "Transition:upTransition SdoAccess:sdoAccess Backup:u32 Setting:u32",
              ""},
    SchemaRow{"ObjectInfo", "",
              "( DefaultString | MinData:hex MaxData:hex DefaultData:bytes | MinValue:number MaxValue:number "
              "DefaultValue:number | SubItem:ObjectSubItem* ) DisplayName Unit:number",
              ""},
    SchemaRow{"ObjectSubItem", "",
              "Name Info:ObjectInfo",
              ""},
    SchemaRow{"ObjectIndex", "u16",
              "",
              "DependOnSlot:boolean DependOnSlotGroup:boolean OverwrittenByModule:boolean"},
    SchemaRow{"DataTypes", "",
              "DataType:DataType*",
              ""},
    SchemaRow{"DataType", "",
              "Index:number Name:typeName BaseType Comment:Text* BitSize:u32 ( ArrayInfo:ArrayInfo* | "
              "SubItem:SubItem* | EnumInfo:EnumInfo* ) Properties:Properties Xml:Anything",
              ""},
    SchemaRow{"Properties", "",
              "Property:Property*",
              ""},
    SchemaRow{"EnumInfo", "",
              "Text:Text* Enum:number Comment:Text*",
              ""},
    SchemaRow{"SubItem", "",
              "SubIdx:subIndex Name DisplayName:Text* Type Comment:Text* BitSize:u32 BitOffs:u32 ( DefaultString | "
              "DefaultData:hex | MinValue:number MaxValue:number DefaultValue:number ) Flags:SubItemFlags "
              "Property:Property* Xml:Anything",
              ""},
    SchemaRow{"Property", "",
              "Name Value Desc:Text",
              ""},
    SchemaRow{"SubItemFlags", "",
              "Access:Access Category:category PdoMapping:pdoMapping SafetyMapping:safetyMapping Attribute:number "
              "Backup:u32 Setting:u32",
              ""},
    SchemaRow{"Access", "access",
              "",
              "ReadRestrictions:restriction WriteRestrictions:restriction"},
    SchemaRow{"ArrayInfo", "",
              "LBound:u32 Elements:u32",
              ""},
    SchemaRow{"Units", "",
              "UnitType:Unit*",
              ""},
    SchemaRow{"Unit", "",
              "NotationIndex:number Index:number Name Symbol",
              ""},
    SchemaRow{"ChannelInfo", "",
              "ProfileNo:u32 AddInfo:number SubAddInfo:number DisplayName:Text*",
              "OverwrittenByModule:boolean ChannelGroup:number"},
};
// clang-format on

} // namespace

SchemaRows schemaRowsOfDictionary()
{
    return rows;
}

} // namespace check
