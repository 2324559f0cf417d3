#include "cli/show/showJson.h"

#include "cli/show/showWords.h"
#include "cli/unsafeCharacters.h"

#include <QString>

#include <algorithm>
#include <cmath>
#include <ostream>

namespace {

/// Whether a value stands on one line: there is no list of objects in it. A list counts by its first element.
bool isFlat(const ShowValue& value)
{
    if (const auto* const list = std::get_if<ShowList>(&value.content))
        return list->count == 0 || !std::holds_alternative<ShowObject>(list->at(0).content);
    const auto* const object = std::get_if<ShowObject>(&value.content);
    return object == nullptr || std::all_of(object->begin(), object->end(), [](const ShowMember& member) {
               return isFlat(member.value);
           });
}

class JsonWriter
{
public:
    explicit JsonWriter(std::ostream& out)
        : m_out(out)
    {}

    void write(const ShowValue& value)
    {
        std::visit([this](const auto& content) { put(content); }, value.content);
    }

private:
    void put(std::monostate /*nothing*/) { m_out << "null"; }
    void put(bool isSet) { m_out << (isSet ? "true" : "false"); }
    void put(const ShowNumber& number) { m_out << number.value; }
    void put(float number) { m_out << (std::isfinite(number) ? fractionText(number) : std::string("null")); }
    void put(const std::string& utf8) { putText(utf8); }

    void putText(const std::string& utf8)
    {
        if (std::all_of(utf8.begin(), utf8.end(), needsNoLook))
            m_out << '"' << utf8 << '"';
        else
            putEscaped(utf8);
    }

    /// Whether a byte is a character by itself that stands in JSON as it is; most texts have no others.
    static bool needsNoLook(char byte) { return byte >= ' ' && byte <= '~' && byte != '"' && byte != '\\'; }

    void putEscaped(const std::string& utf8)
    {
        QString escaped;
        for (const QChar character : QString::fromStdString(utf8)) {
            if (character == QLatin1Char('"') || character == QLatin1Char('\\'))
                escaped += QLatin1Char('\\') + QString(character);
            else if (isUnsafe(character))
                escaped += escapeOf(character);
            else
                escaped += character;
        }
        m_out << '"' << escaped.toStdString() << '"';
    }

    static QString escapeOf(QChar character)
    {
        constexpr int digits = 4;
        constexpr int hexadecimal = 16;
        return QStringLiteral("\\u%1").arg(character.unicode(), digits, hexadecimal, QLatin1Char('0'));
    }

    void put(const ShowObject& object)
    {
        const bool isOnOneLine = isFlat({object});
        m_out << '{';
        ++m_depth;
        const char* separator = "";
        for (const ShowMember& member : object) {
            m_out << separator;
            if (!isOnOneLine)
                startLine();
            putText(member.key);
            m_out << ": ";
            write(member.value);
            separator = isOnOneLine ? ", " : ",";
        }
        --m_depth;
        if (!isOnOneLine)
            startLine();
        m_out << '}';
    }

    void put(const ShowList& list)
    {
        const bool isOnOneLine = isFlat({list});
        m_out << '[';
        ++m_depth;
        for (std::size_t index = 0; index < list.count; ++index) {
            if (index > 0)
                m_out << (isOnOneLine ? ", " : ",");
            if (!isOnOneLine)
                startLine();
            write(list.at(index));
        }
        --m_depth;
        if (!isOnOneLine)
            startLine();
        m_out << ']';
    }

    void startLine() { m_out << '\n' << std::string(m_depth, ' '); }

    std::ostream& m_out;
    std::size_t m_depth = 0;
};

} // namespace

void writeJson(std::ostream& out, const ShowValue& value)
{
    JsonWriter(out).write(value);
}
