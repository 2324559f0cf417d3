#include "diff/typeMatch.h"

#include <string_view>

namespace diff {

namespace {

using facts::DataKind;
using facts::DataType;
using facts::DictionaryFacts;
using facts::DictionaryObject;
using facts::TypeName;
using facts::TypeSubItem;

std::vector<std::string_view> typeNamesOf(const DictionaryFacts& facts)
{
    std::vector<std::string_view> names;
    names.reserve(facts.content().types.size());
    for (const DataType& type : facts.content().types)
        names.push_back(type.name);
    return names;
}

/// Which data types objects are of, themselves or in their sub-items.
std::vector<bool> usedTypes(const DictionaryFacts& facts)
{
    std::vector<bool> isUsed(facts.content().types.size(), false);
    std::vector<std::uint32_t> found;
    const auto use = [&](const TypeName& type) {
        if (!type.isDeclared() || isUsed[type.type])
            return;
        isUsed[type.type] = true;
        found.push_back(type.type);
    };
    for (const DictionaryObject& object : facts.content().objects)
        use(object.type);
    while (!found.empty()) {
        const DataType& type = facts.content().types[found.back()];
        found.pop_back();
        use(type.base);
        for (const TypeSubItem& subItem : facts.content().subItemsOf(type))
            use(subItem.type);
    }
    return isUsed;
}

} // namespace

TypeMatch::TypeMatch(const DictionaryFacts& before, const DictionaryFacts& after, const std::vector<Pair>& objects)
    : m_before(before)
    , m_after(after)
    , m_meanings(before, after)
    , m_afterOf(before.content().types.size())
    , m_isTaken(after.content().types.size(), false)
    , m_isUsedBefore(usedTypes(before))
    , m_isUsedAfter(usedTypes(after))
{
    pairByName();
    if (m_pairs.size() < m_afterOf.size() && m_pairs.size() < m_isTaken.size())
        pairByUse(objects);
}

void TypeMatch::pairByName()
{
    for (const Pair& pair : pairsByKey(typeNamesOf(m_before), typeNamesOf(m_after)))
        if (pair.before.has_value() && pair.after.has_value()) {
            m_pairs.push_back(pair);
            m_afterOf[*pair.before] = pair.after;
            m_isTaken[*pair.after] = true;
        }
}

void TypeMatch::pairByUse(const std::vector<Pair>& objects)
{
    for (const std::uint32_t object : m_before.objectsByIndex()) // not in the order of either list
        if (const Pair& pair = objects[object]; pair.after.has_value())
            pairUnlessTaken(m_before.content().objects[object].type, m_after.content().objects[*pair.after].type);
    std::size_t next = 0;
    while (next < m_pairs.size()) { // more come while it runs
        const Pair pair = m_pairs[next++];
        pairParts(m_before.content().types[*pair.before], m_after.content().types[*pair.after]);
    }
}

void TypeMatch::pairParts(const DataType& before, const DataType& after)
{
    pairUnlessTaken(before.base, after.base);
    const facts::ItemsOf<TypeSubItem> oldSubItems = m_before.content().subItemsOf(before);
    const facts::ItemsOf<TypeSubItem> newSubItems = m_after.content().subItemsOf(after);
    for (const Pair& pair : pairsByKey(subIndexesOf(m_before, before), subIndexesOf(m_after, after)))
        if (pair.before.has_value() && pair.after.has_value())
            pairUnlessTaken(oldSubItems[*pair.before].type, newSubItems[*pair.after].type);
}

/// Pairs arrays and records. What is simple needs no partner to mean the same.
void TypeMatch::pairUnlessTaken(const TypeName& before, const TypeName& after)
{
    if (!before.isDeclared() || !after.isDeclared() || m_afterOf[before.type].has_value() || m_isTaken[after.type])
        return;
    const DataType& oldType = *m_before.declared(before);
    const DataType& newType = *m_after.declared(after);
    const bool areAlike = oldType.isArray() == newType.isArray() && oldType.isRecord() == newType.isRecord();
    if (!areAlike || (!oldType.isArray() && !oldType.isRecord()))
        return;
    m_pairs.push_back({before.type, after.type, false});
    m_afterOf[before.type] = after.type;
    m_isTaken[after.type] = true;
}

std::vector<Pair> TypeMatch::pairs() const
{
    std::vector<Pair> all;
    all.reserve(m_afterOf.size());
    for (std::size_t type = 0; type < m_afterOf.size(); ++type)
        all.push_back({type, m_afterOf[type], false});
    for (std::size_t type = 0; type < m_isTaken.size(); ++type)
        if (!m_isTaken[type])
            all.push_back({std::nullopt, type, false});
    return all;
}

bool TypeMatch::isUsed(const Pair& types) const
{
    return (types.before.has_value() && m_isUsedBefore[*types.before])
           || (types.after.has_value() && m_isUsedAfter[*types.after]);
}

bool TypeMatch::areSame(const TypeName& before, const TypeName& after)
{
    if (before.isDeclared() && after.isDeclared() && m_afterOf[before.type] == std::optional<std::size_t>(after.type))
        return true;
    return meanTheSame(before, after);
}

bool TypeMatch::meanTheSame(const TypeName& before, const TypeName& after)
{
    if (!before.isDeclared() && !after.isDeclared() && before.isGiven() == after.isGiven() && before.name == after.name)
        return true;
    return m_meanings.areSame(before, after);
}

bool TypeMatch::areSameBits(const TypeName& before, const TypeName& after) const
{
    const DataKind oldKind = m_before.shapeOf(before).kind;
    const DataKind newKind = m_after.shapeOf(after).kind;
    const auto isNumber = [](DataKind kind) {
        return kind == DataKind::Unsigned || kind == DataKind::Signed || kind == DataKind::Real;
    };
    const std::uint64_t bits = bitsOf(m_before, before);
    return bits > 0 && bits == bitsOf(m_after, after)
           && ((oldKind == DataKind::Bits && isNumber(newKind)) || (isNumber(oldKind) && newKind == DataKind::Bits));
}

std::vector<std::optional<std::uint32_t>> subIndexesOf(const DictionaryFacts& facts, const DataType& type)
{
    std::vector<std::optional<std::uint32_t>> subIndexes;
    for (const TypeSubItem& subItem : facts.content().subItemsOf(type))
        subIndexes.push_back(subItem.subIndex);
    return subIndexes;
}

} // namespace diff
