#include "facts/startupOrder.h"

#include "model/objectAreas.h"

#include <algorithm>
#include <map>
#include <set>

namespace facts {

namespace {

/// Place of a transition on the way up to OP; 0 for any other.
int stageOf(NMTOKEN transition)
{
    switch (transition) {
    case IP:
        return 1;
    case PS:
    case IP_PS:
        return 2;
    case SO:
        return 3;
    default:
        return 0;
    }
}

/// Follows the commands.
class StartupWalk
{
public:
    explicit StartupWalk(const UnitFacts& unit)
        : m_unit(unit)
    {
        for (const PdoFacts& pdo : unit.pdos)
            if (pdo.syncManager >= 0 && pdo.syncManager <= assignObjects.last - assignObjects.first)
                m_assignObjectOf.emplace(pdo.index, assignObjectOf(static_cast<std::uint8_t>(pdo.syncManager)));
    }

    void take(const CommandFacts& command)
    {
        if (isMappingObject(command.index))
            checkAssignment(command);
        if (!isMappingObject(command.index) && !isAssignObject(command.index))
            return;
        if (command.isCompleteAccess) {
            m_lists.erase(command.index); // the device takes the list as a whole
            if (isAssignObject(command.index))
                m_cleared.erase(command.index);
        } else if (command.subIndex == 0) {
            takeCount(command);
        } else {
            takeEntry(command);
        }
    }

    std::vector<StartupFault> end()
    {
        for (const auto& [index, list] : m_lists)
            if (list.entries > 0 || list.wasFilled)
                m_faults.push_back({StartupSlip::CountMissing, placeOf(*list.last), list.entries});
        return std::move(m_faults);
    }

private:
    /// The list of entries in an object that is being written.
    struct List
    {
        unsigned entries = 0; ///< highest sub-index that was written since the count was cleared
        const CommandFacts* last = nullptr; ///< that wrote an entry, or else cleared the count
        bool wasFilled = false; ///< commands before that have written it with its count
    };

    [[nodiscard]] std::size_t placeOf(const CommandFacts& command) const
    {
        return static_cast<std::size_t>(&command - m_unit.commands.data());
    }

    void checkAssignment(const CommandFacts& command)
    {
        const auto assign = m_assignObjectOf.find(command.index);
        if (!m_unit.canAssign)
            return; // there is nothing that could be cleared
        if (assign == m_assignObjectOf.end() || m_cleared.count(assign->second) != 0
            || !m_told.insert(command.index).second)
            return;
        m_faults.push_back({StartupSlip::MappedWhileAssigned, placeOf(command)});
    }

    void takeCount(const CommandFacts& command)
    {
        const auto list = m_lists.find(command.index);
        const unsigned entries = list == m_lists.end() ? 0 : list->second.entries;
        if (command.data == 0) {
            m_lists[command.index] = {0, &command, m_filled.count(command.index) != 0};
            if (isAssignObject(command.index))
                m_cleared.insert(command.index);
            return;
        }
        if (list != m_lists.end() && command.data != entries)
            m_faults.push_back({StartupSlip::CountWrong, placeOf(command), entries});
        m_lists.erase(command.index);
        m_filled.insert(command.index);
        if (isAssignObject(command.index))
            m_cleared.erase(command.index);
    }

    void takeEntry(const CommandFacts& command)
    {
        const auto list = m_lists.find(command.index);
        if (list == m_lists.end()) {
            if (m_toldEntries.insert(command.index).second)
                m_faults.push_back({StartupSlip::EntryBeforeClear, placeOf(command)});
            return;
        }
        list->second.entries = std::max(list->second.entries, static_cast<unsigned>(command.subIndex));
        list->second.last = &command;
    }

    const UnitFacts& m_unit;
    std::map<std::uint16_t, std::uint16_t> m_assignObjectOf; ///< by the index of a PDO
    std::set<std::uint16_t> m_cleared; ///< assign objects that are empty now
    std::map<std::uint16_t, List> m_lists; ///< objects whose sub-index 0 is 0 now
    std::set<std::uint16_t> m_filled; ///< objects that have had a count
    std::set<std::uint16_t> m_told;
    std::set<std::uint16_t> m_toldEntries;
    std::vector<StartupFault> m_faults;
};

/// The commands in the order in which the controller sends them: by their transition, and as they are in the file for
/// the same one. Commands without a known transition, and those of the way back, are left out.
std::vector<const CommandFacts*> sendingOrder(const UnitFacts& unit)
{
    std::vector<const CommandFacts*> order;
    for (const CommandFacts& command : unit.commands)
        if (stageOf(command.transition) > 0)
            order.push_back(&command);
    std::stable_sort(order.begin(), order.end(), [](const CommandFacts* left, const CommandFacts* right) {
        return stageOf(left->transition) < stageOf(right->transition);
    });
    return order;
}

} // namespace

std::vector<StartupFault> startupFaultsOf(const UnitFacts& unit)
{
    StartupWalk walk(unit);
    for (const CommandFacts* const command : sendingOrder(unit))
        walk.take(*command);
    return walk.end();
}

} // namespace facts
