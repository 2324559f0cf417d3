#include "cli/choices/jsonWriter.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <cstddef>
#include <ostream>
#include <string>

namespace {

std::string jsonOf(const QJsonValue& value)
{
    const QByteArray inList = QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact);
    return inList.mid(1, inList.size() - 2).toStdString();
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
