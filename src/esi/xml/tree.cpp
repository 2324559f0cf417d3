#include "esi/xml/tree.h"

#include "esi/xml/placeCursor.h"

#include <utility>

namespace xml {

Element Tree::root() const
{
    return {*this, 0};
}

Place Node::place() const
{
    return PlaceCursor(*m_tree).moveTo(placeKey());
}

ElementText Element::text() const
{
    std::string_view first;
    std::string joined; // of the first and the next ones, if there are any
    int texts = 0;
    for (const Node node : descendants()) {
        if (!node.isText())
            continue;
        texts += 1;
        if (texts == 1) {
            first = node.characters();
            continue;
        }
        if (texts == 2)
            joined = first;
        joined += node.characters();
    }
    return texts > 1 ? ElementText(std::move(joined)) : ElementText(first);
}

std::string_view Element::attribute(std::string_view name) const
{
    std::string_view found;
    forEachAttribute([&](std::string_view candidate, std::string_view value) {
        if (candidate == name)
            found = value;
    });
    return found;
}

} // namespace xml
