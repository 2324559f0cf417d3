// showRun.h - runs `ktl show`, and takes its JSON apart.
#pragma once

#include "cli/commandInProcess.h"
#include "cli/workplace.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QJsonParseError>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

/// Names of all samples.
inline QStringList sampleNames()
{
    return {"bus-coupler.xml", "dual-axis-drive.xml", "io-block.xml", "oversampling-terminal.xml", "servo-drive.xml"};
}

/// Runs `ktl show` inside the test.
inline CommandRun runShow(const QStringList& arguments)
{
    return runHere(QStringList{"show"} + arguments);
}

/// Runs `ktl show` as a program with streams of its own.
inline CommandRun runShow(const QStringList& arguments, const CommandStart& start)
{
    return runKtl(QStringList{"show"} + arguments, start);
}

/// The files of a run with `--json`; empty if the output is no JSON.
inline QJsonArray filesIn(const CommandRun& run)
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(run.output, &error);
    return error.error == QJsonParseError::NoError ? document.object().value("files").toArray() : QJsonArray();
}

/// The one file of `ktl show --json FILE`.
inline QJsonObject shownFile(const QString& path)
{
    return filesIn(runShow({"--json", path})).at(0).toObject();
}

/// Writes a file. @return  its path
inline QString writtenFile(const QTemporaryDir& folder, const QString& name, const QByteArray& content)
{
    QFile file(folder.filePath(name));
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size() ? file.fileName() : QString();
}

/// A JSON text as an object, for expected values.
inline QJsonObject objectOf(const QByteArray& json)
{
    return QJsonDocument::fromJson(json).object();
}
