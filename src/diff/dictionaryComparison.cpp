#include "diff/dictionaryParts.h"
#include "diff/sections.h"

#include <array>
#include <string>
#include <vector>

namespace diff {

namespace {

using facts::DictionaryFacts;
using facts::DictionaryObject;
using facts::UnitFacts;

std::vector<std::uint16_t> indexesOf(const DictionaryFacts& facts)
{
    std::vector<std::uint16_t> indexes;
    indexes.reserve(facts.content().objects.size());
    for (const DictionaryObject& object : facts.content().objects)
        indexes.push_back(object.index);
    return indexes;
}

} // namespace

Value valueOf(facts::Access access)
{
    constexpr std::array<std::string_view, 4> names{"", "ro", "rw", "wo"};
    return access == facts::Access::Unknown ? noValue()
                                            : words(std::string(names.at(static_cast<std::size_t>(access))));
}

Value valueOf(facts::Mapping mapping)
{
    constexpr std::array<std::string_view, 5> names{"", "none", "R", "T", "RT"};
    return mapping == facts::Mapping::Unknown ? noValue()
                                              : words(std::string(names.at(static_cast<std::size_t>(mapping))));
}

Value lengthValue(std::uint64_t bits)
{
    return bits == 0 ? noValue() : Value{std::to_string(bits), ValueKind::Number};
}

Value valueOf(const Reference& reference)
{
    const facts::TypeName& type = *reference.type;
    if (!type.isGiven())
        return noValue();
    Value value = text(type.name);
    if (!type.isDeclared() && !facts::standardTypeNamed(type.name).has_value())
        value.text += " (not declared)";
    return value;
}

void compareDictionaries(const UnitFacts& before, const UnitFacts& after, const std::string& owner, Comparison& out)
{
    const SideItems<UnitFacts> units{before.dictionary == nullptr ? nullptr : &before,
                                     after.dictionary == nullptr ? nullptr : &after};
    if (units.before == nullptr && units.after == nullptr)
        return;
    if (units.areBoth()) {
        const std::vector<Pair> objects = pairsByKey(indexesOf(*before.dictionary), indexesOf(*after.dictionary));
        DictionarySides sides{*before.dictionary, *after.dictionary, owner,
                              TypeMatch(*before.dictionary, *after.dictionary, objects), out};
        compareObjects(objects, sides);
        compareTypes(sides);
    } else if (out.sides() == Sides::Esi || out.isOfAll()) { // a KTL file has none
        static_cast<void>(isOnOneSide(units, out.weightOf(In::Esi, Weight::Behaviour),
                                      out.weightOf(In::Esi, Weight::Breaking), out,
                                      [&] { return spotOf(Area::Dictionary, owner + "dictionary", units); }));
    }
}

} // namespace diff
