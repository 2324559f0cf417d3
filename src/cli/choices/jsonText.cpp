#include "cli/choices/jsonText.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QJsonParseError>
#include <QSet>

#include <vector>

namespace {

constexpr int markLength = 3; // of the mark that some editors put in front of UTF-8

bool hasMark(const QByteArray& text)
{
    return text.startsWith("\xEF\xBB\xBF");
}

/// A problem at an offset in bytes.
JsonProblem problemAt(const QByteArray& text, int offset, const QString& reason)
{
    const QByteArray before = text.left(offset);
    const int lineStart = before.lastIndexOf('\n') + 1;
    const int start = lineStart == 0 && hasMark(text) ? markLength : lineStart;
    return {before.count('\n') + 1, QString::fromUtf8(before.mid(start)).size() + 1, reason};
}

/// Offset behind the string that starts at a quotation mark.
int behindString(const QByteArray& text, int quote)
{
    int offset = quote + 1;
    while (offset < text.size() && text.at(offset) != '"')
        offset += text.at(offset) == '\\' ? 2 : 1;
    return offset + 1;
}

/// The characters of a string, whose escapes Qt's reader knows.
QString stringFrom(const QByteArray& withQuotes)
{
    return QJsonDocument::fromJson('[' + withQuotes + ']').array().at(0).toString();
}

bool isKey(const QByteArray& text, int behind)
{
    while (behind < text.size() && QByteArray(" \t\r\n").contains(text.at(behind)))
        ++behind;
    return behind < text.size() && text.at(behind) == ':';
}

/// The first key that its object holds already. The text must be JSON.
std::optional<JsonProblem> repeatedKey(const QByteArray& text)
{
    std::vector<QSet<QString>> keys; // of the objects that are open
    for (int offset = 0; offset < text.size(); ++offset) {
        const char character = text.at(offset);
        if (character == '{')
            keys.emplace_back();
        else if (character == '}')
            keys.pop_back();
        else if (character == '"') {
            const int behind = behindString(text, offset);
            if (isKey(text, behind)) {
                const QString key = stringFrom(text.mid(offset, behind - offset));
                if (keys.back().contains(key))
                    return problemAt(text, offset, QStringLiteral("the key \"%1\" is given twice").arg(key));
                keys.back().insert(key);
            }
            offset = behind - 1;
        }
    }
    return std::nullopt;
}

} // namespace

JsonParsing parseJson(const QByteArray& text)
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(text, &error);
    if (error.error != QJsonParseError::NoError)
        return {{}, problemAt(text, error.offset, error.errorString())};
    const QJsonValue value = document.isArray() ? QJsonValue(document.array()) : QJsonValue(document.object());
    return {value, repeatedKey(text)};
}
