// alignment.h - how a list was edited by hand: which elements stay, which are removed, and what is added.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <vector>

namespace retrace {

/// One step from the list as it was to the list as it is; nothing on a side that lacks the element.
struct Step
{
    std::optional<std::size_t> before;
    std::optional<std::size_t> after;
};

/// What steps cost. A step that no one can make by hand costs `impossible` or more, so that it is taken only where
/// nothing else leads to the list.
using Cost = std::uint64_t;
inline constexpr Cost impossible = 100'000;

/// Finds the cheapest steps. The table that this takes has a size, past which lists are paired place by place.
/// @tparam Costs  `stay(before, after)`, `remove(before)` and `add(after, isFirst)`; an element is added behind another
///                one of the old list, which it cannot be where `isFirst` is true. `stay` is 0 for elements that are
///                the same.
template<typename Costs> class Alignment
{
public:
    /// @param before, after  lengths of the lists
    Alignment(std::size_t before, std::size_t after, Costs costs)
        : m_costs(costs)
        , m_before(before)
        , m_after(after)
    {}

    /// The steps, in the order of the lists; what is added comes behind the element before it.
    [[nodiscard]] std::vector<Step> steps()
    {
        stripEnds();
        std::vector<Step> steps;
        for (std::size_t place = 0; place < m_head; ++place)
            steps.push_back({place, place});
        const std::size_t rows = m_before - m_head - m_tail;
        const std::size_t columns = m_after - m_head - m_tail;
        if ((rows + 1) * (columns + 1) <= maxCells)
            addCheapest(steps, rows, columns);
        else
            addPlaceByPlace(steps, rows, columns);
        for (std::size_t place = m_tail; place > 0; --place)
            steps.push_back({m_before - place, m_after - place});
        return steps;
    }

private:
    static constexpr std::size_t maxCells = 4'000'000;

    enum class Move : std::uint8_t
    {
        Stay,
        Remove,
        Add
    };

    /// What is the same at the beginning and the end needs no table. With nothing in common at the beginning the first
    /// old element stays in the middle: what is added needs one to stand behind.
    void stripEnds()
    {
        const std::size_t shorter = std::min(m_before, m_after);
        while (m_head < shorter && m_costs.stay(m_head, m_head) == 0)
            ++m_head;
        const std::size_t kept = m_head == 0 && m_before > 0 ? 1 : m_head;
        while (m_tail < shorter - m_head && m_before - m_tail > kept
               && m_costs.stay(m_before - 1 - m_tail, m_after - 1 - m_tail) == 0)
            ++m_tail;
    }

    [[nodiscard]] Cost addCost(std::size_t row, std::size_t column) const
    {
        return m_costs.add(m_head + column, m_head + row == 0);
    }

    /// Fills a table from the end of the lists: what the rest costs from each pair of places, and the first move.
    void addCheapest(std::vector<Step>& steps, std::size_t rows, std::size_t columns)
    {
        std::vector<Cost> below(columns + 1, 0);
        std::vector<Cost> costs(columns + 1, 0);
        std::vector<Move> moves((rows + 1) * (columns + 1), Move::Stay);
        for (std::size_t row = rows + 1; row-- > 0;) {
            for (std::size_t column = columns + 1; column-- > 0;) {
                Cost least = row == rows && column == columns ? 0 : std::numeric_limits<Cost>::max();
                Move move = Move::Stay;
                const auto offer = [&](Cost cost, Move offered) {
                    if (cost < least) {
                        least = cost;
                        move = offered;
                    }
                };
                if (row < rows && column < columns)
                    offer(m_costs.stay(m_head + row, m_head + column) + below[column + 1], Move::Stay);
                if (row < rows)
                    offer(m_costs.remove(m_head + row) + below[column], Move::Remove);
                if (column < columns)
                    offer(addCost(row, column) + costs[column + 1], Move::Add);
                costs[column] = least;
                moves[row * (columns + 1) + column] = move;
            }
            below.swap(costs);
        }
        follow(steps, moves, rows, columns);
    }

    void follow(std::vector<Step>& steps, const std::vector<Move>& moves, std::size_t rows, std::size_t columns) const
    {
        std::size_t row = 0;
        std::size_t column = 0;
        while (row < rows || column < columns) {
            const Move move = moves[row * (columns + 1) + column];
            Step step;
            if (move != Move::Add)
                step.before = m_head + row++;
            if (move != Move::Remove)
                step.after = m_head + column++;
            steps.push_back(step);
        }
    }

    void addPlaceByPlace(std::vector<Step>& steps, std::size_t rows, std::size_t columns)
    {
        const std::size_t shorter = std::min(rows, columns);
        for (std::size_t place = m_head; place < m_head + shorter; ++place) {
            if (m_costs.stay(place, place) < impossible) {
                steps.push_back({place, place});
            } else {
                steps.push_back({place, std::nullopt});
                steps.push_back({std::nullopt, place});
            }
        }
        for (std::size_t place = shorter; place < rows; ++place)
            steps.push_back({m_head + place, std::nullopt});
        for (std::size_t place = shorter; place < columns; ++place)
            steps.push_back({std::nullopt, m_head + place});
    }

    Costs m_costs;
    std::size_t m_before;
    std::size_t m_after;
    std::size_t m_head = 0; ///< elements that are the same at the beginning
    std::size_t m_tail = 0; ///< and at the end
};

} // namespace retrace
