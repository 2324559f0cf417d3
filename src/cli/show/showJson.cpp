#include "cli/show/showJson.h"

#include "cli/show/showWords.h"

#include <algorithm>
#include <array>
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
    void put(const std::string& utf8) { putText(validUtf8(utf8)); }

    void putText(const std::string& utf8)
    {
        m_out << '"';
        for (const char character : utf8) {
            if (character == '"' || character == '\\')
                m_out << '\\' << character;
            else if (static_cast<unsigned char>(character) < firstPrintable)
                putEscape(character);
            else
                m_out << character;
        }
        m_out << '"';
    }

    void putEscape(char control)
    {
        constexpr std::array digits{'0', '1', '2', '3', '4', '5', '6', '7', '8', '9', 'a', 'b', 'c', 'd', 'e', 'f'};
        constexpr unsigned bitsPerDigit = 4;
        const auto code = static_cast<unsigned char>(control);
        m_out << "\\u00" << digits[code >> bitsPerDigit] << digits[code % digits.size()];
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

    static constexpr unsigned char firstPrintable = 0x20;

    std::ostream& m_out;
    std::size_t m_depth = 0;
};

} // namespace

void writeJson(std::ostream& out, const ShowValue& value)
{
    JsonWriter(out).write(value);
}
