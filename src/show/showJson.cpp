#include "show/showJson.h"

#include "show/showWords.h"
#include "text/unsafeCharacters.h"

#include <QString>

#include <algorithm>
#include <cmath>
#include <functional>
#include <new>
#include <ostream>

namespace {

bool isFlat(const ShowValue& value);

bool isFlat(const ShowList& list)
{
    return list.count == 0 || !std::holds_alternative<ShowObject>(list.at(0).content);
}

bool isFlat(const ShowObject& object)
{
    return std::all_of(object.begin(), object.end(), [](const ShowMember& member) { return isFlat(member.value); });
}

/// Whether a value stands on one line: there is no list of objects in it. A list counts by its first element.
bool isFlat(const ShowValue& value)
{
    if (const auto* const list = std::get_if<ShowList>(&value.content))
        return isFlat(*list);
    const auto* const object = std::get_if<ShowObject>(&value.content);
    return object == nullptr || isFlat(*object);
}

/// Writes values, and goes on where memory ends: every list and object that was begun is closed, and null stands for
/// what is missing.
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

    /// @param lastMember  makes the last member; null if there is none besides those of the object
    void writeObject(const ShowObject& object, const std::function<ShowMember(bool isWhole)>& lastMember)
    {
        bool isOnOneLine = false;
        if (!attempt([&] { isOnOneLine = lastMember == nullptr && isFlat(object); })) {
            m_out << "null";
            return;
        }
        m_out << '{';
        ++m_depth;
        const char* separator = "";
        for (const ShowMember& member : object) {
            m_out << separator;
            writeMember(member, isOnOneLine);
            separator = isOnOneLine ? ", " : ",";
        }
        if (lastMember != nullptr) {
            m_out << separator;
            writeMember(lastMember(m_isWhole), isOnOneLine);
        }
        --m_depth;
        if (!isOnOneLine)
            startLine();
        m_out << '}';
    }

    /// Whether there was memory for all that was to be written.
    [[nodiscard]] bool isWhole() const { return m_isWhole; }

private:
    /// @return  false where memory ends
    template<typename Work> bool attempt(Work work)
    {
        try {
            work();
            return true;
        } catch (const std::bad_alloc&) {
            m_isWhole = false;
            return false;
        }
    }

    void put(std::monostate /*nothing*/) { m_out << "null"; }
    void put(bool isSet) { m_out << (isSet ? "true" : "false"); }
    void put(const ShowNumber& number) { m_out << number.value; }
    void put(float number) { m_out << (std::isfinite(number) ? fractionText(number) : std::string("null")); }
    void put(const std::string& utf8)
    {
        if (std::all_of(utf8.begin(), utf8.end(), needsNoLook)) {
            m_out << '"' << utf8 << '"';
            return;
        }
        std::string escaped;
        if (attempt([&] { escaped = escapedText(utf8); }))
            m_out << '"' << escaped << '"';
        else
            m_out << "null";
    }

    /// Whether a byte is a character by itself that stands in JSON as it is; most texts have no others.
    static bool needsNoLook(char byte) { return byte >= ' ' && byte <= '~' && byte != '"' && byte != '\\'; }

    static std::string escapedText(const std::string& utf8)
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
        return escaped.toStdString();
    }

    static QString escapeOf(QChar character)
    {
        constexpr int digits = 4;
        constexpr int hexadecimal = 16;
        return QStringLiteral("\\u%1").arg(character.unicode(), digits, hexadecimal, QLatin1Char('0'));
    }

    void put(const ShowObject& object) { writeObject(object, nullptr); }

    void writeMember(const ShowMember& member, bool isOnOneLine)
    {
        if (!isOnOneLine)
            startLine();
        m_out << '"' << member.key << "\": ";
        write(member.value);
    }

    void put(const ShowList& list)
    {
        bool isOnOneLine = false;
        if (!m_isWhole || !attempt([&] { isOnOneLine = isFlat(list); })) {
            m_out << "null";
            return;
        }
        m_out << '[';
        ++m_depth;
        for (std::size_t index = 0; index < list.count && m_isWhole; ++index) {
            if (index > 0)
                m_out << (isOnOneLine ? ", " : ",");
            if (!isOnOneLine)
                startLine();
            ShowValue element; // null if there is no memory for it
            attempt([&] { element = list.at(index); });
            write(element);
        }
        --m_depth;
        if (!isOnOneLine)
            startLine();
        m_out << ']';
    }

    void startLine()
    {
        m_out << '\n';
        for (std::size_t blank = 0; blank < m_depth; ++blank)
            m_out << ' ';
    }

    std::ostream& m_out;
    std::size_t m_depth = 0;
    bool m_isWhole = true;
};

} // namespace

void writeJson(std::ostream& out, const ShowValue& value)
{
    JsonWriter writer(out);
    writer.write(value);
    if (!writer.isWhole())
        throw std::bad_alloc();
}

void writeJson(std::ostream& out, const ShowObject& object, const std::function<ShowMember(bool isWhole)>& lastMember)
{
    JsonWriter writer(out);
    writer.writeObject(object, lastMember);
    if (!writer.isWhole())
        throw std::bad_alloc();
}
