// choices.h - what a choices file says: per device, what an engineer sets in the window.
#pragma once

#include <QLatin1String>
#include <QString>

#include <cstdint>
#include <optional>
#include <vector>

namespace choices {

/// Value of the key "format" of a choices file, by which it is known.
inline const QLatin1String fileFormat("kinetra-choices");

/// Value of the key "version". A reader that knows more keys reads the older files too.
inline constexpr int fileVersion = 1;

/// Object index and sub-index: "0x6040:0".
struct ObjectAddress
{
    std::uint32_t index = 0;
    std::uint32_t subIndex = 0;
};

[[nodiscard]] inline bool operator==(const ObjectAddress& left, const ObjectAddress& right)
{
    return left.index == right.index && left.subIndex == right.subIndex;
}

/// A place in the file as messages name it: "devices[0].links[3]".
struct ChoicePlace
{
    QString path;
};

/// A module, by its ident or else by its name.
struct ModuleName
{
    std::optional<std::uint32_t> ident;
    QString name; ///< empty where an ident is given
    std::optional<std::uint32_t> row = {}; ///< position among all modules of the file, which tells namesakes apart
};

/// A module for a place of the device; none takes out what is there.
struct ModuleChoice : ChoicePlace
{
    std::uint32_t place = 0;
    std::optional<ModuleName> module;
    QString about = {}; ///< for people, such as the name of the module; it is written, and never read
};

/// An operation mode, by its position in the list as it is when it is chosen, or else by its name or description.
struct ModeName
{
    std::optional<std::uint32_t> position;
    QString name;
};

/// The least size of a sync manager.
struct SyncManagerChoice : ChoicePlace
{
    std::optional<std::uint32_t> row; ///< of the list of sync managers
    QString name; ///< names the sync manager where no row is given
    std::optional<QString> checkedName; ///< name that it must have
    std::uint16_t minSize = 0; ///< bytes
};

/// An entry. Row or index name the PDO, position or object its entry; what else is given has to agree.
struct EntryName
{
    std::optional<std::uint32_t> pdoRow;
    std::optional<std::uint32_t> pdoIndex; ///< names the PDO where no row is given
    std::optional<std::uint32_t> entryPosition;
    std::optional<ObjectAddress> entryObject; ///< names the entry where no position is given
    std::optional<std::uint32_t> checkedIndex; ///< index that the PDO must have
    std::optional<ObjectAddress> checkedObject; ///< object that the entry must have
    std::optional<QString> checkedName; ///< name that the entry must have
};

/// The link of an entry.
struct LinkChoice : ChoicePlace, EntryName
{
    ModuleName module; ///< for links of a module only
    std::int32_t link = 0;
};

/// An entry that is removed, or the one behind which an empty one is added.
struct EntryChoice : ChoicePlace, EntryName
{
    std::int32_t link = 0; ///< of the added entry, all else of which is 0 and empty
};

/// What a startup command must be for a choice to fit; nothing is asked where nothing is given.
struct StartupCheck
{
    std::optional<std::uint32_t> index;
    std::optional<std::uint32_t> subIndex;
    std::optional<QString> comment;
};

/// A choice on a row of the startup list.
struct StartupChoice : ChoicePlace
{
    std::uint32_t row = 0; ///< the row itself; for an added command the one before it
    StartupCheck was;
    // Values to set. Of a changed command, what is not given stays as it is; of an added one, a sub-index that is not
    // given is 0, and the others are given.
    std::optional<std::uint32_t> index;
    std::optional<std::uint32_t> subIndex;
    std::optional<std::uint32_t> dataBytes;
    std::optional<std::uint32_t> data;
    bool isUnchecked = false; ///< the values are taken as the window takes them, also if the bus cuts them
};

/// The choices of one device, in the order in which they are made.
struct DeviceChoices : ChoicePlace
{
    QString device; ///< selector
    bool isClicked = true; ///< whether a click selects the device first; else what a click makes again stays as it is
    std::optional<bool> takesModuleList; ///< whether the device takes the list of its modules by itself
    std::optional<std::uint16_t> deviceType;
    std::optional<std::uint16_t> driveAxes; ///< of the last type, where one is given
    std::vector<ModeName> dcModes; ///< chosen one after the other
    std::optional<std::uint16_t> configIndex;
    std::optional<std::uint16_t> detectIndex;
    std::vector<LinkChoice> moduleLinks;
    std::vector<ModuleChoice> modules;
    std::vector<SyncManagerChoice> syncManagers;
    std::vector<LinkChoice> links;
    std::vector<EntryChoice> removedEntries;
    std::vector<EntryChoice> addedEntries;
    std::vector<StartupChoice> changedCommands;
    std::vector<StartupChoice> removedCommands;
    std::vector<StartupChoice> addedCommands;
    std::optional<std::uint16_t> lastType; ///< a type that is set at the end, after which nothing is made again
};

/// What a choices file holds.
struct FileChoices
{
    std::vector<DeviceChoices> devices;
    std::optional<std::vector<QString>>
        exported; ///< selectors of the devices to write; all of them where none is given
};

} // namespace choices
