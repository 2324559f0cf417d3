// limitCount.h - counts what a file holds against the limits of `xmlLimits.h`, for every way of reading it.
#pragma once

#include "esi/xml/groupNameCount.h"
#include "esi/xml/nameRole.h"

#include <QString>

#include <vector>

/// Counts a file while it is read. Each function is called before what it is about is kept, says whether that is within
/// the limits, and is the last one to be called if it is not.
class LimitCount
{
public:
    /// For each element, before what is in it.
    [[nodiscard]] bool enterElement(const NameRole& role, int attributes);
    /// For each element, after what is in it.
    void leaveElement();
    /// For each run of characters, CDATA sections included.
    /// @param length  in characters, or more
    [[nodiscard]] bool addText(int length);
    /// For each comment, CDATA section, processing instruction and reference to an undeclared entity.
    [[nodiscard]] bool addNode() { return hasRoomFor(1); }
    /// For each declaration of a namespace.
    /// @param prefixes  different ones so far, this one included
    [[nodiscard]] bool holdsPrefixes(int prefixes);

    /// The limit that is broken, empty as long as all hold.
    [[nodiscard]] QString brokenLimit() const { return m_brokenLimit; }

private:
    bool multipliesLittle(const NameRole& role);
    bool isInFewDevices(const NameRole& role);
    bool hasRoomForModule();
    bool hasRoomForGroupNames();
    bool hasRoomFor(int nodes);
    [[nodiscard]] int readers() const;
    [[nodiscard]] int depth() const { return static_cast<int>(m_open.size()); }
    bool holds(bool isWithin, const char* message, int limit);

    std::vector<NameRole> m_open; ///< elements that are open, the innermost last
    int m_nodes = 0;
    int m_texts = 0;
    int m_deviceCount = 0; ///< of the whole file
    int m_openDevices = 0;
    int m_openSlots = 0;
    int m_openDeviceParents = 0;
    int m_modules = 0;
    GroupNameCount m_groupNames;
    QString m_brokenLimit;
};
