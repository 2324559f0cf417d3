// treeBuilder.h - makes a tree, node by node in document order.
#pragma once

#include "esi/xml/tree.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace xml {

/// What the places of nodes are.
enum class Places : std::uint8_t
{
    Positions, ///< bytes from the start of the source
    Lines, ///< from 1
};

/// Makes a tree. The first node is an element, and nothing comes after its end.
class TreeBuilder
{
public:
    /// @param source  the file, if ranges of it are to be texts of the tree; else empty
    explicit TreeBuilder(std::string source, Places places);

    /// The file, at the address where it stays until the tree is made.
    [[nodiscard]] const std::string& source() const { return m_tree.m_source; }

    /// Makes room for so many nodes, which saves copying them.
    void reserve(std::size_t nodes) { m_tree.m_nodes.reserve(nodes); }

    /// A part of the source as a text of the tree.
    [[nodiscard]] static TextRange sourceRange(std::size_t start, std::size_t length)
    {
        return {static_cast<std::uint32_t>(start), static_cast<std::uint32_t>(length)};
    }

    /// Keeps a text that is not in the source.
    /// @throws std::length_error if all texts together have no room in a range
    [[nodiscard]] TextRange keep(std::string_view text);

    void openElement(TextRange localName, std::uint32_t place);
    /// Of the element that was opened last, before anything else is added.
    void addAttribute(TextRange localName, TextRange value) { m_tree.m_attributes.push_back({localName, value}); }
    void closeElement();

    /// Adds a node without content.
    void add(NodeKind kind, TextRange characters, std::uint32_t place);

    /// Elements that are open.
    [[nodiscard]] std::size_t depth() const { return m_open.size(); }

    /// Name of the innermost open element, in the form in which it was given.
    [[nodiscard]] std::string_view openName() const
    {
        const Tree::NodeRecord& record = m_tree.m_nodes[m_open.back()];
        return m_tree.view({record.start, record.lengthAndKind & Tree::lengthMask});
    }

    /// The tree; to be called when all elements are closed, and once.
    [[nodiscard]] Tree take();

private:
    void append(NodeKind kind, TextRange characters, std::uint32_t place);

    Tree m_tree;
    std::vector<std::uint32_t> m_open; ///< indexes of the open elements, the innermost last
};

} // namespace xml
