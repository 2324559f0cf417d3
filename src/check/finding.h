// finding.h - what a rule has found.
#pragma once

#include "check/factNames.h"
#include "check/rules/rule.h"

#include <QString>

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace check {

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
