#include "retrace/exportedPdos.h"

#include "editing/pdoRows.h"
#include "ktl/writing/pdoItemHead.h"
#include "ktl/writing/pdoRecords.h"
#include "model/deviceType.h"

#include <type_traits>

namespace retrace {

namespace {

template<typename Pdo> DeclaredPdo declaredPdoOf(const Pdo& pdo, std::uint32_t row, PdoDirection direction)
{
    DeclaredPdo declared;
    declared.row = row;
    declared.isInput = direction == PdoDirection::Inputs;
    declared.head = pdoItemHead<struct_KTL_PDOListType>(declared.isInput ? KTL_ITEM_TxPdo : KTL_ITEM_RxPdo, pdo,
                                                        entriesOf(pdo).size());
    for (const auto& entry : entriesOf(pdo)) {
        declared.entries.push_back(entryRecordOf(entry));
        declared.names.emplace_back(entry.Name);
    }
    return declared;
}

} // namespace

std::vector<DeclaredPdo> exportedPdosOf(const struct_EtherCatDevice& device)
{
    const bool areFlattened = hasModulePdos(device.m_iDeviceType);
    std::vector<DeclaredPdo> exported;
    std::uint32_t row = 0;
    forEachPdoList(device, [&](const auto& pdos, PdoDirection direction) {
        constexpr bool areOfModules = std::is_same_v<std::decay_t<decltype(pdos)>, std::vector<modulePdo>>;
        for (const auto& pdo : pdos) {
            if ((!areOfModules || areFlattened) && hasItem(pdo, device.vSM))
                exported.push_back(declaredPdoOf(pdo, row, direction));
            ++row;
        }
    });
    return exported;
}

bool areSamePdo(const DeclaredPdo& declared, const KtlPdo& exported)
{
    return declared.isInput == exported.isInput && declared.head.Fixed == exported.head.Fixed
           && declared.head.Mandatory == exported.head.Mandatory && declared.head.SM == exported.head.SM
           && declared.head.SU == exported.head.SU && declared.head.IndexAttributes == exported.head.IndexAttributes;
}

bool areSameEntry(const struct_KTL_EntryPDOContent& left, const struct_KTL_EntryPDOContent& right)
{
    return left.m_bFixed == right.m_bFixed && left.Index == right.Index && left.SubIndex == right.SubIndex
           && left.Bitlen == right.Bitlen;
}

} // namespace retrace
