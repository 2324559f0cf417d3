// plainCursor.h - a place in the text of a plain XML file, and what can be taken from there.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace xml {

inline constexpr std::string_view blanks = " \t\r\n";

/// What a byte may be part of.
enum CharacterClass : std::uint8_t
{
    NameStart = 1,
    NameRest = 2, ///< of a name after its first character
    Blank = 4,
    EndOfText = 8, ///< of a run of characters that are text as they are
    EndOfValue = 16, ///< of the same in the value of an attribute
};

[[nodiscard]] constexpr std::array<std::uint8_t, 256> characterClasses()
{
    std::array<std::uint8_t, 256> classes{};
    const auto add = [&](unsigned first, unsigned last, unsigned kind) {
        for (unsigned byte = first; byte <= last; ++byte)
            classes[byte] = static_cast<std::uint8_t>(classes[byte] | kind);
    };
    for (const unsigned first : {unsigned{'A'}, unsigned{'a'}})
        add(first, first + 25, unsigned{NameStart} | NameRest);
    add('_', '_', unsigned{NameStart} | NameRest);
    add('0', '9', NameRest);
    add('-', '.', NameRest);
    for (const char blank : blanks)
        add(static_cast<unsigned char>(blank), static_cast<unsigned char>(blank), Blank);
    for (const unsigned end : {unsigned{'<'}, unsigned{'&'}})
        add(end, end, unsigned{EndOfText} | EndOfValue);
    add('>', '>', EndOfText);
    for (const unsigned quote : {unsigned{'"'}, unsigned{'\''}})
        add(quote, quote, EndOfValue);
    return classes;
}

[[nodiscard]] inline bool isOf(char character, CharacterClass kind)
{
    static constexpr std::array<std::uint8_t, 256> classes = characterClasses();
    return (classes[static_cast<unsigned char>(character)] & kind) != 0;
}

/// A name as it is in the file.
struct QualifiedName
{
    std::string_view whole;
    std::string_view prefix; ///< empty if there is none
    std::string_view local;
};

/// Goes through a text from its start to its end. It holds a view of the text.
class PlainCursor
{
public:
    explicit PlainCursor(std::string_view text)
        : m_text(text)
    {}

    [[nodiscard]] std::string_view text() const { return m_text; }
    [[nodiscard]] std::size_t position() const { return m_position; }

    [[nodiscard]] bool isAtEnd() const { return m_position == m_text.size(); }
    /// The character at the place, or a zero, which is in no plain file, at the end.
    [[nodiscard]] char next() const { return isAtEnd() ? '\0' : m_text[m_position]; }
    [[nodiscard]] bool isNext(std::string_view mark) const { return m_text.substr(m_position, mark.size()) == mark; }

    [[nodiscard]] bool take(char character)
    {
        if (next() != character)
            return false;
        m_position += 1;
        return true;
    }
    [[nodiscard]] bool take(std::string_view mark)
    {
        if (!isNext(mark))
            return false;
        m_position += mark.size();
        return true;
    }
    /// @return  whether there were any
    bool passBlanks()
    {
        const std::size_t start = m_position;
        while (isOf(next(), Blank))
            m_position += 1;
        return m_position > start;
    }
    void passAllBut(CharacterClass kind)
    {
        while (!isAtEnd() && !isOf(m_text[m_position], kind))
            m_position += 1;
    }
    /// Takes all up to a mark, and the mark.
    /// @return  nothing if there is no such mark
    std::optional<std::string_view> takeUpTo(std::string_view mark)
    {
        const std::size_t end = m_text.find(mark, m_position);
        if (end == std::string_view::npos)
            return std::nullopt;
        const std::string_view taken = m_text.substr(m_position, end - m_position);
        m_position = end + mark.size();
        return taken;
    }

    /// Passes so many characters, which are there.
    void pass(std::size_t length) { m_position += length; }

    /// A name with at most one colon in it.
    std::optional<QualifiedName> takeName()
    {
        const std::string_view first = takePlainName();
        if (first.empty() || next() != ':')
            return first.empty() ? std::nullopt : std::make_optional(QualifiedName{first, {}, first});
        m_position += 1;
        const std::string_view second = takePlainName();
        if (second.empty() || next() == ':')
            return std::nullopt;
        const std::string_view whole(first.data(), first.size() + 1 + second.size());
        return QualifiedName{whole, first, second};
    }

private:
    /// @return  empty if there is none
    std::string_view takePlainName()
    {
        const std::size_t start = m_position;
        if (isOf(next(), NameStart))
            while (isOf(next(), NameRest))
                m_position += 1;
        return m_text.substr(start, m_position - start);
    }

    std::string_view m_text;
    std::size_t m_position = 0;
};

} // namespace xml
