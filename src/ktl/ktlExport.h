// ktlExport.h - the chief header of this floor: writes devices as KTL items, and a KTL file as text; the reader and the
// format come with it.
#pragma once

#include "ktl/format/ktlFormat.h"
#include "ktl/reading/ktlReader.h"
#include "model/XMLParsing.h"

#include <QDateTime>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <functional>
#include <string>
#include <vector>

class QTreeWidget;

// ---- A whole run: all selected devices and one end item ----

/// Whether a device takes part in an export: position of its file in the list of files, and its own in the file.
using DeviceSelection = std::function<bool(std::size_t file, std::size_t device)>;

/// Writes the selected devices, in the order of the list, and one end item.
/// @param piErrorCode  result of the last General item, 0 without a device; unchanged on failure
/// @param exportTime   local time
/// @return  false if a General item cannot be written: the run stops
/// @throws MissingSyncManager if a device lacks one that a PDO names; it is then incomplete
[[nodiscard]] bool writeDevices(std::FILE* out, std::vector<struct_FilenameDevice>& files,
                                const DeviceSelection& isSelected, int* piErrorCode,
                                const QDateTime& exportTime = QDateTime::currentDateTime());

/// Writes one device, without an end item.
/// @return  result of the General item; if that is not above 0 nothing else was written
/// @throws MissingSyncManager as `writeDevices`
[[nodiscard]] int writeDevice(std::FILE* out, struct_EtherCatDevice& device, struct_FilenameDevice& file,
                              const QDateTime& exportTime);

/// As `writeDevices`, for the devices of `g_xmlfiledevices` that are checked in the tree, at the time of the call. The
/// top-level item at a position is the file at that position, its children are the file's devices. Partially checked
/// counts as checked; a device counts only together with its file.
/// @return  false if an argument is null
[[nodiscard]] bool KTL_write_devices(std::FILE* out, QTreeWidget* tree, int* piErrorCode);

// ---- Items of a device, in the order of the file ----
//
// A null argument writes nothing. Apart from the General item no result of a write is tested: a controller skips what
// it does not find, and a full disk shows when the file is closed.

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

/// PDOs that modules bring into the device, as ordinary PDO items under the same conditions; nothing in the file
/// separates the two kinds. For devices of class 2 and 4.
/// @throws std::out_of_range if a PDO names a sync manager that the device does not declare
void KTL_write_device_AddModuleRPdo(std::FILE* out, struct_EtherCatDevice* device);
void KTL_write_device_AddModuleTPdo(std::FILE* out, struct_EtherCatDevice* device); ///< as for output PDOs

/// One item, also for a device without EoE commands.
void KTL_write_device_EoEInitCmd(std::FILE* out, struct_EtherCatDevice* device);

/// One item, also for a device without CoE commands: the device's commands first, then those of its modules.
void KTL_write_device_CoEInitCmd(std::FILE* out, struct_EtherCatDevice* device);

/// One item for all slots, none without slots.
void KTL_write_device_Slots(std::FILE* out, struct_EtherCatDevice* device);

/// One item for the modules in the slots, none without slots. A default module is at the number of its slot, one that
/// a user put in at its place. For devices of class 5.
void KTL_write_device_SlotPreConfig(std::FILE* out, struct_EtherCatDevice* device);

/// One item with the time of the export, the format version, and the names of the device and of all modules of its
/// file; none if the file has no group of modules.
/// @param exportTime  valid, as the file is to show it: local time
void writeDeviceMoreInfo(std::FILE* out, const struct_EtherCatDevice& device, const struct_FilenameDevice& file,
                         const QDateTime& exportTime);

/// As `writeDeviceMoreInfo`; the time of the export is now.
void KTL_write_device_DeviceMoreInfo(std::FILE* out, struct_EtherCatDevice* device, struct_FilenameDevice* filedevices);

/// The blocks of all modules of the file: identity, entries of each direction, startup records. For devices of class 3
/// and 5. Reads of the device its process data sync managers and its CoE flags.
void KTL_write_device_Module(std::FILE* out, struct_EtherCatDevice* device, struct_FilenameDevice* filedevices);

/// An item of 40 bytes for an EEPROM of 2048 bytes, its configuration data all 0. A ready operation that no
/// export calls; the device is not read.
void KTL_write_device_EEPROM(std::FILE* out, struct_EtherCatDevice* device);

/// The end item.
void KTL_write_device_end(std::FILE* out);

// ---- Items of the dictionary, called by no export ----
//
// A null argument writes nothing and finds nothing. Scans keep to the limits of `DictionaryScanner`, as the views of a
// dictionary do.

/// Items of the two objects that the user has named for the configuration and the detection of modules, each followed
/// by what its data type holds. An object that is both counts as configuration.
void KTL_write_device_Objects(std::FILE* out, struct_EtherCatDevice* device);

/// An item for each sub-item and each array element of a data type; none for a simple type. The first sub-item of a
/// record has none: it holds the number of the others.
/// @param type    name of the data type in the device's dictionary
/// @param object  of this type: its index and access flags go into the items
void KTL_write_device_ObjectScan(std::FILE* out, struct_EtherCatDevice* device, const std::string& type,
                                 const struct_KTL_ObjectType* object);
/// As above, in the dictionary of a module.
void KTL_write_device_ObjectmoduleScan(std::FILE* out, struct_module* module, const std::string& type,
                                       const struct_KTL_ObjectType* object);

/// Bits of the first data type of that name; 0 if there is none.
int KTL_get_device_datatypeSize(struct_EtherCatDevice* device, const std::string& type);
int KTL_get_device_datatypemoduleSize(struct_module* module, const std::string& type); ///< as above, of a module

/// Default data and limits of a sub-item, from the first object of that index that has so many sub-items.
/// @param subIndex  place in the object's list of sub-items
/// @return          a cleared block if no object has it
str_Info KTL_get_device_objectInfo(struct_EtherCatDevice* device, std::uint32_t index, std::uint32_t subIndex);
/// As above, of a module.
str_Info KTL_get_device_objectmoduleInfo(struct_module* module, std::uint32_t index, std::uint32_t subIndex);

// ---- Text dump ----

/// Writes the items of a KTL file as text, from its start, in hexadecimal words; at most `maxReadItems`. Missing words
/// are shown as 0, up to 65,536: a broken size may announce billions.
/// @param piErrorCode  set to 0; may be null
/// @return  false for a null file, and at an impossible head, after "Err para: ..."
bool KTL_write_log_devices(std::FILE* log, std::FILE* ktl, int* piErrorCode);
