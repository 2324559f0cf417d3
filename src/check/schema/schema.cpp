#include "check/schema/schema.h"

#include "check/schema/schemaRows.h"

#include <algorithm>
#include <array>
#include <stdexcept>
#include <string>

namespace check {

namespace {

std::vector<std::string_view> wordsOf(std::string_view text)
{
    std::vector<std::string_view> words;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find(' '), text.size());
        if (end > 0)
            words.push_back(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return words;
}

/// A word of a row: "Name", "Name:Type" or "Name:kind*".
struct RowWord
{
    std::string_view name;
    std::string_view content; ///< name of a row or of a kind; empty for text
    bool isRepeatable;
};

RowWord rowWord(std::string_view word)
{
    const bool isRepeatable = word.back() == '*';
    if (isRepeatable)
        word.remove_suffix(1);
    const std::size_t colon = word.find(':');
    return {word.substr(0, colon), colon == std::string_view::npos ? std::string_view() : word.substr(colon + 1),
            isRepeatable};
}

bool isTypeName(std::string_view content)
{
    return !content.empty() && content.front() >= 'A' && content.front() <= 'Z';
}

ValueType kindOf(std::string_view word)
{
    if (word.empty())
        return {};
    const std::optional<ValueType> kind = valueKindNamed(word);
    if (!kind.has_value())
        throw std::logic_error("no kind of value: " + std::string(word));
    return *kind;
}

const SchemaType* typeIn(const std::vector<SchemaType>& types, std::string_view name)
{
    const auto found =
        std::find_if(types.begin(), types.end(), [name](const SchemaType& type) { return type.name == name; });
    return found == types.end() ? nullptr : &*found;
}

/// Reads the children of a row.
void addChildren(SchemaType& type, std::string_view words, const std::vector<SchemaType>& types)
{
    std::uint8_t choices = 0;
    std::uint8_t choice = 0;
    std::uint8_t branch = 0;
    for (const std::string_view text : wordsOf(words)) {
        if (text == "(") {
            choice = ++choices;
            branch = 0;
        } else if (text == "|") {
            ++branch;
        } else if (text == ")") {
            choice = 0;
            branch = 0;
        } else if (text == "any") {
            type.isAny = true;
        } else {
            const RowWord word = rowWord(text);
            const bool hasType = isTypeName(word.content);
            const SchemaType* const childType = hasType ? typeIn(types, word.content) : nullptr;
            if (hasType && childType == nullptr)
                throw std::logic_error("no row: " + std::string(word.content));
            type.children.push_back({word.name, childType, hasType ? ValueType() : kindOf(word.content),
                                     word.isRepeatable, choice, branch});
        }
    }
}

std::vector<SchemaRow> allRows()
{
    std::vector<SchemaRow> rows;
    for (const SchemaRows& table : {schemaRowsOfFile(), schemaRowsOfDevice(), schemaRowsOfDeviceInfo(),
                                    schemaRowsOfModular(), schemaRowsOfDictionary()})
        rows.insert(rows.end(), table.begin(), table.end());
    return rows;
}

} // namespace

Schema::Schema()
{
    const std::vector<SchemaRow> rows = allRows();
    m_types.reserve(rows.size());
    for (const SchemaRow& row : rows)
        m_types.push_back({row.type, kindOf(row.text), false, {}, {}});
    for (std::size_t index = 0; index < rows.size(); ++index) {
        addChildren(m_types[index], rows[index].children, m_types);
        for (const std::string_view text : wordsOf(rows[index].attributes)) {
            const RowWord word = rowWord(text);
            m_types[index].attributes.push_back({word.name, kindOf(word.content)});
        }
    }
}

const SchemaType* Schema::typeNamed(std::string_view name) const
{
    return typeIn(m_types, name);
}

const SchemaType* Schema::rootNamed(std::string_view name) const
{
    static constexpr std::array<std::string_view, 3> roots{"EtherCATInfo", "EtherCATDict", "EtherCATDiag"};
    return std::find(roots.begin(), roots.end(), name) == roots.end() ? nullptr : typeNamed(name);
}

const Schema& esiSchema()
{
    static const Schema schema;
    return schema;
}

} // namespace check
