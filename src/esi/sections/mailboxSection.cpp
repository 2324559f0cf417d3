// mailboxSection.cpp - the `Mailbox` element of a device: EoE and CoE flags, and the declared startup commands.
#include "esi/fieldRules.h"
#include "esi/sections/initCmdReader.h"
#include "esi/storeField.h"
#include "esi/xmlparsing.h"

#include <array>
#include <utility>

namespace {

const std::array eoeRules{
    AttributeRule<EoeAttributes>{QLatin1String("IP"), storeBool<&EoeAttributes::IP>},
    AttributeRule<EoeAttributes>{QLatin1String("MAC"), storeBool<&EoeAttributes::MAC>},
};

// ODD, KEPT: there is no row for `CompleteAccess`, where one would expect it to be read like the other attributes. So
// nothing that is generated for a device as loaded is a complete access. Pinned by
// tst_MailboxSection::completeAccessIsNeverRead.
const std::array coeRules{
    AttributeRule<CoeAttributes>{QLatin1String("SdoInfo"), storeBool<&CoeAttributes::SdoInfo>},
    AttributeRule<CoeAttributes>{QLatin1String("PdoAssign"), storeBool<&CoeAttributes::PdoAssign>},
    AttributeRule<CoeAttributes>{QLatin1String("PdoUpload"), storeBool<&CoeAttributes::PdoUpload>},
    AttributeRule<CoeAttributes>{QLatin1String("PdoConfig"), storeBool<&CoeAttributes::PdoConfig>},
    AttributeRule<CoeAttributes>{QLatin1String("SegmentedSdo"), storeBool<&CoeAttributes::SegmentedSdo>},
    AttributeRule<CoeAttributes>{QLatin1String("DiagHistory"), storeBool<&CoeAttributes::DiagHistory>},
};

void appendInitCmd(DeviceCoe& coe, const QDomElement& element)
{
    struct_InitCmd command;
    readChildren(element, initCmdRules<struct_InitCmd, fromText<storeUint<&struct_InitCmd::Index>>>, command);
    coe.InitCmd.vinitcmd.push_back(std::move(command));
}

const std::array coeChildRules{
    ElementRule<DeviceCoe>{QLatin1String("InitCmd"), appendInitCmd},
};

void readEoe(DeviceMailbox& mailbox, const QDomElement& element)
{
    readAttributes(element, eoeRules, mailbox.EOE.Attributes);
}

void readCoe(DeviceMailbox& mailbox, const QDomElement& element)
{
    readAttributes(element, coeRules, mailbox.COE.Attributes);
    readChildren(element, coeChildRules, mailbox.COE);
}

const std::array protocolRules{
    ElementRule<DeviceMailbox>{QLatin1String("EoE"), readEoe},
    ElementRule<DeviceMailbox>{QLatin1String("CoE"), readCoe},
};

} // namespace

void read_device_Mailboxinfo(QDomElement* element, struct_EtherCatDevice* ether_device)
{
    if (element != nullptr && ether_device != nullptr)
        readChildren(*element, protocolRules, ether_device->Mailbox);
}
