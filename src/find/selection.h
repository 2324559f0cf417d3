// selection.h - which of all that was found are told: the latest ones, and those that are there several times.
#pragma once

#include "find/found.h"

#include <cstddef>
#include <map>
#include <tuple>

namespace find {

/// Learns of all that was found, and says of each then whether it is to be told.
class Selection
{
public:
    /// @param latest      takes those with the highest revision of their product alone
    /// @param duplicates  takes those alone whose identity occurs several times among what is left
    Selection(bool latest, bool duplicates)
        : m_takesLatest(latest)
        , m_takesDuplicates(duplicates)
    {}

    /// Whether it has to learn of all before it can say anything.
    [[nodiscard]] bool needsAll() const { return m_takesLatest || m_takesDuplicates; }

    /// @param isNewPlace  false in a file that was given before
    void learn(const Found& found, bool isNewPlace = true);
    [[nodiscard]] bool takes(const Found& found) const;

private:
    using Product = std::tuple<FoundKind, std::uint32_t, std::uint32_t>;
    using Revisions = std::map<std::uint32_t, std::size_t>; ///< and how often each is there

    [[nodiscard]] static Product productOf(const Found& found) { return {found.kind, found.vendor, found.number}; }

    bool m_takesLatest;
    bool m_takesDuplicates;
    std::map<Product, Revisions> m_known;
};

} // namespace find
