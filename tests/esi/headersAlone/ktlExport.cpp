// The header stands first and alone: it has to bring everything that it needs.
#include "ktl/ktlExport.h"

#include <type_traits>

using ItemWriter = void (*)(std::FILE*, struct_EtherCatDevice*);
using FileItemWriter = void (*)(std::FILE*, struct_EtherCatDevice*, struct_FilenameDevice*);

static_assert(std::is_same_v<decltype(&KTL_write_devices), bool (*)(std::FILE*, QTreeWidget*, int*)>);
static_assert(std::is_same_v<decltype(&KTL_write_device_General),
                             int (*)(std::FILE*, struct_EtherCatDevice*, struct_FilenameDevice*)>);
static_assert(std::is_same_v<decltype(&KTL_write_device_FmmuInfo), ItemWriter>);
static_assert(std::is_same_v<decltype(&KTL_write_device_SmInfo), ItemWriter>);
static_assert(std::is_same_v<decltype(&KTL_write_device_DcInfo), ItemWriter>);
static_assert(std::is_same_v<decltype(&KTL_write_device_RxPdoinfo), ItemWriter>);
static_assert(std::is_same_v<decltype(&KTL_write_device_TxPdoinfo), ItemWriter>);
static_assert(std::is_same_v<decltype(&KTL_write_device_Slots), ItemWriter>);
static_assert(std::is_same_v<decltype(&KTL_write_device_AddModuleRPdo), ItemWriter>);
static_assert(std::is_same_v<decltype(&KTL_write_device_AddModuleTPdo), ItemWriter>);
static_assert(std::is_same_v<decltype(&KTL_write_device_SlotPreConfig), ItemWriter>);
static_assert(std::is_same_v<decltype(&KTL_write_device_DeviceMoreInfo), FileItemWriter>);
static_assert(std::is_same_v<decltype(&KTL_write_device_Module), FileItemWriter>);
static_assert(std::is_same_v<decltype(&KTL_write_device_EEPROM), ItemWriter>);
static_assert(std::is_same_v<decltype(&KTL_write_device_end), void (*)(std::FILE*)>);
