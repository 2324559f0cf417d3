// ktlCodes.h - the codes of the KTL format.
#pragma once

#include "model/deviceType.h"
#include "model/pdoLink.h"
#include "model/syncDirection.h"

#include <cstdint>

/// Item types. Each item starts with one of these.
enum enum_KTL_ITEM_TYPE : std::uint32_t
{
    KTL_ITEM_END = 0, ///< closes a run of devices
    KTL_ITEM_General = 40000, ///< opens a device
    KTL_ITEM_SM = 40001,
    KTL_ITEM_DC = 40002,
    KTL_ITEM_RxPdo = 40003, ///< one item per PDO
    KTL_ITEM_TxPdo = 40004, ///< one item per PDO
    KTL_ITEM_EoE = 40005,
    KTL_ITEM_CoE = 40006,
    KTL_ITEM_Slot = 40007,
    KTL_ITEM_EEPROM = 40008,
    KTL_ITEM_ObjectDetectType = 40009,
    KTL_ITEM_ObjectConfigType = 40010,
    KTL_ITEM_ObjectModule = 40011, ///< never written
    KTL_ITEM_SubObjectType = 40012,
    KTL_ITEM_ModuleType = 40013, ///< opens a module
    KTL_ITEM_FMMU = 40014,
    KTL_ITEM_SlotPreConfig = 40015,
    KTL_ITEM_DeviceMoreInfo = 40016,
    KTL_ITEM_ModuleRxPDOType = 40100, ///< never written
    KTL_ITEM_ModuleTxPDOType = 40101, ///< never written
    KTL_ITEM_ModuleTPDOEntryType = 40102,
    KTL_ITEM_ModuleRPDOEntryType = 40103,
    KTL_ITEM_ModuleCoEInitCmdType = 40104,
    KTL_ITEM_ModuleDictDT = 40105, ///< never written
    KTL_ITEM_ModuleDictObject = 40106 ///< never written
};
