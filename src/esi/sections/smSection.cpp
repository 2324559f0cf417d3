// smSection.cpp - one `Sm` element of a device.
#include "esi/directionName.h"
#include "esi/fieldRules.h"
#include "esi/storeField.h"
#include "esi/xmlparsing.h"

#include <array>
#include <cstdint>
#include <utility>

namespace {

const std::array smRules{
    AttributeRule<SmAttributes>{QLatin1String("DefaultSize"), storeUint<&SmAttributes::DefaultSize>},
    AttributeRule<SmAttributes>{QLatin1String("StartAddress"), storeUint<&SmAttributes::StartAddress>},
    AttributeRule<SmAttributes>{QLatin1String("MinSize"), storeUint<&SmAttributes::MinSize>},
    AttributeRule<SmAttributes>{QLatin1String("MaxSize"), storeUint<&SmAttributes::MaxSize>},
    AttributeRule<SmAttributes>{QLatin1String("ControlByte"), storeUint<&SmAttributes::ControlByte>},
    AttributeRule<SmAttributes>{QLatin1String("Enable"), storeUint<&SmAttributes::Enable>},
    AttributeRule<SmAttributes>{QLatin1String("Virtual"), storeUint<&SmAttributes::m_Virtual>},
};

} // namespace

void read_device_SMinfo(QDomElement* element, struct_EtherCatDevice* ether_device)
{
    if (element == nullptr || ether_device == nullptr)
        return;
    struct_SM syncManager;
    // ESI has no attribute for the number: sync managers are numbered in document order.
    syncManager.SM = static_cast<std::uint8_t>(ether_device->vSM.size());
    readAttributes(*element, smRules, syncManager.Attributes);
    const QString name = element->text();
    syncManager.Name = name.toStdString();
    // ODD, KEPT: any name but the four exact ones counts as mailbox output (1), also none, one in another case, and one
    // with a blank around it. One would expect 0, as for an FMMU. Pinned by tst_SmSection::type.
    syncManager.Smtype = directionByName(name, KTL_MBoxOut);
    ether_device->vSM.push_back(std::move(syncManager));
}
