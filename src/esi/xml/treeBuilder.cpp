#include "esi/xml/treeBuilder.h"

#include <limits>
#include <stdexcept>
#include <utility>

namespace xml {

TreeBuilder::TreeBuilder(std::string source, Places places)
{
    m_tree.m_source = std::move(source);
    m_tree.m_placesAreLines = places == Places::Lines;
}

TextRange TreeBuilder::keep(std::string_view text)
{
    const std::size_t start = m_tree.m_source.size() + m_tree.m_own.size();
    if (text.size() > Tree::lengthMask || start + text.size() > std::numeric_limits<std::uint32_t>::max())
        throw std::length_error("the texts of a document have no room in a tree");
    m_tree.m_own.append(text);
    return sourceRange(start, text.size());
}

void TreeBuilder::openElement(TextRange localName, std::uint32_t place)
{
    m_open.push_back(static_cast<std::uint32_t>(m_tree.m_nodes.size()));
    append(NodeKind::Element, localName, place);
}

void TreeBuilder::closeElement()
{
    m_tree.m_nodes[m_open.back()].end = static_cast<std::uint32_t>(m_tree.m_nodes.size());
    m_open.pop_back();
}

void TreeBuilder::add(NodeKind kind, TextRange characters, std::uint32_t place)
{
    append(kind, characters, place);
    m_tree.m_nodes.back().end = static_cast<std::uint32_t>(m_tree.m_nodes.size());
}

Tree TreeBuilder::take()
{
    append(NodeKind::Other, {}, 0); // one after the last, where the attributes of the last one end
    return std::move(m_tree);
}

void TreeBuilder::append(NodeKind kind, TextRange characters, std::uint32_t place)
{
    const std::uint32_t kindBits = static_cast<std::uint32_t>(kind) << Tree::kindShift;
    m_tree.m_nodes.push_back({characters.start, characters.length | kindBits, 0, place,
                              static_cast<std::uint32_t>(m_tree.m_attributes.size())});
}

} // namespace xml
