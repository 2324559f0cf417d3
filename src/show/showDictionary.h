// showDictionary.h - the rows of a CoE dictionary, as the CoE tab of the window shows them.
#pragma once

#include "editing/dictionaryTexts.h"
#include "model/dictionaryScan.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace show {

/// One row: an object, or a part of it.
struct ShownDictionaryRow
{
    std::uint32_t index = 0;
    std::int64_t subIndex = 0; ///< 0 for an object
    std::string name;
    std::string access; ///< "ro", "rw", "wo" or empty
    int bitSize = 0;
    std::string dataType; ///< empty for an object of a structured type
    std::string value; ///< the default; a number in decimal. Empty for an element of an array
    std::optional<std::int64_t> signedValue; ///< the value, if its type has a sign
};

/// Rows of one dictionary, in the order of the tab, within the limits of `DictionaryScanner`.
class DictionaryRowList
{
public:
    /// @param dataTypes, objects  have to outlive the rows
    DictionaryRowList(const std::vector<struct_DataTypes>& dataTypes, const std::vector<struct_Object>& objects);
    ~DictionaryRowList() = default;
    DictionaryRowList(const DictionaryRowList&) = delete; // the texts refer to the index beside them
    DictionaryRowList& operator=(const DictionaryRowList&) = delete;
    DictionaryRowList(DictionaryRowList&&) = delete;
    DictionaryRowList& operator=(DictionaryRowList&&) = delete;

    [[nodiscard]] std::size_t size() const { return m_places.size(); }
    [[nodiscard]] ShownDictionaryRow row(std::size_t number);

private:
    /// Where a row comes from.
    struct Place
    {
        const struct_Object* object; ///< the object, or the one that the row is a part of
        DictionaryRow under; ///< of an object itself, the data type and sub-item that count what is under it
        bool isObject;
    };

    [[nodiscard]] ShownDictionaryRow objectRow(const Place& place);
    [[nodiscard]] ShownDictionaryRow rowUnder(const Place& place);
    [[nodiscard]] ShownDictionaryRow elementRow(const struct_Object& object, const DictionaryRow& element) const;

    DictionaryIndex m_index;
    DictionaryTexts m_texts{m_index};
    std::vector<Place> m_places;
};

} // namespace show
