// outline.h - a tree as one line that a test can spell out: `name[attribute=value]{content}`, texts in quotation marks,
// comments as "!" and other nodes as "?".
#pragma once

#include "esi/xml/tree.h"

#include <QByteArray>
#include <QString>

#include <string>

inline std::string outlineOf(const xml::Element& element);

[[nodiscard]] inline std::string outlineOf(const xml::Node& node)
{
    switch (node.kind()) {
    case xml::NodeKind::Element:
        return outlineOf(xml::Element(node));
    case xml::NodeKind::Text:
        return '"' + std::string(node.characters()) + '"';
    case xml::NodeKind::Comment:
        return '!' + std::string(node.characters()) + '!';
    case xml::NodeKind::Other:
        break;
    }
    return "?";
}

[[nodiscard]] inline std::string outlineOf(const xml::Element& element)
{
    std::string outline(element.name());
    element.forEachAttribute([&](std::string_view name, std::string_view value) {
        outline.append("[").append(name).append("=").append(value).append("]");
    });
    if (element.children().empty())
        return outline;
    outline += '{';
    for (const xml::Node node : element.children())
        outline += outlineOf(node);
    return outline + '}';
}

[[nodiscard]] inline QByteArray outlineOf(const xml::Tree& tree)
{
    return QByteArray::fromStdString(outlineOf(tree.root()));
}
