// commandRun.h - runs the command `ktl` as a build server would: for all that is about the process, its streams and
// signals. What is not runs faster by `commandInProcess.h`.
#pragma once

#include <QByteArray>
#include <QProcess>
#include <QProcessEnvironment>
#include <QStringList>

#include <cstddef>

/// How a run of the command ended.
struct CommandRun
{
    bool hasEnded = false; ///< false if it could not be started, or had to be stopped
    bool hasCrashed = false; ///< it ended by a signal, so it has no exit code
    int exitCode = -1;
    QByteArray output;
    QByteArray errors;
    std::size_t throughDocuments = 0; ///< ESI files that were not plain; known of runs inside the test alone
};

/// What a run starts from.
struct CommandStart
{
    QString folder; ///< the folder it works in
    QByteArray input; ///< standard input, through a pipe
    QString inputFile; ///< a file that is standard input instead
    QString outputFile; ///< a file that takes standard output; the run has none to show then
    QStringList variables; ///< "NAME=value", besides those of the system
    QString program = QStringLiteral(KTL_PROGRAM);
};

/// Variables that would change what the command does: by which a program would find a display, or would do without
/// one, and the time of an export.
inline QStringList strayVariables()
{
    return {QStringLiteral("DISPLAY"),         QStringLiteral("WAYLAND_DISPLAY"), QStringLiteral("QT_QPA_PLATFORM"),
            QStringLiteral("XDG_RUNTIME_DIR"), QStringLiteral("XAUTHORITY"),      QStringLiteral("SOURCE_DATE_EPOCH")};
}

/// Runs the command to its end, for which it has five minutes; no display is known to it.
inline CommandRun runKtl(const QStringList& arguments, const CommandStart& start)
{
    constexpr int maxMilliseconds = 5 * 60 * 1000; // large files take minutes under the sanitizers
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const QString& name : strayVariables())
        environment.remove(name);
    for (const QString& variable : start.variables)
        environment.insert(variable.section(QLatin1Char('='), 0, 0), variable.section(QLatin1Char('='), 1));
    QProcess process;
    process.setProcessEnvironment(environment);
    process.setWorkingDirectory(start.folder);
    if (!start.inputFile.isEmpty())
        process.setStandardInputFile(start.inputFile);
    if (!start.outputFile.isEmpty())
        process.setStandardOutputFile(start.outputFile);
    process.start(start.program, arguments);
    if (start.inputFile.isEmpty())
        process.write(start.input);
    process.closeWriteChannel();
    CommandRun run;
    run.hasEnded = process.waitForFinished(maxMilliseconds);
    if (!run.hasEnded)
        process.kill();
    process.waitForFinished(maxMilliseconds);
    run.hasCrashed = process.exitStatus() == QProcess::CrashExit;
    run.exitCode = run.hasCrashed ? -1 : process.exitCode();
    run.output = process.readAllStandardOutput();
    run.errors = process.readAllStandardError();
    return run;
}

/// As above, in a folder and without input.
inline CommandRun runKtl(const QStringList& arguments, const QString& folder = {})
{
    CommandStart start;
    start.folder = folder;
    return runKtl(arguments, start);
}
