// projectSources.h - the sources of this project, for tests that look into them.
#pragma once

#include <QDirIterator>
#include <QFile>
#include <QString>
#include <QStringList>

/// Paths of the C++ files under a folder of the project.
inline QStringList sourcesUnder(const char* folder, const QStringList& patterns = {"*.h", "*.cpp"})
{
    QStringList paths;
    QDirIterator files(QStringLiteral(KINETRA_SOURCE_DIR "/") + QLatin1String(folder), patterns, QDir::Files,
                       QDirIterator::Subdirectories);
    while (files.hasNext())
        paths.append(files.next());
    return paths;
}

/// The text of a file; empty if it cannot be read.
inline QString contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}
