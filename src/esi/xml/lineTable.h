// lineTable.h - the lines of a file, for places in any order.
#pragma once

#include "esi/xml/tree.h"

#include <cstddef>
#include <string_view>
#include <vector>

namespace xml {

/// Finds the lines of places, each in a short time wherever it is. For places in the order of the file, and for
/// columns, see `PlaceCursor`.
class LineTable
{
public:
    /// @param tree  has to outlive this
    explicit LineTable(const Tree& tree);

    /// @param key  that of a node
    /// @return     its line, from 1
    [[nodiscard]] int lineOf(PlaceKey key) const;

private:
    [[nodiscard]] int linesIn(std::size_t begin, std::size_t end) const;

    bool m_keysAreLines;
    std::string_view m_file;
    std::vector<int> m_lines; ///< at the start of each block of the file
};

} // namespace xml
