// sameChoices.h - whether two choices files choose the same. The places in the files do not count.
#pragma once

#include "choices/choices.h"

#include <tuple>

namespace choices {

inline bool operator==(const ModuleName& left, const ModuleName& right)
{
    return std::tie(left.ident, left.name, left.row) == std::tie(right.ident, right.name, right.row);
}

inline bool operator==(const ModuleChoice& left, const ModuleChoice& right)
{
    return std::tie(left.place, left.module) == std::tie(right.place, right.module);
}

inline bool operator==(const ModeName& left, const ModeName& right)
{
    return std::tie(left.position, left.name) == std::tie(right.position, right.name);
}

inline bool operator==(const SyncManagerChoice& left, const SyncManagerChoice& right)
{
    return std::tie(left.row, left.name, left.checkedName, left.minSize)
           == std::tie(right.row, right.name, right.checkedName, right.minSize);
}

inline bool operator==(const EntryName& left, const EntryName& right)
{
    return std::tie(left.pdoRow, left.pdoIndex, left.entryPosition, left.entryObject, left.checkedIndex,
                    left.checkedObject, left.checkedName)
           == std::tie(right.pdoRow, right.pdoIndex, right.entryPosition, right.entryObject, right.checkedIndex,
                       right.checkedObject, right.checkedName);
}

inline bool operator==(const LinkChoice& left, const LinkChoice& right)
{
    return static_cast<const EntryName&>(left) == right && left.module == right.module && left.link == right.link;
}

inline bool operator==(const EntryChoice& left, const EntryChoice& right)
{
    return static_cast<const EntryName&>(left) == right && left.link == right.link;
}

inline bool operator==(const StartupCheck& left, const StartupCheck& right)
{
    return std::tie(left.index, left.subIndex, left.comment) == std::tie(right.index, right.subIndex, right.comment);
}

inline bool operator==(const StartupChoice& left, const StartupChoice& right)
{
    return std::tie(left.row, left.was, left.index, left.subIndex, left.dataBytes, left.data, left.isUnchecked)
           == std::tie(right.row, right.was, right.index, right.subIndex, right.dataBytes, right.data,
                       right.isUnchecked);
}

inline bool operator==(const DeviceChoices& left, const DeviceChoices& right)
{
    const auto settings = [](const DeviceChoices& of) {
        return std::tie(of.device, of.isClicked, of.takesModuleList, of.deviceType, of.driveAxes, of.dcModes,
                        of.configIndex, of.detectIndex, of.lastType);
    };
    const auto lists = [](const DeviceChoices& of) {
        return std::tie(of.moduleLinks, of.modules, of.syncManagers, of.links, of.removedEntries, of.addedEntries,
                        of.changedCommands, of.removedCommands, of.addedCommands);
    };
    return settings(left) == settings(right) && lists(left) == lists(right);
}

inline bool operator==(const FileChoices& left, const FileChoices& right)
{
    return std::tie(left.devices, left.exported) == std::tie(right.devices, right.exported);
}

} // namespace choices
