// keys.h - keys that several kinds of objects in a choices file have, and how their values are read.
#pragma once

#include "choices/choices.h"
#include "choices/jsonFields.h"

#include <QLatin1String>

#include <cstdint>
#include <optional>

namespace choices {

inline const QLatin1String moduleKey("module");
inline const QLatin1String moduleRowKey("moduleRow");
inline const QLatin1String linksKey("links");
inline const QLatin1String moduleLinksKey("moduleLinks");
inline const QLatin1String syncManagersKey("syncManagers");
inline const QLatin1String entriesKey("entries");
inline const QLatin1String startupKey("startup");

/// A number of 16 bits.
std::optional<std::uint16_t> word(JsonFields& fields, QLatin1String key);

/// A key whose number counts and whose text means something else.
/// @param alternative  what the text means, as a message names it: "a name"
template<typename ReadText>
void readCountOr(JsonFields& fields, QLatin1String key, QLatin1String alternative, std::optional<std::uint32_t>& count,
                 ReadText readText)
{
    if (const std::optional<QString> text = fields.value(key).text())
        readText(*text);
    else
        count = fields.count(key, max32Bits, alternative);
}

/// The module that an object names; nothing if the name is none, which is told.
std::optional<ModuleName> moduleNameIn(JsonFields& fields);

} // namespace choices
