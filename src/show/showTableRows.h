// showTableRows.h - what the tables of `ktl show --csv` have in common.
#pragma once

#include "model/moduleAccess.h"
#include "show/namedDevice.h"
#include "show/showWords.h"
#include "show/shownFile.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace show {

/// Fields of a row.
using Fields = std::vector<std::string>;

/// The columns that all tables begin with.
struct Place
{
    std::string file;
    std::string device; ///< number in the file, from 1; empty for a module of the file
    std::string deviceName; ///< empty where it is not known
    std::string owner; ///< what of the device or file the row belongs to
};

/// A row with the columns that all tables begin with.
[[nodiscard]] Fields rowOf(const Place& place, const Fields& fields);

template<typename Number> [[nodiscard]] std::string numeral(Number number)
{
    return std::to_string(number);
}

/// A number, or an empty field for none.
[[nodiscard]] std::string numeral(const std::optional<std::int64_t>& number);

[[nodiscard]] std::string yesOrNo(bool isSet);

[[nodiscard]] std::string moduleOwner(std::uint32_t ident);

/// Calls `visit(place, device, index)` for each device of a file that is shown.
template<typename Visitor> void forEachDevice(const ShownFile& file, Visitor visit)
{
    for (const std::size_t index : file.shown)
        visit(Place{file.name, numeral(index + 1), namedDevice(file, index).name, "device"}, file.devices[index],
              index);
}

/// Calls `visit(module, place)` for each module of an ESI file, unless some devices alone are shown.
template<typename Visitor> void forEachShownModule(const ShownFile& file, Visitor visit)
{
    if (file.esi && !file.isPart)
        forEachModule(*file.esi, [&](const struct_module& module) {
            visit(module, Place{file.name, {}, {}, moduleOwner(module.TypeAttributes.ModuleIdent)});
        });
}

} // namespace show
