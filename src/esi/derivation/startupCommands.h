// startupCommands.h - startup commands that are generated from PDOs and sync managers, at load time and at edit time.
#pragma once

#include "model/deviceRecords.h"

/// Conditions under which module PDOs are mapped and PDOs assigned. Load time and edit time generate the same commands
/// under different conditions.
struct ModuleStartupConditions
{
    bool needsSlots; ///< a device without slots gets nothing
    bool mapsOnVirtual; ///< a module PDO on a virtual sync manager is mapped, and its sync manager is not looked up
    bool assignsVirtual; ///< virtual sync managers get their assignment too
};

/// When a file is loaded, for all devices of the file. A module PDO on a sync manager that the device does not have is
/// an error.
inline constexpr ModuleStartupConditions atLoadTime{false, false, false};

/// Each time a device is selected, and when its type or its modules change.
/// ODD, KEPT: virtual sync managers count like others here, and a device without slots keeps what it got at load time.
/// One would expect the conditions of load time. Pinned by tst_ModuleStartup::conditions.
inline constexpr ModuleStartupConditions atEditTime{true, true, true};

/// Appends what a device gets at load time before its modules are looked at: the commands that clear the assign objects
/// and those that map the device's own PDOs (device list), and the EoE command (EoE list). Not idempotent.
/// @throws std::out_of_range if a PDO names a sync manager that the device does not declare, and its mapping is asked
void appendDeviceStartup(struct_EtherCatDevice& device);

/// Appends to the module list the commands that map the PDOs of modules and those that assign PDOs, the device's own
/// ones too, to sync managers. Not idempotent: the caller empties the module list where it is to be renewed.
/// @throws std::out_of_range as `appendDeviceStartup`, unless `mapsOnVirtual` is set
void appendModuleStartup(struct_EtherCatDevice& device, const ModuleStartupConditions& conditions);
