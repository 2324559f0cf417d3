// schemaRowsDeviceInfo.cpp - rows of the schema: what a device says about itself, and its configuration of a slave
// (SCI).
#include "check/schema/schemaRows.h"

#include <array>

namespace check {

namespace {

// clang-format off
constexpr std::array rows{
    SchemaRow{"SciTool", "",
              "",
              "Version"},
    SchemaRow{"SciCreatedBy", "",
              "Company VendorId:number Tool:SciTool",
              ""},
    SchemaRow{"CommentOnly", "",
              "Comment",
              ""},
    SchemaRow{"SciModuleIdent", "",
              "SlotNo:number Esi:number Sci:number",
              ""},
    SchemaRow{"SciModuleIdents", "",
              "ModuleIdent:SciModuleIdent*",
              ""},
    SchemaRow{"SciTarget", "",
              "AoeNetId:CommentOnly EoeMacIp:CommentOnly DcCycleTime:CommentOnly ModuleIdents:SciModuleIdents",
              ""},
    SchemaRow{"Sci", "",
              "Name:Text* Description:Text* Guid CreatedBy:SciCreatedBy TargetSpecific:SciTarget "
              "VendorSpecific:Anything",
              "SciVersion"},
    SchemaRow{"Info", "",
              "Electrical:Electrical StateMachine:StateMachine Mailbox:MailboxInfo EtherCATController:Controller "
              "Port:Port* ExecutionUnit:ExecutionUnit* VendorSpecific:Anything StationAliasSupported:aliasSupport "
              "IdentificationAdo:number IdentificationReg134:boolean DeviceFeature:Feature*",
              ""},
    SchemaRow{"Electrical", "",
              "EBusCurrent:number EtherCATp:Power",
              ""},
    SchemaRow{"Power", "",
              "Device:PowerDevice PowerSupply:PowerSupply",
              ""},
    SchemaRow{"PowerDevice", "",
              "Us:PowerUse Up:PowerUse",
              ""},
    SchemaRow{"PowerUse", "",
              "PowerSupply:boolean MinVoltage:float Current:Load External:PowerExternal",
              ""},
    SchemaRow{"PowerExternal", "",
              "Channel:PowerChannel*",
              ""},
    SchemaRow{"PowerChannel", "",
              "Name:Text* Voltage:Load",
              ""},
    SchemaRow{"Load", "float",
              "",
              "Type:load"},
    SchemaRow{"PowerSupply", "",
              "Us:PowerLimit Up:PowerLimit",
              ""},
    SchemaRow{"PowerLimit", "",
              "MaxCurrent:float",
              ""},
    SchemaRow{"StateMachine", "",
              "Timeout:StateTimeout Behavior:StateBehavior",
              ""},
    SchemaRow{"StateTimeout", "",
              "PreopTimeout:number SafeopOpTimeout:number BackToInitTimeout:number BackToSafeopTimeout:number",
              ""},
    SchemaRow{"StateBehavior", "",
              "",
              "StartToInit:boolean StartToPreop:boolean StartToSafeop:boolean StartToSafeopNoSync:boolean"},
    SchemaRow{"MailboxInfo", "",
              "Timeout:MailboxTimeout",
              ""},
    SchemaRow{"MailboxTimeout", "",
              "RequestTimeout:number ResponseTimeout:number",
              ""},
    SchemaRow{"Controller", "",
              "DpramSize:number SmCount:number FmmuCount:number",
              ""},
    SchemaRow{"Port", "",
              "Type:port Connector:Connector* Label RxDelay:number TxDelay:number PhysicalPhyAddr:number "
              "EtherCATp:PortPower",
              ""},
    SchemaRow{"Connector", "",
              "",
              "VendorId:number"},
    SchemaRow{"PortPower", "",
              "Us:PortPowerLine Up:PortPowerLine",
              ""},
    SchemaRow{"PortPowerLine", "",
              "PowerSupply:boolean MaxCurrent:float Resistance:float",
              ""},
    SchemaRow{"ExecutionUnit", "",
              "Type:unit RxDelay:number TxDelay:number",
              ""},
    SchemaRow{"Feature", "",
              "Name Value Description Register:FeatureRegister*",
              ""},
    SchemaRow{"FeatureRegister", "",
              "StartAddress:number Length:number BitMask:number",
              ""},
};
// clang-format on

} // namespace

SchemaRows schemaRowsOfDeviceInfo()
{
    return rows;
}

} // namespace check
