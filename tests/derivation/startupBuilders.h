// startupBuilders.h - devices and modules in words, and startup commands as lines of text.
#pragma once

#include "esi/derivation/startupCommands.h"
#include "model/valueTexts.h"

#include <QHash>
#include <QString>
#include <QStringList>

#include <cstdint>
#include <utility>
#include <vector>

/// Ends the test program unless the builders know a word.
inline void expectKnown(bool known, const QString& word)
{
    if (!known)
        qFatal("The builders do not know \"%s\".", qPrintable(word));
}

inline std::uint16_t hexadecimal16(const QString& text)
{
    bool isNumber = false;
    const std::uint16_t number = text.toUShort(&isNumber, 16);
    expectKnown(isNumber, text);
    return number;
}

inline void setIndex(struct_PDOList& pdo, std::uint16_t index)
{
    pdo.IndexAttributes.Index = index;
}

inline void setIndex(modulePdo& pdo, std::uint16_t index)
{
    pdo.indexAttributes.index = index;
}

inline void addEntry(struct_PDOList& pdo, std::uint16_t index, std::uint16_t subIndex, int bits)
{
    struct_EntryPDOContent entry;
    entry.Index = index;
    entry.SubIndex = subIndex;
    entry.Bitlen = bits;
    pdo.Entry.vPdo_c.push_back(entry);
}

inline void addEntry(modulePdo& pdo, std::uint16_t index, std::uint16_t subIndex, int bits)
{
    struct_moduleEntry entry;
    entry.indexAttributes.index = index;
    entry.SubIndex = subIndex;
    entry.BitLen = bits;
    pdo.vEntry.push_back(entry);
}

/// A PDO in words: its index, then "@2" for its sync manager (none without), "fixed", and one "7000:1:16" per entry:
/// object index and sub-index in hexadecimal, bits in decimal.
template<typename Pdo> Pdo pdoFrom(const QString& text)
{
    QStringList words = text.split(' ');
    Pdo pdo;
    setIndex(pdo, hexadecimal16(words.takeFirst()));
    for (const QString& word : words) {
        const QStringList parts = word.split(':');
        if (word == "fixed") {
            pdo.Attributes.Fixed = true;
        } else if (word.startsWith('@')) {
            pdo.Attributes.SM = word.mid(1).toInt();
        } else {
            expectKnown(parts.size() == 3, word);
            addEntry(pdo, hexadecimal16(parts.at(0)), hexadecimal16(parts.at(1)), parts.at(2).toInt());
        }
    }
    return pdo;
}

/// A sync manager in words: number, direction, and "virtual" if it is. A direction without a name is a number.
inline struct_SM syncManagerFrom(const QString& text)
{
    const QHash<QString, std::uint8_t> directions{{"mailboxOut", 1}, {"mailboxIn", 2}, {"outputs", 3}, {"inputs", 4}};
    const QString direction = text.section(' ', 1, 1);
    struct_SM made;
    made.SM = static_cast<std::uint8_t>(text.section(' ', 0, 0).toUInt());
    made.Smtype = directions.value(direction, static_cast<std::uint8_t>(direction.toUInt()));
    made.Attributes.m_Virtual = text.endsWith(" virtual") ? 2 : 0; // any number but 0 counts
    return made;
}

/// Sets the flags of the mailboxes: "assign", "config" and "complete" of CoE, "ip" and "mac" of EoE.
inline void setFlags(DeviceMailbox& mailbox, const QString& text)
{
    CoeAttributes& coe = mailbox.COE.Attributes;
    EoeAttributes& eoe = mailbox.EOE.Attributes;
    const QHash<QString, bool*> flags{{"assign", &coe.PdoAssign},
                                      {"config", &coe.PdoConfig},
                                      {"complete", &coe.CompleteAccess},
                                      {"ip", &eoe.IP},
                                      {"mac", &eoe.MAC}};
    for (const QString& word : text.split(' ', Qt::SkipEmptyParts)) {
        expectKnown(flags.contains(word), word);
        *flags.value(word) = true;
    }
}

/// A device in lines that start with "flags", "SM", "Rx", "Tx", "mRx", "mTx" (PDOs of the device and of its modules)
/// or "slot" (one that is empty).
inline struct_EtherCatDevice deviceFrom(const QStringList& lines)
{
    struct_EtherCatDevice device;
    for (const QString& line : lines) {
        const QString kind = line.section(' ', 0, 0);
        const QString rest = line.section(' ', 1);
        if (kind == "flags")
            setFlags(device.Mailbox, rest);
        else if (kind == "SM")
            device.vSM.push_back(syncManagerFrom(rest));
        else if (kind == "slot")
            device.Slots.vslot.emplace_back();
        else if (kind == "Rx" || kind == "Tx")
            (kind == "Rx" ? device.RxPdo : device.TxPdo).vpdo.push_back(pdoFrom<struct_PDOList>(rest));
        else if (kind == "mRx" || kind == "mTx")
            (kind == "mRx" ? device.mRxPdo : device.mTxPdo).mpdo.push_back(pdoFrom<modulePdo>(rest));
        else
            expectKnown(false, line);
    }
    return device;
}

/// Lines of a device with the usual four sync managers, each at the position of its number.
inline QStringList usualDevice(const QString& flags, const QStringList& moreLines = {})
{
    return QStringList{"flags " + flags, "SM 0 mailboxOut", "SM 1 mailboxIn", "SM 2 outputs", "SM 3 inputs"}
           + moreLines;
}

/// Generates the startup commands of a device as it is done when a file is loaded.
inline void generateStartup(struct_EtherCatDevice& device)
{
    appendDeviceStartup(device);
    appendModuleStartup(device, atLoadTime);
}

inline struct_EtherCatDevice withStartup(struct_EtherCatDevice device)
{
    generateStartup(device);
    return device;
}

/// All that device and module commands have in common, in a line:
/// "PS 1600:1 4B 70000110 '0x70000110' download pdo 0x1600 entry" (transition, index in hexadecimal and sub-index in
/// decimal, bytes, data in hexadecimal, text of the data, comment). A complete access has "CA1{value,value}" after the
/// data, in hexadecimal.
template<typename Command> QString commonLine(const Command& command, std::uint16_t index)
{
    const QHash<int, QString> transitions{{1, "IP"}, {2, "PS"}, {3, "IP_PS"}};
    QString line = QStringLiteral("%1 %2:%3 %4B %5 ")
                       .arg(transitions.value(command.Transition, QString::number(command.Transition)))
                       .arg(index, 0, 16)
                       .arg(command.SubIndex)
                       .arg(command.DataBytes)
                       .arg(command.Data, 0, 16);
    if (command.bIfCA != 0 || !command.m_CADataList.empty()) {
        QStringList values;
        for (const unsigned int value : command.m_CADataList)
            values << QString::number(value, 16);
        line += QStringLiteral("CA%1{%2} ").arg(command.bIfCA).arg(values.join(','));
    }
    return line + '\'' + QString::fromStdString(command.strData) + "' " + QString::fromStdString(command.Comment);
}

inline QString lineOf(const struct_InitCmd& command)
{
    return commonLine(command, command.Index);
}

/// A module's command has, before the rest, "[slot 3]" if it came from a place other than 0, and a word per flag.
inline QString lineOf(const struct_moduleInitCmd& command)
{
    const ModuleInitCmdIndex& index = command.indexAttributes;
    QString line;
    if (command.Instances != 0)
        line += QStringLiteral("[slot %1] ").arg(command.Instances);
    line += index.DependOnSlot ? "slotwise " : "";
    line += index.DependOnSlotGroup ? "groupwise " : "";
    line += index.AdaptAutomatically ? "adapted " : "";
    return line + commonLine(command, index.index);
}

template<typename Command> QStringList linesOf(const std::vector<Command>& commands)
{
    QStringList lines;
    for (const Command& command : commands)
        lines << lineOf(command);
    return lines;
}

inline QStringList deviceLines(const struct_EtherCatDevice& device)
{
    return linesOf(device.Mailbox.COE.InitCmd.vinitcmd);
}

inline QStringList eoeLines(const struct_EtherCatDevice& device)
{
    return linesOf(device.Mailbox.EOE.InitCmd.vinitcmd);
}

inline QStringList moduleLines(const struct_EtherCatDevice& device)
{
    return linesOf(device.mMailbox.COE.vinitcmd);
}

/// A command that a file declares; its line is "IP 8000:0 0B 0 '' <comment>".
inline struct_InitCmd declaredCommand(const char* comment)
{
    struct_InitCmd command;
    command.Transition = IP;
    command.Index = 0x8000;
    command.Comment = comment;
    return command;
}

inline struct_moduleInitCmd declaredModuleCommand(const char* comment)
{
    struct_moduleInitCmd command;
    command.Transition = IP;
    command.indexAttributes.index = 0x8000;
    command.Comment = comment;
    return command;
}

/// A module with an ident, a name, and one output PDO in the words of `pdoFrom`, if there are any.
inline struct_module moduleFrom(std::uint32_t ident, const char* name, const QString& outputPdo = {})
{
    struct_module module;
    module.TypeAttributes.ModuleIdent = ident;
    module.Name = name;
    if (!outputPdo.isEmpty())
        module.RxPdo.vpdo.push_back(pdoFrom<modulePdo>(outputPdo));
    return module;
}

/// A module that is in a slot.
inline struct_slotmodule placedModule(int place, struct_module module)
{
    struct_slotmodule placed;
    placed.Instances = place;
    placed.module = std::move(module);
    return placed;
}

/// Sizes of the five lists that modules fill: output PDOs, input PDOs, commands, objects, types.
inline QString listSizes(const struct_EtherCatDevice& device)
{
    return QStringLiteral("%1 %2 %3 %4 %5")
        .arg(device.mRxPdo.mpdo.size())
        .arg(device.mTxPdo.mpdo.size())
        .arg(device.mMailbox.COE.vinitcmd.size())
        .arg(device.mDictionary.mobject.size())
        .arg(device.mDictionary.mdatatype.size());
}
