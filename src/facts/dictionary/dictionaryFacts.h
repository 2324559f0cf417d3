// dictionaryFacts.h - a CoE dictionary of an ESI file, with what it says about data types resolved.
#pragma once

#include "esi/xml/tree.h"
#include "facts/dictionary/dictionaryContent.h"
#include "facts/dictionary/standardTypes.h"

#include <cstdint>
#include <optional>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace facts {

/// An object, or a sub-item of one.
struct ItemFacts
{
    int bits = 0; ///< 0 if it is not known
    std::string_view type; ///< name of the data type
    TypeShape shape; ///< of the data type
    Access access = Access::Unknown;
    Mapping mapping = Mapping::Unknown;
};

/// How a look-up ended.
enum class LookUp : std::uint8_t
{
    Found,
    NoObject,
    NoSubIndex,
    CannotTell, ///< the dictionary does not say enough about the object: its type is not there
};

/// An item that was looked up.
struct LookedUpItem
{
    LookUp result = LookUp::NoObject;
    ItemFacts item; ///< if it was found
};

/// The sub-indexes of a sub-item of a data type.
struct SubIndexSpan
{
    std::uint64_t first = 0;
    std::uint64_t last = 0;
    std::uint32_t subItem = 0; ///< place in the content's list
    bool isArray = false; ///< each sub-index is an element of the sub-item's type
};

/// The dictionary of a device or module. Look-ups take about the same time however long it is.
class DictionaryFacts
{
public:
    /// @param dictionaries  the `Dictionary` elements, which count as one; their tree has to outlive this
    explicit DictionaryFacts(const std::vector<xml::Element>& dictionaries);

    /// An object (sub-index 0 of one that has no sub-items) or a sub-item.
    [[nodiscard]] LookedUpItem itemAt(std::uint32_t index, std::uint32_t subIndex) const;

    /// The first object of an index.
    /// @return  null if there is none
    [[nodiscard]] const DictionaryObject* objectAt(std::uint32_t index) const;

    /// All that it says, with references resolved.
    [[nodiscard]] const DictionaryContent& content() const noexcept { return m_content; }

    /// Places of the objects in their list, by index; those that share one are in the order of the list.
    [[nodiscard]] const std::vector<std::uint32_t>& objectsByIndex() const noexcept { return m_objectsByIndex; }

    /// The sub-indexes of a data type, by the first of each span.
    /// @param type  place in the list of data types
    [[nodiscard]] ItemsOf<SubIndexSpan> spansOf(std::uint32_t type) const { return {m_spans, m_spansOfTypes[type]}; }

    /// The array whose elements are sub-items of a data type.
    /// @param type  place in the list of data types
    /// @return      null if there is none; the last one if there are several
    [[nodiscard]] const DataType* elementsIn(std::uint32_t type) const
    {
        return m_arrays[type] == TypeName::undeclared ? nullptr : &m_content.types[m_arrays[type]];
    }

    /// What a declared or standard data type says about its values.
    [[nodiscard]] TypeShape shapeOf(const TypeName& type) const;

    /// The reference to a data type by its name.
    [[nodiscard]] TypeName typeNamed(std::string_view name) const;

    /// The declared data type of a reference.
    /// @return  null if it is not declared
    [[nodiscard]] const DataType* declared(const TypeName& type) const
    {
        return type.isDeclared() ? &m_content.types[type.type] : nullptr;
    }

private:
    void resolve(TypeName& reference) const;
    void resolveAll();
    void findShapes();
    void findSpans(const DataType& type);
    void sortObjects();
    [[nodiscard]] DataKind kindOf(const DataType& type) const;
    [[nodiscard]] LookedUpItem subItemAt(const DictionaryObject& object, std::uint32_t subIndex) const;
    [[nodiscard]] LookedUpItem arrayAt(const DictionaryObject& object, std::uint32_t subIndex) const;
    [[nodiscard]] LookedUpItem found(const TypeName& type, std::optional<std::uint32_t> bits,
                                     const AccessFlags& flags) const;

    DictionaryContent m_content;
    std::unordered_map<std::string_view, std::uint32_t> m_typesByName; ///< the first of each name
    std::vector<TypeShape> m_shapes; ///< of the data types
    std::vector<SubIndexSpan> m_spans;
    std::vector<Run> m_spansOfTypes;
    std::vector<std::uint32_t> m_arrays; ///< see `elementsIn`
    std::vector<bool> m_isOpen; ///< whether a type may have more sub-indexes than it says
    std::vector<std::uint32_t> m_objectsByIndex;
};

} // namespace facts
