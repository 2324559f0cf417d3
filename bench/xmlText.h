// xmlText.h - builds the text of XML elements, one per line and indented.
#pragma once

#include <cstdio>
#include <string>
#include <vector>

/// The digits of a number in upper-case hexadecimal, filled up with zeros to at least `digits` of them.
[[nodiscard]] inline std::string hexDigits(int number, int digits)
{
    constexpr std::size_t enoughForAnyNumber = 32;
    std::string text(enoughForAnyNumber, '\0');
    const int length = std::snprintf(text.data(), text.size(), "%0*X", digits, static_cast<unsigned>(number));
    text.resize(static_cast<std::size_t>(length));
    return text;
}

/// Text of elements, written in document order. Values and attributes are taken as they are: nothing is escaped.
class XmlText
{
public:
    /// @param depth  that of the first element
    explicit XmlText(std::size_t depth)
        : m_depth(depth)
    {}

    /// Starts an element; the following ones are its children until `close`.
    void open(const char* tag, const std::string& attributes = {})
    {
        startTag(tag, attributes);
        m_text += '\n';
        m_open.push_back(tag);
    }

    /// Ends the element that was opened last.
    void close()
    {
        const char* tag = m_open.back();
        m_open.pop_back();
        indent();
        endTag(tag);
    }

    /// Adds an element that holds a text only.
    void leaf(const char* tag, const std::string& value, const std::string& attributes = {})
    {
        startTag(tag, attributes);
        m_text += value;
        endTag(tag);
    }

    [[nodiscard]] const std::string& text() const { return m_text; }

private:
    void indent()
    {
        constexpr std::size_t step = 2;
        m_text.append((m_depth + m_open.size()) * step, ' ');
    }
    void startTag(const char* tag, const std::string& attributes)
    {
        indent();
        m_text += '<';
        m_text += tag;
        if (!attributes.empty())
            m_text += ' ' + attributes;
        m_text += '>';
    }
    void endTag(const char* tag)
    {
        m_text += "</";
        m_text += tag;
        m_text += ">\n";
    }

    std::size_t m_depth;
    std::vector<const char*> m_open; ///< tags of the open elements; the callers pass texts that live on
    std::string m_text;
};
