// schemaRowsModular.cpp - rows of the schema: PDOs, slots and modules.
#include "check/schema/schemaRows.h"

#include <array>

namespace check {

namespace {

// clang-format off
constexpr std::array rows{
    SchemaRow{"Pdo", "",
              "Index:SlottedIndex Name:Text* Exclude:SlottedIndex* Entry:Entry* ExcludedSm:number*",
              "Fixed:boolean Mandatory:boolean Virtual:boolean Sm:u32 Su:u32 PdoOrder:number OSFac:u32 OSMin:u32 "
              "OSMax:u32 OSIndexInc:u32 OverwrittenByModule:boolean SRA_Parameter:boolean SafetyPdoType:safetyPdo "
              "SafetyConnNumber:number"},
    SchemaRow{"Entry", "",
              "Index:SlottedIndex SubIndex:subIndex BitLen:u32 Name:Text* Comment DataType:EntryType",
              "Fixed:boolean SafetyConnNumber:number"},
    SchemaRow{"SlottedIndex", "u16",
              "",
              "DependOnSlot:boolean DependOnSlotGroup:boolean"},
    SchemaRow{"EntryType", "dataType",
              "",
              "DScale:scale SwapData:swap"},
    SchemaRow{"Slots", "",
              "Slot:Slot* SlotGroupData:SlotGroup* ModulePdoGroup:ModulePdoGroup* SlotSelections:SlotSelections*",
              "DownloadModuleIdentList:boolean DownloadModuleAddressList:boolean "
              "DownloadModuleListTransition:upTransition MaxSlotCount:u32 MaxSlotGroupCount:u32 SlotPdoIncrement:u32 "
              "SlotGroupPdoIncrement:u32 SlotIndexIncrement:u32 SlotGroupIndexIncrement:u32 "
              "IdentifyModuleBy:identifiedBy"},
    SchemaRow{"Slot", "",
              "Name:Text* ( ModuleIdent:AcceptedIdent* | ModuleClass:AcceptedClass* ) ( Image16x14 | ImageFile16x14 | "
              "ImageData16x14:hex )",
              "SlotGroup:u32 MinInstances:u32 MaxInstances:u32 SlotPdoIncrement:u32 SlotGroupPdoIncrement:u32 "
              "SlotIndexIncrement:u32 SlotGroupIndexIncrement:u32 TreeView:treeView Default:number Fallback:number"},
    SchemaRow{"AcceptedIdent", "u32",
              "",
              "Default:boolean"},
    SchemaRow{"AcceptedClass", "",
              "Class VendorId:number Name:Text* ( Image16x14 | ImageFile16x14 | ImageData16x14:hex )",
              ""},
    SchemaRow{"SlotGroup", "",
              "Name:Text* ( ImageFile16x14 | ImageData16x14:hex )",
              "SlotGroup:i32"},
    SchemaRow{"ModulePdoGroup", "",
              "",
              "Alignment:number RxPdo:number TxPdo:number"},
    SchemaRow{"SlotSelections", "",
              "Name:Text ModuleIdent:number*",
              ""},
    SchemaRow{"Module", "",
              "Type:ModuleType Name:Text* RxPdo:Pdo* TxPdo:Pdo* SafetyParaMapping:Pdo* Mailbox:ModuleMailbox "
              "Profile:ModuleProfile DcOpModeName ( Image16x14 | ImageFile16x14 | ImageData16x14:hex ) "
              "VendorSpecific:Anything",
              "Crc32:number"},
    SchemaRow{"ModuleType", "",
              "",
              "ModuleIdent:u32 ModuleClass ModulePdoGroup:u32 SRA_ParameterSupported:boolean"},
    SchemaRow{"ModuleMailbox", "",
              "CoE:ModuleCoE",
              ""},
    SchemaRow{"ModuleCoE", "",
              "InitCmd:ModuleCommand*",
              "SdoInfo:boolean PdoAssign:boolean PdoConfig:boolean PdoUpload:boolean CompleteAccess:boolean EdsFile "
              "SegmentedSdo:boolean ModuleOD:boolean"},
    SchemaRow{"ModuleCommand", "",
              "Transition:transition* Index:SlottedIndex SubIndex:u8 Data:CommandData Comment",
              "Fixed:boolean CompleteAccess:boolean"},
    SchemaRow{"ModuleProfile", "",
              "ProfileNo:u32 AddInfo:number SubAddInfo:number ( ChannelCount:number | ChannelInfo:ChannelInfo* ) ( "
              "DictionaryFile:dictionaryFile | Dictionary:Dictionary ) ( DiagFile* | DiagMessages:DiagMessages ) "
              "VendorSpecific:Anything",
              ""},
};
// clang-format on

} // namespace

SchemaRows schemaRowsOfModular()
{
    return rows;
}

} // namespace check
