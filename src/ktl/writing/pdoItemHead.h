// pdoItemHead.h - the head of an item that holds entries of PDOs, of a device or of a module.
#pragma once

#include "ktl/format/ktlFormat.h"
#include "model/pdoAccess.h"

#include <cstddef>
#include <cstdint>

/// Head by a PDO's attributes; the size is left to `writeListItem`.
/// @tparam Item  struct_KTL_PDOListType or struct_KTL_moduleEntryType, whose heads are the same
/// @param entries  number of records after the head
template<typename Item, typename Pdo>
[[nodiscard]] Item pdoItemHead(enum_KTL_ITEM_TYPE type, const Pdo& pdo, std::size_t entries)
{
    Item head{};
    head.m_iItemType = type;
    head.Fixed = pdo.Attributes.Fixed ? 1 : 0;
    head.Mandatory = pdo.Attributes.Mandatory ? 1 : 0;
    head.SM = pdo.Attributes.SM;
    head.SU = pdo.Attributes.SU;
    head.IndexAttributes = indexOf(pdo);
    head.m_iCount = static_cast<std::uint32_t>(entries);
    return head;
}
