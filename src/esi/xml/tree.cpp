#include "esi/xml/tree.h"

#include <utility>

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
