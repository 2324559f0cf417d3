// sameTree.h - comparison of trees, for whoever checks that two sources say the same.
#pragma once

#include "esi/xml/tree.h"

#include <string_view>

/// Whether the attributes of an element are all those of another one, as readers find them: by local name, of which the
/// last one counts, in any order.
[[nodiscard]] inline bool hasAttributesOf(const xml::Element& element, const xml::Element& other)
{
    bool hasAll = true;
    other.forEachAttribute([&](std::string_view name, std::string_view /*value*/) {
        const std::string_view found = element.attribute(name);
        hasAll = hasAll && found.data() != nullptr && found == other.attribute(name);
    });
    return hasAll;
}

/// Whether two nodes are of the same kind, with the same characters and attributes and as many nodes in them.
[[nodiscard]] inline bool areAlike(const xml::Node& node, const xml::Node& other)
{
    if (node.kind() != other.kind() || node.characters() != other.characters() || node.size() != other.size())
        return false;
    return !node.isElement()
           || (hasAttributesOf(xml::Element(node), xml::Element(other))
               && hasAttributesOf(xml::Element(other), xml::Element(node)));
}

/// Whether two elements are the same with all that is in them, but for their places in their files.
[[nodiscard]] inline bool areSame(const xml::Element& element, const xml::Element& other)
{
    if (!areAlike(element, other)) // so there are as many nodes in the one as in the other
        return false;
    const auto others = other.descendants();
    auto otherNode = others.begin();
    for (const xml::Node node : element.descendants()) {
        if (!areAlike(node, *otherNode))
            return false;
        ++otherNode;
    }
    return true;
}
