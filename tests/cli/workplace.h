// workplace.h - a folder for one test of the command, and the files in it.
#pragma once

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

/// Path of an ESI file written for this project.
inline QString sample(const QString& name = QStringLiteral("io-block.xml"))
{
    return QStringLiteral(KINETRA_SOURCE_DIR "/samples/") + name;
}

/// An ESI file with the given text in its list of devices.
inline QByteArray esiWith(const QByteArray& devices)
{
    return "<EtherCATInfo>\n<Vendor><Id>#x7E570009</Id></Vendor>\n<Descriptions><Devices>\n" + devices
           + "\n</Devices></Descriptions>\n</EtherCATInfo>\n";
}

/// The bytes of a file; a text that no test expects if it cannot be read.
inline QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("cannot be read");
}

/// A folder that goes with the test.
class Workplace
{
public:
    [[nodiscard]] QString folder() const { return m_folder.path(); }
    [[nodiscard]] QString path(const QString& name) const { return m_folder.filePath(name); }
    [[nodiscard]] QByteArray content(const QString& name) const { return contentOf(path(name)); }

    /// Makes a file.
    /// @return  its path, empty if it could not be made
    QString make(const QString& name, const QByteArray& content) const
    {
        QFile file(path(name));
        return file.open(QIODevice::WriteOnly) && file.write(content) == content.size() ? file.fileName() : QString();
    }

    /// Names of all files and folders, hidden ones too, in alphabetical order.
    [[nodiscard]] QStringList names() const { return namesIn(m_folder.path()); }
    [[nodiscard]] static QStringList namesIn(const QString& folder)
    {
        return QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    }

private:
    QTemporaryDir m_folder;
};
