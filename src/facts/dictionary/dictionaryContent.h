// dictionaryContent.h - what a CoE dictionary of an ESI file says, in lists.
#pragma once

#include "esi/xml/tree.h"
#include "facts/owner.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace facts {

/// What of an object can be done through the mailbox.
enum class Access : std::uint8_t
{
    Unknown, ///< it is not told
    ReadOnly,
    ReadWrite,
    WriteOnly,
};

/// Into which PDOs an object may be mapped.
enum class Mapping : std::uint8_t
{
    Unknown, ///< it is not told
    None,
    Outputs, ///< "R", RxPdo
    Inputs, ///< "T", TxPdo
    Both,
};

/// Some items of a list that are side by side.
struct Run
{
    std::uint32_t first = 0;
    std::uint32_t count = 0;
};

/// The items of a run, for a loop.
template<typename Item> class ItemsOf
{
public:
    ItemsOf(const std::vector<Item>& list, Run run)
        : m_first(list.data() + run.first)
        , m_count(run.count)
    {}
    [[nodiscard]] const Item* begin() const { return m_first; }
    [[nodiscard]] const Item* end() const { return m_first + m_count; }
    [[nodiscard]] std::size_t size() const { return m_count; }
    [[nodiscard]] const Item& operator[](std::size_t index) const { return m_first[index]; }

private:
    const Item* m_first;
    std::size_t m_count;
};

/// A reference to a data type.
struct TypeName
{
    static constexpr std::uint32_t undeclared = 0xFFFF'FFFF;

    std::string_view name; ///< null data if there is no reference
    std::uint32_t type = undeclared; ///< place in the list of data types: the first of that name

    [[nodiscard]] bool isGiven() const noexcept { return name.data() != nullptr; }
    [[nodiscard]] bool isDeclared() const noexcept { return type != undeclared; }
};

/// The flags of an object or sub-item.
struct AccessFlags
{
    Access access = Access::Unknown;
    Mapping mapping = Mapping::Unknown;
    std::uint32_t backup = 0;
    std::uint32_t setting = 0;
    std::string_view category;
};

/// A sub-item of a data type.
struct TypeSubItem
{
    Where where = 0;
    AccessFlags flags;
    std::string_view name;
    TypeName type;
    std::optional<std::uint32_t> subIndex;
    std::optional<std::uint32_t> bits;
    std::optional<std::uint32_t> offset;
};

/// A value of an enumeration.
struct EnumItem
{
    Where where = 0;
    std::string_view name; ///< `Text`, or `Name` in files that have that instead
    std::uint32_t value = 0;
};

/// The bounds of one dimension of an array.
struct ArrayBounds
{
    std::uint32_t lower = 0;
    std::uint32_t elements = 0;
};

/// A data type. It is an array if it has dimensions, else a record if it has sub-items.
struct DataType
{
    Where where = 0;
    std::string_view name;
    TypeName base;
    std::optional<std::uint32_t> bits;
    Run subItems;
    Run enumItems; ///< of an enumeration
    std::uint32_t dimensions = 0;
    ArrayBounds bounds; ///< of the first dimension
    std::uint64_t elements = 0; ///< of all dimensions; the greatest number if there are more

    [[nodiscard]] bool isArray() const noexcept { return dimensions > 0; }
    [[nodiscard]] bool isRecord() const noexcept { return !isArray() && subItems.count > 0; }
};

/// How a default or limit is written.
enum class ValueForm : std::uint8_t
{
    None, ///< there is none
    Data, ///< hexadecimal bytes, the least significant first
    Number,
    Text,
};

/// A default or limit.
struct WrittenValue
{
    std::string_view text;
    Where where = 0;
    ValueForm form = ValueForm::None;
};

/// The `Info` of an object or sub-item.
struct ItemInfo
{
    WrittenValue initial; ///< the default
    WrittenValue least;
    WrittenValue greatest;
};

/// A sub-item in the `Info` of an object.
struct InfoSubItem
{
    Where where = 0;
    std::string_view name;
    ItemInfo info;
};

/// An object.
struct DictionaryObject
{
    Where where = 0;
    std::uint16_t index = 0;
    AccessFlags flags;
    std::string_view name;
    TypeName type;
    std::optional<std::uint32_t> bits;
    ItemInfo info;
    Run subItems; ///< of `Info`
};

/// All of a dictionary. It refers to the tree.
struct DictionaryContent
{
    std::vector<DataType> types;
    std::vector<TypeSubItem> typeSubItems;
    std::vector<EnumItem> enumItems;
    std::vector<DictionaryObject> objects;
    std::vector<InfoSubItem> infoSubItems;
    std::deque<std::string> texts; ///< that are put together from several nodes
    bool tellsMapping = false; ///< some object or sub-item has a `PdoMapping`

    [[nodiscard]] ItemsOf<TypeSubItem> subItemsOf(const DataType& type) const { return {typeSubItems, type.subItems}; }
    [[nodiscard]] ItemsOf<EnumItem> enumItemsOf(const DataType& type) const { return {enumItems, type.enumItems}; }
    [[nodiscard]] ItemsOf<InfoSubItem> subItemsOf(const DictionaryObject& object) const
    {
        return {infoSubItems, object.subItems};
    }
};

/// Reads `Dictionary` elements, which count as one. The types of references are left undeclared.
[[nodiscard]] DictionaryContent dictionaryContentOf(const std::vector<xml::Element>& dictionaries);

} // namespace facts
