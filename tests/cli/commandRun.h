// commandRun.h - runs the command `ktl` as a build server would.
#pragma once

#include <QByteArray>
#include <QProcess>
#include <QProcessEnvironment>
#include <QStringList>

/// How a run of the command ended.
struct CommandRun
{
    bool hasEnded = false; ///< false if it could not be started, or had to be stopped
    bool hasCrashed = false; ///< it ended by a signal, so it has no exit code
    int exitCode = -1;
    QByteArray output;
    QByteArray errors;
};

/// The variables by which a program would find a display, or would be told to do without one.
inline QStringList displayVariables()
{
    return {QStringLiteral("DISPLAY"), QStringLiteral("WAYLAND_DISPLAY"), QStringLiteral("QT_QPA_PLATFORM"),
            QStringLiteral("XDG_RUNTIME_DIR"), QStringLiteral("XAUTHORITY")};
}

/// Runs the command to its end; no display is known to it.
/// @param folder  the folder it works in
inline CommandRun runKtl(const QStringList& arguments, const QString& folder = {})
{
    constexpr int minute = 60 * 1000;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const QString& name : displayVariables())
        environment.remove(name);
    QProcess process;
    process.setProcessEnvironment(environment);
    process.setWorkingDirectory(folder);
    process.start(QStringLiteral(KTL_PROGRAM), arguments);
    CommandRun run;
    run.hasEnded = process.waitForFinished(minute);
    if (!run.hasEnded)
        process.kill();
    process.waitForFinished(minute);
    run.hasCrashed = process.exitStatus() == QProcess::CrashExit;
    run.exitCode = run.hasCrashed ? -1 : process.exitCode();
    run.output = process.readAllStandardOutput();
    run.errors = process.readAllStandardError();
    return run;
}
