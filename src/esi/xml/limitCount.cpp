#include "esi/xml/limitCount.h"

#include "esi/xml/xmlLimits.h"

#include <algorithm>

bool LimitCount::enterElement(const NameRole& role, int attributes)
{
    m_open.push_back(role);
    return holds(depth() <= maxNesting, "elements are nested deeper than %1", maxNesting)
           && holds(attributes <= maxAttributes, "an element has more than %1 attributes", maxAttributes)
           && multipliesLittle(role) && isInFewDevices(role) && hasRoomFor(1 + attributes);
}

void LimitCount::leaveElement()
{
    m_groupNames.leave(depth());
    const NameRole& role = m_open.back();
    m_openDevices -= role.isDevice ? 1 : 0;
    m_openSlots -= role.isSlots ? 1 : 0;
    m_openDeviceParents -= role.mayHoldSections ? 1 : 0;
    m_open.pop_back();
}

bool LimitCount::addText(int length)
{
    m_groupNames.addText(length, readers());
    m_texts += readers();
    return hasRoomForGroupNames() && holds(m_texts <= maxNodes, "the file has more than %1 texts", maxNodes);
}

bool LimitCount::holdsPrefixes(int prefixes)
{
    return holds(prefixes <= maxPrefixes, "the file has more than %1 namespace prefixes", maxPrefixes);
}

/// Whether an element that begins is in few of those that each count its content.
bool LimitCount::multipliesLittle(const NameRole& role)
{
    if (m_openSlots > 0)
        m_groupNames.enter(role, depth(), readers());
    m_openSlots += role.isSlots ? 1 : 0;
    if (role.isDevice) {
        m_openDevices += 1;
        m_deviceCount += 1;
        if (m_openDevices == 1)
            m_groupNames.enterDevice();
    }
    return holds(m_openDevices <= maxInEachOther, "more than %1 devices stand in each other", maxInEachOther)
           && holds(m_openSlots <= maxInEachOther, "more than %1 lists of slots stand in each other", maxInEachOther)
           && holds(m_deviceCount <= maxDevices, "the file has more than %1 devices", maxDevices) && hasRoomForModule()
           && hasRoomForGroupNames();
}

bool LimitCount::isInFewDevices(const NameRole& role)
{
    m_openDeviceParents += role.mayHoldSections ? 1 : 0;
    return holds(m_openDeviceParents <= maxDeviceParents,
                 "more than %1 elements with \"Device\" in their names stand in each other", maxDeviceParents);
}

/// Counts elements directly in lists of modules: whatever their name, they may be read as modules.
bool LimitCount::hasRoomForModule()
{
    const bool isInModules = m_open.size() > 1 && m_open[m_open.size() - 2].isModules;
    m_modules += isInModules ? 1 : 0;
    return holds(m_modules <= maxModules, "the file has more than %1 modules", maxModules);
}

bool LimitCount::hasRoomForGroupNames()
{
    return holds(m_groupNames.isWithinLimit(),
                 "the names of the slot groups add more than %1 characters to the names of the slots",
                 maxGroupNameCopies);
}

/// Counts nodes that are about to be built, once for each element around them that reads its content.
bool LimitCount::hasRoomFor(int nodes)
{
    m_nodes += nodes * readers();
    return holds(m_nodes <= maxNodes, "the file has more than %1 elements, attributes and comments", maxNodes);
}

int LimitCount::readers() const
{
    return std::max(1, m_openDevices) * std::max(1, m_openSlots);
}

bool LimitCount::holds(bool isWithin, const char* message, int limit)
{
    if (!isWithin)
        m_brokenLimit = QString::fromLatin1(message).arg(limit);
    return isWithin;
}
