// found.h - a device or module that was found in a file.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace find {

/// What was found.
enum class FoundKind : std::uint8_t
{
    Device,
    Module,
};

/// A device or module, as the readers of its file would give it.
struct Found
{
    FoundKind kind = FoundKind::Device;
    std::uint32_t vendor = 0;
    std::uint32_t number = 0; ///< product code of a device, ident of a module
    std::uint32_t revision = 0; ///< 0 for a module
    std::string type;
    std::string name;
    std::uint64_t place = 0; ///< line in an ESI file, from 1; offset of a byte in a KTL file
};

/// Devices and modules that are kept of a file; real files reach some hundreds.
inline constexpr std::size_t maxFound = 50000;

/// Which ones are wanted of a file.
enum class Wanted : std::uint8_t
{
    Devices,
    DevicesAndModules,
};

} // namespace find
