// pdoSections.cpp - one `RxPdo` or `TxPdo` element of a device.
#include "esi/fieldRules.h"
#include "esi/storeField.h"
#include "esi/xmlparsing.h"

#include <array>
#include <cstdint>
#include <utility>

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

/// A PDO while its element is read.
struct PdoBeingRead
{
    struct_PDOList pdo;
    std::int32_t bits = 0; ///< total of all entries so far
};

/// An entry while its element is read.
struct EntryBeingRead
{
    struct_EntryPDOContent entry;
    std::int32_t bitsOfPdo = 0; ///< running total of the PDO, with this entry's lengths
};

template<auto Store> void storeInEntry(EntryBeingRead& to, const QString& value)
{
    Store(to.entry, value);
}

void storeBitlen(EntryBeingRead& to, const QString& value)
{
    storeUint<&struct_EntryPDOContent::Bitlen>(to.entry, value);
    to.bitsOfPdo = addBits(to.bitsOfPdo, to.entry.Bitlen);
}

// ODD, KEPT: an entry keeps its last name that has a text, while a PDO takes the last name even if it is empty; on the
// PDOs of modules it is the other way round. Files with names in two languages leave one empty now and then, on device
// entries and on module PDOs, and the firmware's tools know the names that come out of exactly these rules. Pinned by
// tst_PdoEntries::entryName and tst_PdoSections::pdoName.
const std::array entryRules{
    ElementRule<EntryBeingRead>{QLatin1String("Index"),
                                fromText<storeInEntry<storeUint<&struct_EntryPDOContent::Index>>>},
    ElementRule<EntryBeingRead>{QLatin1String("SubIndex"),
                                fromText<storeInEntry<storeUint<&struct_EntryPDOContent::SubIndex>>>},
    ElementRule<EntryBeingRead>{QLatin1String("BitLen"), fromText<storeBitlen>},
    ElementRule<EntryBeingRead>{QLatin1String("Name"),
                                fromText<storeInEntry<storeTextIfAny<&struct_EntryPDOContent::Name>>>},
    ElementRule<EntryBeingRead>{QLatin1String("DataType"),
                                fromText<storeInEntry<storeText<&struct_EntryPDOContent::DataType>>>},
};

void appendEntry(PdoBeingRead& to, const QDomElement& element)
{
    EntryBeingRead reading;
    reading.bitsOfPdo = to.bits;
    reading.entry.Offs = byteBitForm(to.bits); // the place before this entry
    readChildren(element, entryRules, reading);
    to.bits = reading.bitsOfPdo;
    to.pdo.Entry.vPdo_c.push_back(std::move(reading.entry));
}

void storeIndex(PdoBeingRead& to, const QString& value)
{
    storeUint<&PdoIndex::Index>(to.pdo.IndexAttributes, value);
}

void storeName(PdoBeingRead& to, const QString& value)
{
    storeText<&struct_PDOList::Name>(to.pdo, value);
}

const std::array pdoRules{
    ElementRule<PdoBeingRead>{QLatin1String("Index"), fromText<storeIndex>},
    ElementRule<PdoBeingRead>{QLatin1String("Name"), fromText<storeName>},
    ElementRule<PdoBeingRead>{QLatin1String("Entry"), appendEntry},
};

struct_PDOList pdoFrom(const QDomElement& element)
{
    PdoBeingRead reading;
    readAttributes(element, pdoAttributeRules, reading.pdo.Attributes);
    readChildren(element, pdoRules, reading);
    reading.pdo.Size = byteBitForm(reading.bits);
    return std::move(reading.pdo);
}

} // namespace

void read_device_RxPdoinfo(QDomElement* element, struct_EtherCatDevice* ether_device)
{
    if (element != nullptr && ether_device != nullptr)
        ether_device->RxPdo.vpdo.push_back(pdoFrom(*element));
}

void read_device_TxPdoinfo(QDomElement* element, struct_EtherCatDevice* ether_device)
{
    if (element != nullptr && ether_device != nullptr)
        ether_device->TxPdo.vpdo.push_back(pdoFrom(*element));
}
