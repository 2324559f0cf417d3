// typeMeanings.h - what data types of two dictionaries mean, whatever they are called.
#pragma once

#include "facts/dictionary/dictionaryFacts.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

namespace diff {

/// Gives each data type a number that it shares with all data types of the same content: those of the standard by what
/// their values are, arrays by their bounds and elements, records by their sub-items, without the names of these.
class TypeMeanings
{
public:
    /// @param before  has to outlive this, as `after`
    TypeMeanings(const facts::DictionaryFacts& before, const facts::DictionaryFacts& after);

    [[nodiscard]] bool areSame(const facts::TypeName& before, const facts::TypeName& after);

private:
    using Meaning = std::uint32_t;
    struct Side
    {
        const facts::DictionaryFacts* facts;
        std::vector<Meaning> meanings; ///< of the data types; 0 if it is not known yet
    };

    Meaning numberOf(const std::string& content);
    Meaning meaningOf(Side& side, const facts::TypeName& type, int depth);
    std::string contentOf(Side& side, const facts::TypeName& type, int depth);
    std::string contentOfRecord(Side& side, const facts::DataType& record, int depth);

    std::array<Side, 2> m_sides;
    std::unordered_map<std::string, Meaning> m_numbers;
};

/// Length of values of a data type.
/// @return  0 if it is not known
[[nodiscard]] std::uint64_t bitsOf(const facts::DictionaryFacts& facts, const facts::TypeName& type);

} // namespace diff
