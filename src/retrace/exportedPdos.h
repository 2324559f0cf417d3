// exportedPdos.h - the PDOs of a device that go out with it, as the file has them.
#pragma once

#include "ktl/reading/ktlDeviceBlocks.h"
#include "model/deviceRecords.h"

#include <cstdint>
#include <string_view>
#include <vector>

namespace retrace {

/// A PDO of a description, as an export carries it.
struct DeclaredPdo
{
    std::uint32_t row = 0; ///< in the list of PDOs
    bool isInput = false;
    struct_KTL_PDOListType head = {};
    std::vector<struct_KTL_EntryPDOContent> entries;
    std::vector<std::string_view> names; ///< of the entries; parts of the device
};

/// The PDOs that an export of a device writes, in its order.
/// @throws MissingSyncManager if the device lacks one that a PDO names
[[nodiscard]] std::vector<DeclaredPdo> exportedPdosOf(const struct_EtherCatDevice& device);

/// Whether two PDOs are alike but for their entries.
[[nodiscard]] bool areSamePdo(const DeclaredPdo& declared, const KtlPdo& exported);

/// Whether two entries are alike but for their links.
[[nodiscard]] bool areSameEntry(const struct_KTL_EntryPDOContent& left, const struct_KTL_EntryPDOContent& right);

} // namespace retrace
