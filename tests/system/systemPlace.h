// systemPlace.h - a folder for a test of src/system, whose functions take paths as the system does.
#pragma once

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <string>

/// A folder that goes with the test.
class SystemPlace
{
public:
    [[nodiscard]] std::string folder() const { return QFile::encodeName(m_folder.path()).toStdString(); }
    [[nodiscard]] std::string path(const char* name) const { return folder() + '/' + name; }

    /// Makes a file.
    /// @return  its path, empty if it could not be made
    [[nodiscard]] std::string make(const char* name, const QByteArray& content) const
    {
        QFile file(m_folder.filePath(QString::fromLatin1(name)));
        return file.open(QIODevice::WriteOnly) && file.write(content) == content.size() ? path(name) : std::string();
    }

    /// The bytes of a file; a text that no test expects if it cannot be read.
    [[nodiscard]] QByteArray content(const char* name) const
    {
        QFile file(m_folder.filePath(QString::fromLatin1(name)));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("cannot be read");
    }

    /// Names of all files and folders, hidden ones too, in alphabetical order.
    [[nodiscard]] QStringList names() const
    {
        return QDir(m_folder.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    }

private:
    QTemporaryDir m_folder;
};
