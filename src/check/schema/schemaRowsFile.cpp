// schemaRowsFile.cpp - rows of the schema: a file as a whole, and what is used everywhere.
#include "check/schema/schemaRows.h"

#include <array>

namespace check {

namespace {

// clang-format off
constexpr std::array rows{
    SchemaRow{"EtherCATInfo", "",
              "InfoReference* Vendor:Vendor Descriptions:Descriptions",
              "Version"},
    SchemaRow{"Vendor", "",
              "Id:u32 Name:Text* Comment:Text* URL:Text* DescriptionURL ( Image16x14 | ImageFile16x14 | "
              "ImageData16x14:hex ) VendorSpecific:Anything",
              "UniqueName FileVersion:number"},
    SchemaRow{"Descriptions", "",
              "Groups:Groups Devices:Devices Modules:Modules",
              ""},
    SchemaRow{"Groups", "",
              "Group:Group*",
              ""},
    SchemaRow{"Group", "",
              "Type Name:Text* Comment:Text* ( Image16x14 | ImageFile16x14 | ImageData16x14:hex ) "
              "VendorSpecific:Anything",
              "SortOrder:number ParentGroup"},
    SchemaRow{"Devices", "",
              "Device:Device*",
              ""},
    SchemaRow{"Modules", "",
              "Module:Module*",
              ""},
    SchemaRow{"EtherCATDict", "",
              "Dictionary:Dictionary",
              "Version"},
    SchemaRow{"EtherCATDiag", "",
              "DiagMessages:DiagMessages",
              "Version"},
    SchemaRow{"Text", "",
              "",
              "LcId:number"},
    SchemaRow{"Anything", "",
              "any",
              ""},
    SchemaRow{"Nothing", "",
              "",
              ""},
};
// clang-format on

} // namespace

SchemaRows schemaRowsOfFile()
{
    return rows;
}

} // namespace check
