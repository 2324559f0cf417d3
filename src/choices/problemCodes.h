// problemCodes.h - the kinds of mistakes in choices files, each with the stable name that ends its line.
#pragma once

#include <QLatin1String>
#include <QStringList>

namespace choices {

/// What a mistake is about. Scripts rely on the names: a kind may be added, none is renamed.
enum class ProblemCode
{
    Size, ///< a file that is too large to be read, or to be held in memory
    Json, ///< no JSON, or a key twice in one object
    Form, ///< an unknown key, one that is missing, or a value that the key does not take
    NoDevice, ///< a device that the files do not have
    SeveralDevices, ///< a name that several devices have
    DeviceTwice, ///< a device that is in the list already
    Setting, ///< drive axes, mode or module index that the device does not take
    Module, ///< a module that the file does not have, or that its name does not tell from others
    ModuleType, ///< modules of a device whose type takes none by hand
    ModulePlace, ///< a place that the device does not have, that is filled already, or that the module does not fit
    Link, ///< an entry that is not there or linked already, or a link that it does not take
    Row, ///< a row of PDOs or startup commands that is not there, or a command that is chosen already
    StartupData, ///< a value that its startup command cannot send
    Check, ///< something else is there than the choice says
    SyncManager, ///< a PDO on a sync manager that the device does not declare
};

/// Name of a kind, as it ends the line of a mistake: "module-place".
[[nodiscard]] QLatin1String nameOf(ProblemCode code);

/// Names of all kinds, in the order of the enumeration.
[[nodiscard]] QStringList problemCodeNames();

} // namespace choices
