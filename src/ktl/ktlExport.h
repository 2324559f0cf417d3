// ktlExport.h - writes devices as KTL items, and a KTL file as text.
#pragma once

#include "ktl/ktlFormat.h"
#include "model/XMLParsing.h"

#include <cstddef>
#include <cstdio>
#include <functional>
#include <vector>

class QTreeWidget;

// ---- A whole run: all selected devices and one end item ----

/// Tells whether a device takes part in an export: position of its file in the list of files, and its own in the file.
using DeviceSelection = std::function<bool(std::size_t file, std::size_t device)>;

/// Writes the selected devices, in the order of the list, and one end item.
/// @param out         open for binary writing; not closed
/// @param piErrorCode receives the result of the last General item (1, or 0 if no device was selected) when the run
///                    reaches its end item; unchanged otherwise
/// @return            false if a General item could not be written; the run then stops there, without an end item. Only
///                    that item is tested: a caller that must know of a full disk later on asks the file itself
/// @throws std::out_of_range if a PDO names a sync manager that its device does not declare; the stream then ends in
///                    the middle of that device
[[nodiscard]] bool writeDevices(std::FILE* out, std::vector<struct_FilenameDevice>& files,
                                const DeviceSelection& isSelected, int* piErrorCode);

/// As `writeDevices`, for the devices of `g_xmlfiledevices` that are checked in the tree: the top-level item at a
/// position is the file at that position, its children are the file's devices. Partially checked counts as checked, and
/// a device counts only together with its file.
/// @return  false, with nothing touched, if an argument is null; else as `writeDevices`
[[nodiscard]] bool KTL_write_devices(std::FILE* out, QTreeWidget* tree, int* piErrorCode);

// ---- Items of a device, in the order of the file ----
//
// A null argument writes nothing. Apart from the General item no result of a write is tested: a controller skips what
// it does not find, and the file tells of a full disk when it is closed.

/// @return  number of records written: 1, or 0 on failure
int KTL_write_device_General(std::FILE* out, struct_EtherCatDevice* device, struct_FilenameDevice* filedevices);

/// One item for all FMMUs, none without FMMUs.
void KTL_write_device_FmmuInfo(std::FILE* out, struct_EtherCatDevice* device);

/// One item for all sync managers that are not virtual, none without such.
void KTL_write_device_SmInfo(std::FILE* out, struct_EtherCatDevice* device);

/// One item for all operation modes of the distributed clocks, none without modes.
void KTL_write_device_DcInfo(std::FILE* out, struct_EtherCatDevice* device);

/// One item per PDO that has entries and is not on a virtual sync manager.
/// @throws std::out_of_range if a PDO names a sync manager that the device does not declare
void KTL_write_device_RxPdoinfo(std::FILE* out, struct_EtherCatDevice* device);
void KTL_write_device_TxPdoinfo(std::FILE* out, struct_EtherCatDevice* device); ///< as for output PDOs

/// PDOs that modules bring into a device of class 2 or 4, as ordinary PDO items. No effect yet.
void KTL_write_device_AddModuleRPdo(std::FILE* out, struct_EtherCatDevice* device);
void KTL_write_device_AddModuleTPdo(std::FILE* out, struct_EtherCatDevice* device); ///< as for output PDOs

/// One item, also for a device without EoE commands.
void KTL_write_device_EoEInitCmd(std::FILE* out, struct_EtherCatDevice* device);

/// One item, also for a device without CoE commands: the device's commands first, then those of its modules.
void KTL_write_device_CoEInitCmd(std::FILE* out, struct_EtherCatDevice* device);

/// One item for all slots, none without slots.
void KTL_write_device_Slots(std::FILE* out, struct_EtherCatDevice* device);

/// Preset modules of a device of class 5. No effect yet.
void KTL_write_device_SlotPreConfig(std::FILE* out, struct_EtherCatDevice* device);

/// Time of the export and names. No effect yet.
void KTL_write_device_DeviceMoreInfo(std::FILE* out, struct_EtherCatDevice* device, struct_FilenameDevice* filedevices);

/// Module blocks of the file, for a device of class 3 or 5. No effect yet.
void KTL_write_device_Module(std::FILE* out, struct_EtherCatDevice* device, struct_FilenameDevice* filedevices);

/// An item of 2048 bytes of EEPROM, all 0. A ready operation that no export calls; the device is not read.
void KTL_write_device_EEPROM(std::FILE* out, struct_EtherCatDevice* device);

/// The end item.
void KTL_write_device_end(std::FILE* out);

// ---- Text dump ----

/// Writes the items of a KTL file as text, in hexadecimal words; at most 2000 items, end items included.
/// @param log          open for writing; not closed
/// @param ktl          open for reading, read from its start; not closed
/// @param piErrorCode  set to 0 in any case; may be null
/// @return  false if a file is null, or at an item head that cannot be; the text then ends with a line "Err para: ..."
bool KTL_write_log_devices(std::FILE* log, std::FILE* ktl, int* piErrorCode);
