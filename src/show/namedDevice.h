// namedDevice.h - how a device of a shown file is called.
#pragma once

#include "facts/owner.h"
#include "show/shownFile.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace show {

/// Names and identity of a device.
struct NamedDevice
{
    facts::Owner owner;
    std::string name;
    std::string type; ///< empty in a KTL file
    std::uint32_t vendor = 0;
    std::uint32_t product = 0;
    std::uint32_t revision = 0;
};

[[nodiscard]] NamedDevice namedDevice(const ShownFile& file, std::size_t index);

/// All devices of a file.
[[nodiscard]] std::vector<NamedDevice> namedDevices(const ShownFile& file);

/// "0x7e570002:0x5001:0x30001", as selectors take it.
[[nodiscard]] std::string identityText(const NamedDevice& device);

} // namespace show
