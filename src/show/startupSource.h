// startupSource.h - where a startup command comes from.
#pragma once

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

} // namespace show
