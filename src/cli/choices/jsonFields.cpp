#include "cli/choices/jsonFields.h"

#include "cli/numberArgument.h"

#include <QJsonDocument>
#include <QStringList>

#include <cmath>

namespace {

const QLatin1String anythingKey("about");

std::optional<std::uint32_t> wholeNumber(const QJsonValue& value)
{
    const double number = value.toDouble(-1);
    if (number < 0 || number > most32Bits || std::floor(number) != number)
        return std::nullopt;
    return static_cast<std::uint32_t>(number);
}

} // namespace

std::optional<std::uint32_t> numberIn(const QJsonValue& value)
{
    return value.isString() ? numberIn(value.toString()) : wholeNumber(value);
}

QString shownJson(const QJsonValue& value)
{
    const QByteArray inList = QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact);
    return QString::fromUtf8(inList.mid(1, inList.size() - 2));
}

QString JsonFields::pathOf(QLatin1String key) const
{
    return m_path.isEmpty() ? QString(key) : m_path + QLatin1Char('.') + key;
}

void JsonFields::check(const QJsonValue& value, const JsonKey* keys, std::size_t count)
{
    if (!value.isObject()) {
        m_problems.add(m_path, QStringLiteral("%1 is no object with keys and values").arg(shownJson(value)));
        return;
    }
    QStringList known;
    for (const JsonKey* key = keys; key != keys + count; ++key)
        known.append(key->name);
    for (auto field = m_object.begin(); field != m_object.end(); ++field)
        if (field.key() != anythingKey && !known.contains(field.key()))
            m_problems.add(m_path, QStringLiteral("%1 is no key here (known: %2)")
                                       .arg(quoted(field.key()), known.join(QStringLiteral(", "))));
    for (const JsonKey* key = keys; key != keys + count; ++key)
        if (key->isNeeded && !has(key->name))
            m_problems.add(m_path, QStringLiteral("the key %1 is missing").arg(quoted(key->name)));
}

std::optional<std::uint32_t> JsonFields::number(QLatin1String key, std::uint32_t most)
{
    return inRange(key, numberIn(value(key)), most);
}

std::optional<std::uint32_t> JsonFields::count(QLatin1String key, std::uint32_t most, QLatin1String alternative)
{
    return inRange(key, wholeNumber(value(key)), most, alternative);
}

std::optional<std::uint32_t> JsonFields::inRange(QLatin1String key, std::optional<std::uint32_t> number,
                                                 std::uint32_t most, QLatin1String alternative)
{
    if (has(key) && (!number.has_value() || *number > most)) {
        const QString wanted = QStringLiteral("a number from 0 to %1").arg(most);
        refuse(key, alternative.isEmpty() ? wanted : wanted + QStringLiteral(" or ") + alternative);
        return std::nullopt;
    }
    return number;
}

std::optional<QString> JsonFields::text(QLatin1String key)
{
    if (has(key) && !value(key).isString())
        refuse(key, QStringLiteral("a text"));
    return value(key).isString() ? std::make_optional(value(key).toString()) : std::nullopt;
}

void JsonFields::refuse(QLatin1String key, const QString& wanted)
{
    m_problems.add(pathOf(key), QStringLiteral("%1 is not %2").arg(shownJson(value(key)), wanted));
}
