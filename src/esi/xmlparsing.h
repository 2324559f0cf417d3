// xmlparsing.h - the whole interface of the ESI reader and of the passes that complete a loaded file.
#pragma once

#include "esi/xmlCharConversion.h"
#include "model/XMLParsing.h"

#include <QDomElement>
#include <QString>

#include <cstdint>

// ---- The walk ----

/// Reads the document in `domDocument` into one record at the end of `g_xmlfiledevices`, derivation passes included.
/// The list of files is unchanged if that fails.
/// @param projectName  path of the file, stored unchanged
/// @return             whether it was read
/// @throws std::out_of_range if a PDO names a sync manager that its device does not declare; nothing is added then
[[nodiscard]] bool read_xmldevice(const QString& projectName);

/// Device class by ESI profile number; sets `m_iDeviceType`, and for `driveProfile` `m_iDriveAxies` too.
/// @param iType      profile number
/// @param bHasSlots  not 0 if the device has a `Slots` element
/// @return           0, or 10 for a null device
int SetXmlTypeToDevice(struct_EtherCatDevice* p_ether_device, int iType, int bHasSlots);

// ---- Section readers: each takes the element of its section and the record to fill. Nothing is reported: what is
// missing stays cleared, what does not convert becomes 0 or `UnknownType`. A null pointer reads nothing. ----

void read_device_Productinfo(QDomElement* element, struct_EtherCatDevice* ether_device); ///< `Type`
void read_device_Mailboxinfo(QDomElement* element, struct_EtherCatDevice* ether_device); ///< `Mailbox`
void read_device_Fmmuinfo(QDomElement* element, struct_EtherCatDevice* ether_device); ///< appends one FMMU
void read_device_SMinfo(QDomElement* element, struct_EtherCatDevice* ether_device); ///< appends one sync manager
void read_device_Dcinfo(QDomElement* element, struct_EtherCatDevice* ether_device); ///< appends the operation modes
void read_device_RxPdoinfo(QDomElement* element, struct_EtherCatDevice* ether_device); ///< appends one output PDO
void read_device_TxPdoinfo(QDomElement* element, struct_EtherCatDevice* ether_device); ///< appends one input PDO
void read_device_DataTypes(QDomElement* element, struct_EtherCatDevice* ether_device); ///< data types of the dictionary
void read_device_Objects(QDomElement* element, struct_EtherCatDevice* ether_device); ///< objects of the dictionary
void read_device_Slotsinfo(QDomElement* element, struct_EtherCatDevice* ether_device); ///< appends the slots
void read_device_Module(QDomElement* element, struct_module* module); ///< one element of a run of modules
void read_device_moduleDataTypes(QDomElement* element, struct_module* module); ///< as of a device, by the same rules
void read_device_moduleObjects(QDomElement* element, struct_module* module); ///< as of a device, by the same rules

// ---- Derivation passes over a loaded file, in the order of their calls. Each runs once per load and is not
// idempotent. A null pointer changes nothing. ----

/// Puts the slot increments into one form and counts the axes of a multi-axis drive.
void device_check_Slots(struct_FilenameDevice* file);

/// Replaces each oversampled PDO by one PDO per sample.
void device_pdo_defalutset(struct_FilenameDevice* file);

/// Puts the default modules into the slots, and what they bring along into the device.
void device_slotmodule_defalutset(struct_FilenameDevice* file);

/// Generates the startup commands.
/// @throws std::out_of_range if a PDO names a sync manager that its device does not declare, and its mapping is asked
void device_startup_defalutset(struct_FilenameDevice* file);

/// Computes the working length of each sync manager.
/// @throws std::out_of_range if a PDO names a sync manager that its device does not declare
void device_sm_defalutset(struct_FilenameDevice* file);

// ---- Modules of a file ----

/// Looks for a module of the file. Of several with the same ident the first one of the first group counts.
/// @param out  takes a copy of the module; a class or type name that is empty in the file leaves that of `out`
/// @return     false, with `out` untouched, if there is none or a pointer is null
[[nodiscard]] bool device_getmodule_byModuleIdent(struct_FilenameDevice* file, std::uint32_t ident, struct_module* out);
