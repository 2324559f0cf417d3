// exportChecks.h - what is said before an export, and the file name that it proposes.
#pragma once

#include "model/deviceRecords.h"

#include <QString>
#include <QStringList>

#include <cstddef>
#include <vector>

/// What the controller cannot handle of a device.
enum class ExportWarning
{
    SyncManagers, ///< more than `maxSyncManagers`
    SlotPdoIncrement, ///< a slot shifts PDO indexes by another step than the device
    SlotIndexIncrement, ///< a slot shifts object indexes by another step than the device
    StartupCommands, ///< more than `maxStartupCommands`
};

constexpr std::size_t maxSyncManagers = 4; ///< of a device, that the controller handles
constexpr std::size_t maxStartupCommands = 254; ///< of a device, that any firmware takes

/// What the controller cannot handle, in the order in which it is shown; empty if there is nothing. No limit stops an
/// export: these are warnings and nothing more.
[[nodiscard]] std::vector<ExportWarning> exportWarningsOf(const struct_EtherCatDevice& device);

/// The same in the words of the window.
[[nodiscard]] QStringList exportWarnings(const struct_EtherCatDevice& device);

/// Proposed name of a KTL file, without extension and at most 20 characters long: the name of the ESI file up to its
/// first dot, at most 15 characters, then "-" and the vendor id.
[[nodiscard]] QString proposedKtlName(const struct_FilenameDevice& file);
/// As above.
/// @param path  of the ESI file
[[nodiscard]] QString proposedKtlName(const QString& path, std::uint32_t vendorId);
