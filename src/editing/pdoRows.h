// pdoRows.h - which row of a PDO list stands for which PDO. No row stores its PDO: views and editors look it up
// by the row's number, so that a row that has become stale finds nothing instead of a record that is gone.
#pragma once

#include "editing/linkTexts.h"
#include "model/deviceRecords.h"

#include <cstddef>
#include <type_traits>

/// Calls `visit(pdos, direction)` for each list of PDOs, in the order of the rows: a device's own outputs and inputs
/// and then those of its modules; of a module its outputs and inputs.
/// @param owner  a `struct_EtherCatDevice` or a `struct_module`, constant or not
template<typename Owner, typename Visitor> void forEachPdoList(Owner& owner, Visitor visit)
{
    visit(owner.RxPdo.vpdo, PdoDirection::Outputs);
    visit(owner.TxPdo.vpdo, PdoDirection::Inputs);
    if constexpr (std::is_same_v<std::remove_const_t<Owner>, struct_EtherCatDevice>) {
        visit(owner.mRxPdo.mpdo, PdoDirection::Outputs);
        visit(owner.mTxPdo.mpdo, PdoDirection::Inputs);
    }
}

/// Calls `visit(pdo, direction)` for the PDO at a row.
/// @param row  from 0; a negative row or one past the lists stands for no PDO
/// @return     whether there is one
template<typename Owner, typename Visitor> bool visitPdoRow(Owner& owner, int row, Visitor visit)
{
    if (row < 0)
        return false;
    auto position = static_cast<std::size_t>(row);
    bool isFound = false;
    forEachPdoList(owner, [&](auto& pdos, PdoDirection direction) {
        if (isFound)
            return;
        if (position < pdos.size()) {
            isFound = true;
            visit(pdos[position], direction);
        } else {
            position -= pdos.size();
        }
    });
    return isFound;
}
