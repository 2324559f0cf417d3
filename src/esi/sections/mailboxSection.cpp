// mailboxSection.cpp - the `Mailbox` element of a device: EoE and CoE flags, and the declared startup commands.
#include "esi/fieldRules.h"
#include "esi/sections/initCmdReader.h"
#include "esi/sections/sectionReaders.h"
#include "esi/storeField.h"

#include <array>
#include <utility>

namespace {

const std::array eoeRules{
    attribute("IP", storeBool<&EoeAttributes::IP>),
    attribute("MAC", storeBool<&EoeAttributes::MAC>),
};

// ODD, KEPT: there is no row for `CompleteAccess`, where one would expect it to be read like the other attributes. So
// nothing that is generated for a device as loaded is a complete access. Pinned by
// tst_MailboxSection::completeAccessIsNeverRead.
const std::array coeRules{
    attribute("SdoInfo", storeBool<&CoeAttributes::SdoInfo>),
    attribute("PdoAssign", storeBool<&CoeAttributes::PdoAssign>),
    attribute("PdoUpload", storeBool<&CoeAttributes::PdoUpload>),
    attribute("PdoConfig", storeBool<&CoeAttributes::PdoConfig>),
    attribute("SegmentedSdo", storeBool<&CoeAttributes::SegmentedSdo>),
    attribute("DiagHistory", storeBool<&CoeAttributes::DiagHistory>),
};

void appendInitCmd(DeviceCoe& coe, const xml::Element& element)
{
    struct_InitCmd command;
    readChildren(element, initCmdRules<struct_InitCmd, storeUint<&struct_InitCmd::Index>>, command);
    coe.InitCmd.vinitcmd.push_back(std::move(command));
}

const std::array coeChildRules{
    child("InitCmd", appendInitCmd),
};

void readEoe(DeviceMailbox& mailbox, const xml::Element& element)
{
    readAttributes(element, eoeRules, mailbox.EOE.Attributes);
}

void readCoe(DeviceMailbox& mailbox, const xml::Element& element)
{
    readAttributes(element, coeRules, mailbox.COE.Attributes);
    readChildren(element, coeChildRules, mailbox.COE);
}

const std::array protocolRules{
    child("EoE", readEoe),
    child("CoE", readCoe),
};

} // namespace

void readMailbox(struct_EtherCatDevice& device, const xml::Element& element)
{
    readChildren(element, protocolRules, device.Mailbox);
}
