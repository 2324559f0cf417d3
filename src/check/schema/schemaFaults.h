// schemaFaults.h - collects the departures of a file from the schema, each kind once.
#pragma once

#include "check/schema/schema.h"
#include "check/schema/treeFacts.h"

#include <cstddef>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace check {

/// Collects departures and counts those that are alike: of the same kind, in or on the same element of the same type,
/// by the same name.
class SchemaFaults
{
public:
    /// @param parentType  of the element that the fault is in
    /// @param fault       its names have to outlive this
    void add(const SchemaType& parentType, const SchemaFault& fault);

    /// Hands over what was collected.
    void moveTo(TreeFacts& facts);

private:
    struct Key
    {
        const SchemaType* parentType;
        SchemaFaultKind kind;
        std::string_view parent;
        std::string_view name;

        bool operator==(const Key& other) const noexcept
        {
            return parentType == other.parentType && kind == other.kind && name == other.name && parent == other.parent;
        }
    };
    struct Hash
    {
        std::size_t operator()(const Key& key) const noexcept;
    };

    std::vector<SchemaFault> m_faults;
    std::unordered_map<Key, std::size_t, Hash> m_indexes; ///< in `m_faults`
    std::size_t m_omitted = 0;
};

} // namespace check
