// dictionaryParts.h - the parts of dictionaries that are compared.
#pragma once

#include "diff/comparison.h"
#include "diff/pairing.h"
#include "diff/sideItems.h"
#include "diff/typeMatch.h"
#include "facts/dictionary/dictionaryFacts.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace diff {

/// Two dictionaries that are compared.
struct DictionarySides
{
    const facts::DictionaryFacts& before;
    const facts::DictionaryFacts& after;
    const std::string& owner; ///< words before those for what is in them
    TypeMatch types;
    Comparison& out;
};

/// A part of a dictionary and its length, which may be that of its data type.
template<typename Item> struct Sized
{
    const Item* item;
    std::uint64_t bits; ///< 0 if it is not known
};

[[nodiscard]] Value valueOf(facts::Access access);
[[nodiscard]] Value valueOf(facts::Mapping mapping);

/// A length in bits.
[[nodiscard]] Value lengthValue(std::uint64_t bits);

/// A reference to a data type.
struct Reference
{
    const facts::DictionaryFacts* dictionary;
    const facts::TypeName* type;
};

[[nodiscard]] Value valueOf(const Reference& reference);

/// What a reference to a data type is called in differences.
struct ReferenceFields
{
    Field<Reference> meaning; ///< for values that are something else
    Field<Reference> bits; ///< for values of the same bits
};

[[nodiscard]] constexpr ReferenceFields referenceFields(std::string_view key, std::string_view words)
{
    const auto valueOfReference = [](const Reference& reference) { return valueOf(reference); };
    return {{key, words, Weight::Breaking, valueOfReference}, {key, words, Weight::Behaviour, valueOfReference}};
}

/// Compares references to data types by what these mean.
template<typename SpotOf>
void compareReferences(const ReferenceFields& fields, const facts::TypeName& before, const facts::TypeName& after,
                       DictionarySides& sides, SpotOf spotOf)
{
    if (sides.types.areSame(before, after))
        return;
    const Field<Reference>& field = sides.types.areSameBits(before, after) ? fields.bits : fields.meaning;
    sides.out.compare(field, Reference{&sides.before, &before}, Reference{&sides.after, &after}, spotOf);
}

/// Data types, their sub-items and enumerations.
void compareTypes(DictionarySides& sides);

/// Objects and the sub-items of their `Info`.
/// @param pairs  the objects that belong together
void compareObjects(const std::vector<Pair>& pairs, DictionarySides& sides);

} // namespace diff
