// comparison.h - takes the differences of two descriptions as they are found.
#pragma once

#include "diff/difference.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include <utility>
#include <vector>

namespace diff {

/// What two descriptions are.
enum class Sides : std::uint8_t
{
    Esi, ///< two ESI files
    Ktl, ///< two KTL files
    EsiAndKtl, ///< in either order
};

/// Which kinds of files have a value.
enum class In : std::uint8_t
{
    Both,
    Esi, ///< ESI files only
};

/// One value of a record: its names, what a change of it means, and how to get it.
template<typename Record> struct Field
{
    std::string_view key;
    std::string_view words;
    Weight weight;
    Value (*valueOf)(const Record& record);
    In in = In::Both;
};

/// Takes differences.
class Comparison
{
public:
    /// @param isOfAll  also what does not count: what one of the files cannot have, and the time of an export
    Comparison(Sides sides, bool isOfAll)
        : m_sides(sides)
        , m_isOfAll(isOfAll)
    {}

    [[nodiscard]] Sides sides() const { return m_sides; }
    [[nodiscard]] bool isOfAll() const { return m_isOfAll; }

    /// What a difference weighs: no more than words where a KTL file cannot have the thing.
    [[nodiscard]] Weight weightOf(In in, Weight weight) const { return isLoss(in) ? Weight::Text : weight; }

    void added(Spot spot, Weight weight)
    {
        take({weight, Change::Added, std::move(spot), {}, {}, noValue(), noValue()});
    }
    void removed(Spot spot, Weight weight)
    {
        take({weight, Change::Removed, std::move(spot), {}, {}, noValue(), noValue()});
    }

    /// As above, with what has come or gone.
    void added(Spot spot, Weight weight, Value value)
    {
        take({weight, Change::Added, std::move(spot), {}, {}, noValue(), std::move(value)});
    }
    void removed(Spot spot, Weight weight, Value value)
    {
        take({weight, Change::Removed, std::move(spot), {}, {}, std::move(value), noValue()});
    }

    /// @param before  its place in words: "entry 3"
    void moved(Spot spot, Weight weight, std::string before, std::string after)
    {
        take({weight, Change::Moved, std::move(spot), "place", "place", words(std::move(before)),
              words(std::move(after))});
    }

    /// A value, if it differs.
    /// @param spotOf  `spotOf()` gives the spot where it does
    template<typename Record, typename SpotOf>
    void compare(const Field<Record>& field, const Record& before, const Record& after, SpotOf spotOf)
    {
        if (field.in == In::Esi && m_sides != Sides::Esi && !m_isOfAll)
            return;
        Value oldValue = field.valueOf(before);
        Value newValue = field.valueOf(after);
        if (isLoss(field.in))
            for (Value* const value : {&oldValue, &newValue})
                if (saysNothing(*value))
                    *value = noValue();
        if (oldValue != newValue)
            take({weightOf(field.in, field.weight), Change::Changed, spotOf(), field.key, field.words,
                  std::move(oldValue), std::move(newValue)});
    }

    /// All values of a record that differ.
    template<typename Record, std::size_t Count, typename SpotOf>
    void compare(const std::array<Field<Record>, Count>& fields, const Record& before, const Record& after,
                 SpotOf spotOf)
    {
        for (const Field<Record>& field : fields)
            compare(field, before, after, spotOf);
    }

    [[nodiscard]] std::vector<Difference> take() { return std::move(m_differences); }

private:
    [[nodiscard]] bool isLoss(In in) const { return in == In::Esi && m_sides == Sides::EsiAndKtl; }

    void take(Difference difference)
    {
        difference.weight = std::min(difference.weight, difference.spot.most);
        m_differences.push_back(std::move(difference));
    }

    Sides m_sides;
    bool m_isOfAll;
    std::vector<Difference> m_differences;
};

} // namespace diff
