// tree.h - the content of an XML file as the section readers see it: read-only, in UTF-8, from whatever source.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace xml {

class Element;
class Node;
enum class Walk : std::uint8_t;
template<Walk How> class NodeRange;

/// What a node is. CDATA sections are texts.
enum class NodeKind : std::uint8_t
{
    Element,
    Text,
    Comment,
    Other, ///< a processing instruction, or a reference to an entity that the file does not declare
};

/// Where something is in its file.
struct Place
{
    int line = 0; ///< from 1; 0 if it is not known
    int column = 0; ///< from 1, in characters; 0 if it is not known
};

/// Where something is in its file, in a form that grows with the place: for `PlaceCursor`.
using PlaceKey = std::uint32_t;

/// Where a text is within the texts of a tree.
struct TextRange
{
    std::uint32_t start = 0;
    std::uint32_t length = 0;
};

/// A whole tree. Nodes are in document order, each before what is in it, so that a walk goes straight through memory.
/// Elements, nodes and views of their texts are good as long as the tree is, and stays where it is.
class Tree
{
public:
    /// The outermost element.
    [[nodiscard]] Element root() const;

private:
    friend class TreeBuilder;
    friend class LineTable;
    friend class PlaceCursor;
    friend class Node;
    friend class Element;

    static constexpr std::uint32_t kindShift = 30; ///< the upper bits of a length are the kind of the node
    static constexpr std::uint32_t lengthMask = (std::uint32_t{1} << kindShift) - 1;

    /// What is stored of a node.
    struct NodeRecord
    {
        std::uint32_t start; ///< of the local name of an element, or of the text
        std::uint32_t lengthAndKind;
        std::uint32_t end; ///< index of the node after all that is in this one
        PlaceKey place; ///< see `m_placesAreLines`
        std::uint32_t firstAttribute; ///< the attributes end where those of the next node begin
    };

    struct AttributeRecord
    {
        TextRange name;
        TextRange value;
    };

    [[nodiscard]] std::string_view view(TextRange range) const
    {
        const std::size_t ownStart = m_source.size();
        const char* const begin =
            range.start < ownStart ? m_source.data() + range.start : m_own.data() + (range.start - ownStart);
        return {begin, range.length};
    }

    std::string m_source; ///< the file, if its texts are in it as they are; else empty
    std::string m_own; ///< texts that are not in the file as they are; their ranges begin after those of `m_source`
    std::vector<NodeRecord> m_nodes; ///< and one after the last
    std::vector<AttributeRecord> m_attributes;
    bool m_placesAreLines = false; ///< else they are positions in `m_source`
};

/// A node of a tree: two words, passed by value.
class Node
{
public:
    [[nodiscard]] NodeKind kind() const { return static_cast<NodeKind>(record().lengthAndKind >> Tree::kindShift); }
    [[nodiscard]] bool isElement() const { return kind() == NodeKind::Element; }
    [[nodiscard]] bool isText() const { return kind() == NodeKind::Text; }
    [[nodiscard]] bool isComment() const { return kind() == NodeKind::Comment; }

    /// The characters of a text or comment, or the local name of an element; empty for any other node.
    [[nodiscard]] std::string_view characters() const
    {
        return m_tree->view({record().start, record().lengthAndKind & Tree::lengthMask});
    }

    /// Where it begins. Goes through the file up to there, so it is for messages.
    [[nodiscard]] Place place() const;

    /// As above, to be turned into a place when all are known.
    [[nodiscard]] PlaceKey placeKey() const { return record().place; }

    /// How many nodes it is with all that is in it.
    [[nodiscard]] std::size_t size() const { return record().end - m_index; }

    /// Whether it is the same node of the same tree.
    bool operator==(const Node& other) const { return m_tree == other.m_tree && m_index == other.m_index; }
    bool operator!=(const Node& other) const { return !(*this == other); }

    /// Whether it comes after `other` in document order.
    [[nodiscard]] bool isAfter(const Node& other) const { return m_index > other.m_index; }

private:
    friend class Tree;
    friend class Element;
    template<Walk How> friend class NodeRange;

    Node(const Tree& tree, std::uint32_t index)
        : m_tree(&tree)
        , m_index(index)
    {}

    [[nodiscard]] const Tree::NodeRecord& record() const { return m_tree->m_nodes[m_index]; }

    const Tree* m_tree;
    std::uint32_t m_index;
};

/// How a range goes on after a node.
enum class Walk : std::uint8_t
{
    Siblings, ///< past all that is in it
    All, ///< into it
};

/// Nodes of an element, in document order.
template<Walk How> class NodeRange
{
public:
    class Iterator
    {
    public:
        explicit Iterator(Node node)
            : m_node(node)
        {}
        Node operator*() const { return m_node; }
        Iterator& operator++()
        {
            m_node.m_index = How == Walk::All ? m_node.m_index + 1 : m_node.record().end;
            return *this;
        }
        bool operator==(const Iterator& other) const { return m_node == other.m_node; }
        bool operator!=(const Iterator& other) const { return !(*this == other); }

    private:
        Node m_node;
    };

    NodeRange(Node first, Node end)
        : m_first(first)
        , m_end(end)
    {}

    [[nodiscard]] Iterator begin() const { return Iterator(m_first); }
    [[nodiscard]] Iterator end() const { return Iterator(m_end); }
    [[nodiscard]] bool empty() const { return begin() == end(); }

private:
    Node m_first;
    Node m_end;
};

/// The text of an element: nearly always that of a single node, else put together from several.
class ElementText
{
public:
    explicit ElementText(std::string_view single)
        : m_single(single)
    {}
    explicit ElementText(std::string joined)
        : m_joined(std::move(joined))
        , m_isJoined(true)
    {}

    // NOLINTNEXTLINE(google-explicit-constructor): it is a text wherever one is wanted
    operator std::string_view() const { return m_isJoined ? std::string_view(m_joined) : m_single; }

    [[nodiscard]] std::string toString() const { return std::string(std::string_view(*this)); }

private:
    std::string m_joined;
    std::string_view m_single;
    bool m_isJoined = false;
};

/// A node that is an element.
class Element : public Node
{
public:
    /// @param node  an element
    explicit Element(Node node)
        : Node(node)
    {}

    /// The local name: without prefix.
    [[nodiscard]] std::string_view name() const { return characters(); }

    /// The nodes directly in it.
    [[nodiscard]] NodeRange<Walk::Siblings> children() const { return {first(), end()}; }

    /// The nodes in it, at any depth.
    [[nodiscard]] NodeRange<Walk::All> descendants() const { return {first(), end()}; }

    /// All texts in it, at any depth, one after the other.
    [[nodiscard]] ElementText text() const;

    /// Value of the attribute with a local name. Of two with the same local name and different prefixes the later one
    /// counts.
    /// @return  null data, unlike an empty value, if there is none
    [[nodiscard]] std::string_view attribute(std::string_view name) const;

    /// Calls `visit(name, value)` for each attribute, in the order of the source.
    template<typename Visitor> void forEachAttribute(Visitor visit) const
    {
        const std::uint32_t afterLast = m_tree->m_nodes[m_index + 1].firstAttribute;
        for (std::uint32_t index = record().firstAttribute; index < afterLast; ++index) {
            const Tree::AttributeRecord& attribute = m_tree->m_attributes[index];
            visit(m_tree->view(attribute.name), m_tree->view(attribute.value));
        }
    }

    /// Whether a node after this one in document order is in it.
    [[nodiscard]] bool reaches(const Node& later) const { return end().isAfter(later); }

private:
    friend class Tree;

    [[nodiscard]] Node first() const { return {*m_tree, m_index + 1}; }
    [[nodiscard]] Node end() const { return {*m_tree, record().end}; }

    Element(const Tree& tree, std::uint32_t index)
        : Node(tree, index)
    {}
};

} // namespace xml
