#include "esi/xml/lineTable.h"

#include <algorithm>

namespace xml {

namespace {

constexpr std::size_t blockSize = 16384;

} // namespace

LineTable::LineTable(const Tree& tree)
    : m_keysAreLines(tree.m_placesAreLines)
    , m_file(tree.m_source)
{
    int line = 1;
    for (std::size_t begin = 0; begin < m_file.size(); begin += blockSize) {
        m_lines.push_back(line);
        line += linesIn(begin, std::min(begin + blockSize, m_file.size()));
    }
}

int LineTable::lineOf(PlaceKey key) const
{
    if (m_keysAreLines || m_lines.empty())
        return static_cast<int>(key);
    const std::size_t place = std::min<std::size_t>(key, m_file.size() - 1);
    const std::size_t block = place / blockSize;
    return m_lines[block] + linesIn(block * blockSize, place);
}

/// How many lines end in a part of the file. CR, LF and the pair of them end one.
int LineTable::linesIn(std::size_t begin, std::size_t end) const
{
    int lines = 0;
    for (std::size_t at = begin; at < end; ++at) {
        const bool endsLine =
            m_file[at] == '\n' || (m_file[at] == '\r' && (at + 1 == m_file.size() || m_file[at + 1] != '\n'));
        lines += endsLine ? 1 : 0;
    }
    return lines;
}

} // namespace xml
