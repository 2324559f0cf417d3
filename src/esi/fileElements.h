// fileElements.h - where the parts of an ESI file are, found in one pass over its tree.
#pragma once

#include "esi/xml/tree.h"

#include <array>
#include <cstddef>
#include <functional>
#include <optional>
#include <vector>

/// Sections of a device, in the order of their reading.
enum class DeviceSection : std::size_t
{
    Type,
    Name,
    Mailbox,
    Fmmu,
    Sm,
    Dc,
    RxPdo,
    TxPdo,
    Slots,
    Profile,
    Count
};

/// What is in a device, at whatever depth: other devices may lie between.
struct DeviceElements
{
    xml::Element device;
    /// By `DeviceSection`, in document order: the elements directly in one whose name contains "Device".
    std::array<std::vector<xml::Element>, static_cast<std::size_t>(DeviceSection::Count)> sections{};
    bool hasSlots = false; ///< a `Slots` element is somewhere in the device, whatever its parent
};

/// The parts of an ESI file besides its devices, in document order.
struct FileElements
{
    std::optional<xml::Element> vendor; ///< the first `Vendor`
    std::vector<xml::Element> moduleLists; ///< each `Modules` directly in an element whose name contains "Descriptions"
};

/// Tells which nodes of a `Modules` element are modules. A run of modules begins with a `Module`; until the next
/// comment every element counts as one then.
class ModuleRun
{
public:
    /// To be called for each node in the element.
    /// @return  whether it is a module
    bool take(const xml::Node& node);

    /// Whether the last node was in a run.
    [[nodiscard]] bool isOpen() const { return m_isOpen; }

private:
    bool m_isOpen = false;
};

/// Finds the parts of a file in its root element in one pass. Names are local ones; a part of a parent's name counts,
/// so `Devices` passes for "Device".
/// @param readDevice  called for each `Device`, nested ones too, in document order, as soon as the pass has left the
///                    outermost of them, while its nodes are still in the cache
FileElements walkFile(const xml::Element& root, const std::function<void(const DeviceElements& device)>& readDevice);
