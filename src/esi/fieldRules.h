// fieldRules.h - tables of (name, where the value goes), and the loops that walk them.
#pragma once

#include "esi/xml/domIteration.h"

#include <QDomElement>
#include <QDomNamedNodeMap>
#include <QLatin1String>
#include <QString>

#include <array>
#include <cstddef>

/// One row of a table of attributes: an exact, case-sensitive name and what its value does to the record.
template<typename Record> struct AttributeRule
{
    QLatin1String name;
    void (*store)(Record& to, const QString& value);
};

/// One row of a table of child elements: an exact, case-sensitive tag and what the element does to the record, by its
/// text or as a whole.
template<typename Record> struct ElementRule
{
    QLatin1String tag;
    void (*store)(Record& to, const QString& text); ///< null if `read` is not
    void (*read)(Record& to, const QDomElement& element);
};

/// The row of an attribute; the record is that of `store`.
template<typename Record>
[[nodiscard]] constexpr AttributeRule<Record> attribute(const char* name, void (*store)(Record&, const QString&))
{
    return {QLatin1String(name), store};
}

/// The row of a child element that counts by its text, whole; the record is that of `store`.
template<typename Record>
[[nodiscard]] constexpr ElementRule<Record> child(const char* tag, void (*store)(Record&, const QString&))
{
    return {QLatin1String(tag), store, nullptr};
}

/// The row of a child element that is more than its text.
template<typename Record>
[[nodiscard]] constexpr ElementRule<Record> child(const char* tag, void (*read)(Record&, const QDomElement&))
{
    return {QLatin1String(tag), nullptr, read};
}

/// Text of an element. Most elements hold one text and nothing else, and then that is the answer.
[[nodiscard]] inline QString textOf(const QDomElement& element)
{
    const QDomNode child = element.firstChild();
    return child.isText() && child.nextSibling().isNull() ? child.nodeValue() : element.text();
}

/// Reads an element by the reader of its section.
template<auto Reader, typename Record> void readSection(Record& to, const QDomElement& element)
{
    QDomElement section = element;
    Reader(&section, &to);
}

template<auto Reader, typename Record> constexpr auto sectionReader(void (* /*unused*/)(QDomElement*, Record*))
{
    return &readSection<Reader, Record>;
}

/// What reads a child element by the reader of its section.
template<auto Reader> inline constexpr auto bySection = sectionReader<Reader>(Reader);

/// Reads the attributes of `element` into `to`, by their local names. Of two attributes with the same local name and
/// different prefixes the later one counts; an attribute that no row names is passed over.
template<typename Record, std::size_t Count>
void readAttributes(const QDomElement& element, const std::array<AttributeRule<Record>, Count>& rules, Record& to)
{
    const QDomNamedNodeMap attributes = element.attributes();
    for (const AttributeRule<Record>& rule : rules)
        if (const QDomNode attribute = attributes.namedItem(rule.name); !attribute.isNull())
            rule.store(to, attribute.nodeValue());
}

/// Reads the child elements of `parent` into `to`, in document order: of a value that occurs twice the later one
/// counts. A child that no row names is passed over.
template<typename Record, std::size_t Count>
void readChildren(const QDomElement& parent, const std::array<ElementRule<Record>, Count>& rules, Record& to)
{
    forEachChildElement(parent, [&](const QDomElement& element, const QString& tag) {
        for (const ElementRule<Record>& rule : rules)
            if (isNamed(tag, rule.tag)) {
                if (rule.store != nullptr)
                    rule.store(to, textOf(element));
                else
                    rule.read(to, element);
                return;
            }
    });
}
