// The header comes first and alone: it has to bring everything that it needs.
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
static_assert(std::is_same_v<decltype(&KTL_write_device_EoEInitCmd), ItemWriter>);
static_assert(std::is_same_v<decltype(&KTL_write_device_CoEInitCmd), ItemWriter>);
static_assert(std::is_same_v<decltype(&KTL_write_device_Objects), ItemWriter>);
static_assert(std::is_same_v<decltype(&KTL_write_device_EEPROM), ItemWriter>);
static_assert(std::is_same_v<decltype(&KTL_write_device_end), void (*)(std::FILE*)>);

// The text dump.
static_assert(std::is_same_v<decltype(&KTL_write_log_devices), bool (*)(std::FILE*, std::FILE*, int*)>);

// The reader.
static_assert(std::is_same_v<decltype(&device_writektltodevices), bool (*)(std::FILE*, const QString&, int*)>);
static_assert(
    std::is_same_v<decltype(&device_ktlupdatexmldata),
                   bool (*)(struct_FilenameDevice*, const char*, struct_EtherCatDevice*, struct_commentmodule*)>);
static_assert(std::is_same_v<decltype(&KTL_read_device_General), int (*)(std::FILE*, struct_KTL_EtherCatDeviceType*)>);
static_assert(KTL_NO_ERROR == 0 && KTL_ERROR_PARA == 1000 && KTL_ERROR_PROCESS == 1001);

// The records of the format.
static_assert(sizeof(struct_KTL_EtherCatDeviceType) == 52 && KTL_ITEM_END == 0);
