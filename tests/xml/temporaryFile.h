// temporaryFile.h - files with a given content in a folder that goes with the test.
#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>
#include <QTemporaryDir>
#include <QtGlobal>

/// Writes `content` to a file in `folder`.
/// @return  path of the file
[[nodiscard]] inline QString writeFile(const QTemporaryDir& folder, const QString& name, const QByteArray& content)
{
    QFile file(folder.filePath(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("cannot write the test file %s", qPrintable(file.fileName()));
    return file.fileName();
}
