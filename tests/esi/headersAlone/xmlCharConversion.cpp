// The header comes first and alone: it has to bring everything that it needs.
#include "esi/xmlCharConversion.h"

#include <type_traits>

static_assert(std::is_same_v<decltype(&xmlGetboolean), bool (*)(QChar*)>);
static_assert(std::is_same_v<decltype(&xmlGetEnumNmtoken), NMTOKEN (*)(QChar*)>);
static_assert(std::is_same_v<decltype(&xmlGetStringEnumNmtoken), QString (*)(NMTOKEN)>);
static_assert(std::is_same_v<decltype(&xmlGetuintString), std::uint32_t (*)(QChar*)>);
static_assert(std::is_same_v<decltype(&xmlGetIntString), std::int32_t (*)(QChar*)>);
static_assert(std::is_same_v<decltype(&xmlGetuintStringBigEnd), std::uint32_t (*)(QChar*)>);
static_assert(std::is_same_v<decltype(&xmlGetStringuint), QString (*)(std::uint32_t)>);
