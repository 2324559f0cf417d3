#include "choices/keys.h"

namespace choices {

std::optional<std::uint16_t> word(JsonFields& fields, QLatin1String key)
{
    const std::optional<std::uint32_t> number = fields.number(key, max16Bits);
    return number.has_value() ? std::make_optional(static_cast<std::uint16_t>(*number)) : std::nullopt;
}

std::optional<ModuleName> moduleNameIn(JsonFields& fields)
{
    const json::Value value = fields.value(moduleKey);
    ModuleName module{numberOf(value), {}, fields.count(moduleRowKey, max32Bits)};
    if (!module.ident.has_value())
        module.name = value.text().value_or(QString());
    if (fields.has(moduleKey) && !module.ident.has_value() && module.name.isEmpty()) {
        fields.refuse(moduleKey, QStringLiteral("the ident or the name of a module"));
        return std::nullopt;
    }
    return module;
}

} // namespace choices
