// schema.h - the rows of the ESI schema in the form in which a walk over a file looks them up.
#pragma once

#include "check/schema/valueKind.h"

#include <cstdint>
#include <string_view>
#include <vector>

namespace check {

struct SchemaType;

/// An element that another may have in it. Its place in the list is its place in the order.
struct SchemaChild
{
    std::string_view name;
    const SchemaType* type = nullptr; ///< null if it has a plain value and nothing else
    ValueType value; ///< of its text, if `type` is null
    bool isRepeatable = false;
    std::uint8_t choice = 0; ///< number of the choice of its parent that it is in; 0 if it is in none
    std::uint8_t branch = 0; ///< of the choice
};

/// An attribute.
struct SchemaAttribute
{
    std::string_view name;
    ValueType value;
};

/// A type of element.
struct SchemaType
{
    std::string_view name; ///< of the row
    ValueType text; ///< of the text of the element itself
    bool isAny = false; ///< what is in it is not looked into
    std::vector<SchemaChild> children; ///< in the order in which they have to be
    std::vector<SchemaAttribute> attributes;
};

/// All types. They refer to one another, so they stay where they are.
class Schema
{
public:
    Schema();
    Schema(const Schema&) = delete;
    Schema& operator=(const Schema&) = delete;
    Schema(Schema&&) = delete;
    Schema& operator=(Schema&&) = delete;
    ~Schema() = default;

    /// The type of a row.
    /// @return  null if there is none
    [[nodiscard]] const SchemaType* typeNamed(std::string_view name) const;

    /// The type of the outermost element of a file.
    /// @return  null if it is none that the schema has
    [[nodiscard]] const SchemaType* rootNamed(std::string_view name) const;

private:
    std::vector<SchemaType> m_types;
};

/// The schema, made at the first call.
[[nodiscard]] const Schema& esiSchema();

} // namespace check
