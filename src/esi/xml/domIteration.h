// domIteration.h - loops over the children, attributes and descendants of an element.
#pragma once

#include "text/exactName.h"

#include <QDomElement>
#include <QLatin1String>
#include <QString>

#include <array>
#include <cstddef>
#include <vector>

/// Calls `visit(child, tag)` for each child of `parent` that is an element, in document order. `tag` is its local name.
template<typename Visitor> void forEachChildElement(const QDomElement& parent, Visitor visit)
{
    for (QDomNode node = parent.firstChild(); !node.isNull(); node = node.nextSibling())
        if (const QDomElement child = node.toElement(); !child.isNull())
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

/// Walks all elements under `root`, at any depth and in document order: `enter(element, depth)` before what is under
/// it, `leave(depth)` after it; the children of `root` are at depth 1. It does not recurse, so the depth of the
/// document costs no stack.
template<typename Enter, typename Leave> void walkElements(const QDomElement& root, Enter enter, Leave leave)
{
    int depth = 1;
    QDomElement element = root.firstChildElement();
    while (!element.isNull()) {
        enter(element, depth);
        if (const QDomElement child = element.firstChildElement(); !child.isNull()) {
            element = child;
            depth += 1;
            continue;
        }
        leave(depth);
        QDomElement next = element.nextSiblingElement();
        while (next.isNull()) {
            depth -= 1;
            if (depth == 0)
                return;
            element = element.parentNode().toElement();
            leave(depth);
            next = element.nextSiblingElement();
        }
        element = next;
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
    const auto sortIn = [&](const QDomElement& element, int /*depth*/) {
        const QString tag = element.tagName();
        for (std::size_t index = 0; index < Count; ++index)
            if (isNamed(tag, tags[index])) {
                found[index].push_back(element);
                return;
            }
    };
    walkElements(root, sortIn, [](int /*depth*/) {});
    return found;
}
