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

/// One row of a table of child elements: an exact, case-sensitive tag and what the element does to the record.
template<typename Record> struct ElementRule
{
    QLatin1String tag;
    void (*read)(Record& to, const QDomElement& element);
};

/// Text of an element. Most elements hold one text and nothing else, and then that is the answer.
[[nodiscard]] inline QString textOf(const QDomElement& element)
{
    const QDomNode child = element.firstChild();
    return child.isText() && child.nextSibling().isNull() ? child.nodeValue() : element.text();
}

/// Makes a rule for an element out of one for a value: the value is the element's text, whole.
template<auto Store, typename Record> void fromText(Record& to, const QDomElement& element)
{
    Store(to, textOf(element));
}

/// Makes a rule for an element out of the reader of its section.
template<auto Reader, typename Record> void bySection(Record& to, const QDomElement& element)
{
    QDomElement section = element;
    Reader(&section, &to);
}

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

/// Reads the child elements of `element` into `to`, in document order: of a value that occurs twice the later one
/// counts. A child that no row names is passed over.
template<typename Record, std::size_t Count>
void readChildren(const QDomElement& element, const std::array<ElementRule<Record>, Count>& rules, Record& to)
{
    forEachChildElement(element, [&](const QDomElement& child, const QString& tag) {
        for (const ElementRule<Record>& rule : rules)
            if (isNamed(tag, rule.tag)) {
                rule.read(to, child);
                return;
            }
    });
}
