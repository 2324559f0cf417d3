// documentElements.h - where the parts of an ESI document are, found in one pass over it.
#pragma once

#include <QDomElement>

#include <array>
#include <cstddef>
#include <functional>
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

/// What is under a device, at whatever depth: other devices may lie between.
struct DeviceElements
{
    /// By `DeviceSection`, in document order: the elements directly under one whose tag contains "Device".
    std::array<std::vector<QDomElement>, static_cast<std::size_t>(DeviceSection::Count)> sections;
    bool hasSlots = false; ///< a `Slots` element is somewhere under the device, whatever its parent
};

/// The parts of an ESI document besides its devices, in document order.
struct DocumentElements
{
    QDomElement vendor; ///< the first `Vendor`, null if there is none
    std::vector<QDomElement>
        moduleLists; ///< each `Modules` directly under an element whose tag contains "Descriptions"
};

/// Finds the parts of a document under its root element in one pass. Names are local ones; a part of a parent's tag
/// counts, so `Devices` passes for "Device".
/// @param readDevice  called for each `Device`, nested ones too, in document order, as soon as the pass has left the
///                    outermost of them, while its nodes are still in the cache
DocumentElements walkDocument(const QDomElement& root, const std::function<void(DeviceElements& device)>& readDevice);
