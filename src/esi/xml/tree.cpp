#include "esi/xml/tree.h"

#include <algorithm>

namespace xml {

namespace {

/// Counts lines as the parser of documents does: CR, LF and the pair of them end one; and columns in characters.
Place placeAt(std::string_view file, std::size_t position)
{
    Place place{1, 1};
    for (std::size_t index = 0; index < position; ++index) {
        const char character = file[index];
        const bool isPair = character == '\r' && index + 1 < file.size() && file[index + 1] == '\n';
        const bool isRestOfCharacter = (static_cast<unsigned char>(character) & 0xC0U) == 0x80U;
        if (character == '\n' || (character == '\r' && !isPair)) {
            place.line += 1;
            place.column = 1;
        } else if (!isRestOfCharacter) {
            place.column += 1;
        }
    }
    return place;
}

} // namespace

Element Tree::root() const
{
    return {*this, 0};
}

Place Node::place() const
{
    const std::uint32_t place = record().place;
    return m_tree->m_placesAreLines ? Place{static_cast<int>(place), 0} : placeAt(m_tree->m_source, place);
}

ElementText Element::text() const
{
    const NodeRange<Walk::All> nodes = descendants();
    const auto isText = [](const Node& node) { return node.isText(); };
    const auto first = std::find_if(nodes.begin(), nodes.end(), isText);
    if (first == nodes.end())
        return ElementText(std::string_view());
    auto next = first;
    if (std::find_if(++next, nodes.end(), isText) == nodes.end())
        return ElementText((*first).characters());
    std::string joined;
    for (const Node node : nodes)
        if (node.isText())
            joined += node.characters();
    return ElementText(std::move(joined));
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
