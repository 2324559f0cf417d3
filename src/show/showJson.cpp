#include "show/showJson.h"

#include "json/jsonWriter.h"

#include <algorithm>
#include <functional>
#include <new>
#include <ostream>

namespace show {

namespace {

constexpr json::Layout layout{1, false};

bool isFlat(const Value& value);

bool isFlat(const List& list)
{
    return list.count == 0 || !std::holds_alternative<Object>(list.at(0).content);
}

bool isFlat(const Object& object)
{
    return std::all_of(object.begin(), object.end(), [](const Member& member) { return isFlat(member.value); });
}

/// Whether a value goes on one line: there is no list of objects in it. A list counts by its first element.
bool isFlat(const Value& value)
{
    if (const auto* const list = std::get_if<List>(&value.content))
        return isFlat(*list);
    const auto* const object = std::get_if<Object>(&value.content);
    return object == nullptr || isFlat(*object);
}

template<typename Content> json::Spread spreadOf(const Content& content)
{
    return isFlat(content) ? json::Spread::OneLine : json::Spread::Lines;
}

/// Writes values, and goes on where memory ends: every list and object that was begun is closed, and null is
/// written for what is missing.
class ValueWriter
{
public:
    explicit ValueWriter(std::ostream& out)
        : m_json(out, layout)
    {}

    void write(const Value& value)
    {
        std::visit([this](const auto& content) { put(content); }, value.content);
    }

    /// @param lastMember  makes the last member; null if there is none besides those of the object
    void writeObject(const Object& object, const std::function<Member(bool isWhole)>& lastMember)
    {
        json::Spread spread = json::Spread::Lines;
        if (!attempt([&] { spread = lastMember != nullptr ? json::Spread::Lines : spreadOf(object); })) {
            m_json.null();
            return;
        }
        m_json.openObject(spread);
        for (const Member& member : object)
            writeMember(member);
        if (lastMember != nullptr)
            writeMember(lastMember(m_isWhole));
        m_json.closeObject();
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

    void put(std::monostate /*nothing*/) { m_json.null(); }
    void put(bool isSet) { m_json.flag(isSet); }
    void put(const Number& number) { m_json.number(number.value); }
    void put(float number) { m_json.fraction(number); }
    void put(const std::string& utf8)
    {
        if (!attempt([&] { m_json.text(utf8); }))
            m_json.null();
    }
    void put(const Object& object) { writeObject(object, nullptr); }
    void put(const List& list)
    {
        json::Spread spread = json::Spread::Lines;
        if (!m_isWhole || !attempt([&] { spread = spreadOf(list); })) {
            m_json.null();
            return;
        }
        m_json.openList(spread);
        for (std::size_t index = 0; index < list.count && m_isWhole; ++index) {
            Value element; // null if there is no memory for it
            attempt([&] { element = list.at(index); });
            write(element);
        }
        m_json.closeList();
    }

    void writeMember(const Member& member)
    {
        m_json.key(member.key);
        write(member.value);
    }

    json::Writer m_json;
    bool m_isWhole = true;
};

} // namespace

void writeJson(std::ostream& out, const Value& value)
{
    ValueWriter writer(out);
    writer.write(value);
    if (!writer.isWhole())
        throw std::bad_alloc();
}

void writeJson(std::ostream& out, const Object& object, const std::function<Member(bool isWhole)>& lastMember)
{
    ValueWriter writer(out);
    writer.writeObject(object, lastMember);
    if (!writer.isWhole())
        throw std::bad_alloc();
}

} // namespace show
