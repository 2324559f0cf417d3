#include "check/schema/valueFaults.h"

#include "check/factNames.h"
#include "check/rules/report.h"
#include "model/valueTexts.h"

#include <algorithm>
#include <tuple>
#include <utility>

namespace check {

namespace {

/// The beginning of a value, more than messages show.
std::string beginningOf(std::string_view text)
{
    constexpr std::size_t maxLength = 400;
    return std::string(text.substr(0, maxLength));
}

} // namespace

bool ValueFaults::TypeName::operator<(const TypeName& other) const
{
    return std::tie(owner, name) < std::tie(other.owner, other.name);
}

void ValueFaults::turnTo(const Owner& owner)
{
    m_owner = owner;
}

bool ValueFaults::isBaseType(std::string_view name)
{
    if (name == m_lastBaseType)
        return true;
    const std::optional<TypeShape> shape = standardTypeNamed(elementTypeName(name));
    const bool isBase = shape.has_value() && shape->isStandard;
    if (isBase)
        m_lastBaseType = name;
    return isBase;
}

void ValueFaults::judge(const ValueType& type, const ValuePlace& place, std::string_view text, bool isInTree)
{
    const bool isEntryType = type.kind == ValueKind::EntryDataType;
    if (type.kind == ValueKind::DictionaryFile) {
        m_withFile.push_back({m_owner, {}});
    } else if (isEntryType || type.kind == ValueKind::TypeName) {
        if (text.empty() || (isEntryType && isBaseType(text)))
            return;
        const std::string_view name = isInTree ? text : std::string_view(m_kept.emplace_back(text));
        if (isEntryType)
            m_entryTypes.push_back({{m_owner, name}, type, place.element});
        else
            m_declared.push_back({m_owner, name});
    } else if (const std::optional<ValueFaultKind> fault = faultOf(type, text)) {
        add({*fault, place.element.placeKey(), m_owner, type, place.element.name(), place.attribute, beginningOf(text),
             convertedUint(text)});
    }
}

void ValueFaults::add(const ValueFault& fault)
{
    if (++m_counts[{fault.kind, fault.owner}] <= Report::maxOfRule)
        m_faults.push_back(fault);
}

bool ValueFaults::isDeclared(const TypeName& type) const
{
    // A module has its own dictionary and, in its slot, that of a device; which one is not known here.
    if (type.owner.kind == OwnerKind::Module)
        return std::binary_search(m_declaredAnywhere.begin(), m_declaredAnywhere.end(), type.name);
    return std::binary_search(m_declared.begin(), m_declared.end(), type);
}

bool ValueFaults::hasFile(const Owner& owner) const
{
    if (owner.kind == OwnerKind::Module)
        return !m_withFile.empty();
    return std::binary_search(m_withFile.begin(), m_withFile.end(), TypeName{owner, {}});
}

void ValueFaults::addUnknownTypes()
{
    if (m_entryTypes.empty())
        return;
    std::sort(m_declared.begin(), m_declared.end());
    std::sort(m_withFile.begin(), m_withFile.end());
    for (const TypeName& type : m_declared)
        m_declaredAnywhere.push_back(type.name);
    std::sort(m_declaredAnywhere.begin(), m_declaredAnywhere.end());
    for (const EntryType& entry : m_entryTypes) {
        const Owner& owner = entry.type.owner;
        if (hasFile(owner) || isDeclared(entry.type) || isDeclared({owner, elementTypeName(entry.type.name)}))
            continue;
        add({ValueFaultKind::DataType,
             entry.element.placeKey(),
             owner,
             entry.valueType,
             entry.element.name(),
             {},
             beginningOf(entry.type.name),
             {}});
    }
}

void ValueFaults::moveTo(TreeFacts& facts)
{
    addUnknownTypes();
    facts.valueFaults = std::move(m_faults);
    for (const auto& [fault, count] : m_counts)
        if (count > Report::maxOfRule)
            facts.omittedValues.push_back({fault.first, fault.second, count - Report::maxOfRule});
}

} // namespace check
