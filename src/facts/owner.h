// owner.h - which device or module of a file something is about, and where it is.
#pragma once

#include "esi/xml/tree.h"

#include <cstddef>
#include <cstdint>

namespace facts {

/// Where something is in its file, in a form that grows with the place: the key of a node of an ESI file, or the byte
/// offset in a KTL file.
using Where = xml::PlaceKey;

/// What something is about.
enum class OwnerKind : std::uint8_t
{
    File,
    Device,
    Module,
};

/// A device, a module, or a file as a whole.
struct Owner
{
    OwnerKind kind = OwnerKind::File;
    std::size_t index = 0; ///< of the device or module in its file, from 0
};

[[nodiscard]] constexpr bool operator==(const Owner& left, const Owner& right) noexcept
{
    return left.kind == right.kind && left.index == right.index;
}

[[nodiscard]] constexpr bool operator<(const Owner& left, const Owner& right) noexcept
{
    return left.kind != right.kind ? left.kind < right.kind : left.index < right.index;
}

} // namespace facts
