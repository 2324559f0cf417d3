#include "diff/difference.h"

#include <array>
#include <cstddef>

namespace diff {

std::string_view nameOf(Weight weight)
{
    constexpr std::array<std::string_view, 3> names{"text", "behaviour", "breaking"};
    return names.at(static_cast<std::size_t>(weight));
}

std::string_view nameOf(Change change)
{
    constexpr std::array<std::string_view, 4> names{"changed", "added", "removed", "moved"};
    return names.at(static_cast<std::size_t>(change));
}

std::string_view nameOf(Area area)
{
    constexpr std::array<std::string_view, 10> names{"device", "sync-manager", "fmmu", "clocks", "pdo",
                                                     "image",  "startup",      "slot", "module", "dictionary"};
    return names.at(static_cast<std::size_t>(area));
}

} // namespace diff
