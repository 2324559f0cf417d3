// startupBuilders.h - a device with startup commands in all three lists, and a look at these lists.
#pragma once

#include "workbench/tabFixture.h"

/// The lists of the device "1, 2 | 3 | 4, 5", each command known by its value.
inline struct_EtherCatDevice deviceWithCommands()
{
    struct_EtherCatDevice device = deviceNamed("Drive");
    device.Mailbox.COE.InitCmd.vinitcmd.resize(2);
    device.Mailbox.EOE.InitCmd.vinitcmd.resize(1);
    device.mMailbox.COE.vinitcmd.resize(2);
    device.Mailbox.COE.InitCmd.vinitcmd[0].strData = "1";
    device.Mailbox.COE.InitCmd.vinitcmd[1].strData = "2";
    device.Mailbox.EOE.InitCmd.vinitcmd[0].strData = "3";
    device.mMailbox.COE.vinitcmd[0].strData = "4";
    device.mMailbox.COE.vinitcmd[1].strData = "5";
    return device;
}

/// Values of a list, "new" for a command without one.
template<typename Commands> QString startupValues(const Commands& commands)
{
    QStringList values;
    for (const auto& command : commands)
        values.append(command.strData.empty() ? "new" : QString::fromStdString(command.strData));
    return values.join(' ');
}

/// The lists of the shown device as "CoE|EoE|modules".
inline QString startupLists()
{
    const struct_EtherCatDevice& device = loadedDevice();
    return QStringList{startupValues(device.Mailbox.COE.InitCmd.vinitcmd),
                       startupValues(device.Mailbox.EOE.InitCmd.vinitcmd), startupValues(device.mMailbox.COE.vinitcmd)}
        .join('|');
}
