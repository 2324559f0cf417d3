// warningCodes.h - the kinds of warnings, each with the stable name that ends its line.
#pragma once

#include <QLatin1String>
#include <QString>
#include <QStringList>

#include <optional>

namespace cli {

/// What a warning is about. Scripts rely on the names: a kind may be added, none is renamed.
enum class WarningCode
{
    SyncManagers, ///< more sync managers than the controller handles
    SlotPdoIncrement, ///< slots that shift PDO indexes by different steps
    SlotIndexIncrement, ///< slots that shift object indexes by different steps
    StartupCommands, ///< more startup commands than older firmware takes
    StartupData, ///< values of startup commands that the format does not carry
    ModuleList, ///< modules chosen for a coupler that takes its list of modules by itself
    ModuleCommands, ///< a module that announces another number of startup commands than it has
    ItemCount, ///< more items than the workbench reads and a dump shows
    LeftOut, ///< choices for a device that is not written
    SameInput, ///< a file that is given more than once
    NoChoice, ///< what no choice makes of an export
};

/// Name of a kind, as it ends the line of a warning: "sync-managers".
[[nodiscard]] QLatin1String nameOf(WarningCode code);

/// The kind with that name; nothing if there is none.
[[nodiscard]] std::optional<WarningCode> warningCodeNamed(const QString& name);

/// Names of all kinds, in the order of the enumeration.
[[nodiscard]] QStringList warningCodeNames();

} // namespace cli
