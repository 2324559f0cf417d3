// The header comes first and alone: it has to bring everything that it needs.
#include "model/XMLParsing.h"

#include <type_traits>

static_assert(std::is_same_v<decltype(g_xmlfiledevices), std::vector<struct_FilenameDevice>>);
static_assert(std::is_same_v<decltype(domDocument), QDomDocument>);
static_assert(sizeof(struct_EtherCatDevice) > 0 && sizeof(struct_module) > 0 && sizeof(struct_slotmodule) > 0);
