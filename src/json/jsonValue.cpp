#include "json/jsonValue.h"

#include "text/shownText.h"

#include <QLocale>

#include <jansson.h>

namespace json {

bool Value::isNull() const
{
    return json_is_null(m_value);
}

bool Value::isObject() const
{
    return json_is_object(m_value);
}

bool Value::isList() const
{
    return json_is_array(m_value);
}

std::optional<QString> Value::text() const
{
    if (!json_is_string(m_value))
        return std::nullopt;
    return QString::fromUtf8(json_string_value(m_value), static_cast<int>(json_string_length(m_value)));
}

std::optional<double> Value::number() const
{
    return json_is_number(m_value) ? std::make_optional(json_number_value(m_value)) : std::nullopt;
}

std::optional<bool> Value::flag() const
{
    return json_is_boolean(m_value) ? std::make_optional(json_is_true(m_value)) : std::nullopt;
}

Value Value::member(QLatin1String key) const
{
    return Value(json_object_get(m_value, key.latin1()));
}

QStringList Value::keys() const
{
    QStringList keys;
    for (void* at = json_object_iter(m_value); at != nullptr; at = json_object_iter_next(m_value, at))
        keys.append(QString::fromUtf8(json_object_iter_key(at)));
    return keys;
}

std::size_t Value::size() const
{
    return json_array_size(m_value);
}

Value Value::element(std::size_t position) const
{
    return Value(json_array_get(m_value, position));
}

QString Value::shown() const
{
    if (json_is_string(m_value))
        return shownText(*text());
    if (json_is_integer(m_value))
        return QString::number(static_cast<qlonglong>(json_integer_value(m_value)));
    if (json_is_real(m_value))
        return QString::number(json_real_value(m_value), 'g', QLocale::FloatingPointShortest);
    if (isList())
        return size() == 0 ? QStringLiteral("[]") : QStringLiteral("[...]");
    if (isObject())
        return json_object_size(m_value) == 0 ? QStringLiteral("{}") : QStringLiteral("{...}");
    return isNull() ? QStringLiteral("null") : QString::fromLatin1(json_is_true(m_value) ? "true" : "false");
}

} // namespace json
