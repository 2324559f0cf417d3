// retracedDevices.h - small devices, their exports, and what an export gives after choices.
#pragma once

#include "choices/apply.h"
#include "ktl/writing/deviceBytes.h"
#include "model/startupAccess.h"
#include "retrace/deviceRetrace.h"

#include <QDate>
#include <QTime>

#include <string>
#include <utility>
#include <vector>

namespace retracedDevices {

using Bytes = std::vector<unsigned char>;

inline struct_SM syncManager(const std::string& name, std::uint8_t type)
{
    struct_SM syncManager;
    syncManager.Name = name;
    syncManager.Smtype = type;
    return syncManager;
}

/// A device with outputs on its first sync manager and inputs on its second one.
inline struct_EtherCatDevice deviceWithSyncManagers()
{
    struct_EtherCatDevice device;
    device.Name = "D";
    device.vSM = {syncManager("Outputs", 3), syncManager("Inputs", 4)};
    device.vSM[1].SM = 1;
    return device;
}

/// Number of an entry's sub-index and its name; it has 8 bits.
inline struct_EntryPDOContent entry(std::uint16_t index, std::uint32_t subIndex, const std::string& name)
{
    struct_EntryPDOContent entry;
    entry.Index = index;
    entry.SubIndex = subIndex;
    entry.Bitlen = 8;
    entry.Name = name;
    return entry;
}

inline struct_PDOList pdo(std::uint16_t index, int syncManager, std::vector<struct_EntryPDOContent> entries)
{
    struct_PDOList pdo;
    pdo.IndexAttributes.Index = index;
    pdo.Attributes.SM = syncManager;
    pdo.Entry.vPdo_c = std::move(entries);
    return pdo;
}

inline struct_moduleEntry moduleEntry(std::uint16_t index, std::uint16_t subIndex, const std::string& name)
{
    struct_moduleEntry entry;
    entry.indexAttributes.index = index;
    entry.SubIndex = subIndex;
    entry.BitLen = 8;
    entry.Name = name;
    return entry;
}

inline modulePdo pdoOfModule(std::uint16_t index, int syncManager, std::vector<struct_moduleEntry> entries)
{
    modulePdo pdo;
    pdo.indexAttributes.index = index;
    pdo.indexAttributes.DependOnSlot = true;
    pdo.Attributes.SM = syncManager;
    pdo.vEntry = std::move(entries);
    return pdo;
}

inline struct_module module(std::uint32_t ident, const std::string& name)
{
    struct_module module;
    module.TypeAttributes.ModuleIdent = ident;
    module.Name = name;
    return module;
}

/// A command from PREOP to SAFEOP with two bytes.
template<typename Command>
Command command(std::uint16_t index, std::uint8_t subIndex, std::uint32_t data, const std::string& comment)
{
    Command command;
    command.Transition = PS;
    indexOf(command) = index;
    command.SubIndex = subIndex;
    command.DataBytes = 2;
    command.Data = data;
    command.Comment = comment;
    return command;
}

inline QDateTime exportTime()
{
    return {QDate(2026, 1, 2), QTime(3, 4, 5), Qt::UTC};
}

/// An export of one device.
inline retrace::ExportedBlock exportOf(struct_EtherCatDevice device, struct_FilenameDevice file)
{
    retrace::ExportedBlock block;
    block.exportTime = exportTime();
    block.bytes = deviceBytesOf(device, file, block.exportTime);
    const KtlWalk walk = walkItems(block.bytes);
    block.content = deviceBlockAt(walk, blockPlacesOf(walk).at(0));
    return block;
}

/// A device as a click leaves it.
inline struct_EtherCatDevice clicked(struct_EtherCatDevice device)
{
    DeviceClicks().select(device);
    return device;
}

/// The export of a device after choices; no bytes if a choice does not fit.
inline Bytes bytesAfter(const choices::DeviceChoices& choices, struct_EtherCatDevice device, struct_FilenameDevice file)
{
    DeviceClicks clicks;
    choices::Problems problems;
    choices::makeDeviceChoices(choices, file, device, choices::ModuleLookUp(file), clicks, problems);
    return problems.count() == 0 ? deviceBytesOf(device, file, exportTime()) : Bytes();
}

/// What someone does to a device by hand.
using Edit = void (*)(struct_EtherCatDevice& device);

} // namespace retracedDevices

Q_DECLARE_METATYPE(retracedDevices::Edit)
