#include "esi/xml/placeCursor.h"

#include <algorithm>

namespace xml {

namespace {

bool beginsCharacter(char byte)
{
    return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U;
}

} // namespace

Place PlaceCursor::moveTo(PlaceKey key)
{
    if (m_tree.m_placesAreLines)
        return {static_cast<int>(key), 0};
    const std::string_view file = m_tree.m_source;
    const std::size_t target = std::max(m_position, std::min<std::size_t>(key, file.size()));
    pass(file.substr(m_position, target - m_position));
    m_position = target;
    return m_place;
}

/// @param text  from the position of the cursor on; no node begins between CR and LF
void PlaceCursor::pass(std::string_view text)
{
    // Most files have a CR before each LF or none at all, so CRs are looked for line by line.
    for (std::size_t end = text.find('\n'); end != std::string_view::npos; end = text.find('\n')) {
        const std::string_view line = text.substr(0, end);
        for (std::size_t at = line.find('\r'); at < line.size() - 1; at = line.find('\r', at + 1))
            m_place.line += 1;
        m_place = {m_place.line + 1, 1};
        text.remove_prefix(end + 1);
    }
    for (std::size_t end = text.find('\r'); end != std::string_view::npos; end = text.find('\r')) {
        m_place = {m_place.line + 1, 1};
        text.remove_prefix(end + 1);
    }
    m_place.column += static_cast<int>(std::count_if(text.begin(), text.end(), beginsCharacter));
}

} // namespace xml
