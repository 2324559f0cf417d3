// startupEditorParts.h - a device with a startup command in each list, and the editor of these.
#pragma once

#include "workbench/editorParts.h"
#include "workbench/startupeditwin.h"
#include "workbench/tabFixture.h"

#include <cstdint>

/// Fields of the editor, from top to bottom.
inline const QStringList startupFields{"Transition", "Index", "SubIndex", "Datalen", "Data", "Comment", "bIfCA"};

// Rows of the device below.
inline constexpr int coeRow = 0;
inline constexpr int eoeRow = 1;
inline constexpr int moduleRow = 2;

/// A command as an ESI file may give it; its text is not the one that the workbench would write.
template<typename Command> Command commandToEdit(const char* comment)
{
    Command command;
    command.Transition = PS;
    command.SubIndex = 1;
    command.DataBytes = 2;
    command.Data = 3;
    command.strData = "as given";
    command.Comment = comment;
    command.bIfCA = 1;
    command.m_CADataList = {7, 8};
    return command;
}

/// A device with a command in each of the three lists.
inline struct_EtherCatDevice deviceToEdit()
{
    struct_EtherCatDevice device = deviceNamed("Drive");
    device.Mailbox.COE.InitCmd.vinitcmd = {commandToEdit<struct_InitCmd>("of CoE")};
    device.Mailbox.COE.InitCmd.vinitcmd[0].Index = 0x6060;
    device.Mailbox.EOE.InitCmd.vinitcmd = {commandToEdit<struct_InitCmd>("of EoE")};
    device.Mailbox.EOE.InitCmd.vinitcmd[0].Index = 0x6061;
    device.mMailbox.COE.vinitcmd = {commandToEdit<struct_moduleInitCmd>("of a module")};
    device.mMailbox.COE.vinitcmd[0].indexAttributes.index = 0x6062;
    device.mMailbox.COE.vinitcmd[0].Instances = 4;
    return device;
}

// The commands of the shown device.

inline struct_InitCmd& coeCommand(std::size_t device = 0)
{
    return loadedDevice(device).Mailbox.COE.InitCmd.vinitcmd.at(0);
}

inline struct_InitCmd& eoeCommand()
{
    return loadedDevice().Mailbox.EOE.InitCmd.vinitcmd.at(0);
}

inline struct_moduleInitCmd& moduleCommand()
{
    return loadedDevice().mMailbox.COE.vinitcmd.at(0);
}

/// Texts of the fields.
inline QStringList textsOf(const QWidget& editor)
{
    QStringList texts;
    for (const QString& field : startupFields)
        texts.append(fieldText(editor, field.toLatin1().constData()));
    return texts;
}
