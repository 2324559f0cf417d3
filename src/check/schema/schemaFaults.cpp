#include "check/schema/schemaFaults.h"

#include "check/rules/report.h"

#include <functional>
#include <utility>

namespace check {

std::size_t SchemaFaults::Hash::operator()(const Key& key) const noexcept
{
    constexpr std::size_t factor = 31;
    return (std::hash<std::string_view>()(key.name) * factor + std::hash<const SchemaType*>()(key.parentType)) * factor
           + static_cast<std::size_t>(key.kind);
}

void SchemaFaults::add(const SchemaType& parentType, const SchemaFault& fault)
{
    const Key key{&parentType, fault.kind, fault.parent, fault.name};
    if (const auto found = m_indexes.find(key); found != m_indexes.end()) {
        ++m_faults[found->second].count;
    } else if (m_faults.size() < Report::maxOfRule) {
        m_indexes.emplace(key, m_faults.size());
        m_faults.push_back(fault);
    } else {
        ++m_omitted;
    }
}

void SchemaFaults::moveTo(TreeFacts& facts)
{
    facts.schemaFaults = std::move(m_faults);
    facts.omittedSchemaFaults = m_omitted;
}

} // namespace check
