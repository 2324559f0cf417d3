// showRun.h - runs `ktl show` as a user would, and takes its JSON apart.
#pragma once

#include "cli/commandRun.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QJsonParseError>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

/// Path of a sample.
inline QString samplePath(const QString& name)
{
    return QStringLiteral(KINETRA_SOURCE_DIR "/samples/") + name;
}

/// Names of all samples.
inline QStringList sampleNames()
{
    return {"bus-coupler.xml", "dual-axis-drive.xml", "io-block.xml", "oversampling-terminal.xml", "servo-drive.xml"};
}

/// Where a run reads and writes; an empty path is a pipe.
struct ShowStreams
{
    QString input;
    QString output;
};

/// Runs `ktl show` with standard input from a file, and standard output to one.
inline CommandRun runShow(const QStringList& arguments, const ShowStreams& streams = {})
{
    constexpr int minute = 60 * 1000;
    QProcess process;
    if (!streams.input.isEmpty())
        process.setStandardInputFile(streams.input);
    if (!streams.output.isEmpty())
        process.setStandardOutputFile(streams.output);
    process.start(QStringLiteral(KTL_PROGRAM), QStringList{"show"} + arguments);
    CommandRun run;
    process.closeWriteChannel();
    run.hasEnded = process.waitForFinished(minute);
    run.hasCrashed = !run.hasEnded || process.exitStatus() == QProcess::CrashExit;
    run.exitCode = run.hasCrashed ? -1 : process.exitCode();
    run.output = process.readAllStandardOutput();
    run.errors = process.readAllStandardError();
    return run;
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
