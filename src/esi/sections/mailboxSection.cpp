// mailboxSection.cpp - the `Mailbox` element of a device: EoE and CoE flags, and the declared startup commands.
#include "esi/fieldRules.h"
#include "esi/storeField.h"
#include "esi/xmlparsing.h"

#include <array>
#include <cstdint>
#include <utility>

namespace {

const std::array eoeRules{
    AttributeRule<EoeAttributes>{QLatin1String("IP"), storeBool<&EoeAttributes::IP>},
    AttributeRule<EoeAttributes>{QLatin1String("MAC"), storeBool<&EoeAttributes::MAC>},
};

// ODD, KEPT: there is no row for CompleteAccess. ESI files declare that attribute, but a controller that found it set
// would get its PDO mapping as one complete access; that is switched on per device by other means than the ESI. Pinned
// by tst_MailboxSection::completeAccessIsNeverRead.
const std::array coeRules{
    AttributeRule<CoeAttributes>{QLatin1String("SdoInfo"), storeBool<&CoeAttributes::SdoInfo>},
    AttributeRule<CoeAttributes>{QLatin1String("PdoAssign"), storeBool<&CoeAttributes::PdoAssign>},
    AttributeRule<CoeAttributes>{QLatin1String("PdoUpload"), storeBool<&CoeAttributes::PdoUpload>},
    AttributeRule<CoeAttributes>{QLatin1String("PdoConfig"), storeBool<&CoeAttributes::PdoConfig>},
    AttributeRule<CoeAttributes>{QLatin1String("SegmentedSdo"), storeBool<&CoeAttributes::SegmentedSdo>},
    AttributeRule<CoeAttributes>{QLatin1String("DiagHistory"), storeBool<&CoeAttributes::DiagHistory>},
};

/// Data of a command: byte count, number and text.
void storeData(struct_InitCmd& to, const QString& value)
{
    // ODD, KEPT: the count takes the text whole, so a "#x" mark counts as one byte, and data of more than four bytes
    // keeps its count although the number is 0. The startup list shows the count as the description announced it,
    // so that an engineer sees at once which command needs its data by other means. Pinned by tst_MailboxSection::data.
    to.DataBytes = static_cast<std::uint16_t>(value.size() / 2);
    to.Data = toUintFromBytes(value);
    to.strData = xmlGetStringuint(to.Data).toStdString();
}

// A command has one transition. ESI allows several `Transition` elements; the last one wins.
const std::array initCmdRules{
    ElementRule<struct_InitCmd>{QLatin1String("Transition"), fromText<storeToken<&struct_InitCmd::Transition>>},
    ElementRule<struct_InitCmd>{QLatin1String("Index"), fromText<storeUint<&struct_InitCmd::Index>>},
    ElementRule<struct_InitCmd>{QLatin1String("SubIndex"), fromText<storeUint<&struct_InitCmd::SubIndex>>},
    ElementRule<struct_InitCmd>{QLatin1String("Data"), fromText<storeData>},
    ElementRule<struct_InitCmd>{QLatin1String("Comment"), fromText<storeText<&struct_InitCmd::Comment>>},
};

void appendInitCmd(DeviceCoe& coe, const QDomElement& element)
{
    struct_InitCmd command;
    readChildren(element, initCmdRules, command);
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
