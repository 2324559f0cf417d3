#include "json/jsonWriter.h"

#include "text/unsafeCharacters.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <algorithm>
#include <cstddef>
#include <ostream>
#include <string>

namespace {

/// A character by its number, as texts of JSON may hold it.
QString escapeOf(QChar character)
{
    constexpr int digits = 4;
    constexpr int hexadecimal = 16;
    return QStringLiteral("\\u%1").arg(character.unicode(), digits, hexadecimal, QLatin1Char('0'));
}

std::string jsonOf(const QJsonValue& value)
{
    const QByteArray inList = QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact);
    const QString json = QString::fromUtf8(inList.mid(1, inList.size() - 2));
    if (std::none_of(json.begin(), json.end(), isUnsafe))
        return json.toStdString();
    QString escaped;
    for (const QChar character : json) // unsafe ones are in texts only
        escaped += isUnsafe(character) ? escapeOf(character) : QString(character);
    return escaped.toStdString();
}

} // namespace

void JsonWriter::value(const QString& key, const QJsonValue& value)
{
    begin(key);
    m_out << jsonOf(value);
}

void JsonWriter::line(std::initializer_list<Member> members)
{
    begin({});
    const char* separator = "{";
    for (const Member& member : members) {
        if (member.second.isUndefined())
            continue;
        m_out << separator << jsonOf(QString(member.first)) << ": " << jsonOf(member.second);
        separator = ", ";
    }
    m_out << '}';
}

void JsonWriter::begin(const QString& key)
{
    if (!m_isFirst)
        m_out << ',';
    if (m_depth > 0)
        newLine();
    if (!key.isEmpty())
        m_out << jsonOf(key) << ": ";
    m_isFirst = false;
}

void JsonWriter::open(const QString& key, char bracket)
{
    begin(key);
    m_out << bracket;
    ++m_depth;
    m_isFirst = true;
}

void JsonWriter::close(char bracket)
{
    --m_depth;
    if (!m_isFirst)
        newLine();
    m_out << bracket;
    m_isFirst = false;
    if (m_depth == 0)
        m_out << '\n';
}

void JsonWriter::newLine()
{
    constexpr std::size_t indentation = 2;
    m_out << '\n' << std::string(static_cast<std::size_t>(m_depth) * indentation, ' ');
}
