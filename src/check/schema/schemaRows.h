// schemaRows.h - what the ESI schema, version 1.17, lets a file consist of: one row for each type of element.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace check {

/// One type of element. Its children are words in their order: "Name" is an element that occurs at most once, "Name*"
/// one that may be repeated, "( A | B C )" a choice of one branch, and "any" says that the content is not looked into.
/// After a colon comes what is in it: the name of a row, which begins with a capital letter, or the kind of a value,
/// which is a word of `valueKindNamed`. Without one it is text.
struct SchemaRow
{
    std::string_view type;
    std::string_view text; ///< kind of the text of the element itself; empty for text as such or none
    std::string_view children;
    std::string_view attributes; ///< words of the same form, in any order
};

/// The rows of one table.
class SchemaRows
{
public:
    template<std::size_t Count>
    // NOLINTNEXTLINE(google-explicit-constructor): a table stands for its rows wherever they are wanted
    constexpr SchemaRows(const std::array<SchemaRow, Count>& rows)
        : m_first(rows.data())
        , m_count(Count)
    {}

    [[nodiscard]] constexpr const SchemaRow* begin() const { return m_first; }
    [[nodiscard]] constexpr const SchemaRow* end() const { return m_first + m_count; }

private:
    const SchemaRow* m_first;
    std::size_t m_count;
};

[[nodiscard]] SchemaRows schemaRowsOfFile();
[[nodiscard]] SchemaRows schemaRowsOfDevice();
[[nodiscard]] SchemaRows schemaRowsOfDeviceInfo();
[[nodiscard]] SchemaRows schemaRowsOfModular();
[[nodiscard]] SchemaRows schemaRowsOfDictionary();

} // namespace check
