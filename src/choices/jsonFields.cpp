#include "choices/jsonFields.h"

#include "text/shownText.h"
#include "text/writtenNumber.h"

#include <QStringList>

#include <algorithm>
#include <cmath>

namespace choices {

namespace {

const QLatin1String anythingKey("about");

std::optional<std::uint32_t> wholeNumber(const json::Value& value)
{
    const double number = value.number().value_or(-1);
    if (number < 0 || number > max32Bits || std::floor(number) != number)
        return std::nullopt;
    return static_cast<std::uint32_t>(number);
}

void refuseValue(const json::Value& value, const QString& path, const QString& wanted, Problems& problems)
{
    problems.add(ProblemCode::Form, path, QStringLiteral("%1 is not %2").arg(value.shown(), wanted));
}

/// What a number may be, in words.
QString rangeWords(std::uint32_t maximum, QLatin1String alternative)
{
    const QString range = QStringLiteral("a number from 0 to %1").arg(maximum);
    return alternative.isEmpty() ? range : range + QStringLiteral(" or ") + alternative;
}

QStringList namesOf(const JsonKey* keys, std::size_t count)
{
    QStringList names;
    for (const JsonKey* key = keys; key != keys + count; ++key)
        names.append(key->name);
    return names;
}

} // namespace

std::optional<std::uint32_t> numberOf(const json::Value& value)
{
    const std::optional<QString> text = value.text();
    return text.has_value() ? numberIn(*text) : wholeNumber(value);
}

CountOrText countOrTextIn(const json::Value& value, const QString& path, QLatin1String alternative, Problems& problems)
{
    CountOrText read{wholeNumber(value), value.text().value_or(QString())};
    if (!read.count.has_value() && !value.text().has_value())
        refuseValue(value, path, rangeWords(max32Bits, alternative), problems);
    return read;
}

QString JsonFields::pathOf(QLatin1String key) const
{
    return m_path.isEmpty() ? QString(key) : m_path + QLatin1Char('.') + key;
}

void JsonFields::check(const JsonKey* keys, std::size_t count)
{
    if (!m_object.isObject()) {
        m_problems.add(ProblemCode::Form, m_path,
                       QStringLiteral("%1 is no object with keys and values").arg(m_object.shown()));
        return;
    }
    for (const QString& name : m_object.keys())
        if (name != anythingKey
            && std::none_of(keys, keys + count, [&](const JsonKey& key) { return name == key.name; }))
            m_problems.add(ProblemCode::Form, m_path,
                           QStringLiteral("%1 is no key here (known: %2)")
                               .arg(shownText(name), namesOf(keys, count).join(QStringLiteral(", "))));
    for (const JsonKey* key = keys; key != keys + count; ++key)
        if (key->isNeeded && !has(key->name))
            m_problems.add(ProblemCode::Form, m_path,
                           QStringLiteral("the key %1 is missing").arg(shownText(key->name)));
}

std::optional<std::uint32_t> JsonFields::number(QLatin1String key, std::uint32_t maximum)
{
    return inRange(key, numberOf(value(key)), maximum);
}

std::optional<std::uint32_t> JsonFields::count(QLatin1String key, std::uint32_t maximum, QLatin1String alternative)
{
    return inRange(key, wholeNumber(value(key)), maximum, alternative);
}

std::optional<std::uint32_t> JsonFields::inRange(QLatin1String key, std::optional<std::uint32_t> number,
                                                 std::uint32_t maximum, QLatin1String alternative)
{
    if (has(key) && (!number.has_value() || *number > maximum)) {
        refuse(key, rangeWords(maximum, alternative));
        return std::nullopt;
    }
    return number;
}

std::optional<QString> JsonFields::text(QLatin1String key)
{
    std::optional<QString> text = value(key).text();
    if (has(key) && !text.has_value())
        refuse(key, QStringLiteral("a text"));
    return text;
}

std::optional<bool> JsonFields::flag(QLatin1String key)
{
    const std::optional<bool> flag = value(key).flag();
    if (has(key) && !flag.has_value())
        refuse(key, QStringLiteral("true or false"));
    return flag;
}

void JsonFields::refuse(QLatin1String key, const QString& wanted)
{
    refuseValue(value(key), pathOf(key), wanted, m_problems);
}

} // namespace choices
