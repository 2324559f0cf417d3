// differingFiles.h - two ESI files that differ in everything that is compared.
#pragma once

#include <QByteArray>
#include <QRegularExpression>
#include <QString>

/// One of two files that are written as one text: what differs between them is in braces, "{old|new}".
/// @param side  1 for the old one, 2 for the new one
inline QByteArray sideOf(const char* text, int side)
{
    static const QRegularExpression difference(QStringLiteral(R"(\{([^{}|]*)\|([^{}|]*)\})"));
    return QString::fromUtf8(text).replace(difference, QLatin1Char('\\') + QString::number(side)).toUtf8();
}

/// A device with a dictionary, slots and modules.
inline const char* const differingDevice =
    R"(<EtherCATInfo><Vendor><Id>{1|2}</Id></Vendor><Descriptions><Devices><Device>
<Type ProductCode="{1|2}" RevisionNo="{1|2}" SerialNo="{1|2}" CheckProductCode="{EQ|NONE}">{T1|T2}</Type>
<Name>{Old|New}</Name><Profile><ProfileNo>{402|5001}</ProfileNo></Profile>
<Fmmu Sm="{0|1}" Su="{0|1}" OpOnly="{0|1}">{Outputs|Inputs}</Fmmu>
<Sm StartAddress="#x1000" DefaultSize="{128|64}" ControlByte="#x26" Enable="1">MBoxOut</Sm>
<Sm StartAddress="#x1100" DefaultSize="64" ControlByte="#x22" Enable="1">MBoxIn</Sm>
<Sm StartAddress="#x{1200|1300}" MinSize="{1|2}" MaxSize="{8|9}" DefaultSize="{4|5}" ControlByte="#x{24|64}"
Enable="{0|1}" Virtual="{0|1}">Outputs</Sm>
<Sm StartAddress="#x1400" ControlByte="#x20" Enable="1">{Outputs|Inputs}</Sm><Sm>{Own|Other}</Sm>
<RxPdo Sm="2" SU="{0|1}" Fixed="{0|1}" Mandatory="{0|1}" OverwrittenByModule="{0|1}" OSFac="{1|2}" OSMin="{1|2}"
OSMax="{2|4}">
<Index>#x1600</Index><Name>{P1|P2}</Name><Exclude>#x160{1|2}</Exclude>
<Entry><Index>#x6040</Index><SubIndex>0</SubIndex><BitLen>{8|16}</BitLen><Name>{E1|E2}</Name>
<DataType>{USINT|UINT}</DataType></Entry>
<Entry><Index>#x6060</Index><SubIndex>0</SubIndex><BitLen>8</BitLen></Entry></RxPdo>
<RxPdo Sm="{2|3}"><Index>#x1610</Index><Entry><Index>#x6041</Index><SubIndex>0</SubIndex><BitLen>8</BitLen></Entry>
</RxPdo>
<Mailbox><EoE IP="{0|1}" MAC="{0|1}"/><CoE SdoInfo="{0|1}" PdoAssign="{0|1}" PdoUpload="{0|1}" PdoConfig="{0|1}"
SegmentedSdo="{0|1}" CompleteAccess="{0|1}" DiagHistory="{0|1}">
<InitCmd><Transition>{PS|SO}</Transition><Index>#x2000</Index><SubIndex>0</SubIndex><Data>{01|0200}</Data>
<Comment>{old|new}</Comment></InitCmd></CoE></Mailbox>
<Dc><OpMode><Name>{A|B}</Name></OpMode><OpMode><Name>M</Name><Desc>{old|new}</Desc>
<AssignActivate>#x{300|700}</AssignActivate><CycleTimeSync0 Factor="{1|2}">{1|2}</CycleTimeSync0>
<ShiftTimeSync0>{1|2}</ShiftTimeSync0><CycleTimeSync1 Factor="{1|2}">{1|2}</CycleTimeSync1><ShiftTimeSync1>{1|2}</ShiftTimeSync1>
<Sm No="2"><Pdo OSFac="1">#x160{0|1}</Pdo></Sm><VendorSpecific><TwinCAT><Oversampling DefaultFactor="{1|2}"
MinCycleTime="{1|2}"/></TwinCAT></VendorSpecific></OpMode></Dc>
<Slots MaxSlotCount="{2|3}" MaxSlotGroupCount="{1|2}" SlotPdoIncrement="{1|2}" SlotIndexIncrement="{1|2}"
SlotGroupPdoIncrement="{1|2}" SlotGroupIndexIncrement="{1|2}" DownloadModuleIdentList="{0|1}"
DownloadModuleAddressList="{0|1}" IdentifyModuleBy="{A|B}" DownloadModuleListTransition="{PS|IP}">
<Slot SlotGroup="{0|1}" MinInstances="{0|1}" MaxInstances="{1|2}" SlotPdoIncrement="{1|2}"
SlotIndexIncrement="{1|2}"><Name>Axis {1|2}</Name><ModuleIdent Default="{0|1}">#x10</ModuleIdent>
<ModuleIdent Default="{1|0}">#x11</ModuleIdent></Slot></Slots>
<Profile><ProfileNo>{402|5001}</ProfileNo><Dictionary><DataTypes>
<DataType><Name>USINT</Name><BitSize>8</BitSize></DataType><DataType><Name>UINT</Name><BitSize>16</BitSize></DataType>
<DataType><Name>DTA</Name><BaseType>{USINT|UINT}</BaseType><BitSize>{16|48}</BitSize><ArrayInfo>
<LBound>{0|1}</LBound><Elements>{2|3}</Elements></ArrayInfo>{|<ArrayInfo><LBound>0</LBound><Elements>1</Elements>
</ArrayInfo>}</DataType>
<DataType><Name>DTR</Name><BitSize>{32|64}</BitSize><SubItem><SubIdx>1</SubIdx><Name>{s1|s2}</Name>
<Type>{USINT|UINT}</Type><BitSize>{8|16}</BitSize><BitOffs>{0|16}</BitOffs><Flags><Access>{ro|rw}</Access>
<PdoMapping>{R|T}</PdoMapping><Backup>{0|1}</Backup><Setting>{0|1}</Setting><Category>{o|m}</Category></Flags>
</SubItem></DataType>
<DataType><Name>DTE</Name><BaseType>USINT</BaseType><BitSize>8</BitSize><EnumInfo><Text>{a|b}</Text><Enum>1</Enum>
</EnumInfo></DataType>
<DataType><Name>DTB</Name><BaseType>{UINT|BITARR16}</BaseType><BitSize>32</BitSize>
<ArrayInfo><LBound>0</LBound><Elements>2</Elements></ArrayInfo></DataType>
<DataType><Name>{X1|X2}</Name><BaseType>USINT</BaseType><BitSize>8</BitSize></DataType>
</DataTypes><Objects>
<Object><Index>#x2000</Index><Name>{o1|o2}</Name><Type>{USINT|UINT}</Type><BitSize>{8|16}</BitSize><Info>
<MinData>{0|1}</MinData><MaxData>{8|9}</MaxData><DefaultData>{01|02}</DefaultData></Info><Flags>
<Access>{ro|rw}</Access><PdoMapping>{R|T}</PdoMapping><Backup>{0|1}</Backup><Setting>{0|1}</Setting>
<Category>{o|m}</Category></Flags></Object>
<Object><Index>#x2005</Index><Type>{UINT|BITARR16}</Type><BitSize>16</BitSize></Object><Object><Index>#x2006</Index><Type>DTB</Type></Object>
<Object><Index>#x2001</Index>
<Type>DTA</Type></Object><Object><Index>#x2002</Index><Type>DTR</Type></Object><Object><Index>#x2003</Index>
<Type>DTE</Type></Object><Object><Index>#x2004</Index><Type>{X1|X2}</Type></Object>
</Objects></Dictionary></Profile></Device>
</Devices>
<Modules><Module><Type ModuleIdent="#x10" ModuleClass="{A|B}" ModulePdoGroup="{0|1}" SRA_ParamterSupported="{0|1}">{MT1|MT2}</Type>
<Name>{M1|M2}</Name>
<RxPdo Sm="2"><Index DependOnSlot="{0|1}" DependOnSlotGroup="{0|1}">#x1700</Index><Name>R</Name><Entry>
<Index DependOnSlot="{0|1}" DependOnSlotGroup="{0|1}">#x7000</Index><SubIndex>1</SubIndex><BitLen>8</BitLen></Entry></RxPdo><Mailbox><CoE>
<InitCmd><Transition>PS</Transition><Index DependOnSlot="{0|1}" DependOnSlotGroup="{0|1}">#x8000</Index><SubIndex>0</SubIndex><Data>01</Data>
</InitCmd></CoE></Mailbox><Profile><ProfileNo>{401|5001}</ProfileNo></Profile></Module><Module><Type ModuleIdent="#x11">M</Type></Module></Modules></Descriptions>
</EtherCATInfo>)";

/// A device that has lost its mailbox, and one with startup commands.
inline const char* const differingPlainDevices = R"(<EtherCATInfo><Vendor><Id>1</Id></Vendor><Descriptions><Devices>
<Device><Type ProductCode="1" RevisionNo="1"/><Sm StartAddress="#x1000" ControlByte="#x24" Enable="1">Outputs</Sm>
<RxPdo Sm="0"><Index>#x1600</Index>
<Entry><Index>#x7000</Index><SubIndex>{1|2}</SubIndex><BitLen>{8|16}</BitLen></Entry>
<Entry><Index>#x7000</Index><SubIndex>{2|1}</SubIndex><BitLen>8</BitLen></Entry></RxPdo>
{<Mailbox><CoE/></Mailbox>|}</Device>
<Device><Type ProductCode="2" RevisionNo="1"/><Sm>MBoxOut</Sm><Sm>MBoxIn</Sm><Sm>Outputs</Sm><RxPdo Sm="2">
<Index>#x1600</Index>
<Entry><Index>#x7000</Index><SubIndex>1</SubIndex><BitLen>8</BitLen></Entry></RxPdo>
<Mailbox><CoE PdoAssign="1" PdoConfig="1" CompleteAccess="{0|1}">
<InitCmd><Transition>PS</Transition><Index>#x200{0|1}</Index><SubIndex>0</SubIndex><Data>01</Data></InitCmd>
<InitCmd><Transition>PS</Transition><Index>#x200{1|0}</Index><SubIndex>0</SubIndex><Data>01</Data></InitCmd>
</CoE></Mailbox></Device>
</Devices></Descriptions></EtherCATInfo>)";
