// jsonWriter.h - writes JSON as it comes, on lines that people read.
#pragma once

#include "json/chunks.h"

#include <QJsonValue>
#include <QString>

#include <array>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <iosfwd>
#include <string_view>
#include <utility>

namespace json {

/// How an object or list is laid out. What is in it never takes more room than that.
enum class Spread
{
    Lines, ///< a line for each member
    OneLine, ///< `{"a": 1, "b": [2, 3]}`
    Tight, ///< `{"a":1,"b":[2,3]}`
};

/// Where writers differ.
struct Layout
{
    std::size_t indentation; ///< blanks in front of a line for each object or list around it
    bool hasShortEscapes; ///< a line feed is `\n`, and not `\u000a`; so with the others that have a letter
};

/// Writes one JSON value in UTF-8 as it comes; the caller closes what it opens, and gives each member of an object its
/// key before its value. The stream has all of the value when that is complete, and not before. Where memory ends it
/// throws std::bad_alloc, before any of a plain value or bracket is written.
class Writer
{
public:
    using Member = std::pair<std::string_view, QJsonValue>;

    /// @param out  has to outlive this
    Writer(std::ostream& out, const Layout& layout)
        : m_out(out)
        , m_layout(layout)
    {}

    void openObject(Spread spread = Spread::Lines) { open('{', spread); }
    void openObject(std::string_view name, Spread spread = Spread::Lines);
    void closeObject() { close('}'); }
    void openList(Spread spread = Spread::Lines) { open('[', spread); }
    void openList(std::string_view name, Spread spread = Spread::Lines);
    void closeList() { close(']'); }

    /// The key of the value that comes next.
    void key(std::string_view name);

    void null() { plain("null"); }
    void flag(bool isSet) { plain(isSet ? "true" : "false"); }
    void number(std::int64_t number);
    void fraction(float number); ///< null for what is no finite number
    void text(std::string_view utf8); ///< invalid bytes are replaced, unsafe characters escaped
    void text(const QString& text);
    void value(const QJsonValue& value); ///< tight; null for an undefined value

    void value(std::string_view name, const QJsonValue& member); ///< a member of an object
    void line(std::initializer_list<Member> members); ///< an object on one line, without undefined members

private:
    void begin();
    void end();
    void plain(std::string_view token);
    void quoted(std::string_view utf8);
    void open(char bracket, Spread spread);
    void close(char bracket);
    void startLine();
    [[nodiscard]] Spread spread() const;
    [[nodiscard]] std::size_t& depth(Spread spread) { return m_depths.at(static_cast<std::size_t>(spread)); }
    [[nodiscard]] QString escaped(const QString& text) const;

    Chunks m_out;
    Layout m_layout;
    std::array<std::size_t, 3> m_depths{}; ///< how many objects and lists of each spread are open
    bool m_isFirst = true; ///< there is nothing yet in what is open
    bool m_hasKey = false; ///< the key of the next value is written
};

} // namespace json
