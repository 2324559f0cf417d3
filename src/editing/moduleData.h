// moduleData.h - what follows from the modules in the slots of a device, made again after a change.
#pragma once

#include "model/deviceRecords.h"

/// The parts of `renewModuleData`, in the order in which they run; each works on what the one before has left.
namespace moduleData {

/// What the modules bring into the device; the startup commands of the module list are emptied with it. A device
/// without slots keeps both.
void renewLists(struct_EtherCatDevice& device);

/// The startup commands of the module list. Not idempotent: `renewLists` empties the list.
void appendStartup(struct_EtherCatDevice& device);

/// The lengths of the sync managers.
/// @throws MissingSyncManager, a std::out_of_range, if a PDO names a sync manager that the device does not declare
void renewLengths(struct_EtherCatDevice& device);

} // namespace moduleData

/// Makes again whatever follows from the modules in the slots. Manual changes of module commands are lost.
/// The window does not call it: its slots of fixed names run one part each, every one can be called by itself, and the
/// tables are filled between the parts.
/// @throws MissingSyncManager as `moduleData::renewLengths`, with the name of the device
void renewModuleData(struct_EtherCatDevice& device);
