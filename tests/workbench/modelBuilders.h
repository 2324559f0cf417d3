// modelBuilders.h - records and small ESI files as the tests of the window need them.
#pragma once

#include "model/XMLParsing.h"

#include <QDir>
#include <QFile>
#include <QString>
#include <QStringList>

#include <cstdint>
#include <initializer_list>
#include <string>

/// A device with a name and nothing else.
inline struct_EtherCatDevice deviceNamed(const std::string& name)
{
    struct_EtherCatDevice device;
    device.Name = name;
    return device;
}

/// A device of a class, by its value in `enum_KTL_DEVICE_TYPE`.
inline struct_EtherCatDevice deviceOfType(int type, const std::string& name = "Drive")
{
    struct_EtherCatDevice device = deviceNamed(name);
    device.m_iDeviceType = static_cast<std::uint16_t>(type);
    return device;
}

/// A loaded file with devices that have names and nothing else.
inline struct_FilenameDevice fileWith(const std::string& path, std::initializer_list<const char*> deviceNames)
{
    struct_FilenameDevice file;
    file.xmlfilepath = path;
    for (const char* name : deviceNames)
        file.device.push_back(deviceNamed(name));
    return file;
}

/// A PDO with one entry on a sync manager.
inline struct_PDOList pdoOn(int syncManager)
{
    struct_PDOList pdo;
    pdo.Attributes.SM = syncManager;
    pdo.Entry.vPdo_c.resize(1);
    return pdo;
}

/// An ESI document with devices that have names.
inline QString esiText(const QStringList& deviceNames, const QString& insideEachDevice = {})
{
    QString devices;
    for (const QString& name : deviceNames)
        devices += QStringLiteral("<Device><Type>T</Type><Name>%1</Name>%2</Device>").arg(name, insideEachDevice);
    return QStringLiteral("<EtherCATInfo><Vendor><Id>1</Id></Vendor><Descriptions><Devices>%1</Devices></Descriptions>"
                          "</EtherCATInfo>")
        .arg(devices);
}

/// Writes a file into a folder. @return  its path, empty if that failed
inline QString writeFile(const QDir& folder, const QString& name, const QByteArray& content)
{
    QFile file(folder.filePath(name));
    const bool written = file.open(QIODevice::WriteOnly) && file.write(content) == content.size();
    return written ? file.fileName() : QString();
}

inline QString writeFile(const QDir& folder, const QString& name, const QString& content)
{
    return writeFile(folder, name, content.toUtf8());
}

/// Content of a file; null if there is no such file.
inline QByteArray contentOfFile(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}
