// The header comes first and alone: it has to bring everything that it needs.
#include "esi/xmlparsing.h"

#include <type_traits>

using SectionReader = void (*)(QDomElement*, struct_EtherCatDevice*);
using ModuleReader = void (*)(QDomElement*, struct_module*);
using Pass = void (*)(struct_FilenameDevice*);

static_assert(std::is_same_v<decltype(&read_xmldevice), bool (*)(const QString&)>);
static_assert(std::is_same_v<decltype(&SetXmlTypeToDevice), int (*)(struct_EtherCatDevice*, int, int)>);
static_assert(std::is_same_v<decltype(&read_device_Productinfo), SectionReader>);
static_assert(std::is_same_v<decltype(&read_device_Mailboxinfo), SectionReader>);
static_assert(std::is_same_v<decltype(&read_device_Fmmuinfo), SectionReader>);
static_assert(std::is_same_v<decltype(&read_device_SMinfo), SectionReader>);
static_assert(std::is_same_v<decltype(&read_device_Dcinfo), SectionReader>);
static_assert(std::is_same_v<decltype(&read_device_RxPdoinfo), SectionReader>);
static_assert(std::is_same_v<decltype(&read_device_TxPdoinfo), SectionReader>);
static_assert(std::is_same_v<decltype(&read_device_DataTypes), SectionReader>);
static_assert(std::is_same_v<decltype(&read_device_Objects), SectionReader>);
static_assert(std::is_same_v<decltype(&read_device_Slotsinfo), SectionReader>);
static_assert(std::is_same_v<decltype(&read_device_Module), ModuleReader>);
static_assert(std::is_same_v<decltype(&read_device_moduleDataTypes), ModuleReader>);
static_assert(std::is_same_v<decltype(&read_device_moduleObjects), ModuleReader>);
static_assert(std::is_same_v<decltype(&device_check_Slots), Pass>);
static_assert(std::is_same_v<decltype(&device_pdo_defalutset), Pass>);
static_assert(std::is_same_v<decltype(&device_slotmodule_defalutset), Pass>);
static_assert(std::is_same_v<decltype(&device_startup_defalutset), Pass>);
static_assert(std::is_same_v<decltype(&device_sm_defalutset), Pass>);
