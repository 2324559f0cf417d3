// groupNameCount.h - how much the names of slot groups add to the names of slots, counted while a file is parsed.
#pragma once

#include "esi/xml/nameRole.h"

#include <QtGlobal>

#include <vector>

/// Adds up what the names of the slot groups of each device would add to the names of its slots: the characters of all
/// names times the number of slots, whichever slot is in which group, so it is an upper bound. What several elements
/// read counts for each of them.
class GroupNameCount
{
public:
    /// To be called for a device that is in no other one: its slots and names are counted separately.
    void enterDevice();

    /// To be called for each element in a list of slots.
    /// @param depth    of the element in the file
    /// @param readers  elements around it that each read it
    void enter(const NameRole& role, int depth, int readers);
    void leave(int depth);

    /// To be called for each text of the file.
    void addText(int length, int readers);

    /// Whether all devices keep within `maxGroupNameCopies`.
    [[nodiscard]] bool isWithinLimit() const;

private:
    std::vector<int> m_groups; ///< depths of the groups that are open
    std::vector<int> m_names; ///< depths of the names of groups that are open; the text of one is part of all
    qint64 m_slots = 0; ///< of the device
    qint64 m_characters = 0; ///< in the names of the groups of the device
    qint64 m_earlierCopies = 0; ///< of the devices before
};
