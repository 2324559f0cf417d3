// treeFacts.h - what one walk over the whole tree of an ESI file finds: where it departs from the schema, and values
// that are not what they have to be.
#pragma once

#include "check/finding.h"
#include "check/schema/valueKind.h"
#include "esi/fileElements.h"
#include "esi/xml/tree.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace check {

/// How a part of a file departs from the schema.
enum class SchemaFaultKind : std::uint8_t
{
    UnknownElement, ///< the schema has no such element in its parent
    RepeatedElement, ///< it may occur once
    ExcludedElement, ///< it and an element before it are of different branches of a choice
    Order, ///< it comes after an element that it has to precede
    UnknownAttribute,
    Count
};

/// All departures of a file that are alike. The names are in the tree.
struct SchemaFault
{
    SchemaFaultKind kind = SchemaFaultKind::UnknownElement;
    Where where = 0; ///< of the first
    std::string_view parent; ///< the element that it is in or, of an attribute, on
    std::string_view name;
    std::string_view other; ///< the element before it, of a choice or order
    std::size_t count = 1;
};

/// A value that is not what it has to be.
struct ValueFault
{
    ValueFaultKind kind = ValueFaultKind::Number;
    Where where = 0; ///< of its element
    Owner owner;
    ValueType type;
    std::string_view element;
    std::string_view attribute; ///< empty if it is the text of the element
    std::string text; ///< the value, or the beginning of a long one
    std::optional<std::uint32_t> number; ///< as which it is read, if it is one
};

/// Values of one kind about one device, module or file that were not kept.
struct OmittedValues
{
    ValueFaultKind kind;
    Owner owner;
    std::size_t count;
};

/// What the walk found. It refers to the tree.
struct TreeFacts
{
    std::vector<SchemaFault> schemaFaults; ///< by the first of each
    std::vector<ValueFault> valueFaults; ///< in the order of the file
    std::size_t omittedSchemaFaults = 0; ///< of kinds that were not kept, since there are too many kinds
    std::vector<OmittedValues> omittedValues;
};

/// Walks over a tree. One whose outermost element the schema does not have is not looked into.
/// @param devices  of the file, in document order
/// @param modules  of the file, in document order
[[nodiscard]] TreeFacts treeFactsOf(const xml::Tree& tree, const std::vector<DeviceElements>& devices,
                                    const std::vector<xml::Element>& modules);

} // namespace check
