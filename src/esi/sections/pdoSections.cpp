// pdoSections.cpp - one `RxPdo` or `TxPdo` element of a device.
#include "esi/fieldRules.h"
#include "esi/sections/pdoReader.h"
#include "esi/sections/sectionReaders.h"
#include "esi/storeField.h"

#include <array>
#include <string_view>

namespace {

const std::array pdoAttributeRules{
    attribute("Sm", storeUint<&PdoAttributes::SM>),
    attribute("Mandatory", storeBool<&PdoAttributes::Mandatory>),
    attribute("Fixed", storeBool<&PdoAttributes::Fixed>),
    // "SU" on the PDO of a device, while the PDO of a module has "Su": vendors' files follow the two schemas.
    attribute("SU", storeUint<&PdoAttributes::SU>),
    attribute("OSFac", storeUint<&PdoAttributes::m_OSFac>),
    attribute("OSMin", storeUint<&PdoAttributes::m_OSMin>),
    attribute("OSMax", storeUint<&PdoAttributes::m_OSMax>),
    attribute("OSIndexInc", storeUint<&PdoAttributes::m_OSIndexInc>),
};

// ODD, KEPT: an entry keeps its last name that has a text, while a PDO takes the last name even if it is empty; on the
// PDOs of modules it is the other way round. One would expect one rule for all. Pinned by
// tst_DevicePdoEntries::entryName, tst_PdoSections::pdoName and tst_ModulePdos::names.
const std::array entryRules{
    child("Index", ofRecord<storeUint<&struct_EntryPDOContent::Index>>),
    child("SubIndex", ofRecord<storeUint<&struct_EntryPDOContent::SubIndex>>),
    child("BitLen", storeBitLength<&struct_EntryPDOContent::Bitlen>),
    child("Name", ofRecord<storeTextIfAny<&struct_EntryPDOContent::Name>>),
    child("DataType", ofRecord<storeText<&struct_EntryPDOContent::DataType>>),
};

void storeIndex(struct_PDOList& to, std::string_view value)
{
    storeUint<&PdoIndex::Index>(to.IndexAttributes, value);
}

const std::array pdoRules{
    child("Index", ofRecord<storeIndex>),
    child("Name", ofRecord<storeText<&struct_PDOList::Name>>),
    child("Entry", appendEntry<struct_PDOList, struct_EntryPDOContent, entryRules>),
};

} // namespace

void appendRxPdo(struct_EtherCatDevice& device, const xml::Element& element)
{
    device.RxPdo.vpdo.push_back(pdoFrom<&struct_PDOList::Size>(element, pdoAttributeRules, pdoRules));
}

void appendTxPdo(struct_EtherCatDevice& device, const xml::Element& element)
{
    device.TxPdo.vpdo.push_back(pdoFrom<&struct_PDOList::Size>(element, pdoAttributeRules, pdoRules));
}
