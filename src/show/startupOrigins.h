// startupOrigins.h - where each startup command comes from.
#pragma once

#include "ktl/reading/ktlDeviceBlocks.h"
#include "model/deviceRecords.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace show {

/// Where a startup command comes from, and what a KTL file has no place for.
struct StartupSource
{
    const char* origin; ///< "ESI", "module", "PDO mapping", "PDO assignment", "EoE" or "unknown"
    std::optional<std::string_view> comment; ///< in the command itself; nothing for a command of a KTL file
    std::optional<std::string_view> text; ///< its data as the window shows it; as the comment
    std::optional<std::int64_t> choiceRow; ///< its row in choices files; nothing where they cannot name it
};

/// Sources of the commands of a device, in the order in which a KTL file carries them: EoE, then CoE.
struct StartupSources
{
    std::vector<StartupSource> eoe;
    std::vector<StartupSource> coe;
};

/// Sources of a device as it was loaded from an ESI file. They are exact: the generated commands follow the declared
/// ones in their lists, and generating them again shows how many there are.
/// @param device  not changed when this returns; has to outlive the result
[[nodiscard]] StartupSources startupSourcesOf(struct_EtherCatDevice& device);

/// Sources of a device of a KTL file, which carries none. A CoE command of transition PS is taken for a generated one if
/// its object assigns PDOs and the device does so, or maps PDOs and the device configures them. So is an EoE command of
/// IP_PS, since no ESI text reads as that transition. All others are unknown.
[[nodiscard]] StartupSources startupSourcesOf(const KtlDeviceBlock& block);

/// The source of a command by its place in its list. One after the last source is unknown: an export that cannot be
/// read in full can seem to hold more commands than the device has.
[[nodiscard]] const StartupSource& sourceAt(const std::vector<StartupSource>& sources, std::size_t place);

} // namespace show
