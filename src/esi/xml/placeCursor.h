// placeCursor.h - turns the places of many nodes into lines and columns, in one pass over their file.
#pragma once

#include "esi/xml/tree.h"

#include <cstddef>
#include <string_view>

namespace xml {

/// Moves through the file of a tree from place to place. Lines are counted as the parser of documents does: CR, LF and
/// the pair of them end one.
class PlaceCursor
{
public:
    /// @param tree  has to outlive this
    explicit PlaceCursor(const Tree& tree)
        : m_tree(tree)
    {}

    /// @param key  that of a node, not before that of the last call
    /// @return     line and column; of a tree that was copied from a document the line alone
    [[nodiscard]] Place moveTo(PlaceKey key);

private:
    void pass(std::string_view text);

    const Tree& m_tree;
    std::size_t m_position = 0;
    Place m_place{1, 1};
};

} // namespace xml
