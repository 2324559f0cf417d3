// matchedPlaces.h - which elements of a file records come from.
#pragma once

#include "facts/owner.h"

#include <cstddef>
#include <optional>
#include <unordered_map>
#include <utility>
#include <vector>

namespace facts {

/// Finds the elements of records by a key. Records are mostly in the order of the elements; where choices have added,
/// removed or moved some, each takes the first element of its key that is left.
template<typename Key> class MatchedPlaces
{
public:
    /// The next element.
    void add(const Key& key, const Where where) { m_elements.push_back({key, where, false}); }

    /// The element of the next record.
    /// @return  nothing if the record comes from no element
    [[nodiscard]] std::optional<std::size_t> take(const Key& key)
    {
        if (m_next < m_elements.size() && m_elements[m_next].key == key && !m_elements[m_next].isTaken) {
            m_elements[m_next].isTaken = true;
            return m_next++;
        }
        return takeAnywhere(key);
    }

    [[nodiscard]] Where whereOf(std::size_t element) const { return m_elements[element].where; }

private:
    struct Element
    {
        Key key;
        Where where;
        bool isTaken;
    };
    /// The elements of a key, and how many of them have been looked at.
    struct Candidates
    {
        std::vector<std::size_t> elements;
        std::size_t looked = 0;
    };

    std::optional<std::size_t> takeAnywhere(const Key& key)
    {
        if (!m_isSorted)
            for (std::size_t index = 0; index < m_elements.size(); ++index)
                m_byKey[m_elements[index].key].elements.push_back(index);
        m_isSorted = true;
        const auto found = m_byKey.find(key);
        if (found == m_byKey.end())
            return std::nullopt;
        Candidates& candidates = found->second;
        while (candidates.looked < candidates.elements.size()) {
            const std::size_t index = candidates.elements[candidates.looked++];
            if (std::exchange(m_elements[index].isTaken, true))
                continue;
            m_next = index + 1;
            return index;
        }
        return std::nullopt;
    }

    std::vector<Element> m_elements;
    std::size_t m_next = 0; ///< where the next record is expected
    bool m_isSorted = false;
    std::unordered_map<Key, Candidates> m_byKey; ///< made when it is needed
};

} // namespace facts
