#include "json/jsonValue.h"
#include "text/shownText.h"

#include <QLocale>

#include <jansson.h>

bool JsonValue::isNull() const
{
    return json_is_null(m_value);
}

bool JsonValue::isObject() const
{
    return json_is_object(m_value);
}

bool JsonValue::isList() const
{
    return json_is_array(m_value);
}

std::optional<QString> JsonValue::text() const
{
    if (!json_is_string(m_value))
        return std::nullopt;
    return QString::fromUtf8(json_string_value(m_value), static_cast<int>(json_string_length(m_value)));
}

std::optional<double> JsonValue::number() const
{
    return json_is_number(m_value) ? std::make_optional(json_number_value(m_value)) : std::nullopt;
}

JsonValue JsonValue::member(QLatin1String key) const
{
    return JsonValue(json_object_get(m_value, key.latin1()));
}

QStringList JsonValue::keys() const
{
    QStringList keys;
    for (void* at = json_object_iter(m_value); at != nullptr; at = json_object_iter_next(m_value, at))
        keys.append(QString::fromUtf8(json_object_iter_key(at)));
    return keys;
}

std::size_t JsonValue::size() const
{
    return json_array_size(m_value);
}

JsonValue JsonValue::element(std::size_t position) const
{
    return JsonValue(json_array_get(m_value, position));
}

QString JsonValue::shown() const
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
