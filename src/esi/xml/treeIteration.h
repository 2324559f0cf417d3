// treeIteration.h - loops over the elements of a tree.
#pragma once

#include "esi/xml/tree.h"

#include <array>
#include <cstddef>
#include <string_view>
#include <vector>

namespace xml {

/// Calls `visit(child)` for each node directly in `parent` that is an element, in document order.
template<typename Visitor> void forEachChildElement(const Element& parent, Visitor visit)
{
    for (const Node node : parent.children())
        if (node.isElement())
            visit(Element(node));
}

/// Calls `visit(child)` for each child element of `parent` with the given local name, in document order.
template<typename Visitor> void forEachChildElement(const Element& parent, std::string_view wantedName, Visitor visit)
{
    forEachChildElement(parent, [&](const Element& child) {
        if (child.name() == wantedName)
            visit(child);
    });
}

/// Walks all elements in `root`, at any depth and in document order: `enter(element, parent)` before what is in it,
/// `leave(element)` after it. It does not recurse, so the depth of the tree costs no stack.
template<typename Enter, typename Leave> void walkElements(const Element& root, Enter enter, Leave leave)
{
    std::vector<Element> open{root};
    const auto leaveLast = [&] {
        const Element left = open.back();
        open.pop_back();
        leave(left);
    };
    for (const Node node : root.descendants()) {
        if (!node.isElement())
            continue;
        while (!open.back().reaches(node))
            leaveLast();
        const Element element(node);
        enter(element, open.back());
        open.push_back(element);
    }
    while (open.size() > 1)
        leaveLast();
}

/// The elements in `root` that have one of the given local names, at any depth and in document order, found in one
/// pass however many names are asked for.
/// @return  one list per name, in the order of `names`
template<std::size_t Count>
[[nodiscard]] std::array<std::vector<Element>, Count>
descendantsByName(const Element& root, const std::array<std::string_view, Count>& names)
{
    std::array<std::vector<Element>, Count> found;
    for (const Node node : root.descendants())
        for (std::size_t index = 0; node.isElement() && index < Count; ++index)
            if (node.characters() == names[index])
                found[index].push_back(Element(node));
    return found;
}

} // namespace xml
