#include "retrace/shownModules.h"

#include "editing/slotPlaces.h"
#include "esi/derivation/smLengths.h"
#include "ktl/writing/commandRecord.h"
#include "model/byteBit.h"
#include "model/deviceType.h"
#include "model/objectAreas.h"
#include "model/syncDirection.h"
#include "retrace/entryAlignment.h"
#include "retrace/exportedPdos.h"
#include "retrace/startupEdits.h"

#include <algorithm>

namespace retrace {

namespace {

/// The first place of a key from a given one on.
template<typename Key>
std::optional<std::size_t> placeIn(const std::map<Key, std::vector<std::size_t>>& places, const Key& key,
                                   std::size_t from)
{
    const auto found = places.find(key);
    if (found == places.end())
        return std::nullopt;
    const auto place = std::lower_bound(found->second.begin(), found->second.end(), from);
    return place == found->second.end() ? std::nullopt : std::make_optional(*place);
}

} // namespace

ShownModules::ShownModules(const struct_EtherCatDevice& device, const KtlDeviceBlock& block)
    : m_block(block)
{
    readPdos(device);
    readCommands(device);
    readFixedIdents(device);
    readLengths(device);
}

ShownModules::CommandKey ShownModules::keyOf(const struct_KTL_InitCmd& command)
{
    return {command.Transition, command.Index, command.SubIndex, command.DataBytes, command.Data};
}

ShownModules::ObjectKey ShownModules::objectOf(const struct_KTL_InitCmd& command)
{
    return {command.Transition, command.Index, command.SubIndex};
}

/// The PDOs of modules come behind those of the device, outputs first.
void ShownModules::readPdos(const struct_EtherCatDevice& device)
{
    if (!hasModulePdos(device.m_iDeviceType))
        return;
    struct_EtherCatDevice own;
    own.RxPdo = device.RxPdo;
    own.TxPdo = device.TxPdo;
    own.vSM = device.vSM;
    std::size_t next = 0;
    EntryComparison entries;
    for (const DeclaredPdo& pdo : exportedPdosOf(own))
        if (next < m_block.pdos.size() && areSamePdo(pdo, m_block.pdos[next])
            && entries.costOf(pdo, m_block.pdos[next]) < impossible)
            ++next;
    for (; next < m_block.pdos.size() && !m_block.pdos[next].isInput; ++next)
        m_outputs.push_back(&m_block.pdos[next]);
    for (; next < m_block.pdos.size(); ++next)
        m_inputs.push_back(&m_block.pdos[next]);
}

void ShownModules::readCommands(const struct_EtherCatDevice& device)
{
    const auto cannotBeAdded = [](const auto& commands) {
        return static_cast<std::size_t>(
            std::count_if(commands.begin(), commands.end(), [](const auto& command) { return !canBeAdded(command); }));
    };
    std::vector<struct_KTL_InitCmd> own;
    for (const struct_InitCmd& command : device.Mailbox.COE.InitCmd.vinitcmd)
        own.push_back(commandRecordOf(command));
    const std::size_t inBlock = cannotBeAdded(m_block.coeCommands);
    m_commandsOfModules = inBlock - std::min(inBlock, cannotBeAdded(own));
    for (std::size_t position = 0; position < m_block.coeCommands.size(); ++position) {
        const struct_KTL_InitCmd& command = m_block.coeCommands[position];
        m_commands[keyOf(command)].push_back(position);
        m_commandObjects[objectOf(command)].push_back(position);
        m_commandIndexes.insert(command.Index);
        m_assigned.insert({command.Index, command.Data});
    }
}

/// Default modules that bear the number of their slot where that is none of its places. The preset shows them instead
/// of what is there, if it is in a slot before theirs; and of several modules in one place only one.
void ShownModules::readFixedIdents(const struct_EtherCatDevice& device)
{
    PlaceRange range;
    for (const struct_Slot& slot : device.Slots.vslot) {
        range.first = range.end;
        range.end = static_cast<std::uint16_t>(range.first + slot.Attributes.MaxInstances);
        std::set<int> filled;
        for (const struct_slotmodule& placed : slot.slotmodule) {
            if (!range.holds(placed.Instances))
                m_fixedIdents[placed.Instances] = placed.module.TypeAttributes.ModuleIdent;
            const bool isHiding = placed.Instances < range.first;
            if (isHiding)
                m_hiddenPlaces.insert(placed.Instances);
            m_isCountNeeded = m_isCountNeeded || isHiding || !filled.insert(placed.Instances).second;
        }
    }
}

void ShownModules::readLengths(const struct_EtherCatDevice& device)
{
    struct_EtherCatDevice own;
    own.RxPdo = device.RxPdo;
    own.TxPdo = device.TxPdo;
    own.vSM = device.vSM;
    updateProcessDataLengths(own);
    std::size_t record = 0;
    for (const struct_SM& syncManager : own.vSM) {
        m_lengths.push_back(syncManager.Length);
        const bool isReal = syncManager.Attributes.m_Virtual == 0;
        const bool isShown = isReal && carriesProcessData(syncManager.Smtype) && record < m_block.syncManagers.size();
        m_shownLengths.push_back(isShown ? std::make_optional(m_block.syncManagers[record].m_iDefaultSize)
                                         : std::nullopt);
        record += isReal ? 1 : 0;
    }
}

std::optional<ShownModules::CommandPlace> ShownModules::placeOf(const struct_KTL_InitCmd& command,
                                                                std::size_t from) const
{
    if (const std::optional<std::size_t> place = placeIn(m_commands, keyOf(command), from))
        return CommandPlace{*place, false};
    if (const std::optional<std::size_t> place = placeIn(m_commandObjects, objectOf(command), from))
        return CommandPlace{*place, true};
    return std::nullopt;
}

bool ShownModules::mentions(const BroughtPdo& pdo) const
{
    const auto assignObject = static_cast<std::uint16_t>(assignObjects.first + pdo.syncManager);
    return m_commandIndexes.count(pdo.index) > 0 || m_assigned.count({assignObject, pdo.index}) > 0;
}

bool ShownModules::isInPreset(int place) const
{
    return m_block.preset.has_value() && place >= 0 && static_cast<std::size_t>(place) < m_block.preset->records.size();
}

bool ShownModules::isOtherCount(std::size_t counted) const
{
    return m_isCountNeeded && m_block.preset.has_value()
           && static_cast<std::uint8_t>(counted) != m_block.preset->head.m_iCountReal;
}

std::optional<bool> ShownModules::isPreset(int place, const std::optional<std::uint32_t>& ident) const
{
    if (!isInPreset(place) || m_hiddenPlaces.count(place) > 0)
        return std::nullopt;
    const auto fixed = m_fixedIdents.find(place);
    const std::uint32_t ofFixed = fixed == m_fixedIdents.end() ? 0 : fixed->second;
    const std::uint32_t shown = m_block.preset->records[static_cast<std::size_t>(place)].m_iModuleIdent;
    return ident.value_or(ofFixed) == shown;
}

std::size_t ShownModules::shorterLengths(const std::vector<float>& lengths, const std::vector<float>& more) const
{
    std::size_t count = 0;
    for (std::size_t number = 0; number < lengths.size(); ++number)
        if (m_shownLengths[number].has_value() && wholeBytes(lengths[number] + more[number]) > *m_shownLengths[number])
            ++count;
    return count;
}

std::size_t ShownModules::otherLengths(const std::vector<float>& lengths) const
{
    std::size_t count = 0;
    for (std::size_t number = 0; number < lengths.size(); ++number)
        if (m_shownLengths[number].has_value()
            && static_cast<std::uint16_t>(wholeBytes(lengths[number])) != *m_shownLengths[number])
            ++count;
    return count;
}

} // namespace retrace
