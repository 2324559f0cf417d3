#include "diff/typeMeanings.h"

#include "diff/value.h"

#include <optional>

namespace diff {

namespace {

using facts::DataKind;
using facts::DataType;
using facts::DictionaryFacts;
using facts::TypeName;
using facts::TypeShape;
using facts::TypeSubItem;

/// Types are not followed further than anybody would make them.
constexpr int maxDepth = 8;

/// In place of a meaning while it is found: types may go around in a circle.
constexpr std::uint32_t beingFound = 0xFFFF'FFFF;

/// The content of a data type is put together from numbers.
template<typename... Numbers> std::string joined(const char* start, Numbers... numbers)
{
    std::string content = start;
    (content.append(std::to_string(numbers)).append(" "), ...);
    return content;
}

std::string simpleContent(DataKind kind, std::uint64_t bits)
{
    return joined("simple ", static_cast<int>(kind), bits);
}

} // namespace

TypeMeanings::TypeMeanings(const DictionaryFacts& before, const DictionaryFacts& after)
    : m_sides{Side{&before, std::vector<Meaning>(before.content().types.size())},
              Side{&after, std::vector<Meaning>(after.content().types.size())}}
{}

bool TypeMeanings::areSame(const TypeName& before, const TypeName& after)
{
    return meaningOf(m_sides[0], before, 0) == meaningOf(m_sides[1], after, 0);
}

TypeMeanings::Meaning TypeMeanings::numberOf(const std::string& content)
{
    return m_numbers.emplace(content, static_cast<Meaning>(m_numbers.size() + 1)).first->second;
}

TypeMeanings::Meaning TypeMeanings::meaningOf(Side& side, const TypeName& type, int depth)
{
    if (!type.isDeclared())
        return numberOf(contentOf(side, type, depth));
    Meaning& known = side.meanings[type.type];
    if (known == beingFound || (known == 0 && depth > maxDepth))
        return numberOf("named " + std::string(type.name));
    if (known == 0) {
        known = beingFound;
        known = numberOf(contentOf(side, type, depth));
    }
    return known;
}

std::string TypeMeanings::contentOf(Side& side, const TypeName& type, int depth)
{
    const std::optional<TypeShape> standard = facts::standardTypeNamed(type.name);
    const DataType* const declared = side.facts->declared(type);
    if (declared != nullptr && declared->isRecord())
        return contentOfRecord(side, *declared, depth);
    if (standard.has_value()) {
        const std::string simple = simpleContent(standard->kind, bitsOf(*side.facts, type));
        return standard->kind == DataKind::Unknown ? simple + text(type.name).text : simple;
    }
    if (declared == nullptr)
        return type.isGiven() ? "unknown " + text(type.name).text : "none";
    if (declared->isArray())
        return joined("array ", declared->bounds.lower, declared->elements, declared->dimensions,
                      meaningOf(side, declared->base, depth + 1));
    return simpleContent(side.facts->shapeOf(type).kind, bitsOf(*side.facts, type));
}

std::string TypeMeanings::contentOfRecord(Side& side, const DataType& record, int depth)
{
    std::string content = "record ";
    for (const TypeSubItem& subItem : side.facts->content().subItemsOf(record)) {
        const std::uint64_t bits = subItem.bits.has_value() ? *subItem.bits : bitsOf(*side.facts, subItem.type);
        content += joined(subItem.subIndex.has_value() ? "i" : "-", subItem.subIndex.value_or(0), bits,
                          subItem.offset.value_or(0), static_cast<int>(subItem.flags.access),
                          static_cast<int>(subItem.flags.mapping), meaningOf(side, subItem.type, depth + 1));
    }
    return content;
}

std::uint64_t bitsOf(const DictionaryFacts& facts, const TypeName& type)
{
    if (const std::uint64_t bits = facts.shapeOf(type).bits; bits > 0 || !type.isDeclared())
        return bits;
    return facts::standardTypeNamed(type.name).value_or(TypeShape{}).bits;
}

} // namespace diff
