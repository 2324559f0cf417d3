// pdoSections.cpp - one `RxPdo` or `TxPdo` element of a device.
#include "esi/fieldRules.h"
#include "esi/sections/pdoReader.h"
#include "esi/storeField.h"
#include "esi/xmlparsing.h"

#include <array>

namespace {

const std::array pdoAttributeRules{
    AttributeRule<PdoAttributes>{QLatin1String("Sm"), storeUint<&PdoAttributes::SM>},
    AttributeRule<PdoAttributes>{QLatin1String("Mandatory"), storeBool<&PdoAttributes::Mandatory>},
    AttributeRule<PdoAttributes>{QLatin1String("Fixed"), storeBool<&PdoAttributes::Fixed>},
    // "SU" on the PDO of a device, while the PDO of a module has "Su": vendors' files follow the two schemas.
    AttributeRule<PdoAttributes>{QLatin1String("SU"), storeUint<&PdoAttributes::SU>},
    AttributeRule<PdoAttributes>{QLatin1String("OSFac"), storeUint<&PdoAttributes::m_OSFac>},
    AttributeRule<PdoAttributes>{QLatin1String("OSMin"), storeUint<&PdoAttributes::m_OSMin>},
    AttributeRule<PdoAttributes>{QLatin1String("OSMax"), storeUint<&PdoAttributes::m_OSMax>},
    AttributeRule<PdoAttributes>{QLatin1String("OSIndexInc"), storeUint<&PdoAttributes::m_OSIndexInc>},
};

using DevicePdo = BeingRead<struct_PDOList>;
using DeviceEntry = BeingRead<struct_EntryPDOContent>;

// ODD, KEPT: an entry keeps its last name that has a text, while a PDO takes the last name even if it is empty; on the
// PDOs of modules it is the other way round. One would expect one rule for all. Pinned by tst_DevicePdoEntries::entryName,
// tst_PdoSections::pdoName and tst_ModulePdos::names.
const std::array entryRules{
    ElementRule<DeviceEntry>{QLatin1String("Index"), recordFromText<storeUint<&struct_EntryPDOContent::Index>>},
    ElementRule<DeviceEntry>{QLatin1String("SubIndex"), recordFromText<storeUint<&struct_EntryPDOContent::SubIndex>>},
    ElementRule<DeviceEntry>{QLatin1String("BitLen"), fromText<storeBitLength<&struct_EntryPDOContent::Bitlen>>},
    ElementRule<DeviceEntry>{QLatin1String("Name"), recordFromText<storeTextIfAny<&struct_EntryPDOContent::Name>>},
    ElementRule<DeviceEntry>{QLatin1String("DataType"), recordFromText<storeText<&struct_EntryPDOContent::DataType>>},
};

void storeIndex(struct_PDOList& to, const QString& value)
{
    storeUint<&PdoIndex::Index>(to.IndexAttributes, value);
}

const std::array pdoRules{
    ElementRule<DevicePdo>{QLatin1String("Index"), recordFromText<storeIndex>},
    ElementRule<DevicePdo>{QLatin1String("Name"), recordFromText<storeText<&struct_PDOList::Name>>},
    ElementRule<DevicePdo>{QLatin1String("Entry"), appendEntry<struct_EntryPDOContent, entryRules>},
};

} // namespace

void read_device_RxPdoinfo(QDomElement* element, struct_EtherCatDevice* ether_device)
{
    if (element != nullptr && ether_device != nullptr)
        ether_device->RxPdo.vpdo.push_back(pdoFrom<&struct_PDOList::Size>(*element, pdoAttributeRules, pdoRules));
}

void read_device_TxPdoinfo(QDomElement* element, struct_EtherCatDevice* ether_device)
{
    if (element != nullptr && ether_device != nullptr)
        ether_device->TxPdo.vpdo.push_back(pdoFrom<&struct_PDOList::Size>(*element, pdoAttributeRules, pdoRules));
}
