// selectorRecord.h - what selectors need to know of the devices of a file that has no record, or none any more.
#pragma once

#include "cli/streamName.h"
#include "facts/owner.h"
#include "model/deviceRecords.h"

#include <QFile>
#include <QString>

#include <vector>

namespace cli {

/// A unit of a list of units, or of one of pointers to them.
template<typename Unit> [[nodiscard]] const Unit& unitOf(const Unit& unit)
{
    return unit;
}

template<typename Unit> [[nodiscard]] const Unit& unitOf(const Unit* unit)
{
    return *unit;
}

/// A record with nothing but the names and identities of devices, for `selectedDevices`.
/// @param path   of the file, "-" for standard input
/// @param units  what is known of devices and modules: `facts::UnitFacts`, or a type with members of these names, or
///               pointers to them
template<typename Units> [[nodiscard]] struct_FilenameDevice selectorRecordOf(const QString& path, const Units& units)
{
    struct_FilenameDevice record;
    record.xmlfilepath = QFile::encodeName(shownName(path)).toStdString();
    for (const auto& listed : units) {
        const auto& unit = unitOf(listed);
        if (unit.owner.kind != facts::OwnerKind::Device)
            continue;
        struct_EtherCatDevice& device = record.device.emplace_back();
        device.Name = unit.name;
        device.TypeAttributes.type = unit.type;
        device.TypeAttributes.m_iVendor_Id = unit.vendor;
        device.TypeAttributes.Product_Code = unit.product;
        device.TypeAttributes.Revision_No = unit.revision;
    }
    return record;
}

} // namespace cli
