// schemaRowsDevice.cpp - rows of the schema: a device.
#include "check/schema/schemaRows.h"

#include <array>

namespace check {

namespace {

// clang-format off
constexpr std::array rows{
    SchemaRow{"Device", "",
              "Sci:Sci Type:DeviceType HideType:HiddenType* AlternativeType:AlternativeType* SubDevice:SubDevice* "
              "Name:Text* Comment:Text* URL:Text* Info:Info GroupType Profile:DeviceProfile* Fmmu:Fmmu* Sm:Sm* Su:Su* "
              "RxPdo:Pdo* TxPdo:Pdo* Mailbox:Mailbox Dc:Dc Slots:Slots ESC:Esc Eeprom:Eeprom ( Image16x14 | "
              "ImageFile16x14 | ImageData16x14:hex ) VendorSpecific:Anything",
              "Invisible:boolean Physics Crc32:number"},
    SchemaRow{"DeviceType", "",
              "",
              "ProductCode:u32 RevisionNo:u32 SerialNo:u32 CheckProductCode:check CheckRevisionNo:revisionCheck "
              "CheckSerialNo:check TcSmClass TcCfgModeSafeOp:boolean UseLrdLwr:boolean ModulePdoGroup:number "
              "DownloadModuleList:boolean ShowHideableSubDevices:boolean"},
    SchemaRow{"HiddenType", "",
              "",
              "ProductCode:number RevisionNo:number ProductRevision"},
    SchemaRow{"AlternativeType", "",
              "",
              "ProductCode:number RevisionNo:number"},
    SchemaRow{"SubDevice", "",
              "",
              "ProductCode:number RevisionNo:number PreviousDevice:number PreviousPortNo:number Hideable:boolean"},
    SchemaRow{"Fmmu", "",
              "",
              "OpOnly:boolean Sm:u32 Su:u32"},
    SchemaRow{"Sm", "",
              "",
              "MinSize:u16 MaxSize:u16 DefaultSize:u16 StartAddress:u16 ControlByte:u32 Enable:u32 "
              "OneByteMode:boolean Virtual:boolean Watchdog:boolean OpOnly:boolean FixedAssignment:boolean"},
    SchemaRow{"Su", "",
              "",
              "SeparateSu:boolean SeparateFrame:boolean DependOnInputState:boolean FrameRepeatSupport:boolean"},
    SchemaRow{"Mailbox", "",
              "AoE:AoE EoE:EoE CoE:CoE FoE:Nothing SoE:SoE VoE:Anything VendorSpecific:Anything",
              "DataLinkLayer:boolean RealTimeMode:boolean"},
    SchemaRow{"AoE", "",
              "InitCmd:AoECommand*",
              "AdsRouter:boolean GenerateOwnNetId:boolean InitializeOwnNetId:boolean"},
    SchemaRow{"AoECommand", "",
              "Transition:transition* Data:hex Comment",
              ""},
    SchemaRow{"EoE", "",
              "InitCmd:EoECommand*",
              "IP:boolean MAC:boolean TimeStamp:boolean"},
    SchemaRow{"EoECommand", "",
              "Transition:transition* Type:number Data:hex Comment",
              ""},
    SchemaRow{"CoE", "",
              "Object:CoEObject* InitCmd:CoECommand*",
              "SdoInfo:boolean PdoAssign:boolean PdoConfig:boolean PdoUpload:boolean CompleteAccess:boolean EdsFile "
              "DS402Channels:number SegmentedSdo:boolean DiagHistory:boolean SdoUploadWithMaxLength:boolean "
              "TimeDistribution:boolean"},
    SchemaRow{"CoEObject", "",
              "Index:number SubIndex:number Data:hex Comment",
              ""},
    SchemaRow{"CoECommand", "",
              "Transition:transition* Index:u16 SubIndex:u8 Data:CommandData Comment",
              "Fixed:boolean CompleteAccess:boolean OverwrittenByModule:boolean"},
    SchemaRow{"CommandData", "bytes",
              "",
              "AdaptAutomatically:boolean"},
    SchemaRow{"SoE", "",
              "InitCmd:SoECommand* ( DiagFile* | DiagMessages:DiagMessages )",
              "ChannelCount:number DriveFollowsBit3Support:boolean"},
    SchemaRow{"SoECommand", "",
              "Transition:transition* IDN:number Data:hex Comment",
              "Chn:number"},
    SchemaRow{"Dc", "",
              "OpMode:OpMode* VendorSpecific:Anything",
              "UnknownFRMW:boolean Unknown64Bit:boolean ExternalRefClock:boolean PotentialReferenceClock:boolean "
              "TimeLoopControlOnly:boolean"},
    SchemaRow{"OpMode", "",
              "Name Desc AssignActivate:u32 CycleTimeSync0:CycleTime ShiftTimeSync0:ShiftTime "
              "CycleTimeSync1:CycleTime ShiftTimeSync1:ShiftTime Sm:OpModeSm* VendorSpecific:Anything",
              ""},
    SchemaRow{"CycleTime", "i32",
              "",
              "Factor:number"},
    SchemaRow{"ShiftTime", "i32",
              "",
              "Factor:number Input:boolean OutputDelayTime:number InputDelayTime:number"},
    SchemaRow{"OpModeSm", "",
              "SyncType:number CycleTime:CycleTime ShiftTime:SmShiftTime Pdo:OpModePdo*",
              "No:u32"},
    SchemaRow{"SmShiftTime", "number",
              "",
              "MinAfterSync:number MinBeforeFrame:number"},
    SchemaRow{"OpModePdo", "u32",
              "",
              "OSFac:u32"},
    SchemaRow{"Esc", "",
              "Reg0108:number Reg0400:number Reg0410:number Reg0420:number VendorSpecific:Anything",
              ""},
    SchemaRow{"Eeprom", "",
              "( Data:hex | ByteSize:number ConfigData:hex BootStrap:hex Category:EepromCategory* ) "
              "VendorSpecific:Anything",
              "AssignToPdi:boolean"},
    SchemaRow{"EepromCategory", "",
              "CatNo:CatNo ( Data:hex | DataString | DataUINT:number | DataUDINT:number )",
              "PreserveOnlineData:boolean"},
    SchemaRow{"CatNo", "number",
              "",
              ""},
};
// clang-format on

} // namespace

SchemaRows schemaRowsOfDevice()
{
    return rows;
}

} // namespace check
