#include "esi/xml/groupNameCount.h"

#include "esi/xml/xmlLimits.h"

namespace {

constexpr int lengthOfArrow = 3; ///< of what goes in front of the name of a group

void leaveAt(std::vector<int>& depths, int depth)
{
    if (!depths.empty() && depths.back() == depth)
        depths.pop_back();
}

} // namespace

void GroupNameCount::enterDevice()
{
    m_earlierCopies += m_slots * m_characters;
    m_slots = 0;
    m_characters = 0;
}

void GroupNameCount::enter(const NameRole& role, int depth, int readers)
{
    if (role.isSlot) {
        m_slots += readers;
    } else if (role.isSlotGroupData) {
        m_groups.push_back(depth);
    } else if (role.isName && !m_groups.empty() && m_groups.back() == depth - 1) {
        m_names.push_back(depth);
        m_characters += qint64{lengthOfArrow} * readers;
    }
}

void GroupNameCount::leave(int depth)
{
    leaveAt(m_groups, depth);
    leaveAt(m_names, depth);
}

void GroupNameCount::addText(int length, int readers)
{
    m_characters += static_cast<qint64>(m_names.size()) * length * readers;
}

bool GroupNameCount::isWithinLimit() const
{
    // Not the product is compared: with slots and names that are far too many it has no room in a number.
    return m_slots == 0 || m_characters <= (maxGroupNameCopies - m_earlierCopies) / m_slots;
}
