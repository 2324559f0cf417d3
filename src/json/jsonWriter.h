// jsonWriter.h - writes JSON for people: keys in a chosen order, small objects in one line.
#pragma once

#include <QJsonValue>
#include <QLatin1String>
#include <QString>

#include <initializer_list>
#include <iosfwd>
#include <utility>

/// Writes one JSON value as it comes; the caller closes what it opens. A key is empty for the outermost value and for
/// the elements of a list.
class JsonWriter
{
public:
    using Member = std::pair<QLatin1String, QJsonValue>;

    /// @param out  takes UTF-8; it must outlive this object
    explicit JsonWriter(std::ostream& out)
        : m_out(out)
    {}

    void openObject(const QString& key = {}) { open(key, '{'); }
    void closeObject() { close('}'); }
    void openList(const QString& key = {}) { open(key, '['); }
    void closeList() { close(']'); }

    /// A value in one line.
    void value(const QString& key, const QJsonValue& value);

    /// An object in one line, an element of a list. Members that are undefined are left out.
    void line(std::initializer_list<Member> members);

private:
    void begin(const QString& key);
    void open(const QString& key, char bracket);
    void close(char bracket);
    void newLine();

    std::ostream& m_out;
    int m_depth = 0;
    bool m_isFirst = true; ///< nothing stands yet in what is open
};
