// domIteration.h - loops over the children, attributes and descendants of an element.
#pragma once

#include <QDomElement>
#include <QLatin1String>
#include <QString>

#include <array>
#include <cstddef>
#include <vector>

/// Calls `visit(child, tag)` for each child of `parent` that is an element, in document order. `tag` is its local name.
template<typename Visitor> void forEachChildElement(const QDomElement& parent, Visitor visit)
{
    for (QDomElement child = parent.firstChildElement(); !child.isNull(); child = child.nextSiblingElement())
        visit(child, child.tagName());
}

/// Calls `visit(child)` for each child element of `parent` with the given local name, in document order.
template<typename Visitor> void forEachChildElement(const QDomElement& parent, QLatin1String wantedTag, Visitor visit)
{
    forEachChildElement(parent, [&](const QDomElement& child, const QString& tag) {
        if (tag == wantedTag)
            visit(child);
    });
}

/// Walks all elements under `root`, at any depth and in document order: `enter(element)` before what is under it,
/// `leave(element)` behind that. It does not recurse, so the depth of the document costs no stack.
template<typename Enter, typename Leave> void walkElements(const QDomElement& root, Enter enter, Leave leave)
{
    QDomNode node = root.firstChild();
    while (!node.isNull()) {
        if (node.isElement())
            enter(node.toElement());
        QDomNode next = node.firstChild();
        while (next.isNull()) {
            if (node.isElement())
                leave(node.toElement());
            next = node.nextSibling();
            if (!next.isNull())
                break;
            node = node.parentNode();
            if (node == root)
                return;
        }
        node = next;
    }
}

/// The elements under `root` that have one of the given local names, at any depth and in document order, found in one
/// pass however many names are asked for.
/// @return  one list per name, in the order of `tags`
template<std::size_t Count>
[[nodiscard]] std::array<std::vector<QDomElement>, Count> descendantsByTag(const QDomElement& root,
                                                                           const std::array<QLatin1String, Count>& tags)
{
    std::array<std::vector<QDomElement>, Count> found;
    const auto sortIn = [&](const QDomElement& element) {
        const QString tag = element.tagName();
        for (std::size_t index = 0; index < Count; ++index)
            if (tag == tags[index]) {
                found[index].push_back(element);
                return;
            }
    };
    walkElements(root, sortIn, [](const QDomElement& /*element*/) {});
    return found;
}
