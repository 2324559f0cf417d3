#include "show/showModel.h"

#include "show/choiceRows.h"
#include "show/showCommandLists.h"
#include "show/showDevice.h"
#include "show/showModelDictionary.h"
#include "show/showPdos.h"
#include "show/showSlots.h"
#include "show/showWords.h"

namespace show {

namespace {

Object dcPdoMembers(const Struct_DCPdo& pdo)
{
    return {{"index", hexadecimal(pdo.m_index)}, {"oversamplingFactor", decimal(pdo.Attributes.m_OsFac)}};
}

Object dcSyncManagerMembers(const Struct_DCSm& syncManager)
{
    return {{"number", decimal(syncManager.Attributes.m_No)},
            {"syncType", decimal(syncManager.m_SyncType)},
            {"cycleTime", decimal(syncManager.m_CycleTime)},
            {"shiftTime", decimal(syncManager.m_ShiftTime)},
            {"pdos", listOf(syncManager.m_Pdo, dcPdoMembers)}};
}

Object modeMembers(const Struct_DCOpMode& mode)
{
    const DCOversampling& oversampling = mode.vendorSpecific.twinCAT.oversampling;
    return {{"name", text(mode.Name)},
            {"description", text(mode.Desc)},
            {"assignActivate", hexadecimal(mode.AssignActivate)},
            {"bits", assignActivateBits(mode.AssignActivate)},
            {"cycleTimeSync0", decimal(mode.m_CycleTimeSync0)},
            {"shiftTimeSync0", decimal(mode.m_ShiftTimeSync0)},
            {"cycleTimeSync1", decimal(mode.m_CycleTimeSync1)},
            {"shiftTimeSync1", decimal(mode.m_ShiftTimeSync1)},
            {"oversampling",
             {Object{{"defaultFactor", decimal(oversampling.m_DefaultFactor)},
                     {"minCycleTime", decimal(oversampling.m_MinCycleTime)}}}},
            {"syncManagers", listOf(mode.m_Sm, dcSyncManagerMembers)}};
}

Object fmmuMembers(const Struct_Fmmu& fmmu)
{
    return {{"name", text(fmmu.m_Name)},
            {"type", decimal(fmmu.m_FmmuType)},
            {"typeName", text(directionName(fmmu.m_FmmuType))},
            {"syncManager", decimal(fmmu.m_Sm)},
            {"syncUnit", decimal(fmmu.m_Su)},
            {"opOnly", flag(fmmu.m_OpOnly)}};
}

Object syncManagerMembers(const struct_SM& syncManager)
{
    const SmAttributes& attributes = syncManager.Attributes;
    return {{"number", decimal(syncManager.SM)},
            {"name", text(syncManager.Name)},
            {"type", decimal(syncManager.Smtype)},
            {"typeName", text(directionName(syncManager.Smtype))},
            {"startAddress", hexadecimal(attributes.StartAddress)},
            {"minSize", decimal(attributes.MinSize)},
            {"maxSize", decimal(attributes.MaxSize)},
            {"defaultSize", decimal(attributes.DefaultSize)},
            {"length", fraction(syncManager.Length)},
            {"controlByte", hexadecimal(attributes.ControlByte)},
            {"enable", yesNoNumber(attributes.Enable)},
            {"virtual", yesNoNumber(attributes.m_Virtual)}};
}

Value coeFlags(const CoeAttributes& coe)
{
    return {Object{{"sdoInfo", flag(coe.SdoInfo)},
                   {"pdoAssign", flag(coe.PdoAssign)},
                   {"pdoUpload", flag(coe.PdoUpload)},
                   {"pdoConfig", flag(coe.PdoConfig)},
                   {"segmentedSdo", flag(coe.SegmentedSdo)},
                   {"completeAccess", flag(coe.CompleteAccess)},
                   {"diagHistory", flag(coe.DiagHistory)}}};
}

Object commandLists(const struct_EtherCatDevice& device)
{
    return {{"deviceCoe", commandList(device.Mailbox.COE.InitCmd.vinitcmd)},
            {"deviceEoe", commandList(device.Mailbox.EOE.InitCmd.vinitcmd)},
            {"moduleCoe", commandList(device.mMailbox.COE.vinitcmd)}};
}

} // namespace

Object modelMembers(struct_EtherCatDevice& device, Detail detail)
{
    const DeviceTypeAttributes& type = device.TypeAttributes;
    const EoeAttributes& eoe = device.Mailbox.EOE.Attributes;
    const ChoicePdoRows rows = choicePdoRows(device, isSameAfterSelection(device));
    Object members{
        {"name", text(device.Name)},
        {"type", text(type.type)},
        {"productCode", bothForms(type.Product_Code)},
        {"revisionNo", bothForms(type.Revision_No)},
        {"serialNo", bothForms(type.Serial_No)},
        {"checkProductCode", text(tokenName(type.CheckProductCode))},
        {"deviceType", decimal(device.m_iDeviceType)},
        {"deviceTypeName", text(deviceTypeName(device.m_iDeviceType))},
        {"driveAxes", decimal(device.m_iDriveAxies)},
        {"configIndex", hexadecimal(device.configindex)},
        {"detectIndex", hexadecimal(device.detectindex)},
        {"eoe", {Object{{"ip", flag(eoe.IP)}, {"mac", flag(eoe.MAC)}}}},
        {"coe", coeFlags(device.Mailbox.COE.Attributes)},
        {"dcModes", listOf(device.vopmode, modeMembers)},
        {"fmmus", listOf(device.vFmmu, fmmuMembers)},
        {"syncManagers", listOf(device.vSM, syncManagerMembers)},
        {"rxPdos", pdosOf(device.RxPdo.vpdo, rows.outputs)},
        {"txPdos", pdosOf(device.TxPdo.vpdo, rows.inputs)},
        {"moduleRxPdos", pdosOf(device.mRxPdo.mpdo, rows.moduleOutputs)},
        {"moduleTxPdos", pdosOf(device.mTxPdo.mpdo, rows.moduleInputs)},
        {"slots", {slotsMembers(device.Slots, detail)}},
        {"dictionary", {dictionaryMembers(device.Dictionary.vdatatype, device.Dictionary.vobject, detail)}},
        {"moduleDictionary", {dictionaryMembers(device.mDictionary.mdatatype, device.mDictionary.mobject, detail)}}};
    if (detail == Detail::Everything)
        members.push_back({"commands", {commandLists(device)}});
    return members;
}

} // namespace show
