// difference.h - one thing in which two descriptions differ.
#pragma once

#include "diff/value.h"
#include "facts/owner.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace diff {

/// What a difference means for a controller that is set up with the old description. Later ones are worse.
enum class Weight : std::uint8_t
{
    Text, ///< words that people read
    Behaviour, ///< the device does something else
    Breaking, ///< the controller works wrongly with the new one, or not at all
};

/// What has happened.
enum class Change : std::uint8_t
{
    Changed, ///< a value
    Added,
    Removed,
    Moved, ///< it is the same at another place
};

/// What of a device a difference is about.
enum class Area : std::uint8_t
{
    Device,
    SyncManager,
    Fmmu,
    Clocks,
    Pdo,
    Image,
    Startup,
    Slot,
    Module,
    Dictionary,
};

/// What a difference is about, and where it is on both sides.
struct Spot
{
    Area area = Area::Device;
    std::string part; ///< in words: "PDO 0x1a00 \"Inputs\", entry 0x6000:1"; empty for the device itself
    std::optional<facts::Where> before; ///< nothing if it is not in the old file
    std::optional<facts::Where> after; ///< nothing if it is not in the new file
    Weight most = Weight::Breaking; ///< what is in it weighs no more than that
};

/// One difference.
struct Difference
{
    Weight weight = Weight::Text;
    Change change = Change::Changed;
    Spot spot;
    std::string_view key; ///< stable name of the value that has changed, "bitLength"; empty if a part has come or gone
    std::string_view words; ///< the same for people: "length in bits"
    Value before;
    Value after;
};

/// "breaking", "behaviour" or "text".
[[nodiscard]] std::string_view nameOf(Weight weight);

/// "changed", "added", "removed" or "moved".
[[nodiscard]] std::string_view nameOf(Change change);

/// Stable name of an area: "sync-manager".
[[nodiscard]] std::string_view nameOf(Area area);

} // namespace diff
