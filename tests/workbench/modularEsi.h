// modularEsi.h - ESI texts of modular devices, put together by a test from slots and modules.
#pragma once

#include <QString>
#include <QStringList>

/// An `Index` element.
/// @param dependsOn  its attributes, such as DependOnSlot
inline QString indexText(const char* index, const char* dependsOn = "")
{
    return QStringLiteral("<Index %1>%2</Index>").arg(QLatin1String(dependsOn), QLatin1String(index));
}

inline QString entryText(const QString& index, int subIndex, int bits)
{
    return QStringLiteral("<Entry>%1<SubIndex>%2</SubIndex><BitLen>%3</BitLen></Entry>")
        .arg(index)
        .arg(subIndex)
        .arg(bits);
}

/// @param tag  RxPdo or TxPdo
inline QString pdoText(const char* tag, const char* attributes, const QString& index, const QStringList& entries)
{
    return QStringLiteral("<%1 %2>%3%4</%1>")
        .arg(QLatin1String(tag), QLatin1String(attributes), index, entries.join(QString()));
}

inline QString initCmdText(const char* transition, const QString& index, int subIndex, const char* data)
{
    return QStringLiteral("<InitCmd><Transition>%1</Transition>%2<SubIndex>%3</SubIndex><Data>%4</Data></InitCmd>")
        .arg(QLatin1String(transition), index, QString::number(subIndex), QLatin1String(data));
}

/// @param type     attributes of the `Type` element
/// @param inside   PDOs and the like
inline QString moduleText(const char* type, const char* name, const QString& inside, const QStringList& commands = {})
{
    return QStringLiteral("<Module><Type %1>T</Type><Name>%2</Name>%3<Mailbox><CoE>%4</CoE></Mailbox></Module>")
        .arg(QLatin1String(type), QLatin1String(name), inside, commands.join(QString()));
}

inline QString defaultIdent(const char* number)
{
    return QStringLiteral("<ModuleIdent Default=\"1\">%1</ModuleIdent>").arg(QLatin1String(number));
}

inline QString ident(const char* number)
{
    return QStringLiteral("<ModuleIdent>%1</ModuleIdent>").arg(QLatin1String(number));
}

inline QString slotText(const char* attributes, const QString& idents)
{
    return QStringLiteral("<Slot %1><Name>S</Name>%2</Slot>").arg(QLatin1String(attributes), idents);
}

/// One device of a file of vendor 0x77: product 17, revision 0x20, serial 5, name "Modular", two mailbox sync managers
/// of 64 bytes, outputs and inputs.
struct ModularDevice
{
    const char* profile; ///< its number
    const char* coe; ///< attributes of the `CoE` element
    QString ownPdos;
    const char* slotsAttributes;
    QString slotTexts;
    QString modules; ///< of the file, with the comments that group them
};

inline QString modularText(const ModularDevice& device)
{
    return QStringLiteral(
               "<EtherCATInfo><Vendor><Id>#x77</Id></Vendor><Descriptions><Devices><Device>"
               "<Type ProductCode=\"17\" RevisionNo=\"#x20\" SerialNo=\"5\">T</Type><Name>Modular</Name>"
               "<Profile><ProfileNo>%1</ProfileNo></Profile>"
               "<Sm DefaultSize=\"64\" StartAddress=\"#x1000\" ControlByte=\"#x26\" Enable=\"1\">MBoxOut</Sm>"
               "<Sm DefaultSize=\"64\" StartAddress=\"#x1080\" ControlByte=\"#x22\" Enable=\"1\">MBoxIn</Sm>"
               "<Sm StartAddress=\"#x1100\" ControlByte=\"#x64\" Enable=\"1\">Outputs</Sm>"
               "<Sm StartAddress=\"#x1200\" ControlByte=\"#x20\" Enable=\"1\">Inputs</Sm>"
               "%3<Mailbox><CoE %2/></Mailbox><Slots %4>%5</Slots></Device></Devices><Modules>%6</Modules>"
               "</Descriptions></EtherCATInfo>")
        .arg(QLatin1String(device.profile), QLatin1String(device.coe), device.ownPdos,
             QLatin1String(device.slotsAttributes), device.slotTexts, device.modules);
}
