// fieldRules.h - tables of (name, where the value goes), and the loops that walk them.
#pragma once

#include "esi/xml/treeIteration.h"

#include <array>
#include <cstddef>
#include <string_view>

/// One row of a table of attributes: an exact, case-sensitive name and what its value does to the record.
template<typename Record> struct AttributeRule
{
    std::string_view name;
    void (*store)(Record& to, std::string_view value);
};

/// One row of a table of child elements: an exact, case-sensitive name and what the element does to the record, by its
/// text or as a whole.
template<typename Record> struct ElementRule
{
    std::string_view name;
    void (*store)(Record& to, std::string_view text); ///< null if `read` is not
    void (*read)(Record& to, const xml::Element& element);
};

/// The row of an attribute; the record is that of `store`.
template<typename Record>
[[nodiscard]] constexpr AttributeRule<Record> attribute(std::string_view name, void (*store)(Record&, std::string_view))
{
    return {name, store};
}

/// The row of a child element that counts by its text, whole; the record is that of `store`.
template<typename Record>
[[nodiscard]] constexpr ElementRule<Record> child(std::string_view name, void (*store)(Record&, std::string_view))
{
    return {name, store, nullptr};
}

/// The row of a child element that is more than its text.
template<typename Record>
[[nodiscard]] constexpr ElementRule<Record> child(std::string_view name, void (*read)(Record&, const xml::Element&))
{
    return {name, nullptr, read};
}

/// Reads the attributes of `element` into `to`, by their local names. Of two attributes with the same local name and
/// different prefixes the later one counts; an attribute that no row names is passed over.
template<typename Record, std::size_t Count>
void readAttributes(const xml::Element& element, const std::array<AttributeRule<Record>, Count>& rules, Record& to)
{
    element.forEachAttribute([&](std::string_view name, std::string_view value) {
        for (const AttributeRule<Record>& rule : rules)
            if (name == rule.name) {
                rule.store(to, value);
                return;
            }
    });
}

/// Reads the child elements of `parent` into `to`, in document order: of a value that occurs twice the later one
/// counts. A child that no row names is passed over.
template<typename Record, std::size_t Count>
void readChildren(const xml::Element& parent, const std::array<ElementRule<Record>, Count>& rules, Record& to)
{
    xml::forEachChildElement(parent, [&](const xml::Element& element) {
        for (const ElementRule<Record>& rule : rules)
            if (element.name() == rule.name) {
                if (rule.store != nullptr)
                    rule.store(to, element.text());
                else
                    rule.read(to, element);
                return;
            }
    });
}
