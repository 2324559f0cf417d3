// finding.h - what a rule has found.
#pragma once

#include "check/rules/rule.h"
#include "esi/xml/tree.h"

#include <QString>

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace check {

/// Where something is in its file, in a form that grows with the place: the key of a node of an ESI file, or the byte
/// offset in a KTL file.
using Where = xml::PlaceKey;

/// What a finding is about.
enum class OwnerKind : std::uint8_t
{
    File,
    Device,
    Module,
};

/// The device, module or file that a finding is about.
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

/// One finding.
struct Finding
{
    const Rule* rule;
    Owner owner;
    Where where;
    xml::Place place; ///< in an ESI file: from `where`, if the rule has not set it
    QString text; ///< see `Report::add`
};

/// Whether a finding comes before another one in their file.
[[nodiscard]] bool isBefore(const Finding& left, const Finding& right);

/// A device or module as those who read findings know it.
struct UnitName
{
    Owner owner;
    Where where = 0;
    xml::Place place; ///< in an ESI file, from `where`
    std::uint32_t vendor = 0; ///< of a device
    std::uint32_t product = 0; ///< of a device
    std::uint32_t revision = 0; ///< of a device
    std::string name;
    std::string type; ///< text of the `Type` element; empty in a KTL file
};

/// Findings that were not kept, since there are so many of one rule about one device, module or file.
struct Omission
{
    const Rule* rule;
    Owner owner;
    std::size_t count;
};

/// The findings of a file.
struct Findings
{
    std::vector<Finding> list; ///< in the order of the file
    std::vector<Omission> omissions;
    std::vector<UnitName> units; ///< the devices of the file, then its modules
};

} // namespace check
