// selectorRecord.h - what selectors need to know of the devices of a file that has no record, or none any more.
#pragma once

#include "cli/streamName.h"
#include "facts/owner.h"
#include "model/deviceRecords.h"

#include <QFile>
#include <QString>

#include <vector>

namespace cli {

/// A record with nothing but the names and identities of devices, for `selectedDevices`.
/// @param path   of the file, "-" for standard input
/// @param units  what is known of devices and modules: `facts::UnitFacts`, or a type with members of these names
template<typename Unit>
[[nodiscard]] struct_FilenameDevice selectorRecordOf(const QString& path, const std::vector<Unit>& units)
{
    struct_FilenameDevice record;
    record.xmlfilepath = QFile::encodeName(shownName(path)).toStdString();
    for (const Unit& unit : units) {
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
